#pragma once
// The browser screen's rules: the top list of categories and favourites,
// the levels below it, what each tap, command and menu does, which buttons
// show, and the total line. The Qt screen owns a controller, shows Rows()
// in its list, forwards the list's messages and its buttons' commands here,
// and implements BrowserView.
//
//   level 0  nine rows: All Music, Artists, Albums, Genres, My Favourites 1-5;
//            then one row per user playlist of the playlist folder
//   level 1  All Music: every song; Artists, Albums, Genres: one row per
//            group; a favourites or playlist row: the songs of that file
//   level 2  the songs of the group chosen at level 1
//
// User playlists are listed below the nine fixed rows: every "*.mpl" file of
// the playlist folder except the five favourites files, sorted by name, each
// row's text the file name without ".mpl". The fixed rows keep their places
// (and their numbers, which the commands and the favourites depend on), and
// the playlists "Add to new playlist..." makes become reachable: they open
// like a favourites list, and their rows alone can be renamed and deleted.
//
// The library is borrowed for the controller's life; the rows refer to it
// by row index, so whoever changes it calls Reload() (or DropContents()
// before its records go away).

#include "ui/rules/browser/browse_groups.h"
#include "library/track_list.h"
#include "playlists/playlist_entry_list.h"
#include "playlists/playlist_operations.h"
#include "ui/rules/browser/browser_view.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

constexpr int kBrowserTopRows = 9;
constexpr int kFirstFavouritesRow = 4;
constexpr int kFavouritesLists = 5;

class BrowserController {
public:
    BrowserController(BrowserView& view, UserFeedback& feedback, TrackList& library);

    // The rows shown; the view's list borrows them.
    PlaylistEntryList& Rows() { return m_rows; }
    int Level() const { return m_level; }
    int Category() const { return m_category; }
    bool SongsShown() const { return m_songsShown; }
    // The favourites list shown (0-4), or -1.
    int OpenFavourites() const { return m_openFavourites; }
    // The user playlists listed after the nine top rows, in their order.
    const std::vector<PlaylistRow>& Playlists() const { return m_playlists; }

    // At creation: the top list, shown at level 0.
    void ShowTopList();

    // The list's messages: a tap or Enter (confirming >= 1), a double tap,
    // a column heading, the context menu at a packed screen point.
    void OnListClick(int row, std::int32_t confirming);
    void OnDoubleClick(int row);
    void OnColumnClick(int column);
    void OnContextMenu(std::int32_t packedPoint);
    // The end of an in-place rename; the answer accepts the new label.
    bool OnEndRename(int row, std::u16string_view newName);
    // Buttons and menu entries.
    void OnCommand(int command);

    // The status line: the status text while one is set, else the total.
    std::u16string StatusLine() const;
    void ShowStatusText(std::u16string_view text);
    BrowserButtonsShown Buttons() const;

    // The language changed: top texts and the current group texts again.
    void ReloadTexts();
    // The storage card went away: the rows that refer to the library go.
    void DropContents();
    // The library changed: what was shown is built again from it.
    void Reload();

private:
    void ShowLevel(int level, int selectRow = -1);
    void FillTopRows();
    void OpenCategory(int category);
    void OpenFavouritesList(int n);
    void OpenPlaylistFile(const std::u16string& path, int category);
    void ReopenPlaylist();
    int SelectedPlaylist();
    void ShowPlaylistMenu(std::int32_t packedPoint);
    void RenamePlaylist();
    void DeleteSelectedPlaylist();
    std::vector<std::u16string> PlaylistFilesInFolder() const;
    void OpenGroup(int row);
    void GoUp();
    void Play(const std::vector<int>& rows, int startRow);
    void PlaySelected();
    void ShowFavouritesMenu();
    void DeleteSongs();
    void AddSongs(int command);
    std::vector<std::u16string> SelectedSongPaths();
    std::vector<std::u16string> PlaylistFilesForMenu() const;
    std::u16string OpenPlaylistPath() const;
    bool ShowsSongsOf(int category, int level) const;

    BrowserView& m_view;
    UserFeedback& m_feedback;
    TrackList& m_library;
    PlaylistEntryList m_rows;
    std::vector<BrowseGroup> m_groups; // level 1 of a grouped category
    int m_level = 0;
    int m_category = 0;
    int m_group = -1; // the group shown at level 2
    int m_openFavourites = -1;
    std::vector<PlaylistRow> m_playlists; // the rows after the nine top rows
    std::u16string m_openPlaylist;        // the file of the songs shown, if any
    bool m_songsShown = false;
    bool m_lastClickOnSong = false;
    bool m_sortAscending = false; // the first heading click sorts A to Z
    std::u16string m_status;
    // The files the entries 10001 onward of the last menu shown name.
    std::vector<std::u16string> m_menuTargets;
};

} // namespace zelvor
