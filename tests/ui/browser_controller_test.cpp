#include "config/application_values.h"
#include "playlists/playlist_file.h"
#include "playlists/playlist_names.h"
#include "res/command_ids.h"
#include "tests/playlists/recording_feedback.h"
#include "tests/support/test_device.h"
#include "ui/rules/browser/browser_controller.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

using testing::RecordingFeedback;
using testing::TestDevice;
using Texts = std::vector<std::u16string>;

// Records what the controller asks of its screen. A menu is kept as
// "command text" lines, "-" for a separator, " (grey)" after a disabled one.
class FakeBrowserView : public BrowserView {
public:
    void RowsChanged() override {}
    std::vector<int> SelectedRows() override { return selected; }
    void SelectRow(int row) override { selectedRow = row; }
    void SortRows(int mode, bool orderFlag) override { sorts.push_back({mode, orderFlag}); }
    void StatusChanged() override {}
    void ShowButtons(const BrowserButtonsShown& which) override { buttons = which; }
    void ShowMenu(const std::vector<BrowserMenuItem>& items, int x, int y) override {
        menu.clear();
        for (const auto& item : items)
            menu.push_back(item.separator ? "-"
                                          : std::to_string(item.command) + " " +
                                                ToUtf8(item.text) + (item.enabled ? "" : " (grey)"));
        menuAt = {x, y};
    }
    bool IsShown() override { return shown; }
    void ShowPlayer() override { ++playerShown; }
    void PlaySongs(const TrackList& songs, int startIndex) override {
        played.clear();
        for (const auto& r : songs)
            played.push_back(ToUtf8(r->Text(kFieldTitle)));
        playedStart = startIndex;
    }
    void RunLibraryUpdate() override { ++updates; }
    void SetWaitCursor(bool on) override { waitCursor.push_back(on); }
    void StartRename(int row) override { renamed = row; }

    std::vector<int> selected;
    int selectedRow = -2, playerShown = 0, updates = 0, renamed = -1, playedStart = -1;
    std::vector<std::pair<int, bool>> sorts;
    BrowserButtonsShown buttons;
    std::vector<std::string> menu, played;
    std::pair<int, int> menuAt;
    bool shown = true;
    std::vector<bool> waitCursor;
};

std::unique_ptr<TrackRecord> Song(std::u16string_view title, std::u16string_view artist,
                                  std::u16string_view album) {
    auto r = std::make_unique<TrackRecord>();
    r->SetField(kFieldPath, u"\\Storage Card\\" + std::u16string(title) + u".mp3");
    r->SetField(kFieldTitle, title);
    r->SetField(kFieldArtist, artist);
    r->SetField(kFieldAlbum, album);
    return r;
}

class Browser : public ::testing::Test {
protected:
    Browser() {
        AppValues().language = 0;
        library.AddTrack(Song(u"d", u"Zed", u"Two"));
        library.AddTrack(Song(u"a", u"Abba", u"One"));
        library.AddTrack(Song(u"c", u"Zed", u""));
        library.AddTrack(Song(u"b", u"abba", u"One"));
        controller.ShowTopList();
    }
    static Texts TextsOf(const PlaylistEntryList& list) {
        Texts out;
        for (const auto& entry : list)
            out.emplace_back(entry->Text(1));
        return out;
    }
    Texts Shown() { return TextsOf(controller.Rows()); }
    static Texts Stored(const std::u16string& path) {
        PlaylistEntryList list;
        LoadPlaylist(path, list);
        return TextsOf(list);
    }
    TestDevice device;
    TrackList library;
    FakeBrowserView view;
    RecordingFeedback feedback;
    BrowserController controller{view, feedback, library};
};

