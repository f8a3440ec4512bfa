#include "playlists/playlist_names.h"

#include "config/local_text.h"
#include "config/settings.h"
#include "platform/device_fs.h"
#include "platform/text.h"
#include "res/string_table.h"

namespace zelvor {
namespace {

std::u16string NewPlaylistName(std::u16string_view base, int n) {
    return FormatText(FormatText(u"%s %d.mpl", static_cast<long long>(n)), base);
}

} // namespace

std::u16string MakeNewPlaylistName() {
    const std::u16string folder = GetPlaylistFolder();
    const char16_t* text = LoadBuiltInText(kTextNewPlaylist);
    const std::u16string base = text ? text : u"";
    for (int n = 1; n <= kMaxNewPlaylistNumber; ++n) {
        std::u16string name = NewPlaylistName(base, n);
        std::u16string path = JoinDevicePath(folder, name);
        if (!PathExists(path))
            return name;
    }
    return NewPlaylistName(base, 1);
}

std::u16string GetFavoritesPath(int n) {
    return FormatText(FormatText(u"%s\\My Favorites %d.mpl", static_cast<long long>(n) + 1),
                      GetPlaylistFolder());
}

std::u16string GetCurrentPlaylistPath() {
    return GetProgramDirectory() + u"\\~Playlist.qdx";
}

} // namespace zelvor
