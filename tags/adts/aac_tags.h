#pragma once
// The tags of a raw AAC file, read by the AAC reader's own rules, which
// differ from the MP3 analysis on purpose: a leading ID3v2.3.0 tag read as a
// list of frames, and an ID3v1 tag whose version test is the reverse of the
// MP3 one and whose unknown genres read "Other".

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/device_fs.h"

namespace zelvor {

struct AacId3v1 {
    std::u16string title; // at most 30 characters each
    std::u16string artist;
    std::u16string album;
    std::u16string comment; // 28 bytes when byte 125 is non-zero, else 30
    std::int32_t year = 0;
    std::int32_t track = 0;      // byte 126 when byte 125 is non-zero, else 0
    std::int32_t genreIndex = 0; // byte 127, in every case
    std::u16string genre;        // the table name, "Other" outside 0..147
};

struct AacId3v2Frames {
    std::u16string title;  // TIT2
    std::u16string artist; // TPE1
    std::u16string album;  // TALB
    std::u16string genre;  // TCON, through the "(%d)" rule
    std::u16string track;  // TRCK (read, not used for the record)
};

// The stream's start: size + 10 behind an "ID3" 3 0 header (the 28-bit
// size), 0 for any other start. head holds the file's first bytes.
std::uint64_t AacStreamStart(std::span<const std::byte> head);

// The ID3v2.3.0 tag at the head of the file as a frame list, or nullopt when
// the file does not begin with one.
std::optional<AacId3v2Frames> ReadAacId3v2(DeviceFile& file);
// The same on the tag's bytes (header included, possibly cut short).
std::optional<AacId3v2Frames> ParseAacId3v2(std::span<const std::byte> tag);

// The last 128 bytes of a file; nullopt when they are not an ID3v1 tag.
std::optional<AacId3v1> ParseAacId3v1(std::span<const std::byte> tail);

} // namespace zelvor
