#pragma once
// The program's own string table: the English texts that every user-visible
// text is asked for by number (128 to 164). Translations are looked up by
// these texts in "Ombrel.txt", so a text here must not change lightly: it is
// the key of every translation line.

#include <cstdint>
#include <optional>
#include <string_view>

namespace zelvor {

// Text numbers the program uses by name.
enum TextId : std::uint16_t {
    kTextAppTitle = 128,
    kTextFileName = 131,
    kTextDeleteAllQuestion = 133,
    kTextUnknown = 134,
    kTextAllMusic = 135,
    kTextArtists = 136,
    kTextAlbums = 137,
    kTextGenres = 138,
    kTextMyFavourites = 139,
    kTextRenameFailed = 140,
    kTextPlaylistExists = 141,
    kTextRename = 142,
    kTextDelete = 143,
    kTextAddToNewPlaylist = 144,
    kTextSectionMain = 146,
    kTextEntryRandom = 147,
    kTextEntryRepeat = 148,
    kTextNewPlaylist = 149,
    kTextAddTo = 150,
    kTextSearchingFiles = 151,
    kTextAddingFiles = 152,
    kTextFilesFound = 153,
    kTextFilesAdded = 154,
    kTextLibraryUpdated = 155,
    kTextDeletePlaylistQuestion = 157,
    kTextEntryMute = 158,
    kTextTotalSongs = 159,
    kTextSectionStorageCard = 160,
    kTextSectionFlashDisk = 161,
    kTextEntryFreeSpaceHigh = 162,
    kTextEntryFreeSpaceLow = 163,
    kTextAll = 164,
};

constexpr std::uint16_t kFirstTextId = 128;
constexpr std::uint16_t kLastTextId = 164;

// The English text of a string-table entry, or nothing when the table has no
// such entry. The view refers to static storage.
std::optional<std::u16string_view> FindBuiltInText(std::uint16_t id);

} // namespace zelvor
