#include "tests/tags/tag_builders.h"

#include <algorithm>

#include "tests/support/test_device.h"

namespace zelvor::testing {
namespace {

std::string LittleEndian(std::uint64_t v, int width) {
    std::string out;
    for (int i = 0; i < width; ++i)
        out.push_back(static_cast<char>((v >> (8 * i)) & 0xFF));
    return out;
}

const std::string kTwoZeros(2, '\0');

} // namespace

std::string Le16(std::uint32_t v) { return LittleEndian(v, 2); }
std::string Le32(std::uint32_t v) { return LittleEndian(v, 4); }
std::string Le64(std::uint64_t v) { return LittleEndian(v, 8); }

std::string Be32(std::uint32_t v) {
    std::string out = LittleEndian(v, 4);
    return {out.rbegin(), out.rend()};
}

std::string SevenBit32(std::uint32_t v) {
    return Be32((v & 0x0FE00000) << 3 | (v & 0x1FC000) << 2 | (v & 0x3F80) << 1 | (v & 0x7F));
}

std::span<const std::byte> AsBytes(std::string_view bytes) { return std::as_bytes(std::span(bytes)); }
MemoryFile MemoryFileOf(std::string_view bytes) { return MemoryFile(AsBytes(bytes)); }

std::string Id3v2Header(std::uint8_t major, std::uint32_t size, std::uint8_t flags) {
    return std::string("ID3") + static_cast<char>(major) + '\0' + static_cast<char>(flags) +
           SevenBit32(size);
}

std::string Id3v2TagBytes(std::uint8_t major, std::string_view body, std::uint8_t flags) {
    return Id3v2Header(major, static_cast<std::uint32_t>(body.size()), flags).append(body);
}

std::string Frame4(std::string_view id, std::string_view body) {
    return Frame4Plain(id, body).replace(4, 4, SevenBit32(static_cast<std::uint32_t>(body.size())));
}

std::string Frame4Plain(std::string_view id, std::string_view body) {
    return (std::string(id) + Be32(static_cast<std::uint32_t>(body.size())) + kTwoZeros).append(body);
}

std::string Frame3(std::string_view id, std::string_view body) {
    return std::string(id) + Be32(static_cast<std::uint32_t>(body.size())).substr(1) +
           std::string(body);
}

std::string Latin1Text(std::string_view text) { return std::string(1, '\0') + std::string(text); }
std::string Utf16Text(std::u16string_view text) { return std::string(1, '\1') + Utf16Le(text, true); }

std::string Id3v1(const Id3v1Fields& f) {
    std::string tag(128, '\0');
    auto put = [&](std::size_t offset, std::size_t size, const std::string& text) {
        tag.replace(offset, std::min(size, text.size()), text.substr(0, size));
    };
    tag.replace(0, 3, "TAG");
    put(3, 30, f.title);
    put(33, 30, f.artist);
    put(63, 30, f.album);
    put(93, 4, f.year);
    put(97, f.track ? 28 : 30, f.comment);
    if (f.track) {
        tag[125] = '\0';
        tag[126] = static_cast<char>(*f.track);
    }
    tag[127] = static_cast<char>(f.genre);
    return tag;
}

std::string MpegHeader(const MpegHeaderBits& b) {
    return Be32(0xFFE00000u | (b.versionBits & 3) << 19 | 1u << 17 | 1u << 16 |
                (b.bitRateIndex & 15) << 12 | (b.padding & 1) << 9);
}

std::string AsfObject(const AsfGuid& guid, std::string_view body) {
    return std::string(guid.begin(), guid.end()) + Le64(24 + body.size()) + std::string(body);
}

std::string AsfHeader(std::uint32_t count, std::string_view children) {
    return AsfObject(kAsfHeaderObject, (Le32(count) + "\x01\x02").append(children));
}

std::string AsfContentDescription(std::u16string_view title, std::u16string_view author,
                                  std::u16string_view copyright) {
    std::string lengths, texts;
    for (std::u16string_view text : {title, author, copyright}) {
        lengths += Le16(static_cast<std::uint32_t>(text.size() * 2 + 2));
        texts += AsfStringValue(text);
    }
    return AsfObject(kAsfContentDescriptionObject, lengths + Le16(0) + Le16(0) + texts);
}

std::string AsfFileProperties(std::uint64_t playDuration, std::uint32_t flags) {
    // File id (16), file size, creation date, packet count (8 each), play
    // duration at 64, send duration, preroll, flags at 88, packet sizes, bit rate.
    std::string body(16, '\x11');
    body += Le64(12345) + Le64(0) + Le64(10) + Le64(playDuration) + Le64(playDuration) +
            Le64(3100) + Le32(flags) + Le32(3200) + Le32(3200) + Le32(128000);
    return AsfObject(kAsfFilePropertiesObject, body);
}

std::string AsfStringValue(std::u16string_view text) { return Utf16Le(text) + kTwoZeros; }

std::string AsfExtendedContent(std::initializer_list<AsfDescriptor> descriptors) {
    std::string body = Le16(static_cast<std::uint32_t>(descriptors.size()));
    for (const AsfDescriptor& d : descriptors) {
        std::string name = AsfStringValue(d.name);
        body += Le16(static_cast<std::uint32_t>(name.size())) + name + Le16(d.type) +
                Le16(static_cast<std::uint32_t>(d.value.size())) + d.value;
    }
    return AsfObject(kAsfExtendedContentDescriptionObject, body);
}

std::string AsfCodecList(std::initializer_list<std::uint16_t> types) {
    std::string body(16, '\0'); // reserved GUID
    body += Le32(static_cast<std::uint32_t>(types.size()));
    for (std::uint16_t type : types) {
        // Name "Codec" and description "About", six units each with the NUL.
        body += Le16(type) + Le16(6) + AsfStringValue(u"Codec") + Le16(6) +
                AsfStringValue(u"About") + Le16(2) + "\x61\x01";
    }
    return AsfObject(kAsfCodecListObject, body);
}

std::string AdtsFrame(const AdtsBits& b) {
    std::string frame(std::max<std::uint32_t>(b.frameLength, 7), '\0');
    frame[0] = '\xFF';
    frame[1] = static_cast<char>(b.protectionAbsent ? 0xF1 : 0xF0);
    frame[2] = static_cast<char>((b.profile & 3) << 6 | (b.samplingIndex & 15) << 2 |
                                 ((b.channels >> 2) & 1));
    frame[3] = static_cast<char>((b.channels & 3) << 6 | ((b.frameLength >> 11) & 3));
    frame[4] = static_cast<char>((b.frameLength >> 3) & 0xFF);
    frame[5] = static_cast<char>((b.frameLength & 7) << 5 | 0x1F);
    frame[6] = static_cast<char>(0xFC);
    return frame;
}

} // namespace zelvor::testing
