#pragma once
// The rows the browser lists for a category of the library: one row per
// song, or one row per group of songs sharing an artist, an album or a
// genre. Rows are PlaylistEntry, which the browser's list shows and sorts:
//
//   song row   text 1 = the shown title (ShownTitle), library index = the
//              library row, value C = the row's position in the list it came
//              from (its entry in a playlist file), value D = track number
//              (at most 32,767); texts 2 and 3 none. So the list's sort mode
//              0 orders by title and 1 by track number, then title. Artist
//              and album are left out on purpose: two more strings a row
//              double the time to list 100,000 songs, and a one-column list
//              of titles is sorted by its titles.
//   group row  text 1 = the value, "Unknown" or "All"; texts 2 and 3 none;
//              value D = its number of songs (at most 32,767), so mode 1
//              puts the biggest groups at one end; library index = its first
//              library row (-1 for "All", which so stays at one end);
//              value C = its index among the BrowseGroups.
//
// The library must be sorted by the category's field before groups are
// built from it; a group's rows are valid until the library is sorted again
// or changes.

#include "library/track_list.h"
#include "playlists/playlist_entry_list.h"

#include <string_view>
#include <vector>

namespace zelvor {

// The marker of the group of songs without a value.
constexpr int kUnknownGroupMarker = 14;

struct BrowseGroup {
    int first = 0; // library rows, inclusive
    int last = 0;
    int marker = 0; // kUnknownGroupMarker for the songs without a value
    // The "All" row stands for every song: first < 0 and last 0.
    bool IsAll() const { return first < 0 && last == 0; }
};

// The texts of the two special groups, in the current language.
struct GroupNames {
    std::u16string_view all;
    std::u16string_view unknown;
};

// Appends one song row for each library row from first to last.
void AppendSongRows(const TrackList& library, int first, int last, PlaylistEntryList& rows);

// Empties rows and groups, then lists one group per run of equal values of
// field in the sorted library, compared ignoring case with the previous
// song's value; with withAll an "All" row comes first.
void BuildGroupRows(const TrackList& library, int field, bool withAll, const GroupNames& names,
                    PlaylistEntryList& rows, std::vector<BrowseGroup>& groups);

// Sets a song row's value D from the record (rows of a playlist matched to
// the library get the same sort values as library rows).
void SetSongSortValues(PlaylistEntry& row, const TrackRecord& record);

} // namespace zelvor
