#pragma once
// The names of the playlist files: new user playlists, the favourites lists
// and the current-playlist file. All are device paths or names; the folders
// come from the current device (config/settings.h).

#include <string>

namespace zelvor {

constexpr int kMaxNewPlaylistNumber = 200;

// "New Playlist N.mpl" (the built-in text, never translated) with the first N
// from 1 to 200 whose file does not exist in the playlist folder. When all
// 200 exist the name is "New Playlist 1.mpl" even so, and the caller's save
// overwrites that file. The name has no folder.
std::u16string MakeNewPlaylistName();

// The file of favourites list n, counted from 0:
// playlist folder + "\My Favorites <n + 1>.mpl". (The file name is spelled
// "Favorites"; the name shown to the user is the localised "My Favourites".)
std::u16string GetFavoritesPath(int n);

// Program directory + "\~Playlist.qdx": the play queue between runs, in the
// library file's format and hidden.
std::u16string GetCurrentPlaylistPath();

} // namespace zelvor
