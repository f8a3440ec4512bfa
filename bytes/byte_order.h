#pragma once
// Numbers and UTF-16LE texts at the front of byte buffers whose length the
// caller has checked. One vocabulary for the bytes module: Load* reads a
// value from a span, Append* adds one to a growing buffer, and the cursors
// (ByteCursor, FileCursor) Read/Take/Skip with the bounds checked for you.
// The library and playlist files store little-endian on every host.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

inline std::uint8_t ByteAt(std::span<const std::byte> bytes, std::size_t i) {
    return static_cast<std::uint8_t>(bytes[i]);
}

// Callers check the size: these read exactly 2 or 4 bytes from the front.
inline std::uint16_t LoadU16Le(std::span<const std::byte> bytes) {
    return static_cast<std::uint16_t>(std::to_integer<unsigned>(bytes[0]) |
                                      (std::to_integer<unsigned>(bytes[1]) << 8));
}

inline std::uint32_t LoadU32Le(std::span<const std::byte> bytes) {
    return std::uint32_t{LoadU16Le(bytes)} | (std::uint32_t{LoadU16Le(bytes.subspan(2))} << 16);
}

inline void AppendU16Le(std::vector<std::byte>& out, std::uint16_t value) {
    out.push_back(static_cast<std::byte>(value & 0xFF));
    out.push_back(static_cast<std::byte>(value >> 8));
}

inline void AppendU32Le(std::vector<std::byte>& out, std::uint32_t value) {
    AppendU16Le(out, static_cast<std::uint16_t>(value));
    AppendU16Le(out, static_cast<std::uint16_t>(value >> 16));
}

// The text's units followed by a NUL unit.
inline void AppendUtf16Z(std::vector<std::byte>& out, std::u16string_view text) {
    if constexpr (std::endian::native == std::endian::little) {
        const std::size_t at = out.size();
        out.resize(at + text.size() * 2);
        std::memcpy(out.data() + at, text.data(), text.size() * 2);
    } else {
        for (char16_t c : text)
            AppendU16Le(out, c);
    }
    AppendU16Le(out, 0);
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
            out[i] = LoadU16Le(bytes.subspan(2 * i));
    }
}

inline std::u16string LoadUtf16Z(std::span<const std::byte> bytes) {
    std::u16string text;
    text.reserve(bytes.size() / 2);
    AssignUtf16Z(bytes, text);
    return text;
}

inline std::uint32_t LoadU32Be(std::span<const std::byte> bytes) {
    return (std::uint32_t{ByteAt(bytes, 0)} << 24) | (std::uint32_t{ByteAt(bytes, 1)} << 16) |
           (std::uint32_t{ByteAt(bytes, 2)} << 8) | std::uint32_t{ByteAt(bytes, 3)};
}

} // namespace zelvor
