#pragma once
// Little-endian numbers and UTF-16LE texts in byte buffers, as the library
// and playlist files store them on every host.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

// Callers check the size: these read exactly 2 or 4 bytes from the front.
inline std::uint16_t LoadLe16(std::span<const std::byte> bytes) {
    return static_cast<std::uint16_t>(std::to_integer<unsigned>(bytes[0]) |
                                      (std::to_integer<unsigned>(bytes[1]) << 8));
}

inline std::uint32_t LoadLe32(std::span<const std::byte> bytes) {
    return std::uint32_t{LoadLe16(bytes)} | (std::uint32_t{LoadLe16(bytes.subspan(2))} << 16);
}

inline void AppendLe16(std::vector<std::byte>& out, std::uint16_t value) {
    out.push_back(static_cast<std::byte>(value & 0xFF));
    out.push_back(static_cast<std::byte>(value >> 8));
}

inline void AppendLe32(std::vector<std::byte>& out, std::uint32_t value) {
    AppendLe16(out, static_cast<std::uint16_t>(value));
    AppendLe16(out, static_cast<std::uint16_t>(value >> 16));
}

// The text's units followed by a NUL unit.
inline void AppendUtf16Z(std::vector<std::byte>& out, std::u16string_view text) {
    if constexpr (std::endian::native == std::endian::little) {
        const std::size_t at = out.size();
        out.resize(at + text.size() * 2);
        std::memcpy(out.data() + at, text.data(), text.size() * 2);
    } else {
        for (char16_t c : text)
            AppendLe16(out, c);
    }
    AppendLe16(out, 0);
}

// A UTF-16LE text of whole units, ending at the first NUL unit or at the end
// of the bytes (an odd last byte is dropped). Replaces the contents of out,
// reusing its storage.
inline void AssignUtf16Z(std::span<const std::byte> bytes, std::u16string& out) {
    const std::size_t units = bytes.size() / 2;
    std::size_t length = 0;
    while (length < units && (bytes[2 * length] != std::byte{0} || bytes[2 * length + 1] != std::byte{0}))
        ++length;
    out.resize(length);
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(out.data(), bytes.data(), length * 2);
    } else {
        for (std::size_t i = 0; i < length; ++i)
            out[i] = LoadLe16(bytes.subspan(2 * i));
    }
}

inline std::u16string LoadUtf16Z(std::span<const std::byte> bytes) {
    std::u16string text;
    text.reserve(bytes.size() / 2);
    AssignUtf16Z(bytes, text);
    return text;
}

} // namespace zelvor
