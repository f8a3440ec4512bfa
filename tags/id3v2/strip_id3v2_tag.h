#pragma once
// Removing an ID3v2 tag from an MP3 file in place. The player does this when
// its decoder cannot be built for a file, and then tries once more: some
// decoders choke on tags that other programs wrote.

#include <chrono>
#include <string_view>

#include "platform/device_fs.h"
#include "tags/id3v2/id3v2_tag.h"

namespace zelvor {

// How long StripId3v2Tag waits after rewriting a file, so that the file
// system has settled before the caller opens the file again.
inline constexpr std::chrono::milliseconds kStripSettleTime{500};

// Removes the tag of the device file at path (through the current device).
// Returns 1 when the file now has no tag (also when it never had one) and 0
// on an error, with tag.error set:
//   kId3v2FileNotFound, kId3v2CannotOpen, kId3v2TagBeyondFile (the file is
//   left untouched), kId3v2WriteFailed.
// The file's attributes are cleared for the rewrite and always put back.
int StripId3v2Tag(Id3v2Tag& tag, std::u16string_view path,
                  std::chrono::milliseconds settle = kStripSettleTime);

// The rewrite itself on an open file: the bytes after the tag are copied
// forward over it in blocks of 16384 bytes and the file is cut short by the
// tag's length. Same results as above.
int StripId3v2Tag(Id3v2Tag& tag, DeviceFile& file);

} // namespace zelvor
