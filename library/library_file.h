#pragma once
// The library file ("\MusicLib.qdx" in the program directory) and the
// current-playlist file ("~Playlist.qdx"), which share one format:
//
//   header, 56 bytes, little-endian:
//     0  "QDX100" as UTF-16LE with its NUL (14 bytes)   14  zero (2)
//     16 number of records (u32)    20 fields per record (u16, always 7)
//     22 zero (34)
//   each record: one u16 byte length per field, then the field values
//   end to end (a length of 0 takes no bytes). Fields, in order: path, title,
//   album, artist, genre (UTF-16LE with NUL, at most 255 characters), the
//   duration (u32, seconds) and the track number (u16).
//
// The file name is not stored (it follows from the path) and neither are the
// run-time values. Paths are device paths; a stored path that does not begin
// with "\" is relative to the folder of the file that holds it.
//
// Everything goes through the current device's file system.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "bytes/byte_sink.h"
#include "library/track_list.h"
#include "platform/device_fs.h"

namespace zelvor {

constexpr std::u16string_view kLibraryMagic = u"QDX100";
constexpr std::u16string_view kLibraryFileName = u"MusicLib.qdx";
constexpr std::size_t kLibraryHeaderBytes = 56;
constexpr int kLibraryFieldCount = 7;
// A stored text holds at most 255 characters and its NUL.
constexpr std::size_t kMaxStoredTextChars = 255;
constexpr std::size_t kMaxSlotBytes = (kMaxStoredTextChars + 1) * 2;

// The library file's device path: program directory + "\MusicLib.qdx".
std::u16string GetLibraryPath();

// Empties the list, then appends one record per stored record, in file order.
// 0 when the file cannot be opened (the list stays empty); otherwise 1, also
// when the magic does not match (nothing is loaded) and when the file ends
// early (the records read so far are kept).
int LoadTrackList(std::u16string_view path, TrackList& list);

// Writes every record of the list, in list order, replacing the file at path
// atomically: after a failure the old file is still there as it was. A
// non-zero hidden flag gives the file the hidden attribute (the queue file),
// zero normal attributes (the library). 1 on success, 0 on failure.
int SaveTrackList(std::u16string_view path, const TrackList& list, int hidden);

// The seven stored slot lengths of a record, in bytes; returns their sum.
// A text longer than 255 characters is stored cut to 255.
int MeasureRecord(const TrackRecord& record, std::array<std::uint16_t, 7>& lengths);

// What a file's header says, for tools that show a file as it is.
struct LibraryHeader {
    std::u16string magic; // as stored, up to its NUL
    bool magicMatches = false;
    std::uint32_t recordCount = 0;
    std::uint16_t fieldCount = 0;
};

// The reader and writer behind LoadTrackList and SaveTrackList, for an open
// file and for any sink. relativeBase is the device folder that relative
// paths are joined to. ReadTrackList appends to the list; it returns false
// only when not even the header could be read.
bool ReadTrackList(DeviceFile& file, std::u16string_view relativeBase, TrackList& list,
                   LibraryHeader* header = nullptr);
// Writes header and records; a record the sink refuses is left out and the
// loop goes on; the header's count is then rewritten to the number that got
// in. false when the header could not be written either time.
bool WriteTrackList(const TrackList& list, ByteSink& sink);

} // namespace zelvor
