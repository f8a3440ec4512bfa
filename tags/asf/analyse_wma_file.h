#pragma once
// The WMA reader: walks the children of the ASF header object for title,
// artist, album, genre, year, track and playing time, and refuses files that
// list a codec that is not audio, so a video named .wma never enters the
// library.

#include <span>
#include <string_view>

#include "platform/device_fs.h"
#include "tags/asf/wma_file_info.h"

namespace zelvor {

// Reads the device file at path (through the current device). Returns 1 for
// an accepted file, 0 otherwise (cannot open, no header object, both reserved
// bytes wrong, a non-audio codec). A child that cannot be read ends the walk;
// what was read is kept and the result stays 1.
int AnalyseWmaFile(WmaFileInfo& info, std::u16string_view path);
int AnalyseWmaFile(WmaFileInfo& info, DeviceFile& file, std::u16string_view path);

// The readers of single objects, each given the whole object (header
// included). Fields whose bytes are missing are left as they were.
void ReadContentDescription(WmaFileInfo& info, std::span<const std::byte> object);
void ReadFileProperties(WmaFileInfo& info, std::span<const std::byte> object);
void ReadExtendedContentDescription(WmaFileInfo& info, std::span<const std::byte> object);
// True when every entry that could be read is an audio codec.
bool CodecListIsAudioOnly(std::span<const std::byte> object);

} // namespace zelvor
