// The browser screen as a widget: taps on its list and buttons reach the
// rules, playing goes through the frame to the real player on the fake
// graph, the total line is painted, the buttons sit at their places, the
// menus act, and the demonstration tour walks through it.
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <set>

#include "config/settings.h"
#include "playback/playback_engine.h"
#include "playlists/playlist_file.h"
#include "playlists/playlist_names.h"
#include "res/command_ids.h"
#include "tests/playback/fake_media_graph.h"
#include "tests/support/test_device.h"
#include "tests/ui/lists_sink.h"
#include "tests/ui/main_frame_fakes.h"
#include "tests/ui/main_frame_rules_fixture.h"
#include "ui/widgets/browser/browser_screen.h"
#include "ui/widgets/lists/bitmap_button.h"
#include "ui/widgets/lists/playlist_list_ctrl.h"
#include "ui/widgets/main_frame/demo_tour.h"
#include "ui/widgets/main_frame/main_frame.h"
#include "ui/widgets/player_screen/player_screen.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {
namespace {
using namespace zelvor::testing;

struct QuietHost : SoundPlayer, IdleTimer, DisplayPower, PowerSource {
    void MessageBeep() override { ++beeps; }
    bool PlaySound(std::u16string_view path) override {
        sounds.push_back(ToUtf8(path));
        return true;
    }
    void SystemIdleTimerReset() override {}
    bool SetDisplayOff() override { return false; }
    bool GetSystemPowerStatusEx(SystemPowerStatus& out) override {
        out = {kAcLineOnline, kBatteryFlagHigh, 80};
        return true;
    }
    int beeps = 0;
    std::vector<std::string> sounds;
};

// Title from the file name, artist from its folder.
std::unique_ptr<TrackRecord> ArtistRecord(std::u16string_view path, int typeCode) {
    auto record = PathOnlyRecord(path, typeCode);
    const std::u16string_view folder = path.substr(0, path.rfind(u'\\'));
    record->SetField(kFieldTitle, FileNameOfPath(path, true));
    record->SetField(kFieldArtist, FileNameOfPath(folder));
    record->SetField(kFieldDuration, std::int64_t{200});
    return record;
}

void Tap(CPlaylistListCtrl* list, int row, bool twice = false) {
    const QPoint at = list->visualRect(list->model()->index(row, 0)).center();
    SendMouse(list->viewport(), QEvent::MouseButtonPress, at);
    SendMouse(list->viewport(), QEvent::MouseButtonRelease, at, Qt::NoButton);
    if (twice) {
        SendMouse(list->viewport(), QEvent::MouseButtonDblClick, at);
        SendMouse(list->viewport(), QEvent::MouseButtonRelease, at, Qt::NoButton);
    }
    SpinEvents(20);
}

std::vector<std::u16string> Texts(CBrowserScreen& screen) {
    std::vector<std::u16string> out;
    for (const auto& row : screen.Controller().Rows())
        out.emplace_back(row->Text(1));
    return out;
}

// The frame with the real player on the fake graph and the real browser,
// over a card of four songs by two artists.
class BrowserInFrame : public ::testing::Test {
protected:
    BrowserInFrame() {
        EnsureWidgetApplication();
        AppValues() = {};
        for (auto path : {u"\\Storage Card\\Abba\\Waterloo.mp3", u"\\Storage Card\\Zed\\Two.mp3",
                          u"\\Storage Card\\Zed\\One.mp3", u"\\Storage Card\\Abba\\Fernando.mp3"})
            dev.WriteFile(path, "x");
        SelectSkinModule(0);
        makers.player = [this](QWidget* parent, FrameMessages& messages) {
            PlayerScreenHost services{&host, &host, &host, &host, {}, {}};
            auto pane = std::make_unique<CPlayerScreen>(messages, graphs,
                                                        ScreenOrientation::Portrait, services, parent);
            player = pane.get();
            return pane;
        };
        makers.browser = [this](QWidget* parent, FrameMessages& messages, TrackList& library) {
            auto pane = std::make_unique<CBrowserScreen>(messages, library, ArtistRecord, &host,
                                                         parent);
            browser = pane.get();
            return pane;
        };
        frame = std::make_unique<CMainFrame>(QSize(240, 320), outside, ArtistRecord, makers);
    }
    ~BrowserInFrame() override {
        frame.reset();
        ReleaseSkinModule();
    }
    bool Start() {
        return frame->Create() && SpinUntil([&] { return player->QueueCount() == 4; });
    }

