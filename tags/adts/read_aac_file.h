#pragma once
// The AAC reader: raw ADTS streams. The duration comes from counting ADTS
// frames; the texts from a leading ID3v2.3.0 tag and an ID3v1 tag, merged
// field by field.

#include <cstdint>
#include <string_view>

#include "platform/device_fs.h"
#include "tags/adts/aac_tags.h"
#include "tags/adts/aac_track_info.h"

namespace zelvor {

// Result codes of ReadAacFile, as the device's reader returned them.
enum AacResult : std::uint32_t {
    kAacOk = 0,
    kAacCannotOpen = 0x80000001,      // the file cannot be opened
    kAacMissingArgument = 0x80000003, // no path or no result
    kAacReaderOpenFailed = 0x80000005,
    kAacNotAac = 0x80000006, // the extension is not AAC
};

// Reads the device file at path (through the current device) into *result,
// which is emptied first. Only kAacOk makes a TrackRecord.
AacResult ReadAacFile(std::u16string_view path, AacTrackInfo* result);

// The reader's read step on an open file: duration and tags.
AacResult ReadAacStream(DeviceFile& file, AacTrackInfo& result);

// The field-by-field merge. Without an ID3v2 tag each text is the ID3v1 one
// (empty without that too); with both, the ID3v1 text wins only when the
// ID3v2 one is shorter. The track comes from ID3v1 alone.
void MergeAacTags(AacTrackInfo& result, const std::optional<AacId3v2Frames>& id3v2,
                  const std::optional<AacId3v1>& id3v1);

} // namespace zelvor
