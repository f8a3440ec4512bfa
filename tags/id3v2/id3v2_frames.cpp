// The frame walk of an ID3v2 tag body, and the genre and track numbers
// derived from the frames it kept.

#include <algorithm>

#include "bytes/byte_cursor.h"
#include "tags/id3v2/id3v2_tag.h"
#include "tags/tag_text.h"

namespace zelvor {
namespace {

struct FrameKind {
    std::string_view id4;
    std::string_view id3;
};

// Indexed by Id3v2Slot.
constexpr std::array<FrameKind, kId3v2SlotCount> kFrameKinds = {{
    {"TIT2", "TT2"},
    {"TPE1", "TP1"},
    {"TALB", "TAL"},
    {"TYER", "TYE"},
    {"COMM", "COM"},
    {"TCOM", "TCM"},
    {"TOPE", "TOA"},
    {"TCOP", "TCR"},
    {"WXXX", "WXX"},
    {"TENC", "TEN"},
    {"TCON", "TCO"},
    {"TRCK", "TRK"},
}};

// A frame with nothing after its prefix still gets a text: ten zero bytes,
// which every decoder reads as empty.
constexpr std::string_view kEmptyFrameText("\0\0\0\0\0\0\0\0\0\0", 10);

// Limits of the digit scans for genre and track.
constexpr std::size_t kScanMaxCharacters = 100;
constexpr std::size_t kScanMaxDigits = 18;

std::string_view AsText(std::span<const std::byte> bytes) {
    return std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

// Skips a description: everything up to and including its first zero byte
// (the whole rest when there is none).
std::string_view AfterDescription(std::string_view text) {
    std::size_t zero = text.find('\0');
    return zero == std::string_view::npos ? std::string_view() : text.substr(zero + 1);
}

// Where a frame's text starts: after the encoding byte; comments also skip
// the language and the description, user URLs the description.
std::string_view FrameText(Id3v2Slot slot, std::string_view frame) {
    constexpr std::size_t kEncodingByte = 1;
    constexpr std::size_t kLanguage = 3;
    std::string_view text;
    if (slot == kId3v2Comment)
        text = frame.size() > kEncodingByte + kLanguage
                   ? AfterDescription(frame.substr(kEncodingByte + kLanguage))
                   : std::string_view();
    else if (slot == kId3v2UserUrl)
        text = frame.size() > kEncodingByte ? AfterDescription(frame.substr(kEncodingByte))
                                            : std::string_view();
    else
        text = frame.size() > kEncodingByte ? frame.substr(kEncodingByte) : std::string_view();
    return text.empty() ? kEmptyFrameText : text;
}

std::optional<Id3v2Slot> SlotOf(std::string_view id, bool threeCharacterIds) {
    for (std::size_t i = 0; i < kFrameKinds.size(); ++i) {
        if (id == (threeCharacterIds ? kFrameKinds[i].id3 : kFrameKinds[i].id4))
            return static_cast<Id3v2Slot>(i);
    }
    return std::nullopt;
}

// The text as a C string: up to its first zero byte.
std::string_view CString(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

// Collects the decimal digits of text (other characters are passed over),
// stopping at `stop`, after kScanMaxCharacters characters or kScanMaxDigits
// digits, and converts them; no digits give 0.
std::int32_t CollectDigits(std::string_view text, char stop) {
    std::string digits;
    for (std::size_t i = 0; i < text.size() && i < kScanMaxCharacters; ++i) {
        if (text[i] == stop || digits.size() >= kScanMaxDigits)
            break;
        if (text[i] >= '0' && text[i] <= '9')
            digits.push_back(text[i]);
    }
    return LeadingNumber(digits);
}

void DeriveGenre(Id3v2Tag& tag) {
    std::string_view raw = tag.Frame(kId3v2Genre);
    std::string_view text = CString(raw);
    if (!text.empty() && text[0] == '(') {
        tag.genreIndex = CollectDigits(text.substr(1), ')');
        return;
    }
    // Kept byte for byte: a UTF-16 genre keeps its mark and its zero bytes.
    tag.genreText = std::string(raw.substr(0, kId3v2GenreTextMax));
}

void DeriveTrack(Id3v2Tag& tag) {
    std::string_view text = CString(tag.Frame(kId3v2Track));
    if (text.size() <= 2) {
        tag.track = LeadingNumber(text);
        return;
    }
    std::size_t slash = text.find('/');
    tag.track = CollectDigits(text.substr(0, slash), '\0');
    tag.trackTotal =
        slash == std::string_view::npos ? 0 : CollectDigits(text.substr(slash + 1), '\0');
}

} // namespace

void ParseId3v2Body(Id3v2Tag& tag, std::span<const std::byte> body, bool threeCharacterIds,
                    bool skipSixBytes) {
    const std::size_t idLength = threeCharacterIds ? 3 : 4;
    const std::size_t headerLength = threeCharacterIds ? 6 : 10;
    ByteCursor cursor(body);
    if (skipSixBytes && !cursor.Skip(6))
        cursor.Seek(body.size());

    // The walk stops where a frame header would reach the end of the body.
    while (cursor.Remaining() > headerLength) {
        std::span<const std::byte> header;
        cursor.Take(headerLength, header);
        std::string_view id = AsText(header.first(idLength));
        if (id.find('\0') != std::string_view::npos)
            break; // padding
        std::uint32_t size;
        if (threeCharacterIds)
            size = (std::uint32_t{ByteAt(header, 3)} << 16) |
                   (std::uint32_t{ByteAt(header, 4)} << 8) | std::uint32_t{ByteAt(header, 5)};
        else
            size = Id3v2SevenBitSize(header.subspan(4).first<4>()); // version 2.3 too
        std::span<const std::byte> frame;
        if (!cursor.Take(size, frame))
            break; // a size that lies ends the walk; what came before stays
        if (auto slot = SlotOf(id, threeCharacterIds))
            tag.frames[static_cast<std::size_t>(*slot)] =
                std::string(FrameText(*slot, AsText(frame)));
    }
    DeriveGenre(tag);
    DeriveTrack(tag);
}

} // namespace zelvor