TEST_F(Browser, ArtistsAreGroupedAndAGroupListsItsSongs) {
    EXPECT_EQ(Shown(), (Texts{u"All Music", u"Artists", u"Albums", u"Genres", u"My Favourites 1",
                              u"My Favourites 2", u"My Favourites 3", u"My Favourites 4",
                              u"My Favourites 5"}));
    EXPECT_EQ(view.buttons, BrowserButtonsShown{});
    controller.OnListClick(-1, 1);
    EXPECT_EQ(controller.Level(), 0);
    controller.OnListClick(1, 0);
    EXPECT_EQ(Shown(), (Texts{u"All", u"Abba", u"Zed"}));
    EXPECT_EQ(controller.StatusLine(), u"Total :  4  songs"); // the library, not the rows
    controller.OnListClick(3, 0); // past the last group
    EXPECT_EQ(controller.Level(), 1);
    controller.OnListClick(2, 0);
    EXPECT_EQ(controller.Level(), 2);
    EXPECT_EQ(Shown(), (Texts{u"d", u"c"}));
    EXPECT_EQ(controller.StatusLine(), u"Total :  2  songs");
    EXPECT_EQ(view.buttons, (BrowserButtonsShown{false, true, true}));
    for (const int up : {1, 0, -1}) { // the level left and the row selected there
        controller.OnCommand(kCmdUp);
        if (up >= 0) {
            EXPECT_EQ(std::pair(controller.Level(), view.selectedRow), std::pair(up, up + 1));
        }
        EXPECT_EQ(view.playerShown, up < 0 ? 1 : 0);
    }
}

TEST_F(Browser, TheAllRowOfAlbumsAndGenresWithoutAll) {
    controller.OnListClick(2, 0);
    controller.ReloadTexts(); // only the "All" and "Unknown" rows take new texts
    EXPECT_EQ(Shown(), (Texts{u"All", u"Unknown", u"One", u"Two"}));
    controller.OnListClick(0, 0); // by key 12, equal for all: the album order stays
    EXPECT_EQ(Shown(), (Texts{u"c", u"a", u"b", u"d"}));
    EXPECT_EQ(view.waitCursor, (std::vector<bool>{true, false, true, false}));
    controller.OnCommand(kCmdUp);
    controller.OnCommand(kCmdUp);
    controller.OnListClick(1, 0);
    controller.OnListClick(0, 0); // album order: songs without an album last
    EXPECT_EQ(Shown(), (Texts{u"a", u"b", u"d", u"c"}));
    controller.OnCommand(kCmdUp);
    controller.OnCommand(kCmdUp);
    controller.OnListClick(3, 0);
    EXPECT_EQ(Shown(), Texts{u"Unknown"}); // no "All" under Genres
}

