#pragma once
// Linking the entries of a playlist to the rows of the library.

#include "library/track_list.h"
#include "playlists/playlist_entry_list.h"

namespace zelvor {

// For every entry still unmatched (library index -1) whose text 1 equals the
// path of a library record, ignoring case: text 1 becomes that record's
// title (or its file name without the extension when it has no title) and
// the library index the record's row. An entry links to the first such row
// in library order; several entries with the same path all link there. An
// entry whose path is not in the library keeps its path and index -1.
// Nothing happens when either list is empty.
void MatchPlaylistToLibrary(PlaylistEntryList& list, const TrackList& library);

} // namespace zelvor
