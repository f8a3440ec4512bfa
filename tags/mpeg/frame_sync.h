#pragma once
// The frame sync search of the MP3 analysis.

#include <cstdint>

#include "platform/device_fs.h"

namespace zelvor {

// Positions the search looks at beyond the first: a header must begin within
// the first 10,001 positions after `skip`.
inline constexpr std::uint32_t kMaxSyncSteps = 10000;

struct FrameSync {
    bool found = false;
    std::uint32_t header = 0; // the last 4 bytes looked at, big-endian
    std::uint64_t offset = 0; // file offset of those 4 bytes
};

// Looks for 11 set bits, byte by byte, starting `skip` bytes into the file.
// Nothing else of the header is checked: sync-like bytes in a tag count. A
// file too short for 4 bytes at `skip` gives found == false.
FrameSync FindFrameSync(DeviceFile& file, std::uint64_t skip);

} // namespace zelvor
