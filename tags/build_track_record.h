#pragma once
// Building a TrackRecord from a music file: the library scan calls this for
// every file it found, and the player for a file outside the library.

#include <memory>
#include <string_view>

#include "tags/audio_file_type.h"
#include "tags/track_record.h"

namespace zelvor {

// Reads the device file at path (through the current device) with the reader
// for typeCode: 0 the MP3 analysis, 1 the WMA reader, any other code the AAC
// reader. Returns null when the reader fails (MP3 and WMA: result 0; AAC:
// any code but kAacOk). The record holds the path (and so the file name),
// the title (the file name without its extension when the reader has none),
// album, artist, genre (for AAC each only when non-empty), the duration in
// whole seconds (AAC's fraction cut off) and the track number.
std::unique_ptr<TrackRecord> BuildTrackRecord(std::u16string_view path, int typeCode);

// The same with the type decided by the audio-file filter; null for a file
// that is not music.
std::unique_ptr<TrackRecord> BuildTrackRecord(std::u16string_view path);

} // namespace zelvor
