#pragma once
// ASF object identifiers: GUIDs as they lie in the file (the first three
// fields little-endian), written here in their usual text form.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace zelvor {

using AsfGuid = std::array<std::uint8_t, 16>;

// From the fields of "AAAAAAAA-BBBB-CCCC-DDDD-EEEEEEEEEEEE".
constexpr AsfGuid MakeAsfGuid(std::uint32_t a, std::uint16_t b, std::uint16_t c, std::uint16_t d,
                              std::uint64_t e) {
    AsfGuid g{};
    for (int i = 0; i < 4; ++i)
        g[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(a >> (8 * i));
    for (int i = 0; i < 2; ++i) {
        g[static_cast<std::size_t>(4 + i)] = static_cast<std::uint8_t>(b >> (8 * i));
        g[static_cast<std::size_t>(6 + i)] = static_cast<std::uint8_t>(c >> (8 * i));
    }
    g[8] = static_cast<std::uint8_t>(d >> 8);
    g[9] = static_cast<std::uint8_t>(d);
    for (int i = 0; i < 6; ++i)
        g[static_cast<std::size_t>(10 + i)] = static_cast<std::uint8_t>(e >> (8 * (5 - i)));
    return g;
}

inline constexpr AsfGuid kAsfHeaderObject =
    MakeAsfGuid(0x75B22630, 0x668E, 0x11CF, 0xA6D9, 0x00AA0062CE6C);
inline constexpr AsfGuid kAsfFilePropertiesObject =
    MakeAsfGuid(0x8CABDCA1, 0xA947, 0x11CF, 0x8EE4, 0x00C00C205365);
inline constexpr AsfGuid kAsfStreamPropertiesObject =
    MakeAsfGuid(0xB7DC0791, 0xA9B7, 0x11CF, 0x8EE6, 0x00C00C205365);
inline constexpr AsfGuid kAsfHeaderExtensionObject =
    MakeAsfGuid(0x5FBF03B5, 0xA92E, 0x11CF, 0x8EE3, 0x00C00C205365);
inline constexpr AsfGuid kAsfContentDescriptionObject =
    MakeAsfGuid(0x75B22633, 0x668E, 0x11CF, 0xA6D9, 0x00AA0062CE6C);
inline constexpr AsfGuid kAsfExtendedContentDescriptionObject =
    MakeAsfGuid(0xD2D0A440, 0xE307, 0x11D2, 0x97F0, 0x00A0C95EA850);
inline constexpr AsfGuid kAsfStreamBitratePropertiesObject =
    MakeAsfGuid(0x7BF875CE, 0x468D, 0x11D1, 0x8D82, 0x006097C9A2B2);
inline constexpr AsfGuid kAsfCodecListObject =
    MakeAsfGuid(0x86D15240, 0x311D, 0x11D0, 0xA3A4, 0x00A0C90348F6);

// True when bytes (at least 16) begin with the GUID.
inline bool IsAsfGuid(std::span<const std::byte> bytes, const AsfGuid& guid) {
    if (bytes.size() < guid.size())
        return false;
    for (std::size_t i = 0; i < guid.size(); ++i) {
        if (static_cast<std::uint8_t>(bytes[i]) != guid[i])
            return false;
    }
    return true;
}

} // namespace zelvor