    TestDevice dev;
    FakeOutside outside;
    FakeMediaGraphFactory graphs;
    QuietHost host;
    FramePaneMakers makers;
    CPlayerScreen* player = nullptr;
    CBrowserScreen* browser = nullptr;
    std::unique_ptr<CMainFrame> frame;
};

TEST_F(BrowserInFrame, TapsGoToAnArtistAndPlayItsSongsThroughTheFrame) {
    ASSERT_TRUE(Start());
    frame->ShowBrowser();
    ASSERT_TRUE(browser->isVisible());
    Tap(browser->List(), 1); // Artists
    EXPECT_EQ(Texts(*browser), (std::vector<std::u16string>{u"All", u"Abba", u"Zed"}));
    Tap(browser->List(), 2);
    const std::vector<std::u16string> songs = Texts(*browser);
    ASSERT_EQ(songs.size(), 2u);
    EXPECT_EQ(std::set<std::u16string>(songs.begin(), songs.end()),
              (std::set<std::u16string>{u"One", u"Two"}));
    EXPECT_TRUE(browser->Button(kCmdPlaySelected)->isVisible());

    Tap(browser->List(), 1, true); // a double tap confirms
    EXPECT_TRUE(player->isVisible());
    EXPECT_FALSE(browser->isVisible());
    PlayQueue& queue = player->GetPlayer().Queue();
    ASSERT_EQ(queue.EntryCount(), 2);
    EXPECT_EQ(queue.Entry(queue.CurrentIndex())->Text(kFieldTitle), songs[1]);
    EXPECT_EQ(player->GetPlayer().Engine().State(), kPlayStatePlaying);

    // The frame's messages while the browser shows: the shell's status is
    // not the player's, a card removal drops the songs, the back key leaves.
    frame->ShowBrowser();
    EXPECT_EQ(frame->SendFrameMessage({kMsgShellStatus, 0, 7}), 0);
    frame->SendFrameMessage({kMsgStorageCard, 0, 0});
    EXPECT_EQ(browser->List()->model()->rowCount(), 0);
    frame->SendFrameMessage({kMsgBackKey, 0, 0});
    EXPECT_TRUE(player->isVisible());

    // Up from each level; at the top the same button leaves for the player.
    frame->ShowBrowser();
    for (int level = 2; level >= 0; --level) {
        EXPECT_TRUE(browser->isVisible()) << level;
        browser->Button(kCmdUp)->click();
    }
    EXPECT_TRUE(player->isVisible());
    EXPECT_FALSE(browser->isVisible());
}

TEST_F(BrowserInFrame, TheTourWalksTheBrowserAndFillsMyFavourites2) {
    ASSERT_TRUE(Start());
    TempDir pictures;
    const QString folder = QString::fromStdString((pictures.Path() / "tour").string());
    bool closed = false;
    QObject::connect(frame.get(), &CMainFrame::Closed, [&] { closed = true; });
    DemoTour tour(*frame, folder, 0.02);
    tour.Start();
    ASSERT_TRUE(SpinUntil([&] { return closed; }, 30000));
    const QStringList files = QDir(folder).entryList({"*.png"}, QDir::Files, QDir::Name);
    ASSERT_EQ(files.size(), 31);
    EXPECT_EQ(files[19], "20-play-artist.png");
    EXPECT_EQ(files[26], "27-update-dialog.png");
    EXPECT_EQ(files[28], "29-back-to-player.png");
    PlaylistEntryList favourites;
    LoadPlaylist(GetFavoritesPath(1), favourites);
    ASSERT_EQ(favourites.Count(), 1);
    EXPECT_TRUE(favourites.At(0)->Text(1).starts_with(u"\\Storage Card\\Abba\\"));
    EXPECT_EQ(host.sounds, std::vector<std::string>{"\\Windows\\MyFavorite.wav"});
}

// The screen alone, with a frame that records what it is asked.
class RecordingFrame : public FrameMessages {
public:
    void PostToFrame(const WindowMessage& message) override { posted.push_back(message); }
    void ShowBrowser() override {}
    void ShowMenu() override {}
    void HideFrame() override {}
    void ShowPlayer() override { ++playerShown; }
    void PlayFromBrowser(const TrackList& songs, int start) override {
        played = songs.Count();
        playedStart = start;
    }
    std::vector<WindowMessage> posted;
    int playerShown = 0, played = 0, playedStart = -1;
};

class LoneBrowser : public ::testing::TestWithParam<bool> {
protected:
    LoneBrowser() {
        EnsureWidgetApplication();
        AppValues() = {};
        AppValues().portrait = GetParam() ? 1 : 0;
        SelectSkinModule(0);
        for (auto title : {u"a", u"b", u"c"})
            library.AddTrack(ArtistRecord(u"\\Storage Card\\Abba\\" + std::u16string(title) +
                                              u".mp3", 0));
        screen = std::make_unique<CBrowserScreen>(frame, library, ArtistRecord, &host);
    }
    ~LoneBrowser() override {
        screen.reset();
        ReleaseSkinModule();
    }
    TestDevice dev;
    TrackList library;
    RecordingFrame frame;
    QuietHost host;
    std::unique_ptr<CBrowserScreen> screen;
};

TEST_P(LoneBrowser, ButtonsAndListSitAtTheirPlacesAndTheTotalLineIsPainted) {
    const BrowserLayout layout = BrowserLayoutFor(GetParam() ? ScreenOrientation::Portrait
                                                             : ScreenOrientation::Landscape);
    const auto rect = [](const PixelRect& r) { return QRect(r.left, r.top, r.Width(), r.Height()); };
    EXPECT_EQ(screen->List()->geometry(), rect(layout.list));
    for (const ImageButtonPlace& place : layout.buttons)
        EXPECT_EQ(screen->Button(place.command)->geometry(), rect(place.rect)) << place.command;

    const QRect status = rect(layout.status);
    const auto darkPixels = [&] {
        const QImage image = screen->RenderScreen();
        int dark = 0;
        for (int y = status.top(); y <= status.bottom() && y < image.height(); ++y)
            for (int x = status.left(); x <= status.right(); ++x)
                dark += image.pixel(x, y) == qRgb(0x20, 0x20, 0x20) ? 1 : 0;
        return dark;
    };
    const int total = darkPixels();
    EXPECT_GT(total, 20);
    EXPECT_EQ(screen->grab(status).toImage(), screen->RenderScreen().copy(status));
    screen->ShowStatusText(u"Searching for files...");
    EXPECT_GT(darkPixels(), total); // a longer text
    screen->ShowStatusText(u"");
    EXPECT_EQ(darkPixels(), total);
}

TEST_P(LoneBrowser, MenusOfferTheirEntriesAndActOnTheOneChosen) {
    screen->show();
    Tap(screen->List(), 0); // All Music
    Tap(screen->List(), 2);
    screen->Button(kCmdFavourites)->click();
    QMenu* menu = screen->OpenMenu();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 5);
    // Under the button where it fits, and always on the device's screen.
    const QRect device(screen->mapToGlobal(QPoint()), screen->size());
    const QWidget* star = screen->Button(kCmdFavourites);
    EXPECT_TRUE(device.contains(QRect(menu->pos(), menu->sizeHint()))) << menu->pos().y();
    if (GetParam()) {
        EXPECT_EQ(menu->pos().y(), star->mapToGlobal(QPoint(0, star->height())).y());
    }
    menu->actions()[1]->trigger();
    PlaylistEntryList favourites;
    LoadPlaylist(GetFavoritesPath(1), favourites);
    ASSERT_EQ(favourites.Count(), 1);
    EXPECT_EQ(favourites.At(0)->Text(1), u"\\Storage Card\\Abba\\c.mp3");

