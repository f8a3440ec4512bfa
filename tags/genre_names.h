#pragma once
// The genre table: ID3 genre numbers 0 to 147 and their names, in the
// spellings this program has always shown ("Psychadelic", "Bebob",
// "Rhytmic Soul", "Trash Metal"... are kept on purpose: libraries written by
// the device's software compare them). Index 12 is "Other".
//
// The readers need the names both as single-byte text (the ID3v2 reader and
// the MP3 analysis work on code-page bytes) and as UTF-16 (the AAC reader);
// both forms come from one list. Each reader has its own rule for numbers
// outside the table, so the lookups are named after the reader.

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace zelvor {

inline constexpr int kGenreCount = 148;

extern const std::array<std::string_view, kGenreCount> GenreNames;
extern const std::array<std::u16string_view, kGenreCount> GenreNamesUtf16;

// The name at the index; an empty view outside 0..147.
std::string_view GenreName(int index);
std::u16string_view GenreNameUtf16(int index);

// MP3 analysis, genre byte of an ID3v1.1 tag: the name for 0..147, no genre
// for any other byte. (A version 1.0 tag gives no genre at all; the caller
// decides that.)
std::optional<std::string_view> GenreOfId3v1Byte(int genreByte);

// ID3v2 reader: the single-byte name for an index of 0..147, otherwise the
// genre frame's text as it stands (raw bytes, possibly UTF-16 with its mark).
std::string_view GenreOfId3v2(int genreIndex, std::string_view frameText);

// AAC reader, ID3v1 genre byte of any tag version: the name for 0..147,
// "Other" for anything else.
std::u16string_view GenreOfAacId3v1(int genreByte);

// AAC reader, genre frame text: scanned as "(%d)"; no match or a negative
// number gives the text as it stands, 0..147 the name. A number past the
// table also gives the text: it names no genre we know.
std::u16string GenreOfAacFrame(std::u16string_view frameText);

} // namespace zelvor
