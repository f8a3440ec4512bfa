#pragma once
// Id3v2Tag: the ID3v2 tag at the head of an MP3 file, as this program reads
// it. Twelve frame kinds are kept as raw bytes (the frame's text after its
// encoding byte, unchanged: UTF-16 keeps its byte-order mark), and genre and
// track numbers are derived from them. The MP3 analysis decides how to read
// the raw bytes (see DecodeId3Text in mpeg/analyse_mp3_file.h).
//
// The reader follows the device's rules exactly, quirks included:
//   - major version 2 selects 3-character ids with 24-bit frame sizes; every
//     other version selects 4-character ids whose sizes are always read 7 bits
//     per byte with the high bits not masked (so 2.3 frames of 128 bytes or
//     more are misread);
//   - the body starts 6 bytes in when the flags byte has the bit of value 2;
//   - the last frame of a kind wins.
// The mode is taken from each tag's own header; nothing carries over from
// one read to the next. Unsynchronisation, footers and the other flags are
// not acted on: such tags are read as they stand.

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/device_fs.h"

namespace zelvor {

// Frame slots, in the order of the device's table.
enum Id3v2Slot : int {
    kId3v2Title,
    kId3v2Artist,
    kId3v2Album,
    kId3v2Year,
    kId3v2Comment,
    kId3v2Composer,
    kId3v2SourceArtist,
    kId3v2Copyright,
    kId3v2UserUrl,
    kId3v2EncodedBy,
    kId3v2Genre,
    kId3v2Track,
    kId3v2SlotCount
};

enum Id3v2Error : std::int32_t {
    kId3v2NoError = 0,
    kId3v2FileNotFound = 1,
    kId3v2CannotOpen = 2,
    kId3v2ShortHeader = 4, // fewer than 10 header bytes
    // Only StripId3v2Tag sets these two; the device never checked either case.
    kId3v2TagBeyondFile = 5, // the tag claims more bytes than the file holds
    kId3v2WriteFailed = 6,   // the file could not be rewritten
};

struct Id3v2Tag {
    std::u16string path;
    bool present = false; // the file begins with "ID3"
    std::int32_t error = kId3v2NoError;
    std::uint8_t majorVersion = 0; // byte 3 of the header, 0 when none was read
    // Raw frame texts; nullopt when the tag has no such frame.
    std::array<std::optional<std::string>, kId3v2SlotCount> frames;
    std::string genreText;        // the genre frame's bytes when not "(number)", at most 100
    std::int32_t genreIndex = -1; // -1 when none
    std::int32_t track = 0;
    std::int32_t trackTotal = 0;
    std::uint32_t tagLength = 0; // declared tag size + 10, in bytes

    void Reset();

    // The slot's raw bytes, or an empty view when the slot is none.
    std::string_view Frame(Id3v2Slot slot) const;
    std::string_view GetTitle() const { return Frame(kId3v2Title); }
    std::string_view GetArtist() const { return Frame(kId3v2Artist); }
    std::string_view GetAlbum() const { return Frame(kId3v2Album); }
    // The single-byte table name for a genre index of 0..147, else genreText.
    std::string_view GetGenre() const;
    std::int32_t GetTrack() const { return track; }
};

// Size of the ID3v2 header, and the most genreText keeps.
inline constexpr std::size_t kId3v2HeaderSize = 10;
inline constexpr std::size_t kId3v2GenreTextMax = 100;

// Reads the tag of a device file through the current device. Returns 1 when
// the file was read (with or without a tag), 0 on an error (tag.error set).
int ReadId3v2(Id3v2Tag& tag, std::u16string_view path);
// The same on an open file (the fuzzers and the MP3 analysis use this one).
// The body read is capped by the file's size, whatever the header claims.
int ReadId3v2(Id3v2Tag& tag, DeviceFile& file);

// Walks a tag body (the bytes after the 10-byte header) into tag's slots and
// derives genre and track. threeCharacterIds: the version 2.2 layout.
void ParseId3v2Body(Id3v2Tag& tag, std::span<const std::byte> body, bool threeCharacterIds,
                    bool skipSixBytes);

// A 4-byte size read 7 bits per byte, most significant first, with each
// byte's high bit added in as it stands (the device never masked it).
std::uint32_t Id3v2SevenBitSize(std::span<const std::byte, 4> bytes);
// The tag size of a header: its bytes 6-9 read that way.
std::uint32_t Id3v2SizeField(std::span<const std::byte, kId3v2HeaderSize> header);

} // namespace zelvor
