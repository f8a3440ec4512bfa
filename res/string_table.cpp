#include "res/string_table.h"

#include <array>

namespace zelvor {
namespace {

struct Entry {
    std::uint16_t id;
    std::u16string_view text;
};

// Profile section and entry names (146-148, 158, 160-163) live here too: they
// are loaded from the table but never translated. "FreeSapceHigh" is spelt
// so on purpose; existing devices hold values under that name.
constexpr std::array kTable{
    Entry{128, u"Zelvor"},
    Entry{129, u"Music Player"},
    Entry{130, u"Now Playing"},
    Entry{131, u"File Name"},
    Entry{132, u"My Playlists"},
    Entry{133, u"Do you want to delete all the files from the play list ?"},
    Entry{134, u"Unknown"},
    Entry{135, u"All Music"},
    Entry{136, u"Artists"},
    Entry{137, u"Albums"},
    Entry{138, u"Genres"},
    Entry{139, u"My Favourites"},
    Entry{140, u"Rename Failed !"},
    Entry{141, u"A playlist named '%s' already exists."},
    Entry{142, u"Rename"},
    Entry{143, u"Delete"},
    Entry{144, u"Add to new playlist..."},
    Entry{145, u"Update Library"},
    Entry{146, u"MainSection"},
    Entry{147, u"Random"},
    Entry{148, u"Repeat"},
    Entry{149, u"New Playlist"},
    Entry{150, u"Add to '%s' ."},
    Entry{151, u"Searching for files..."},
    Entry{152, u"Adding files..."},
    Entry{153, u"%d file(s) found"},
    Entry{154, u"%d file(s) added"},
    Entry{155, u"The library has been updated successfully !"},
    Entry{156, u"No music files were found."},
    Entry{157, u"'%s'\nDo you want to delete this playlist ?"},
    Entry{158, u"Mute"},
    Entry{159, u"Total :  %d  songs"},
    Entry{160, u"StorageCard"},
    Entry{161, u"FlashDisk"},
    Entry{162, u"FreeSapceHigh"},
    Entry{163, u"FreeSpaceLow"},
    Entry{164, u"All"},
};

static_assert(kTable.size() == kLastTextId - kFirstTextId + 1, "one entry per id, in order");

} // namespace

std::optional<std::u16string_view> FindBuiltInText(std::uint16_t id) {
    if (id < kFirstTextId || id > kLastTextId)
        return std::nullopt;
    return kTable[id - kFirstTextId].text;
}

} // namespace zelvor
