#pragma once
// The MP3 analysis: stream parameters and playing time from the first frame
// header, the ID3v1 tag at the end of the file and the ID3v2 tag at its head,
// merged into one Mp3FileInfo. The library scan and the player run it once
// per file.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/device_fs.h"
#include "tags/id3v2/id3v2_tag.h"
#include "tags/mpeg/mp3_file_info.h"

namespace zelvor {

// Every frame is taken as 26 ms long, whatever its version, layer and rate.
inline constexpr std::uint32_t kMp3FrameMilliseconds = 26;

// Analyses the device file at path (through the current device). Returns 1
// when the file gave a frame header or an ID3v1 tag, otherwise 0 (also when
// it cannot be opened). Only a result of 1 makes a TrackRecord.
int AnalyseMp3File(Mp3FileInfo& info, std::u16string_view path);

// The same on an open file; path is only stored. When id3v2 is given it
// receives the ID3v2 tag read for the merge (left reset when no merge ran).
int AnalyseMp3File(Mp3FileInfo& info, DeviceFile& file, std::u16string_view path,
                   Id3v2Tag* id3v2 = nullptr);

// How the analysis reads an ID3v2 text: a first byte of 0xFF means UTF-16LE
// after a 2-byte byte-order mark; anything else is single-byte text in the
// device code page (UTF-8 and big-endian UTF-16 included, as the device did).
std::u16string DecodeId3Text(std::string_view raw);

// Steps 10 and 13-15 of the analysis, on bytes: the ID3v1 tag (the last 128
// bytes of a file) and the merge with an ID3v2 tag already read.
// ReadMp3Id3v1 returns false, changing nothing, when tail is not a tag.
bool ReadMp3Id3v1(Mp3FileInfo& info, std::span<const std::byte> tail);
void MergeId3v2(Mp3FileInfo& info, const Id3v2Tag& tag);

} // namespace zelvor
