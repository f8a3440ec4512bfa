#pragma once
// What the user does to playlists from the browser: rename and delete a
// playlist, delete songs from an open favourites list, put songs into a new
// playlist or at the end of an existing one. Every operation works on the
// ".mpl" files of the playlist folder through the current device, and talks
// to the user only through UserFeedback: a beep for a refusal, a short sound
// for a success, the program's own message box for questions and notices.
//
// Songs are always stored by their full device path (the library record's
// field 8); SongPaths turns the browser's selected song rows into those.

#include "library/track_list.h"
#include "playlists/playlist_entry_list.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "res/message_box.h"

namespace zelvor {

// The user's side of an operation. The UI implements it with the message
// dialog and the host's sounds; tests record the calls.
class UserFeedback {
public:
    virtual ~UserFeedback() = default;
    // The default beep of a refused action.
    virtual void Beep() = 0;
    // A wave file by its device path, played asynchronously.
    virtual void PlaySound(std::u16string_view devicePath) = 0;
    // A modal message box of a type above; returns the button chosen.
    virtual int MessageBox(std::u16string_view text, int type) = 0;
};

// One playlist as a browser row: its name (the file name without ".mpl"),
// its full device path, and its number among the playlists (kept equal to
// its position: a deletion lowers the numbers of those after it).
struct PlaylistRow {
    std::u16string name;
    std::u16string path;
    int number = 0;
};

// The device paths of the songs at the selected rows: the library record's
// path for a row linked to the library, text 1 (still the path) for a row of
// a playlist whose file is not in the library. Rows that are neither are
// left out.
std::vector<std::u16string> SongPaths(const PlaylistEntryList& rows, std::span<const int> selected,
                                      const TrackList& library);

// The end of a rename: the row's file becomes newName + ".mpl" in the
// playlist folder. Refused when a file of that name exists (the device finds
// names ignoring case, so a name differing only in case is refused too):
// with report, the message "Rename Failed !\n" + "A playlist named '%s'
// already exists." Any other failure (no such row, an empty name or one with
// a folder in it, a failed move) reports "Rename Failed !" alone. On success
// the row takes the new name and path. True when the file was moved.
bool FinishRename(std::vector<PlaylistRow>& rows, int row, std::u16string_view newName, bool report,
                  UserFeedback& feedback);

struct RowsAfterDeletion {
    bool deleted = false;
    int selectRow = -1; // the row to select afterwards; -1 when none remains
};

// Asks whether to delete the playlist at row; on yes lowers the numbers of
// the playlists numbered at or after it by one, removes the row, deletes the
// file and names the row to select: the same position, or the new last row.
// A row that does not exist beeps.
RowsAfterDeletion DeletePlaylist(std::vector<PlaylistRow>& rows, int row, UserFeedback& feedback);

// Removes the selected song rows of the open playlist at path from the shown
// rows and from the file, and plays the delete sound. Each shown row knows
// the position of its entry in the file in value C (the browser sets it when
// it opens the list), so the rows may have been sorted since. The row to
// select is min(count - 1, last selected - number deleted + 1). Nothing
// selected, an unreadable file or one that cannot be saved only beeps.
RowsAfterDeletion DeleteSongsFromPlaylist(std::u16string_view path, PlaylistEntryList& shownRows,
                                          std::span<const int> selected, UserFeedback& feedback);

// Writes the songs into a new playlist with the first free "New Playlist N"
// name and tells the user its name. Returns the new file's path; empty, with
// a beep, when there are no songs or the file could not be saved.
std::u16string AddToNewPlaylist(std::span<const std::u16string> songPaths, UserFeedback& feedback);

// Appends the songs to the playlist file at path (a missing file starts
// empty; a song already there is listed twice) and plays the favourite
// sound. No songs, an unreadable file or one that cannot be saved (also for
// being too long, see kMaxPlaylistEntries) only beeps. True when written.
bool AddToPlaylistFile(std::u16string_view path, std::span<const std::u16string> songPaths,
                       UserFeedback& feedback);

} // namespace zelvor
