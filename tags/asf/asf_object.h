#pragma once
// Reading one ASF object: a 24-byte header (GUID, 64-bit little-endian size
// of the whole object) followed by its body.

#include <cstdint>
#include <vector>

#include "platform/device_fs.h"

namespace zelvor {

inline constexpr std::uint32_t kAsfObjectHeaderSize = 24;

// Reads the object at offset, header included, into out (replacing what it
// held). Only the low 32 bits of the size are used. Returns that size, or 0
// when fewer than 24 bytes came, the size is smaller than the header, or the
// object would reach past the end of the file: a size that lies ends the
// caller's walk and nothing beyond the file is ever allocated.
std::uint32_t ReadAsfObject(DeviceFile& file, std::uint64_t offset, std::vector<std::byte>& out);

} // namespace zelvor
