#pragma once
// The order the playlist list sorts its rows in.

#include "playlists/playlist_entry.h"
#include "playlists/playlist_entry_list.h"

namespace zelvor {

// Sort modes of the playlist list: which texts and numbers of the entries
// are compared, after the library link.
enum PlaylistSortMode : int {
    kSortByText1 = 0, // text 1 only (also any unknown mode)
    kSortByValueD = 1, // value D, then text 1
    kSortByText2 = 2, // text 2, then value D, then text 1
    kSortByText2And3 = 3, // text 2, text 3, then value D, then text 1
};

// <0 when a sorts before b, >0 after, 0 when the mode sees no difference.
// Entries without a library link (index -1) come last with orderFlag clear
// and first with it set, whatever the mode; two such entries compare by
// whichever comes first as a (not a strict order: SortPlaylistEntries takes
// care of that). Texts compare case-sensitively, b against a, negated when
// orderFlag is set, so the flag gives A to Z and no flag Z to A; empty texts
// 2 and 3 go to the tail with the flag and to the head without it. Value D:
// b - a, or a - b with the flag.
int ComparePlaylistEntries(const PlaylistEntry& a, const PlaylistEntry& b, int mode,
                           bool orderFlag);

// Stable sort of the list by ComparePlaylistEntries. Two entries without a
// library link are left in the order they were in.
void SortPlaylistEntries(PlaylistEntryList& list, int mode, bool orderFlag);

} // namespace zelvor