TEST_F(Browser, SongRowsPlayOnAConfirmingChoiceOrTheSelectedOnes) {
    controller.OnColumnClick(0); // the top list keeps its order
    controller.OnCommand(kCmdPlaySelected); // no songs shown
    controller.OnListClick(0, 0);
    controller.OnCommand(kCmdPlaySelected); // none selected
    controller.ReloadTexts(); // songs, no groups: nothing to name again
    EXPECT_EQ(feedback.beeps, 2);
    controller.OnColumnClick(0);
    controller.OnColumnClick(0);
    EXPECT_EQ(view.sorts, (std::vector<std::pair<int, bool>>{{0, true}, {0, false}}));
    controller.OnDoubleClick(0); // the tap that opened All Music started this double tap
    EXPECT_TRUE(view.played.empty());
    EXPECT_EQ(Shown(), (Texts{u"a", u"b", u"c", u"d"}));
    controller.OnListClick(0, 0);
    EXPECT_TRUE(view.played.empty());
    controller.OnDoubleClick(0);
    EXPECT_EQ(view.played, (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(view.playedStart, 0);
    controller.OnListClick(1, 1);
    EXPECT_EQ(view.playedStart, 1);
    view.selected = {1, 3};
    controller.OnCommand(kCmdPlaySelected);
    EXPECT_EQ(view.played, (std::vector<std::string>{"b", "d"}));
    EXPECT_EQ(view.playedStart, 0);
    controller.OnCommand(kCmdUpdateLibrary);
    view.shown = false;
    controller.OnCommand(kCmdUpdateLibrary);
    EXPECT_EQ(view.updates, 1);
    EXPECT_EQ(feedback.beeps, 3);
    controller.OnCommand(kCmdHandOn);
    EXPECT_EQ(view.playerShown, 1);
}

TEST_F(Browser, FavouritesMenuAddsToTheListTapped) {
    controller.OnCommand(kCmdFavourites);
    EXPECT_EQ(feedback.beeps, 1);
    controller.OnListClick(0, 0);
    view.selected = {0};
    controller.OnCommand(kCmdFavourites);
    ASSERT_EQ(view.menu.size(), 5u);
    EXPECT_EQ(view.menu[4], "10005 My Favourites 5");
    EXPECT_EQ(view.menuAt, (std::pair<int, int>{-1, -1})); // under the button
    controller.OnCommand(kCmdAddToFavouritesFirst);
    controller.OnCommand(kCmdAddToFavouritesFirst); // without a menu: favourites numbering
    EXPECT_EQ(Stored(GetFavoritesPath(0)), Texts(2, u"\\Storage Card\\a.mp3"));
    controller.OnCommand(kCmdAddToFavouritesFirst + 5); // no menu names a sixth list
    controller.OnCommand(kCmdAddToPlaylistLast);
    EXPECT_EQ(feedback.beeps, 3);
}

TEST_F(Browser, ContextMenuListsThePlaylistFilesByName) {
    controller.OnContextMenu(0);
    EXPECT_TRUE(view.menu.empty()); // category rows have no menu
    device.WriteFile(u"\\Flash Disk\\Zelvor\\My Playlists\\zoo.mpl", "");
    device.WriteFile(u"\\Flash Disk\\Zelvor\\My Playlists\\Alpha.mpl", "");
    device.WriteFile(u"\\Flash Disk\\Zelvor\\My Playlists\\My Favorites 1.mpl", "");
    controller.OnListClick(4, 0); // favourites 1 is open: not offered
    controller.OnCommand(kCmdUp);
    controller.OnListClick(0, 0);
    controller.OnContextMenu(0x00C80032);
    EXPECT_EQ(view.menuAt, (std::pair<int, int>{50, 200}));
    EXPECT_EQ(view.menu,
              (std::vector<std::string>{"10000 Add to new playlist...", "-", "10001 Alpha",
                                        "10002 My Favorites 1", "10003 zoo"}));
    view.selected = {3};
    controller.OnCommand(kCmdAddToFavouritesFirst); // "Alpha", not favourites 1
    EXPECT_EQ(Stored(u"\\Flash Disk\\Zelvor\\My Playlists\\Alpha.mpl"),
              Texts{u"\\Storage Card\\d.mp3"});
    EXPECT_TRUE(Stored(GetFavoritesPath(0)).empty());
}

TEST_F(Browser, DropAndReloadFollowTheLibrary) {
    controller.OnListClick(1, 0);
    controller.OnListClick(1, 0);
    controller.DropContents();
    EXPECT_EQ(controller.Rows().Count(), 0);
    EXPECT_FALSE(controller.SongsShown());
    library.AddTrack(Song(u"e", u"Eve", u"One"));
    controller.Reload();
    EXPECT_EQ(controller.Level(), 1);
    EXPECT_EQ(Shown(), (Texts{u"All", u"Abba", u"Eve", u"Zed"}));
    controller.ShowStatusText(u"Searching for files...");
    EXPECT_EQ(controller.StatusLine(), u"Searching for files...");
    controller.ShowStatusText({});
    EXPECT_EQ(controller.StatusLine(), u"Total :  5  songs");
}

TEST_F(Browser, UserPlaylistsFollowTheTopRowsAndCanBeRenamedOpenedAndDeleted) {
    const std::u16string folder = u"\\Flash Disk\\Zelvor\\My Playlists\\";
    PlaylistEntryList list;
    list.Insert(std::make_unique<PlaylistEntry>(u"\\Storage Card\\c.mp3"));
    list.Insert(std::make_unique<PlaylistEntry>(u"\\Storage Card\\a.mp3"));
    device.Fs().CreateDirectory(folder.substr(0, folder.size() - 1));
    SavePlaylist(folder + u"Road.mpl", list);
    SavePlaylist(GetFavoritesPath(0), list); // the favourites files get no playlist row
    SavePlaylist(GetFavoritesPath(1), list);
    device.WriteFile(folder + u"alpha.mpl", "");
    controller.ShowTopList();
    const Texts top = Shown();
    EXPECT_EQ(Texts(top.begin() + 8, top.end()), (Texts{u"My Favourites 5", u"alpha", u"Road"}));

    // An open favourites list can lose songs; it is read again on a reload.
    controller.OnListClick(5, 0);
    controller.Reload();
    EXPECT_EQ(Shown(), (Texts{u"c", u"a"}));
    EXPECT_EQ(controller.OpenFavourites(), 1);
    EXPECT_EQ(view.buttons, (BrowserButtonsShown{true, false, true}));
    controller.OnCommand(kCmdDeleteSongs); // nothing selected
    view.selected = {0};
    controller.OnCommand(kCmdDeleteSongs);
    EXPECT_EQ(Shown(), Texts{u"a"});
    EXPECT_EQ(Stored(GetFavoritesPath(1)), Texts{u"\\Storage Card\\a.mp3"});
    EXPECT_EQ(view.selectedRow, 0);
    controller.OnCommand(kCmdUp);
    controller.OnCommand(kCmdDeleteSongs); // no list open
    EXPECT_EQ(feedback.beeps, 2);

    view.selected = {};
    controller.OnContextMenu(0);
    EXPECT_EQ(view.menu, (std::vector<std::string>{"3001 Rename (grey)", "3002 Delete (grey)"}));
    controller.OnCommand(kCmdRename);
    view.selected = {4}; // a favourites row is no playlist
    controller.OnCommand(kCmdDelete);
    view.selected = {11}; // nor is a row past the last
    controller.OnCommand(kCmdRename);
    EXPECT_EQ(feedback.beeps, 5);
    EXPECT_EQ(view.renamed, -1);
    view.selected = {9};
    controller.OnContextMenu(0);
    EXPECT_EQ(view.menu, (std::vector<std::string>{"3001 Rename", "3002 Delete"}));
    controller.OnCommand(kCmdRename);
    EXPECT_EQ(view.renamed, 9);
    EXPECT_FALSE(controller.OnEndRename(9, u"alpha")); // unchanged: nothing said
    EXPECT_FALSE(controller.OnEndRename(8, u"x"));
    EXPECT_TRUE(feedback.messages.empty());
    EXPECT_TRUE(controller.OnEndRename(9, u"Beta"));
    EXPECT_TRUE(std::filesystem::exists(device.Host(folder + u"Beta.mpl")));

    controller.OnListClick(10, 0);
    EXPECT_EQ(Shown(), (Texts{u"c", u"a"}));
    view.selected = {1};
    controller.OnCommand(kCmdDeleteSongs);
    EXPECT_EQ(Stored(folder + u"Road.mpl"), Texts{u"\\Storage Card\\c.mp3"});
    controller.OnCommand(kCmdUp);
    EXPECT_EQ(view.selectedRow, 10);
    view.selected = {10};
    controller.OnCommand(kCmdDelete);
    EXPECT_EQ(Shown().size(), 10u);
    EXPECT_EQ(view.selectedRow, 9);
    EXPECT_FALSE(std::filesystem::exists(device.Host(folder + u"Road.mpl")));
}

} // namespace
} // namespace zelvor
