#include "tags/adts/aac_tags.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/text.h"
#include "bytes/byte_cursor.h"
#include "tags/genre_names.h"
#include "tags/tag_text.h"

namespace zelvor {
namespace {

constexpr std::size_t kHeaderSize = 10;
constexpr std::uint8_t kExtendedHeaderFlag = 0x40;

bool IsId3v230(std::span<const std::byte> head) {
    return head.size() >= 6 && ByteAt(head, 0) == 'I' && ByteAt(head, 1) == 'D' &&
           ByteAt(head, 2) == '3' && ByteAt(head, 3) == 3 && ByteAt(head, 4) == 0;
}

std::uint32_t SyncSafe28(std::span<const std::byte> b) {
    return (std::uint32_t{ByteAt(b, 0) & 0x7Fu} << 21) |
           (std::uint32_t{ByteAt(b, 1) & 0x7Fu} << 14) |
           (std::uint32_t{ByteAt(b, 2) & 0x7Fu} << 7) | std::uint32_t{ByteAt(b, 3) & 0x7Fu};
}

// A text frame's bytes by its encoding byte: 0 through the device code page,
// 1 as UTF-16 after its 2-byte mark; any other encoding gives nothing.
std::u16string FrameText(std::span<const std::byte> frame) {
    if (frame.empty())
        return {};
    switch (ByteAt(frame, 0)) {
    case 0:
        return DecodeSingleByte(frame.subspan(1));
    case 1:
        return frame.size() > 3 ? DecodeUtf16Le(frame.subspan(3)) : std::u16string();
    default:
        return {};
    }
}

} // namespace

std::uint64_t AacStreamStart(std::span<const std::byte> head) {
    if (!IsId3v230(head) || head.size() < kHeaderSize)
        return 0;
    return std::uint64_t{SyncSafe28(head.subspan(6, 4))} + kHeaderSize;
}

std::optional<AacId3v2Frames> ReadAacId3v2(DeviceFile& file) {
    std::array<std::byte, kHeaderSize> head{};
    if (file.ReadAt(0, head) < head.size() || !IsId3v230(head))
        return std::nullopt;
    const std::uint64_t length = std::min(AacStreamStart(head), file.Size());
    std::vector<std::byte> tag(static_cast<std::size_t>(length));
    tag.resize(file.ReadAt(0, tag));
    return ParseAacId3v2(tag);
}

std::optional<AacId3v2Frames> ParseAacId3v2(std::span<const std::byte> tag) {
    if (tag.size() < kHeaderSize || !IsId3v230(tag))
        return std::nullopt;
    const std::size_t bodySize =
        std::min<std::size_t>(SyncSafe28(tag.subspan(6, 4)), tag.size() - kHeaderSize);
    ByteCursor cursor(tag.subspan(kHeaderSize, bodySize));
    AacId3v2Frames frames;
    if (ByteAt(tag, 5) & kExtendedHeaderFlag) {
        std::span<const std::byte> extendedSize;
        if (!cursor.Take(4, extendedSize) || !cursor.Skip(LoadU32Be(extendedSize)))
            return frames;
    }
    // Frames of version 2.3: 4-character id, 32-bit size, 2 flag bytes. The
    // first frame of a kind is the one a lookup in the list finds.
    std::array<bool, 5> seen{};
    std::span<const std::byte> header;
    while (cursor.Take(kHeaderSize, header)) {
        if (ByteAt(header, 0) == 0)
            break; // padding
        std::span<const std::byte> body;
        if (!cursor.Take(LoadU32Be(header.subspan(4, 4)), body))
            break;
        std::string_view id(reinterpret_cast<const char*>(header.data()), 4);
        static constexpr std::array<std::string_view, 5> kIds = {"TIT2", "TPE1", "TALB", "TCON",
                                                                 "TRCK"};
        std::u16string* targets[] = {&frames.title, &frames.artist, &frames.album, &frames.genre,
                                     &frames.track};
        for (std::size_t k = 0; k < kIds.size(); ++k) {
            if (id == kIds[k] && !seen[k]) {
                seen[k] = true;
                *targets[k] = FrameText(body);
            }
        }
    }
    frames.genre = GenreOfAacFrame(frames.genre);
    return frames;
}

std::optional<AacId3v1> ParseAacId3v1(std::span<const std::byte> tail) {
    if (tail.size() < 128 || ByteAt(tail, 0) != 'T' || ByteAt(tail, 1) != 'A' ||
        ByteAt(tail, 2) != 'G')
        return std::nullopt;
    AacId3v1 tag;
    tag.title = DecodeSingleByte(tail.subspan(3, 30));
    tag.artist = DecodeSingleByte(tail.subspan(33, 30));
    tag.album = DecodeSingleByte(tail.subspan(63, 30));
    tag.year = LeadingNumber(DecodeSingleByte(tail.subspan(93, 4)));
    // The reverse of the MP3 test, kept as the device had it: a non-zero
    // byte 125 is read as the 1.1 layout.
    if (ByteAt(tail, 125) != 0) {
        tag.comment = DecodeSingleByte(tail.subspan(97, 28));
        tag.track = ByteAt(tail, 126);
    } else {
        tag.comment = DecodeSingleByte(tail.subspan(97, 30));
    }
    tag.genreIndex = ByteAt(tail, 127);
    tag.genre = std::u16string(GenreOfAacId3v1(tag.genreIndex));
    return tag;
}

} // namespace zelvor
