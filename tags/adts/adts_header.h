#pragma once
// The fixed header of an ADTS frame (raw AAC), 7 bytes, or 9 with a CRC.

#include <cstdint>
#include <optional>
#include <span>

namespace zelvor {

struct AdtsHeader {
    bool protectionAbsent = true;  // byte 1 bit 0: header of 7 bytes, else 9
    int profile = 0;               // byte 2 bits 7-6 (the object type minus 1)
    int samplingIndex = 0;         // byte 2 bits 5-2
    int channelConfiguration = 0;  // byte 2 bit 0, byte 3 bits 7-6
    std::uint32_t frameLength = 0; // 13 bits, header included, in bytes
    std::uint32_t HeaderLength() const { return protectionAbsent ? 7 : 9; }
};

// The largest frame accepted where a sync is looked for.
inline constexpr std::uint32_t kAdtsMaxSyncFrameLength = 1024;
inline constexpr int kAdtsSamplingIndexCount = 12;

// The header at the start of bytes: 12 sync bits set and a frame at least as
// long as its own header. nullopt otherwise, or when fewer than 7 bytes.
std::optional<AdtsHeader> ParseAdtsHeader(std::span<const std::byte> bytes);

// Where a search may take up the stream: byte 0 is 0xFF, byte 1 is 0xF0 to
// 0xFE, the header parses, the frame is at most 1024 bytes and the sampling
// index is below 12.
bool IsAdtsSyncPoint(std::span<const std::byte> bytes);

// Hz by sampling index (the ISO/IEC 13818-7 table); 0 past index 11.
int AdtsSampleRate(int samplingIndex);

} // namespace zelvor
