#pragma once
// BrowserView: what the browser's rules ask of the browser screen. The Qt
// screen implements it with a CPlaylistListCtrl over the controller's rows,
// its bitmap buttons, a popup menu and the frame; tests record the calls.
//
// Everything is called on the UI thread, from inside the controller's
// handlers.

#include <string>
#include <vector>

namespace zelvor {

class TrackList;

struct BrowserMenuItem {
    int command = 0; // 0 with separator set
    std::u16string text;
    bool enabled = true;
    bool separator = false;
};

// Which of the three buttons created hidden are shown (up and update
// library always are).
struct BrowserButtonsShown {
    bool deleteSongs = false;     // 1004
    bool addToFavourites = false; // 1005 (same place as 1004; never both)
    bool play = false;            // 2005
    bool operator==(const BrowserButtonsShown&) const = default;
};

class BrowserView {
public:
    virtual ~BrowserView() = default;

    // The controller's rows were replaced or changed: reset the list (its
    // selection cleared, scrolled to the top) and repaint the total line.
    virtual void RowsChanged() = 0;
    // Indexes of the selected rows, ascending.
    virtual std::vector<int> SelectedRows() = 0;
    // Selects this row alone and makes it visible; -1 clears the selection.
    virtual void SelectRow(int row) = 0;
    // Sorts the rows in place by ComparePlaylistEntries with mode and flag.
    virtual void SortRows(int mode, bool orderFlag) = 0;
    // The status line changed (StatusLine()): repaint it.
    virtual void StatusChanged() = 0;
    virtual void ShowButtons(const BrowserButtonsShown& shown) = 0;

    // Shows a popup menu; the chosen entry comes back as OnCommand. x and y
    // are a screen point, or both -1 for "under the add-to-favourites
    // button".
    virtual void ShowMenu(const std::vector<BrowserMenuItem>& items, int x, int y) = 0;

    virtual bool IsShown() = 0;
    // Back to the player screen (the frame shows it and hides this one).
    virtual void ShowPlayer() = 0;
    // The player's layout refreshed, the songs (copies) made its play list
    // with the song at startIndex current, the frame switched to the player
    // under the wait cursor, and playing started.
    virtual void PlaySongs(const TrackList& songs, int startIndex) = 0;
    // The library update with its dialog; the frame reloads the browser
    // when the library changed.
    virtual void RunLibraryUpdate() = 0;

    // The system wait cursor on (true) or the previous cursor back (false).
    virtual void SetWaitCursor(bool on) = 0;

    // The in-place edit of the row's text starts, the row made visible; its
    // end comes back as the controller's OnEndRename.
    virtual void StartRename(int row) = 0;
};

} // namespace zelvor
