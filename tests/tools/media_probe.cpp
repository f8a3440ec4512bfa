#include "tests/tools/media_probe.h"

#include "platform/text.h"

#include <array>
#include <cstring>

namespace zelvor::testing {
namespace {

unsigned At(ByteView b, std::size_t i) {
    return std::to_integer<unsigned>(b[i]);
}

std::uint64_t LittleEndian(ByteView b, std::size_t at, int width) {
    std::uint64_t value = 0;
    for (int i = width - 1; i >= 0; --i)
        value = (value << 8) | At(b, at + static_cast<std::size_t>(i));
    return value;
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

std::optional<Id3v1Probe> ProbeId3v1(ByteView file) {
    if (file.size() < 128)
        return std::nullopt;
    ByteView tail = file.subspan(file.size() - 128);
    if (!Matches(tail, 0, "TAG"))
        return std::nullopt;
    auto text = [&](std::size_t at, std::size_t width) {
        return DecodeSingleByte(tail.subspan(at, width));
    };
    return Id3v1Probe{text(3, 30),
                      text(33, 30),
                      text(63, 30),
                      text(93, 4),
                      static_cast<int>(At(tail, 125)),
                      static_cast<int>(At(tail, 126)),
                      static_cast<int>(At(tail, 127))};
}

std::optional<MpegProbe> ProbeMpeg(ByteView file, std::size_t from) {
    constexpr std::array<int, 16> kMpeg1Layer3{0,   32,  40,  48,  56,  64,  80,  96,
                                               112, 128, 160, 192, 224, 256, 320, 0};
    constexpr std::array<int, 16> kMpeg2Layer3{0,  8,  16, 24,  32,  40,  48,  56,
                                               64, 80, 96, 112, 128, 144, 160, 0};
    constexpr std::array<int, 3> kRates{44100, 48000, 32000};
    for (std::size_t i = from; i + 4 <= file.size(); ++i) {
        if (At(file, i) != 0xFF || (At(file, i + 1) & 0xE0) != 0xE0)
            continue;
        unsigned versionBits = (At(file, i + 1) >> 3) & 3, layerBits = (At(file, i + 1) >> 1) & 3;
        unsigned rateIndex = (At(file, i + 2) >> 2) & 3, bitrateIndex = At(file, i + 2) >> 4;
        if (versionBits == 1 || layerBits == 0 || rateIndex == 3 || bitrateIndex == 15)
            continue;
        MpegProbe probe;
        probe.version = versionBits == 3 ? 1 : versionBits == 2 ? 2 : 25;
        probe.layer = 4 - static_cast<int>(layerBits);
        probe.hz = kRates[rateIndex] / (probe.version == 1 ? 1 : probe.version == 2 ? 2 : 4);
        probe.kbps =
            probe.layer == 3 ? (probe.version == 1 ? kMpeg1Layer3 : kMpeg2Layer3)[bitrateIndex] : 0;
        probe.mono = (At(file, i + 3) >> 6) == 3;
        return probe;
    }
    return std::nullopt;
}

bool IsAdtsHeader(ByteView file, std::size_t at) {
    return at + 7 <= file.size() && At(file, at) == 0xFF && (At(file, at + 1) & 0xF6) == 0xF0;
}

std::optional<std::map<std::u16string, std::u16string>> ProbeAsfTexts(ByteView file) {
    constexpr std::array<unsigned char, 16> kHeader{0x30, 0x26, 0xB2, 0x75, 0x8E, 0x66, 0xCF, 0x11,
                                                    0xA6, 0xD9, 0x00, 0xAA, 0x00, 0x62, 0xCE, 0x6C};
    constexpr std::array<unsigned char, 16> kContent{0x33, 0x26, 0xB2, 0x75, 0x8E, 0x66,
                                                     0xCF, 0x11, 0xA6, 0xD9, 0x00, 0xAA,
                                                     0x00, 0x62, 0xCE, 0x6C};
    constexpr std::array<unsigned char, 16> kExtended{0x40, 0xA4, 0xD0, 0xD2, 0x07, 0xE3,
                                                      0xD2, 0x11, 0x97, 0xF0, 0x00, 0xA0,
                                                      0xC9, 0x5E, 0xA8, 0x50};
    auto isGuid = [&](std::size_t at, const std::array<unsigned char, 16>& guid) {
        return at + 16 <= file.size() && std::memcmp(file.data() + at, guid.data(), 16) == 0;
    };
    if (file.size() < 30 || !isGuid(0, kHeader))
        return std::nullopt;
    std::uint64_t headerSize = LittleEndian(file, 16, 8);
    if (headerSize > file.size())
        return std::nullopt;
    std::map<std::u16string, std::u16string> texts;
    for (std::size_t pos = 30; pos + 24 <= headerSize;) {
        std::uint64_t size = LittleEndian(file, pos + 16, 8);
        if (size < 24 || size > headerSize - pos)
            return std::nullopt;
        ByteView object = file.subspan(pos, static_cast<std::size_t>(size));
        if (isGuid(pos, kContent) && object.size() >= 34) {
            std::size_t titleLength = LittleEndian(object, 24, 2),
                        authorLength = LittleEndian(object, 26, 2);
            if (34 + titleLength + authorLength > object.size())
                return std::nullopt;
            texts[u"Title"] = Utf16(object.subspan(34, titleLength), false);
            texts[u"Author"] = Utf16(object.subspan(34 + titleLength, authorLength), false);
        } else if (isGuid(pos, kExtended) && object.size() >= 26) {
            std::size_t count = LittleEndian(object, 24, 2), at = 26;
            for (std::size_t i = 0; i < count; ++i) {
                if (at + 2 > object.size())
                    return std::nullopt;
                std::size_t nameLength = LittleEndian(object, at, 2);
                if (at + 2 + nameLength + 4 > object.size())
                    return std::nullopt;
                std::u16string name = Utf16(object.subspan(at + 2, nameLength), false);
                at += 2 + nameLength;
                std::size_t type = LittleEndian(object, at, 2),
                            valueLength = LittleEndian(object, at + 2, 2);
                at += 4;
                if (valueLength > object.size() - at)
                    return std::nullopt;
                if (type == 0)
                    texts[name] = Utf16(object.subspan(at, valueLength), false);
                at += valueLength;
            }
        }
        pos += static_cast<std::size_t>(size);
    }
    return texts;
}

std::optional<WaveProbe> ProbeWave(ByteView file) {
    if (file.size() < 12 || !Matches(file, 0, "RIFF") || !Matches(file, 8, "WAVE"))
        return std::nullopt;
    WaveProbe wave;
    bool haveFormat = false;
    for (std::size_t pos = 12; pos + 8 <= file.size();) {
        std::size_t size = LittleEndian(file, pos + 4, 4);
        if (size > file.size() - pos - 8)
            return std::nullopt;
        if (Matches(file, pos, "fmt ") && size >= 16) {
            wave.format = static_cast<int>(LittleEndian(file, pos + 8, 2));
            wave.channels = static_cast<int>(LittleEndian(file, pos + 10, 2));
            wave.rate = static_cast<int>(LittleEndian(file, pos + 12, 4));
            wave.bits = static_cast<int>(LittleEndian(file, pos + 22, 2));
            haveFormat = true;
        } else if (Matches(file, pos, "data")) {
            wave.dataBytes = size;
            return haveFormat ? std::optional(wave) : std::nullopt;
        }
        pos += 8 + size + (size & 1);
    }
    return std::nullopt;
}

} // namespace zelvor::testing
