#include "tools/zelvor_demo/id3_builder.h"

#include <array>
#include <cstring>
#include <limits>

namespace zelvor::demo {
namespace {

struct GenreNumber {
    std::u16string_view name;
    std::uint8_t index;
};

// The ID3v1 numbers of the genres the demo collection uses.
constexpr std::array kGenreNumbers{
    GenreNumber{u"Country", 2},     GenreNumber{u"Jazz", 8},     GenreNumber{u"Pop", 13},
    GenreNumber{u"Rock", 17},       GenreNumber{u"Ambient", 26}, GenreNumber{u"Classical", 32},
    GenreNumber{u"Electronic", 52}, GenreNumber{u"Folk", 80},    GenreNumber{u"Latin", 86},
    GenreNumber{u"Speech", 101},
};

constexpr std::uint32_t kMaxSyncsafe = (1u << 28) - 1;
constexpr std::uint32_t kMax24Bit = (1u << 24) - 1;

enum class FrameIds { Short, Long };

void Append(Bytes& out, std::string_view bytes) {
    for (char c : bytes)
        out.push_back(static_cast<std::byte>(c));
}

void AppendBigEndian(Bytes& out, std::uint32_t value, int width) {
    for (int shift = (width - 1) * 8; shift >= 0; shift -= 8)
        out.push_back(static_cast<std::byte>((value >> shift) & 0xFF));
}

void AppendSyncsafe(Bytes& out, std::uint32_t value) {
    for (int shift = 21; shift >= 0; shift -= 7)
        out.push_back(static_cast<std::byte>((value >> shift) & 0x7F));
}

// A text frame's body: ISO-8859-1 (encoding 0) when the text has a single-byte
// form, otherwise UTF-16 with the byte-order mark FF FE (encoding 1). Both end
// with a terminator, as ffmpeg writes its own ID3v2 frames.
Bytes TextFrameBody(std::u16string_view text) {
    Bytes body;
    if (auto latin1 = EncodeLatin1(text)) {
        body.push_back(std::byte{0});
        Append(body, *latin1);
        body.push_back(std::byte{0});
        return body;
    }
    body.push_back(std::byte{1});
    body.push_back(std::byte{0xFF});
    body.push_back(std::byte{0xFE});
    for (char16_t unit : text) {
        body.push_back(static_cast<std::byte>(unit & 0xFF));
        body.push_back(static_cast<std::byte>(unit >> 8));
    }
    body.push_back(std::byte{0});
    body.push_back(std::byte{0});
    return body;
}

bool AppendFrame(Bytes& out, FrameIds ids, std::string_view id, std::u16string_view text) {
    if (text.empty())
        return true;
    Bytes body = TextFrameBody(text);
    Append(out, id);
    if (ids == FrameIds::Short) {
        if (body.size() > kMax24Bit)
            return false;
        AppendBigEndian(out, static_cast<std::uint32_t>(body.size()), 3);
    } else {
        if (body.size() > std::numeric_limits<std::uint32_t>::max())
            return false;
        AppendBigEndian(out, static_cast<std::uint32_t>(body.size()), 4);
        out.push_back(std::byte{0}); // frame flags
        out.push_back(std::byte{0});
    }
    out.insert(out.end(), body.begin(), body.end());
    return true;
}

std::u16string AsciiToText(std::string_view ascii) {
    return std::u16string(ascii.begin(), ascii.end());
}

std::u16string GenreFrameText(std::u16string_view genre) {
    if (auto index = Id3v1GenreIndex(genre))
        return AsciiToText("(" + std::to_string(*index) + ")");
    return std::u16string(genre);
}

std::optional<Bytes> BuildId3v2Tag(const TagFields& fields, std::uint8_t version,
                                   const std::array<std::string_view, 6>& ids) {
    FrameIds width = version == 2 ? FrameIds::Short : FrameIds::Long;
    Bytes frames;
    std::u16string track = fields.track > 0 ? AsciiToText(std::to_string(fields.track)) : u"";
    std::u16string genre = fields.genre.empty() ? u"" : GenreFrameText(fields.genre);
    const std::array<std::u16string_view, 6> values{fields.title, fields.artist, fields.album,
                                                    genre,        track,         fields.year};
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (!AppendFrame(frames, width, ids[i], values[i]))
            return std::nullopt;
    }
    std::size_t bodySize = frames.size() + kId3v2Padding;
    if (bodySize > kMaxSyncsafe)
        return std::nullopt;
    Bytes tag;
    tag.reserve(10 + bodySize);
    Append(tag, "ID3");
    tag.push_back(static_cast<std::byte>(version));
    tag.push_back(std::byte{0}); // revision
    tag.push_back(std::byte{0}); // flags: no unsynchronisation, no extended header
    AppendSyncsafe(tag, static_cast<std::uint32_t>(bodySize));
    tag.insert(tag.end(), frames.begin(), frames.end());
    tag.resize(10 + bodySize, std::byte{0});
    return tag;
}

// Copies a text into a fixed ID3v1 field; false when it has no single-byte
// form or is longer than the field.
bool PutField(Bytes& tag, std::size_t offset, std::size_t width, std::u16string_view text) {
    auto bytes = EncodeLatin1(text);
    if (!bytes || bytes->size() > width)
        return false;
    std::memcpy(tag.data() + offset, bytes->data(), bytes->size());
    return true;
}

} // namespace

std::optional<std::uint8_t> Id3v1GenreIndex(std::u16string_view name) {
    for (const auto& genre : kGenreNumbers) {
        if (genre.name == name)
            return genre.index;
    }
    return std::nullopt;
}

std::optional<std::string> EncodeLatin1(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (char16_t unit : text) {
        bool sameInBoth = unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF);
        if (!sameInBoth || unit == 0)
            return std::nullopt;
        out.push_back(static_cast<char>(static_cast<unsigned char>(unit)));
    }
    return out;
}

std::optional<Bytes> BuildId3v22Tag(const TagFields& fields) {
    return BuildId3v2Tag(fields, 2, {"TT2", "TP1", "TAL", "TCO", "TRK", "TYE"});
}

std::optional<Bytes> BuildId3v23Tag(const TagFields& fields) {
    return BuildId3v2Tag(fields, 3, {"TIT2", "TPE1", "TALB", "TCON", "TRCK", "TYER"});
}

std::optional<Bytes> BuildId3v1Tag(const TagFields& fields) {
    constexpr std::size_t kTitle = 3, kArtist = 33, kAlbum = 63, kYear = 93;
    constexpr std::size_t kZeroByte = 125, kTrack = 126, kGenre = 127;
    if (fields.track < 0 || fields.track > 255)
        return std::nullopt;
    Bytes tag(kId3v1Size, std::byte{0});
    std::memcpy(tag.data(), "TAG", 3);
    if (!PutField(tag, kTitle, 30, fields.title) || !PutField(tag, kArtist, 30, fields.artist) ||
        !PutField(tag, kAlbum, 30, fields.album) || !PutField(tag, kYear, 4, fields.year))
        return std::nullopt;
    tag[kZeroByte] = std::byte{0}; // marks the version 1.1 layout: the track follows
    tag[kTrack] = static_cast<std::byte>(fields.track);
    tag[kGenre] = static_cast<std::byte>(Id3v1GenreIndex(fields.genre).value_or(255));
    return tag;
}

} // namespace zelvor::demo
