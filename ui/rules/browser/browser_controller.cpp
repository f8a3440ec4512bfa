#include "ui/rules/browser/browser_controller.h"

#include "config/application_values.h"
#include "config/settings.h"
#include "platform/device.h"
#include "platform/text.h"
#include "playlists/playlist_file.h"
#include "playlists/playlist_match.h"
#include "playlists/playlist_names.h"
#include "res/command_ids.h"
#include "res/string_table.h"

#include <algorithm>

namespace zelvor {
namespace {

enum Category : int { kAllMusic = 0, kArtists = 1, kAlbums = 2, kGenres = 3 };
// The library sort key of each category, and the key its "All" row sorts by.
constexpr int kCategoryKeys[] = {kFieldTitle, kFieldArtist, kFieldAlbum, kFieldGenre};
constexpr int kAllRowKeyArtists = kSortAlbumOrder;
constexpr int kAllRowKeyAlbums = kFieldRunTimeD;
constexpr int kAscending = 1;
// A heading click sorts song rows by title and group rows by name.
constexpr int kSortByText = 0;

std::u16string FavouritesName(int n) {
    return FormatText(FormatText(u"%s %d", static_cast<long long>(n) + 1),
                      LoadAppText(kTextMyFavourites));
}

// Runs the work under the wait cursor, as every long step of the screen.
template <typename Work> void UnderWaitCursor(BrowserView& view, Work work) {
    view.SetWaitCursor(true);
    work();
    view.SetWaitCursor(false);
}

} // namespace

BrowserController::BrowserController(BrowserView& view, UserFeedback& feedback, TrackList& library)
    : m_view(view), m_feedback(feedback), m_library(library) {}

bool BrowserController::ShowsSongsOf(int category, int level) const {
    return level == 2 || (level == 1 && (category == kAllMusic || category >= kFirstFavouritesRow));
}

void BrowserController::ShowLevel(int level, int selectRow) {
    m_level = level;
    m_songsShown = ShowsSongsOf(m_category, level);
    m_view.RowsChanged();
    m_view.ShowButtons(Buttons());
    if (selectRow >= 0)
        m_view.SelectRow(selectRow);
}

// The favourites files have their fixed rows; every other playlist file of
// the folder gets a row after them, so that it can be opened, renamed and
// deleted.
void BrowserController::FillTopRows() {
    m_rows.RemoveAll();
    m_playlists.clear();
    for (const std::u16string& path : PlaylistFilesInFolder()) {
        bool favourites = false;
        for (int n = 0; n < kFavouritesLists && !favourites; ++n)
            favourites = EqualsIgnoreCase(path, GetFavoritesPath(n));
        if (!favourites)
            m_playlists.push_back({std::u16string(FileNameOfPath(path, true)), path,
                                   static_cast<int>(m_playlists.size())});
    }
    const int count = kBrowserTopRows + static_cast<int>(m_playlists.size());
    for (int row = 0; row < count; ++row) {
        auto entry = std::make_unique<PlaylistEntry>(
            row < kFirstFavouritesRow ? std::u16string(LoadAppText(kTextAllMusic + row))
            : row < kBrowserTopRows   ? FavouritesName(row - kFirstFavouritesRow)
                                      : m_playlists[static_cast<size_t>(row - kBrowserTopRows)].name);
        entry->SetValueC(row);
        entry->SetValueD(static_cast<std::int16_t>(row));
        m_rows.Insert(std::move(entry));
    }
}

void BrowserController::ShowTopList() {
    m_groups.clear();
    m_openFavourites = -1;
    m_openPlaylist.clear();
    FillTopRows();
    ShowLevel(0);
}

void BrowserController::OpenCategory(int category) {
    m_category = category;
    m_openFavourites = -1;
    m_openPlaylist.clear();
    UnderWaitCursor(m_view, [&] {
        m_library.SortTracks(kCategoryKeys[category], kAscending);
        if (category == kAllMusic) {
            m_groups.clear();
            m_rows.RemoveAll();
            AppendSongRows(m_library, 0, m_library.Count() - 1, m_rows);
            return;
        }
        const std::u16string all(LoadAppText(kTextAll));
        const std::u16string unknown(LoadAppText(kTextUnknown));
        BuildGroupRows(m_library, kCategoryKeys[category], category != kGenres, {all, unknown},
                       m_rows, m_groups);
    });
    ShowLevel(1);
}

void BrowserController::OpenFavouritesList(int n) {
    m_openFavourites = n;
    OpenPlaylistFile(GetFavoritesPath(n), kFirstFavouritesRow + n);
}

void BrowserController::ReopenPlaylist() {
    if (m_openFavourites >= 0)
        OpenFavouritesList(m_openFavourites);
    else
        OpenPlaylistFile(m_openPlaylist, m_category);
}

void BrowserController::OpenPlaylistFile(const std::u16string& path, int category) {
    m_category = category;
    m_openPlaylist = path;
    m_groups.clear();
    // A favourites list never written yet is simply empty.
    LoadPlaylist(path, m_rows);
    MatchPlaylistToLibrary(m_rows, m_library);
    int position = 0;
    for (const auto& row : m_rows) {
        row->SetValueC(position++);
        if (const TrackRecord* record = m_library.TrackAt(row->LibraryIndex()))
            SetSongSortValues(*row, *record);
    }
    ShowLevel(1);
}

void BrowserController::OpenGroup(int row) {
    const PlaylistEntry* entry = m_rows.At(row);
    if (!entry || entry->ValueC() < 0 || entry->ValueC() >= static_cast<int>(m_groups.size()))
        return;
    m_group = entry->ValueC();
    const BrowseGroup group = m_groups[static_cast<size_t>(m_group)];
    UnderWaitCursor(m_view, [&] {
        m_rows.RemoveAll();
        if (group.IsAll()) {
            // Sorting again moves the library rows the groups point at; the
            // groups are built again on the way up.
            m_library.SortTracks(m_category == kArtists ? kAllRowKeyArtists : kAllRowKeyAlbums,
                                 kAscending);
            AppendSongRows(m_library, 0, m_library.Count() - 1, m_rows);
        } else {
            AppendSongRows(m_library, group.first, group.last, m_rows);
        }
    });
    ShowLevel(2);
}

void BrowserController::GoUp() {
    if (m_level == 0) {
        m_view.ShowPlayer();
    } else if (m_level == 1) {
        ShowTopList();
        m_view.SelectRow(m_category);
    } else {
        OpenCategory(m_category);
        m_view.SelectRow(m_group); // rows are built in group order
    }
}

void BrowserController::OnListClick(int row, std::int32_t confirming) {
    if (row < 0)
        return;
    m_lastClickOnSong = m_songsShown;
    if (m_songsShown) {
        if (confirming >= 1) {
            std::vector<int> all(static_cast<size_t>(m_rows.Count()));
            for (int i = 0; i < m_rows.Count(); ++i)
                all[static_cast<size_t>(i)] = i;
            Play(all, row);
        }
    } else if (m_level == 0 && row < kFirstFavouritesRow) {
        OpenCategory(row);
    } else if (m_level == 0 && row < kBrowserTopRows) {
        OpenFavouritesList(row - kFirstFavouritesRow);
    } else if (m_level == 0 && row - kBrowserTopRows < static_cast<int>(m_playlists.size())) {
        m_openFavourites = -1;
        OpenPlaylistFile(m_playlists[static_cast<size_t>(row - kBrowserTopRows)].path, row);
    } else if (m_level == 1) {
        OpenGroup(row);
    }
}

void BrowserController::OnDoubleClick(int row) {
    // A double tap starts with a tap, which may just have gone down a level
    // from a category or group row: that double tap must not start playing
    // the song that now happens to lie under the stylus.
    if (row >= 0 && m_songsShown && m_lastClickOnSong)
        OnListClick(row, 1);
}

void BrowserController::OnColumnClick(int) {
    if (m_level == 0)
        return; // the top list keeps its fixed order
    m_sortAscending = !m_sortAscending;
    m_view.SortRows(kSortByText, m_sortAscending);
}

void BrowserController::Play(const std::vector<int>& rows, int startRow) {
    TrackList songs;
    songs.Reserve(static_cast<int>(rows.size()));
    int start = 0;
    for (int row : rows) {
        const PlaylistEntry* entry = m_rows.At(row);
        const TrackRecord* record = entry ? m_library.TrackAt(entry->LibraryIndex()) : nullptr;
        if (!record)
            continue; // a playlist song whose file is not in the library
        if (row == startRow)
            start = songs.Count();
        songs.AddTrack(record->Clone());
    }
    if (songs.Empty()) {
        m_feedback.Beep();
        return;
    }
    m_view.PlaySongs(songs, start);
}

void BrowserController::PlaySelected() {
    const std::vector<int> selected = m_songsShown ? m_view.SelectedRows() : std::vector<int>{};
    if (selected.empty()) {
        m_feedback.Beep();
        return;
    }
    Play(selected, selected.front());
}

void BrowserController::OnCommand(int command) {
    switch (command) {
    case kCmdHandOn:
        m_view.ShowPlayer();
        return;
    case kCmdUp:
        GoUp();
        return;
    case kCmdPlaySelected:
        PlaySelected();
        return;
    case kCmdUpdateLibrary:
        if (m_view.IsShown())
            m_view.RunLibraryUpdate();
        else
            m_feedback.Beep();
        return;
    case kCmdDeleteSongs:
        DeleteSongs();
        return;
    case kCmdFavourites:
        ShowFavouritesMenu();
        return;
    case kCmdRename:
        RenamePlaylist();
        return;
    case kCmdDelete:
        DeleteSelectedPlaylist();
        return;
    default:
        if (command >= kCmdAddToNewPlaylist && command <= kCmdAddToPlaylistLast)
            AddSongs(command);
        return;
    }
}

int BrowserController::SelectedPlaylist() {
    if (m_level != 0)
        return -1;
    const std::vector<int> selected = m_view.SelectedRows();
    const int index = selected.size() == 1 ? selected.front() - kBrowserTopRows : -1;
    return index >= 0 && index < static_cast<int>(m_playlists.size()) ? index : -1;
}

void BrowserController::RenamePlaylist() {
    const int index = SelectedPlaylist();
    if (index < 0)
        m_feedback.Beep();
    else
        m_view.StartRename(kBrowserTopRows + index);
}

bool BrowserController::OnEndRename(int row, std::u16string_view newName) {
    // Only playlist rows are ever edited; the favourites keep their numbered
    // names. A name left as it was is no rename, and no "already exists".
    const int index = m_level == 0 ? row - kBrowserTopRows : -1;
    if (index < 0 || index >= static_cast<int>(m_playlists.size()) ||
        newName == m_playlists[static_cast<size_t>(index)].name)
        return false;
    return FinishRename(m_playlists, index, newName, true, m_feedback);
}

void BrowserController::DeleteSelectedPlaylist() {
    const int index = SelectedPlaylist();
    if (index < 0) {
        m_feedback.Beep();
        return;
    }
    const RowsAfterDeletion result = DeletePlaylist(m_playlists, index, m_feedback);
    if (!result.deleted)
        return;
    FillTopRows();
    ShowLevel(0, result.selectRow >= 0 ? kBrowserTopRows + result.selectRow : -1);
}

void BrowserController::ShowPlaylistMenu(std::int32_t packedPoint) {
    if (m_playlists.empty())
        return; // the fixed rows have no menu
    const bool one = SelectedPlaylist() >= 0;
    const std::vector<BrowserMenuItem> items{
        {kCmdRename, std::u16string(LoadAppText(kTextRename)), one},
        {kCmdDelete, std::u16string(LoadAppText(kTextDelete)), one}};
    const auto point = static_cast<std::uint32_t>(packedPoint);
    m_view.ShowMenu(items, static_cast<int>(point & 0xFFFF), static_cast<int>(point >> 16));
}

std::vector<std::u16string> BrowserController::SelectedSongPaths() {
    if (!m_songsShown)
        return {};
    return SongPaths(m_rows, m_view.SelectedRows(), m_library);
}

std::u16string BrowserController::OpenPlaylistPath() const {
    return m_songsShown ? m_openPlaylist : std::u16string();
}

void BrowserController::DeleteSongs() {
    const std::u16string path = OpenPlaylistPath();
    if (path.empty()) {
        m_feedback.Beep();
        return;
    }
    // No question first: the songs stay in the library and on the card, and
    // the sound tells the user what happened.
    const RowsAfterDeletion result =
        DeleteSongsFromPlaylist(path, m_rows, m_view.SelectedRows(), m_feedback);
    if (!result.deleted)
        return;
    m_view.RowsChanged();
    m_view.SelectRow(result.selectRow);
}

void BrowserController::ShowFavouritesMenu() {
    if (!m_songsShown || m_view.SelectedRows().empty()) {
        m_feedback.Beep();
        return;
    }
    std::vector<BrowserMenuItem> items;
    m_menuTargets.clear();
    for (int n = 0; n < kFavouritesLists; ++n) {
        items.push_back({kCmdAddToFavouritesFirst + n, FavouritesName(n)});
        m_menuTargets.push_back(GetFavoritesPath(n));
    }
    m_view.ShowMenu(items, -1, -1);
}

// Both menus that offer the commands 10001 onward remember the file each of
// their entries names, and the command addresses that file: the user's songs
// go to the list whose name was tapped, whatever files the playlist folder
// holds. The favourites numbering (command - 10000) is used only for a
// command that comes without a menu, and reaches the five favourites only.
void BrowserController::AddSongs(int command) {
    const std::vector<std::u16string> paths = SelectedSongPaths();
    if (command == kCmdAddToNewPlaylist) {
        AddToNewPlaylist(paths, m_feedback);
        return;
    }
    const size_t index = static_cast<size_t>(command - kCmdAddToFavouritesFirst);
    std::u16string target;
    if (index < m_menuTargets.size())
        target = m_menuTargets[index];
    else if (m_menuTargets.empty() && index < static_cast<size_t>(kFavouritesLists))
        target = GetFavoritesPath(static_cast<int>(index));
    m_menuTargets.clear();
    if (target.empty()) {
        m_feedback.Beep();
        return;
    }
    if (AddToPlaylistFile(target, paths, m_feedback) &&
        EqualsIgnoreCase(target, OpenPlaylistPath()))
        ReopenPlaylist(); // show the songs just added
}

std::vector<std::u16string> BrowserController::PlaylistFilesInFolder() const {
    const std::u16string folder = GetPlaylistFolder();
    std::vector<std::u16string> names;
    FindData found;
    auto handle = CurrentDevice().FileSystem().FindFirst(JoinDevicePath(folder, u"*.mpl"), found,
                                                         FindDetail::Attributes);
    for (bool more = handle != nullptr; more; more = handle->Next(found)) {
        if (!(found.attributes & kAttrDirectory))
            names.push_back(found.name);
    }
    std::sort(names.begin(), names.end(), [](const std::u16string& a, const std::u16string& b) {
        return CompareTextIgnoreCase(a, b) < 0;
    });
    std::vector<std::u16string> paths;
    for (const std::u16string& name : names)
        paths.push_back(JoinDevicePath(folder, name));
    return paths;
}

std::vector<std::u16string> BrowserController::PlaylistFilesForMenu() const {
    const std::u16string open = OpenPlaylistPath();
    std::vector<std::u16string> paths = PlaylistFilesInFolder();
    std::erase_if(paths, [&](const std::u16string& path) { return EqualsIgnoreCase(path, open); });
    const size_t room = kCmdAddToPlaylistLast - kCmdAddToFavouritesFirst + 1;
    if (paths.size() > room)
        paths.resize(room);
    return paths;
}

void BrowserController::OnContextMenu(std::int32_t packedPoint) {
    if (m_level == 0) {
        ShowPlaylistMenu(packedPoint);
        return;
    }
    if (!m_songsShown)
        return; // group rows have no menu
    std::vector<BrowserMenuItem> items;
    items.push_back({kCmdAddToNewPlaylist, std::u16string(LoadAppText(kTextAddToNewPlaylist))});
    items.push_back({0, {}, true, true});
    m_menuTargets = PlaylistFilesForMenu();
    for (size_t i = 0; i < m_menuTargets.size(); ++i)
        items.push_back({kCmdAddToFavouritesFirst + static_cast<int>(i),
                         std::u16string(FileNameOfPath(m_menuTargets[i], true))});
    const auto point = static_cast<std::uint32_t>(packedPoint);
    m_view.ShowMenu(items, static_cast<int>(point & 0xFFFF), static_cast<int>(point >> 16));
}

std::u16string BrowserController::StatusLine() const {
    if (!m_status.empty())
        return m_status;
    const int count = m_songsShown ? m_rows.Count() : m_library.Count();
    return FormatText(LoadAppText(kTextTotalSongs), static_cast<long long>(count));
}

void BrowserController::ShowStatusText(std::u16string_view text) {
    m_status = text;
    m_view.StatusChanged();
}

BrowserButtonsShown BrowserController::Buttons() const {
    // Up and update are always there. Songs shown can be played and put
    // into the favourites, or, in a favourites list or a playlist, taken out
    // of it; group and category rows are opened by a tap, so they need none
    // of the three.
    const bool playlist = !m_openPlaylist.empty();
    return {m_songsShown && playlist, m_songsShown && !playlist, m_songsShown};
}

void BrowserController::ReloadTexts() {
    const std::vector<int> selected = m_view.SelectedRows();
    if (m_level == 0) {
        FillTopRows();
    } else if (m_level == 1 && !m_groups.empty()) {
        for (const auto& row : m_rows) {
            const BrowseGroup& group = m_groups[static_cast<size_t>(row->ValueC())];
            if (group.IsAll())
                row->SetText(1, LoadAppText(kTextAll));
            else if (group.marker == kUnknownGroupMarker)
                row->SetText(1, LoadAppText(kTextUnknown));
        }
    }
    m_view.RowsChanged();
    if (!selected.empty())
        m_view.SelectRow(selected.front());
}

void BrowserController::DropContents() {
    // The top list refers to no library row and stays; anything below it
    // goes, and Reload builds it again from the library that comes back.
    if (m_level == 0)
        return;
    m_rows.RemoveAll();
    m_groups.clear();
    m_songsShown = false;
    m_view.RowsChanged();
    m_view.ShowButtons(Buttons());
}

void BrowserController::Reload() {
    // Library rows moved: level 1 is built again; a group of level 2 may be
    // gone, so its level 1 is shown instead.
    if (m_level == 0)
        m_view.StatusChanged();
    else if (!m_openPlaylist.empty())
        ReopenPlaylist();
    else
        OpenCategory(m_category);
}

} // namespace zelvor
