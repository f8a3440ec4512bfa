// The ASF header children the WMA reader takes texts, times and codecs from.
// Each is given the whole object, header included, and reads it through a
// bounded cursor: a length that runs past the object ends the reading and
// keeps what came before.

#include <string>
#include <vector>

#include "tags/asf/analyse_wma_file.h"
#include "tags/asf/asf_object.h"
#include "bytes/byte_cursor.h"
#include "tags/tag_text.h"

namespace zelvor {
namespace {

// A UTF-16LE string cut to what the device's 256-character buffers held.
std::u16string BufferText(std::span<const std::byte> bytes) {
    return DecodeUtf16Le(bytes.first(std::min(bytes.size(), kWmaTextMax * 2)));
}

// A string value of an extended descriptor: copied whole when shorter than
// 256 bytes, otherwise its first 255 bytes into a zeroed buffer, so the last
// character keeps only its low byte.
std::u16string DescriptorText(std::span<const std::byte> value) {
    constexpr std::size_t kMaxValueBytes = 255;
    if (value.size() <= kMaxValueBytes)
        return DecodeUtf16Le(value);
    std::vector<std::byte> cut(value.begin(), value.begin() + kMaxValueBytes);
    cut.push_back(std::byte{0});
    return DecodeUtf16Le(cut);
}

std::uint64_t LittleEndian(std::span<const std::byte> bytes, std::size_t width) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < width && i < bytes.size(); ++i)
        value |= std::uint64_t{ByteAt(bytes, i)} << (8 * i);
    return value;
}

struct Descriptor {
    std::u16string name;
    std::uint16_t type = 0;
    std::u16string text;      // type 0 only
    std::uint64_t number = 0; // types 2 to 5
};

void ApplyDescriptor(WmaFileInfo& info, const Descriptor& d) {
    // Matched as substrings, case-sensitively, first match in this order:
    // "WM/Year", "WM/GenreID" and any name holding "Year" all count.
    std::u16string_view name = d.name;
    auto has = [&](std::u16string_view part) {
        return name.find(part) != std::u16string_view::npos;
    };
    if (has(u"Year")) {
        if (d.type == 1) {
            std::string digits = std::to_string(d.number);
            info.year.assign(digits.begin(), digits.end());
        } else {
            info.year = d.text;
        }
    } else if (has(u"AlbumTitle")) {
        info.album = d.text;
    } else if (has(u"AlbumArtist")) {
        if (info.artist.empty()) // the content description's author wins
            info.artist = d.text;
    } else if (has(u"Genre")) {
        info.genre = d.text;
    } else if (has(u"TrackNumber")) {
        if (d.type >= 2 && d.type <= 5)
            info.track = static_cast<std::int32_t>(d.number);
        else
            info.track = LeadingNumber(d.text);
    }
}

} // namespace

void ReadContentDescription(WmaFileInfo& info, std::span<const std::byte> object) {
    ByteCursor cursor(object);
    std::array<std::uint16_t, 5> lengths{}; // title, author, copyright, description, rating
    if (!cursor.Skip(kAsfObjectHeaderSize))
        return;
    for (std::uint16_t& length : lengths) {
        if (!cursor.ReadU16Le(length))
            return;
    }
    std::u16string* targets[] = {&info.title, &info.artist, &info.comment};
    for (std::size_t i = 0; i < std::size(targets); ++i) {
        std::span<const std::byte> bytes;
        if (!cursor.Take(lengths[i], bytes))
            return;
        *targets[i] = BufferText(bytes);
    }
}

void ReadFileProperties(WmaFileInfo& info, std::span<const std::byte> object) {
    constexpr std::size_t kPlayDuration = 64;
    constexpr std::size_t kFlags = 88;
    constexpr std::uint32_t kBroadcast = 1;
    if (object.size() < kFlags + 4)
        return;
    const auto flags = static_cast<std::uint32_t>(LittleEndian(object.subspan(kFlags), 4));
    if (flags & kBroadcast)
        return;
    // Only the low 32 bits of the 100-ns play duration: files longer than
    // 429 seconds wrap. Preroll is not subtracted. The device's rule.
    const auto low = static_cast<std::uint32_t>(LittleEndian(object.subspan(kPlayDuration), 4));
    info.duration = static_cast<std::int32_t>(low / 10000000u);
}

void ReadExtendedContentDescription(WmaFileInfo& info, std::span<const std::byte> object) {
    ByteCursor cursor(object);
    std::uint16_t count = 0;
    if (!cursor.Skip(kAsfObjectHeaderSize) || !cursor.ReadU16Le(count))
        return;
    for (std::uint16_t i = 0; i < count; ++i) {
        std::uint16_t nameLength = 0;
        std::uint16_t valueLength = 0;
        std::span<const std::byte> name;
        std::span<const std::byte> value;
        Descriptor d;
        if (!cursor.ReadU16Le(nameLength) || !cursor.Take(nameLength, name) ||
            !cursor.ReadU16Le(d.type) || !cursor.ReadU16Le(valueLength) ||
            !cursor.Take(valueLength, value))
            return;
        d.name = BufferText(name);
        switch (d.type) {
        case 0:
            d.text = DescriptorText(value);
            break;
        case 2:
        case 3:
            d.number = LittleEndian(value, 4);
            break;
        case 4:
            d.number = LittleEndian(value, 8);
            break;
        case 5:
            d.number = LittleEndian(value, 2);
            break;
        default:
            break; // byte arrays and unknown types carry nothing we use
        }
        ApplyDescriptor(info, d);
    }
}

bool CodecListIsAudioOnly(std::span<const std::byte> object) {
    constexpr std::size_t kCount = 40; // after the header and a reserved GUID
    constexpr std::uint16_t kAudioCodec = 2;
    ByteCursor cursor(object);
    std::uint32_t count = 0;
    if (!cursor.Seek(kCount) || !cursor.ReadU32Le(count))
        return true;
    for (std::uint32_t i = 0; i < count; ++i) {
        std::uint16_t type = 0;
        std::uint16_t nameChars = 0;
        std::uint16_t descriptionChars = 0;
        std::uint16_t informationBytes = 0;
        if (!cursor.ReadU16Le(type))
            return true;
        if (type != kAudioCodec)
            return false;
        if (!cursor.ReadU16Le(nameChars) || !cursor.Skip(std::size_t{nameChars} * 2) ||
            !cursor.ReadU16Le(descriptionChars) ||
            !cursor.Skip(std::size_t{descriptionChars} * 2) ||
            !cursor.ReadU16Le(informationBytes) || !cursor.Skip(informationBytes))
            return true;
    }
    return true;
}

} // namespace zelvor
