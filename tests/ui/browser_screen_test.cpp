// The browser screen as a widget in the frame, with the real player on the
// fake graph: the demonstration tour walks through it (taps on its list and
// buttons reach the rules, its menu acts, playing goes through the frame),
// a playlist is renamed in place, and the update dialog replaces the library.
// Its places and its total line are left to the tour's pictures.
#include <gtest/gtest.h>

#include <QDir>
#include <QLineEdit>

#include "config/settings.h"
#include "playlists/playlist_file.h"
#include "playlists/playlist_names.h"
#include "res/command_ids.h"
#include "tests/support/fake_media_graph.h"
#include "tests/support/test_device.h"
#include "tests/ui/lists_sink.h"
#include "tests/ui/main_frame_fakes.h"
#include "tests/ui/main_frame_rules_fixture.h"
#include "tests/ui/player_screen_rig.h"
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

// Title from the file name, artist from its folder.
std::unique_ptr<TrackRecord> ArtistRecord(std::u16string_view path, int typeCode) {
    auto record = PathOnlyRecord(path, typeCode);
    const std::u16string_view folder = path.substr(0, path.rfind(u'\\'));
    record->SetField(kFieldTitle, FileNameOfPath(path, true));
    record->SetField(kFieldArtist, FileNameOfPath(folder));
    record->SetField(kFieldDuration, std::int64_t{200});
    return record;
}

// The frame with the real player on the fake graph and the real browser,
// over a card of four songs by two artists.
class BrowserInFrame : public ::testing::Test {
protected:
    BrowserInFrame() {
        EnsureQtApplication();
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
    void SetUp() override {
        ASSERT_TRUE(frame->Create());
        ASSERT_TRUE(SpinUntil([&] { return player->QueueCount() == 4; }));
    }

    TestDevice dev;
    FakeOutside outside;
    FakeMediaGraphFactory graphs;
    FakeHost host;
    FramePaneMakers makers;
    CPlayerScreen* player = nullptr;
    CBrowserScreen* browser = nullptr;
    std::unique_ptr<CMainFrame> frame;
};

// The tour taps its way to an artist and plays it, adds a song through the
// favourites menu, plays My Favourites 2 and runs the update dialog: the
// list, the buttons and the menu reach the rules, and playing the frame.
TEST_F(BrowserInFrame, TheTourWalksTheBrowserAndFillsMyFavourites2) {
    TempDir pictures;
    const QString folder = QString::fromStdString((pictures.Path() / "tour").string());
    bool closed = false;
    QObject::connect(frame.get(), &CMainFrame::Closed, [&] { closed = true; });
    DemoTour tour(*frame, folder, 0.02);
    tour.Start();
    ASSERT_TRUE(SpinUntil([&] { return closed; }, 30000));
    EXPECT_EQ(QDir(folder).entryList({"*.png"}, QDir::Files).size(), 31);
    PlaylistEntryList favourites;
    LoadPlaylist(GetFavoritesPath(1), favourites);
    ASSERT_EQ(favourites.Count(), 1);
    EXPECT_TRUE(favourites.At(0)->Text(1).starts_with(u"\\Storage Card\\Abba\\"));
    EXPECT_EQ(host.sounds, std::vector<std::u16string>{u"\\Windows\\MyFavorite.wav"});
}

// A user playlist at the top: its menu comes from the list's request, and
// its rename in place from the edit's end; Escape renames nothing.
TEST_F(BrowserInFrame, APlaylistIsRenamedInPlace) {
    frame->ShowBrowser();
    dev.WriteFile(GetPlaylistFolder() + u"\\Road.mpl", "");
    browser->Controller().ShowTopList();
    WindowMessageEvent request({kMsgListContextRequest, 0, 0});
    QCoreApplication::sendEvent(browser->List(), &request);
    ASSERT_NE(browser->OpenMenu(), nullptr);
    EXPECT_EQ(browser->OpenMenu()->actions().size(), 2);
    browser->OpenMenu()->close();
    browser->SelectRow(9);
    for (const auto& [text, key] : {std::pair{"Trip", Qt::Key_Return}, {"Other", Qt::Key_Escape}}) {
        browser->Controller().OnCommand(kCmdRename);
        auto* editor = browser->List()->findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        editor->setText(text);
        SendKey(editor, QEvent::KeyPress, key);
        SpinEvents(20);
    }
    EXPECT_EQ(browser->Controller().Playlists().at(0).name, u"Trip");
    EXPECT_EQ(browser->Controller().Rows().At(9)->Text(1), u"Trip");
    EXPECT_EQ(host.beeps, 0);
}


TEST_F(BrowserInFrame, TheUpdateDialogReplacesTheLibraryAndTheTotalFollows) {
    frame->ShowBrowser();
    dev.WriteFile(u"\\Flash Disk\\Zed\\Three.mp3", "x");
    browser->Button(kCmdUpdateLibrary)->click(); // returns when the dialog has ended
    const auto total = [&] { return browser->Controller().StatusLine(); };
    EXPECT_TRUE(SpinUntil([&] { return total() == u"Total :  5  songs"; })) << ToUtf8(total());
}

} // namespace
} // namespace zelvor
