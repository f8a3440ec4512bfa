#pragma once
// Command numbers of the screens' buttons and menus, and the ids of their
// list controls, defined once. They are the numbers a WM_COMMAND carries, so
// a button, a menu entry and a key that mean the same thing share one.

namespace zelvor {

// Buttons of the browser screen and the play list panel.
constexpr int kCmdHandOn = 1002;        // panel: hand the list on; browser: back to the player
constexpr int kCmdClearList = 1003;     // panel: clear the list after a question
constexpr int kCmdDeleteSongs = 1004;   // delete the selected rows / songs of the open favourites
constexpr int kCmdFavourites = 1005;    // panel: leave; browser: the add-to-favourites menu
constexpr int kCmdUp = 2004;            // browser: one level up
constexpr int kCmdPlaySelected = 2005;  // browser: play the selected songs
constexpr int kCmdUpdateLibrary = 2007; // browser: update the library with its dialog

// Context-menu entries of the browser.
constexpr int kCmdRename = 3001;
constexpr int kCmdDelete = 3002;
constexpr int kCmdAddToNewPlaylist = 10000;
constexpr int kCmdAddToFavouritesFirst = 10001; // 10001 + n - 1: favourites list n
constexpr int kCmdAddToPlaylistLast = 15000;

// Control ids.
constexpr int kIdPanelList = 2000;
constexpr int kIdLibraryList = 2002;
constexpr int kIdBrowserList = 2003;
constexpr int kIdBrowserAuxiliary = 2006;

} // namespace zelvor
