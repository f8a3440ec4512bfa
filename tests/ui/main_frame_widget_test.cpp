// CMainFrame as a widget: its panes, the back key, the play list panel, the
// skin and the screen's orientation reaching them.
#include <gtest/gtest.h>

#include <QTest>

#include "tests/support/test_device.h"
#include "tests/support/qt_app.h"
#include "tests/ui/main_frame_rules_fixture.h"
#include "res/command_ids.h"
#include "ui/widgets/lists/bitmap_button.h"
#include "ui/widgets/lists/track_list_ctrl.h"
#include "ui/widgets/main_frame/main_frame.h"
#include "ui/widgets/panel/play_list_panel.h"
#include "ui/widgets/skin/skin_module.h"
#include "app/application.h"
#include "host/endpoint.h"
#include "playback/player.h"
#include "tests/support/fake_media_graph.h"
#include "tests/playback/recording_player_view.h"
#include "app/host_application.h"

namespace zelvor {
namespace {
using namespace zelvor::testing;

class FrameWidget : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureQtApplication();
        AppValues() = {};
        SelectSkinModule(0);
        // A frame with fake panes.
        FramePaneMakers makers;
        makers.player = [this](QWidget* parent, FrameMessages& messages) {
            auto pane = std::make_unique<FakePlayerScreen>(parent);
            pane->onDestroy = [this] { destroyed.push_back("player"); };
            player = pane.get();
            paneMessages = &messages;
            return pane;
        };
        makers.browser = [this](QWidget* parent, FrameMessages&, TrackList&) {
            auto pane = std::make_unique<FakeBrowserScreen>(parent);
            pane->onDestroy = [this] { destroyed.push_back("browser"); };
            browser = pane.get();
            return pane;
        };
        frame = std::make_unique<CMainFrame>(QSize(240, 320), outside, PathOnlyRecord, makers);
        ASSERT_TRUE(frame->Create());
        QObject::connect(frame.get(), &CMainFrame::Closed, [this] { ++closed; });
    }
    void TearDown() override {
        frame.reset();
        ReleaseSkinModule();
    }

    TestDevice dev;
    FakeOutside outside;
    std::unique_ptr<CMainFrame> frame;
    FakePlayerScreen* player = nullptr;
    FakeBrowserScreen* browser = nullptr;
    FrameMessages* paneMessages = nullptr;
    std::vector<std::string> destroyed;
    int closed = 0;
};

TEST_F(FrameWidget, EscapeIsTheBackKeyFromTheBrowserToThePlayerAndThenTheEnd) {
    paneMessages->ShowBrowser();
    EXPECT_TRUE(player->Called("CancelHoldTimers"));
    EXPECT_FALSE(player->isVisible());

    QTest::keyClick(browser, Qt::Key_Escape);
    SpinEvents();
    EXPECT_FALSE(browser->isVisible());
    EXPECT_EQ(closed, 0);

    QTest::keyClick(player, Qt::Key_Escape);
    SpinEvents();
    EXPECT_EQ(closed, 1);
    // The browser goes first, then the player, which saves its settings.
    EXPECT_EQ(destroyed, (std::vector<std::string>{"browser", "player"}));
    EXPECT_EQ(frame->PlayerScreen(), nullptr);
}

struct LeaveCase {
    const char* name;
    int way; // a panel button's command, or the back key
    bool deleteRow;
};

class PanelLeaving : public FrameWidget, public ::testing::WithParamInterface<LeaveCase> {};

// Hand on gives the list over always; leaving (button or back key) gives it
// over when rows were removed, so a deletion is never undone by leaving.
// Untouched, the queue is left as it was.
TEST_P(PanelLeaving, TheEditedListBecomesTheQueue) {
    const std::vector<std::string> queue{"\\Storage Card\\a.mp3", "\\Storage Card\\b.mp3"};
    player->queue = queue;
    paneMessages->ShowMenu();
    CPlayListPanel* panel = frame->PlayListPanel();
    if (GetParam().deleteRow) {
        panel->List().SelectOnly(1);
        panel->OnCommand(kCmdDeleteSongs);
    }
    if (GetParam().way == Qt::Key_Escape)
        QTest::keyClick(&panel->List(), Qt::Key_Escape);
    else
        QTest::mouseClick(panel->Button(GetParam().way), Qt::LeftButton);
    SpinEvents();
    EXPECT_FALSE(panel->isVisible());
    EXPECT_EQ(panel->List().model()->rowCount(), GetParam().deleteRow ? 1 : 2);
    EXPECT_EQ(player->Called("ReplaceQueueKeepingCurrent"), GetParam().deleteRow);
    EXPECT_EQ(player->queue.size(), GetParam().deleteRow ? 1u : 2u);
    EXPECT_EQ(player->queue[0], queue[0]);
}

INSTANTIATE_TEST_SUITE_P(Ways, PanelLeaving,
                         ::testing::Values(LeaveCase{"HandOn", kCmdHandOn, true},
                                           LeaveCase{"LeaveButton", kCmdFavourites, true},
                                           LeaveCase{"BackKey", Qt::Key_Escape, true},
                                           LeaveCase{"BackKeyUntouched", Qt::Key_Escape, false}),
                         [](const auto& param) { return std::string(param.param.name); });

// Start-up and end of the program on the host, wired through real endpoints.

// A pane around the real player core on a fake graph, whose queue the
// start-up check fills.
class PlayerCorePane final : public QWidget, public RecordingPlayer {
public:
    explicit PlayerCorePane(QWidget* parent) : QWidget(parent), player(graphs, view) {}
    QWidget* Widget() override { return this; }
    int QueueCount() override { return player.Queue().EntryCount(); }
    void ReplaceQueue(const TrackList& list) override { player.Queue().ReplaceQueue(list); }

    FakeMediaGraphFactory graphs;
    RecordingPlayerView view;
    Player player;
};

// A run started on the host, filled from the library the start-up check
// built, and ended by the shell through its endpoint.
TEST(Startup, WhatOneRunLeavesTheNextReadsBack) {
    EnsureQtApplication();
    AppValues() = {};
    TestDevice dev;
    PlayerCorePane* core = nullptr;
    FrameMessages* frameMessages = nullptr;
    HostApplicationOptions options;
    options.deviceRoot = dev.Root();
    options.builder = PathOnlyRecord;
    options.quitWhenClosed = false;
    options.panes.player = [&](QWidget* parent, FrameMessages& messages) {
        auto pane = std::make_unique<PlayerCorePane>(parent);
        core = pane.get();
        frameMessages = &messages;
        return pane;
    };
    EndpointInstanceEnvironment environment{dev.Root(), QSize(240, 320)};
    dev.WriteFile(u"\\Storage Card\\b.mp3", "x");
    dev.WriteFile(u"\\Storage Card\\a.mp3", "x");
    HostApplicationShell shell(options);
    CZelvorApp app(environment, shell);
    ASSERT_TRUE(app.InitInstance(u""));
    frameMessages->PostToFrame({kMsgStartupCheck, 0, 0});
    ASSERT_TRUE(SpinUntil([&] { return core->QueueCount() == 2; }));
    // The shell asks the program to end through its endpoint.
    ASSERT_TRUE(PostToEndpoint(dev.Root(), {EndpointKind::Title, u"Zelvor"},
                               {kMsgShellClose, 0, 0}));
    ASSERT_TRUE(SpinUntil([&] { return shell.Frame()->IsDestroyed(); }));
    app.ExitInstance();
}

} // namespace
} // namespace zelvor
