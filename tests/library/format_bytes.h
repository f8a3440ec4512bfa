#pragma once
// Test-side spelling of the library and playlist formats, byte by byte, so
// the expected files do not come from the writers under test.

#include <cstdint>
#include <string>
#include <string_view>

namespace zelvor::testing {

inline std::string U16(std::uint16_t v) {
    return {static_cast<char>(v & 0xFF), static_cast<char>(v >> 8)};
}

inline std::string U32(std::uint32_t v) {
    return U16(static_cast<std::uint16_t>(v)) + U16(static_cast<std::uint16_t>(v >> 16));
}

inline std::string Zeros(std::size_t n) {
    return std::string(n, '\0');
}

// UTF-16LE units of the text and a NUL unit.
inline std::string WideZ(std::u16string_view text) {
    std::string out;
    for (char16_t c : text)
        out += U16(c);
    return out + U16(0);
}

inline std::string QdxHeader(std::uint32_t count, std::uint16_t fields = 7) {
    return WideZ(u"QDX100") + Zeros(2) + U32(count) + U16(fields) + Zeros(34);
}

struct StoredTrack {
    std::u16string path, title, album, artist, genre;
    std::uint32_t duration = 0;
    std::uint16_t track = 0;
};

// One record: seven lengths, then the non-empty values.
inline std::string QdxRecord(const StoredTrack& t) {
    std::string lengths, values;
    for (const std::u16string* text : {&t.path, &t.title, &t.album, &t.artist, &t.genre}) {
        lengths += U16(text->empty() ? 0 : static_cast<std::uint16_t>((text->size() + 1) * 2));
        if (!text->empty())
            values += WideZ(*text);
    }
    return lengths + U16(4) + U16(2) + values + U32(t.duration) + U16(t.track);
}

inline std::string MplHeader(std::int32_t count) {
    return WideZ(u"ZLV10") + U32(static_cast<std::uint32_t>(count)) + Zeros(32);
}

inline std::string MplEntry(std::u16string_view path) {
    return U16(static_cast<std::uint16_t>((path.size() + 1) * 2)) + WideZ(path);
}

} // namespace zelvor::testing
