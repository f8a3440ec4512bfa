// CMainFrame as a widget: its panes, the messages it is sent and posted,
// the back key, the play list panel, the skin and the screen's orientation.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPointer>
#include <QTest>

#include "library/library_file.h"
#include "tests/support/test_device.h"
#include "tests/support/qt_app.h"
#include "tests/ui/main_frame_rules_fixture.h"
#include "res/command_ids.h"
#include "ui/widgets/lists/bitmap_button.h"
#include "ui/widgets/lists/track_list_ctrl.h"
#include "ui/widgets/main_frame/main_frame.h"
#include "ui/widgets/panel/play_list_panel.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {
namespace {
using namespace zelvor::testing;

class FrameWidget : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureQtApplication();
        AppValues() = {};
        SelectSkinModule(0);
    }
    void TearDown() override {
        frame.reset();
        ReleaseSkinModule();
    }
    // A frame with fake panes, or with its own empty browser.
    void Make(bool fakeBrowser = true) {
        FramePaneMakers makers;
        makers.player = [this](QWidget* parent, FrameMessages& messages) {
            auto pane = std::make_unique<FakePlayerScreen>(parent);
            pane->onDestroy = [this] { destroyed.push_back("player"); };
            player = pane.get();
            paneMessages = &messages;
            return pane;
        };
        if (fakeBrowser)
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

    TestDevice dev;
    FakeOutside outside;
    std::unique_ptr<CMainFrame> frame;
    FakePlayerScreen* player = nullptr;
    FakeBrowserScreen* browser = nullptr;
    FrameMessages* paneMessages = nullptr;
    std::vector<std::string> destroyed;
    int closed = 0;
};

TEST_F(FrameWidget, CreationShowsThePlayerOverTheScreenAndKeepsTheOtherPanesHidden) {
    Make();
    EXPECT_TRUE(frame->isVisible());
    EXPECT_EQ(frame->size(), QSize(240, 320));
    EXPECT_TRUE(player->isVisible());
    EXPECT_EQ(player->geometry(), QRect(0, 0, 240, 320));
    EXPECT_FALSE(browser->isVisible());
    EXPECT_FALSE(frame->PlayListPanel()->isVisible());
    EXPECT_EQ(player->property("paneId").toInt(), 0xE900);
    EXPECT_EQ(frame->PlayListPanel()->property("paneId").toInt(), 0xE901);
    EXPECT_EQ(browser->property("paneId").toInt(), 0xE903);
    EXPECT_EQ(frame->SendFrameMessage({kMsgShellStatus, 0, 77}), 1); // the rules' answer
}

TEST_F(FrameWidget, APlayerThatCannotBeMadeFailsCreation) {
    FramePaneMakers makers;
    makers.player = [](QWidget*, FrameMessages&) { return std::unique_ptr<PlayerPane>(); };
    CMainFrame failing(QSize(240, 320), outside, PathOnlyRecord, makers);
    EXPECT_FALSE(failing.Create());
}

TEST_F(FrameWidget, EscapeIsTheBackKeyFromTheBrowserToThePlayerAndThenTheEnd) {
    Make();
    paneMessages->ShowBrowser();
    EXPECT_TRUE(player->Called("CancelHoldTimers"));
    EXPECT_TRUE(browser->isVisible());
    EXPECT_FALSE(player->isVisible());

    QTest::keyClick(browser, Qt::Key_Escape);
    SpinEvents();
    EXPECT_TRUE(player->isVisible());
    EXPECT_FALSE(browser->isVisible());
    EXPECT_EQ(closed, 0);

    QTest::keyClick(player, Qt::Key_Escape);
    SpinEvents();
    EXPECT_EQ(closed, 1);
    // The browser goes first, then the player, which saves its settings.
    EXPECT_EQ(destroyed, (std::vector<std::string>{"browser", "player"}));
    EXPECT_EQ(frame->PlayerScreen(), nullptr);
}

class CloseRequest : public FrameWidget, public ::testing::WithParamInterface<std::uint32_t> {};

