#pragma once
// Mp3FileInfo: what one analysis of an MP3 file found: the stream fields of
// the first frame header, the playing time, and the texts of the ID3v1 and
// ID3v2 tags merged into one set.

#include <cstdint>
#include <string>

namespace zelvor {

// Bits of Mp3FileInfo::flags.
inline constexpr std::uint32_t kMp3HasId3v1 = 1;
inline constexpr std::uint32_t kMp3HasStream = 2; // a frame header was found; stream fields valid

// Where the stream lies in the file, for the player's position display.
// Every analysis that opens its file sets all four; they describe that file.
struct Mp3StreamLayout {
    std::uint64_t fileSize = 0;     // bytes
    std::uint64_t headerOffset = 0; // of the frame header found (0 when none)
    std::int32_t frameLength = 0;   // bytes; 0 or less when it could not be told
    std::uint32_t frameCount = 0;   // frames between header and end of file
};

struct Mp3FileInfo {
    std::u16string path;
    std::uint32_t flags = 0;
    std::u16string artist;
    std::u16string title;
    std::u16string album;
    std::u16string comment; // ID3v1 comment
    std::u16string year;    // ID3v1 year, 4 characters
    std::u16string genre;
    std::int32_t track = 0;          // 0 when unknown
    std::int32_t genreIndex = 255;   // the ID3v1 genre byte (version 1.1 tags only)
    std::uint32_t framesCounted = 0; // frame headers parsed: 0 or 1
    std::int32_t duration = 0;       // whole seconds
    std::int32_t version = 0;        // 3 MPEG-1, 2 MPEG-2, 1 MPEG-2.5, 0 reserved
    std::int32_t layer = 0;          // 1, 2 or 3; 0 reserved
    std::int32_t protection = 0;     // the header's bit as it stands: 1 = no CRC
    std::int32_t bitRate = 0;        // kbit/s
    std::int32_t sampleRate = 0;     // Hz
    std::int32_t channelMode = 0;    // 0 stereo, 1 joint stereo, 2 dual channel, 3 mono
    std::int32_t emphasis = 0;
    std::int32_t copyright = 0;
    std::int32_t original = 0;

    // Not cleared by Reset: kept from one analysis to the next.
    Mp3StreamLayout layout;

    // Done at the start of every analysis: texts (the path too) empty, flags
    // 0, track 0, genre index 255, every stream field 0.
    void Reset();
};

} // namespace zelvor