    // A user playlist at the top: Rename and Delete, greyed without a selection.
    SavePlaylist(GetPlaylistFolder() + u"\\Road.mpl", favourites);
    screen->Button(kCmdUp)->click();
    ASSERT_EQ(screen->List()->model()->rowCount(), 10);
    WindowMessageEvent request({kMsgListContextRequest, 0, 0});
    QCoreApplication::sendEvent(screen->List(), &request);
    menu = screen->OpenMenu();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_FALSE(menu->actions()[0]->isEnabled());
    menu->close();

    // Rename in place: the edit's end renames the file; Escape cancels.
    screen->SelectRow(9);
    screen->Controller().OnCommand(kCmdRename);
    auto* editor = screen->List()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText("Trip");
    SendKey(editor, QEvent::KeyPress, Qt::Key_Return);
    SpinEvents(20);
    EXPECT_EQ(screen->Controller().Playlists().at(0).name, u"Trip");
    EXPECT_EQ(screen->Controller().Rows().At(9)->Text(1), u"Trip");
    screen->Controller().OnCommand(kCmdRename);
    editor = screen->List()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText("Other");
    SendKey(editor, QEvent::KeyPress, Qt::Key_Escape);
    SpinEvents(20);
    EXPECT_EQ(screen->Controller().Playlists().at(0).name, u"Trip");
    EXPECT_TRUE(host.beeps == 0);

    screen->Button(kCmdUp)->click();
    EXPECT_EQ(frame.playerShown, 1);
}

TEST_P(LoneBrowser, TheUpdateDialogReplacesTheLibraryAndTellsTheFrame) {
    dev.WriteFile(u"\\Flash Disk\\Zed\\d.mp3", "x");
    screen->show();
    screen->Button(kCmdUpdateLibrary)->click(); // returns when the dialog has ended
    ASSERT_EQ(library.Count(), 1);
    EXPECT_EQ(library.TrackAt(0)->Text(kFieldArtist), u"Zed");
    ASSERT_EQ(frame.posted.size(), 1u);
    EXPECT_EQ(frame.posted[0].message, kMsgUpdateFinished);
    EXPECT_EQ(frame.posted[0].wParam, 1u);
    EXPECT_EQ(frame.posted[0].lParam, 0); // no refill asked
}

INSTANTIATE_TEST_SUITE_P(Orientations, LoneBrowser, ::testing::Values(true, false),
                         [](const ::testing::TestParamInfo<bool>& param) {
                             return param.param ? "Portrait" : "Landscape";
                         });

} // namespace
} // namespace zelvor
