#pragma once
// Hand-built ID3 tags for the demo device's media.
//
// ffmpeg writes ID3v2.3 and ID3v2.4 tags itself, but it cannot write
// ID3v2.2, it writes no tags around a raw ADTS stream, and its ID3v1 tag
// copies UTF-8 bytes as they are (the device reads single-byte tags as
// Windows-1252, so "Café" would come back as "CafÃ©"). These builders write
// what the encoder cannot, byte for byte.
//
// A builder refuses (nullopt) a value that does not fit its field instead of
// cutting it: the manifest must describe every tag exactly.

#include "tools/zelvor_demo/tag_fields.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor::demo {

using Bytes = std::vector<std::byte>;

// Zero bytes left at the end of a hand-built ID3v2 tag, as taggers leave room
// to grow a tag in place; readers stop at the first zero frame id.
constexpr std::size_t kId3v2Padding = 32;
constexpr std::size_t kId3v1Size = 128;

// The ID3v1 genre number of a genre name the demo uses; nullopt for any
// other name (the caller then writes the name as text, or 255 in ID3v1).
std::optional<std::uint8_t> Id3v1GenreIndex(std::u16string_view name);

// The text as single bytes when every character has the same code in
// ISO-8859-1 and Windows-1252 (ASCII and U+00A0..U+00FF); nullopt otherwise.
std::optional<std::string> EncodeLatin1(std::u16string_view text);

// ID3v2.2: "ID3" 2.0, frames TT2, TP1, TAL, TCO, TRK and TYE with 3-byte ids
// and 3-byte sizes. Empty values are left out; the genre is written as "(n)"
// when it has an ID3v1 number.
std::optional<Bytes> BuildId3v22Tag(const TagFields& fields);

// ID3v2.3.0: frames TIT2, TPE1, TALB, TCON, TRCK and TYER, 4-byte sizes.
std::optional<Bytes> BuildId3v23Tag(const TagFields& fields);

// ID3v1.1: the 128-byte block that ends a file: title, artist and album of at
// most 30 bytes, year of at most 4, an empty comment, a zero byte, the track
// (0..255) and the genre number (255 when the genre has none).
std::optional<Bytes> BuildId3v1Tag(const TagFields& fields);

} // namespace zelvor::demo
