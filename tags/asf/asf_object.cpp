#include "tags/asf/asf_object.h"

#include <array>

#include "bytes/byte_cursor.h"

namespace zelvor {

std::uint32_t ReadAsfObject(DeviceFile& file, std::uint64_t offset, std::vector<std::byte>& out) {
    out.clear();
    std::array<std::byte, kAsfObjectHeaderSize> header{};
    if (file.ReadAt(offset, header) < header.size())
        return 0;
    ByteCursor cursor(header);
    cursor.Skip(16);
    std::uint64_t size64 = 0;
    cursor.ReadU64Le(size64);
    const auto size = static_cast<std::uint32_t>(size64);
    const std::uint64_t fileSize = file.Size();
    if (size < kAsfObjectHeaderSize || offset > fileSize || size > fileSize - offset)
        return 0;
    out.resize(size);
    if (file.ReadAt(offset, out) < size) {
        out.clear();
        return 0;
    }
    return size;
}

} // namespace zelvor
