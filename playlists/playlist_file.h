#pragma once
// Playlist files (".mpl"): an ordered list of device paths.
//
//   header, 48 bytes, little-endian:
//     0  "ZLV10" as UTF-16LE with its NUL (12 bytes)
//     12 number of entries (i32)    16 reserved, zero (32)
//   each entry: u16 byte length L of the path including its NUL, then the
//   path in UTF-16LE. A path that does not begin with "\" is relative to the
//   music folder.
//
// Files are read and replaced through the current device's file system.

#include <cstdint>
#include <string>
#include <string_view>

#include "bytes/byte_sink.h"
#include "platform/device_fs.h"
#include "playlists/playlist_entry_list.h"

namespace zelvor {

constexpr std::u16string_view kPlaylistMagic = u"ZLV10";
constexpr std::size_t kPlaylistHeaderBytes = 48;
// The longest path the reader takes, in bytes with its NUL (259 characters);
// a longer entry is passed over.
constexpr std::size_t kMaxPlaylistPathBytes = 520;
// The longest path the writer writes: its entry buffer holds 524 bytes, the
// length word and 260 characters with their NUL.
constexpr std::size_t kMaxWrittenPathChars = 260;
// The most entries a file can say it holds: the count is written as a
// signed 16-bit number.
constexpr int kMaxPlaylistEntries = 32767;

// Empties the list (destroying its entries), then appends one entry per
// stored path, its text 1 the full path (empty for an empty stored path).
// 0 when the file cannot be opened;
// otherwise 1, also when the magic does not match (nothing is loaded) and
// when the file ends early (the entries read so far are kept).
int LoadPlaylist(std::u16string_view path, PlaylistEntryList& list);

// Writes text 1 of every entry, in order, replacing the file atomically.
// Entries whose text 1 is empty are left out, yet the header still counts
// every entry of the list; a reader then meets the end of the file early and
// keeps what it read. 1 when the file was written, 0 when it could not be
// or when the list holds more than kMaxPlaylistEntries entries; the old file
// is then left as it was.
int SavePlaylist(std::u16string_view path, const PlaylistEntryList& list);

struct PlaylistHeader {
    std::u16string magic; // as stored, up to its NUL
    bool magicMatches = false;
    std::int32_t entryCount = 0;
};

// The reader and writer behind LoadPlaylist and SavePlaylist. ReadPlaylist
// appends to the list, joining relative paths to musicFolder; false only
// when not even the header could be read.
bool ReadPlaylist(DeviceFile& file, std::u16string_view musicFolder, PlaylistEntryList& list,
                  PlaylistHeader* header = nullptr);
// false, having written nothing, for a list of more than kMaxPlaylistEntries
// entries; false as well when the sink refused bytes.
bool WritePlaylist(const PlaylistEntryList& list, ByteSink& sink);

} // namespace zelvor