TEST_P(CloseRequest, IsPostedSoTheSenderGetsItsAnswerBeforeTheFrameGoes) {
    Make();
    EXPECT_EQ(frame->SendFrameMessage({GetParam(), 0, 0}), 0);
    EXPECT_EQ(closed, 0);
    EXPECT_NE(frame->PlayerScreen(), nullptr);
    SpinEvents();
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(frame->IsDestroyed());
    // Nothing reaches the rules once the panes are gone.
    EXPECT_EQ(frame->SendFrameMessage({kMsgShellStatus, 0, 1}), 0);
}

INSTANTIATE_TEST_SUITE_P(FromPelrinAndTheShell, CloseRequest,
                         ::testing::Values(kMsgRequestClose, kMsgShellClose));

// A colour change reloads the browser's and the panel's bitmaps from the new
// bundle; turning the screen lays every pane out again.
TEST_F(FrameWidget, ColourAndTurnReachEveryPane) {
    Make(false);
    paneMessages->ShowMenu();
    CPlayListPanel* panel = frame->PlayListPanel();
    QWidget* empty = frame->BrowserScreen()->Widget();
    empty->setGeometry(0, 0, 240, 320);
    const QImage browserBefore = empty->grab().toImage(), panelBefore = panel->grab().toImage();
    std::filesystem::copy_file(std::string(ZELVOR_SKIN_DIR) + "/ZelvorRed.rcc",
                               dev.Host(u"\\Flash Disk\\Zelvor") / "ZelvorRed.rcc");
    dev.Registry().SetDword(RegistryRoot::LocalMachine, u"OMBREL", u"GUI Color", 2);
    frame->SendFrameMessage({kMsgColourChanged, 0, 0});
    EXPECT_EQ(SkinResourceHandle().Source(), SkinSource::Module);
    EXPECT_TRUE(player->Called("RedoLayout"));
    EXPECT_NE(empty->grab().toImage(), browserBefore);
    EXPECT_NE(panel->grab().toImage(), panelBefore);

    frame->SetScreenSize(QSize(320, 240));
    SpinEvents();
    EXPECT_EQ(AppValues().portrait, 0);
    EXPECT_EQ(frame->BrowserScreen()->Widget()->geometry(), QRect(0, 0, 320, 240));
    EXPECT_EQ(panel->geometry(), QRect(0, 0, 320, 240));
    EXPECT_EQ(panel->List().geometry(), QRect(13, 68, 247, 162));
    EXPECT_EQ(frame->grab().toImage().size(), QSize(320, 240));
}

TEST_F(FrameWidget, TheMenuButtonOpensThePanelOverThePlayerListingTheQueue) {
    Make();
    player->queue = {"\\Storage Card\\a.mp3", "\\Storage Card\\b.mp3"};
    paneMessages->ShowMenu();
    CPlayListPanel* panel = frame->PlayListPanel();
    EXPECT_TRUE(panel->isVisible());
    EXPECT_TRUE(player->isVisible()); // under the panel
    EXPECT_TRUE(player->Called("CancelHoldTimers"));
    EXPECT_EQ(panel->geometry(), QRect(0, 0, 240, 320));
    EXPECT_TRUE(panel->isAncestorOf(frame->childAt(120, 150)));
    EXPECT_EQ(panel->Tracks().Count(), 2);
    EXPECT_EQ(panel->Changed(), 0);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr); // no menu of its own
    // Focus handling while it shows gives the keys to the panel's list.
    QApplication::setActiveWindow(frame.get());
    player->setFocus();
    frame->SendFrameMessage({kMsgSetFocus, 0, 0});
    EXPECT_EQ(QApplication::focusWidget(), &panel->List());
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
    Make();
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
    EXPECT_TRUE(player->isVisible());
    EXPECT_EQ(player->Called("ReplaceQueueKeepingCurrent"), GetParam().deleteRow);
    EXPECT_EQ(player->queue.size(), GetParam().deleteRow ? 1u : 2u);
    EXPECT_EQ(player->queue[0], queue[0]);
    EXPECT_EQ(closed, 0);
}

INSTANTIATE_TEST_SUITE_P(Ways, PanelLeaving,
                         ::testing::Values(LeaveCase{"HandOn", kCmdHandOn, true},
                                           LeaveCase{"LeaveButton", kCmdFavourites, true},
                                           LeaveCase{"BackKey", Qt::Key_Escape, true},
                                           LeaveCase{"BackKeyUntouched", Qt::Key_Escape, false}),
                         [](const auto& param) { return std::string(param.param.name); });

} // namespace
} // namespace zelvor
