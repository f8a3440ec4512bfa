#include "tests/tools/media_probe.h"

#include "platform/text.h"

#include <cstring>

namespace zelvor::testing {
namespace {

unsigned At(ByteView b, std::size_t i) {
    return std::to_integer<unsigned>(b[i]);
}

std::uint32_t BigEndian(ByteView b, std::size_t at, int width) {
    std::uint32_t value = 0;
    for (int i = 0; i < width; ++i)
        value = (value << 8) | At(b, at + static_cast<std::size_t>(i));
    return value;
}

bool Matches(ByteView b, std::size_t at, std::string_view text) {
    return at + text.size() <= b.size() &&
           std::memcmp(b.data() + at, text.data(), text.size()) == 0;
}

std::u16string Utf16(ByteView b, bool bigEndian) {
    std::u16string out;
    for (std::size_t i = 0; i + 1 < b.size(); i += 2) {
        unsigned lo = At(b, i + (bigEndian ? 1 : 0)), hi = At(b, i + (bigEndian ? 0 : 1));
        out.push_back(static_cast<char16_t>(lo | (hi << 8)));
    }
    while (!out.empty() && out.back() == 0)
        out.pop_back();
    return out;
}

std::u16string FrameText(ByteView body) {
    if (body.empty())
        return {};
    unsigned encoding = At(body, 0);
    ByteView text = body.subspan(1);
    if (encoding == 1 && text.size() >= 2) {
        bool bigEndian = At(text, 0) == 0xFE && At(text, 1) == 0xFF;
        return Utf16(text.subspan(2), bigEndian);
    }
    if (encoding == 2)
        return Utf16(text, true);
    std::string bytes(reinterpret_cast<const char*>(text.data()), text.size());
    while (!bytes.empty() && bytes.back() == 0)
        bytes.pop_back();
    return encoding == 3 ? FromUtf8(bytes) : DecodeSingleByte(bytes);
}

} // namespace

std::optional<Id3v2Probe> ProbeId3v2(ByteView file) {
    if (file.size() < 10 || !Matches(file, 0, "ID3"))
        return std::nullopt;
    Id3v2Probe tag;
    tag.version = static_cast<int>(At(file, 3));
    tag.sizeBytesSyncsafe = (At(file, 6) | At(file, 7) | At(file, 8) | At(file, 9)) < 0x80;
    std::size_t size = (At(file, 6) & 0x7F) << 21 | (At(file, 7) & 0x7F) << 14 |
                       (At(file, 8) & 0x7F) << 7 | (At(file, 9) & 0x7F);
    if (size > file.size() - 10)
        return std::nullopt;
    tag.tagLength = size + 10;
    bool shortIds = tag.version == 2;
    std::size_t idLength = shortIds ? 3 : 4, headerLength = shortIds ? 6 : 10;
    std::size_t pos = 10;
    while (pos + headerLength <= tag.tagLength && At(file, pos) != 0) {
        std::string id(reinterpret_cast<const char*>(file.data() + pos), idLength);
        std::size_t frameSize =
            shortIds ? BigEndian(file, pos + 3, 3) : BigEndian(file, pos + 4, 4);
        if (tag.version == 4)
            frameSize = (At(file, pos + 4) << 21) | (At(file, pos + 5) << 14) |
                        (At(file, pos + 6) << 7) | At(file, pos + 7);
        pos += headerLength;
        if (frameSize > tag.tagLength - pos)
            return std::nullopt;
        if (id[0] == 'T')
            tag.texts[id] = FrameText(file.subspan(pos, frameSize));
        pos += frameSize;
    }
    return tag;
}

} // namespace zelvor::testing
