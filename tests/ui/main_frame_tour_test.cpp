// The scripted tour: every step reaches the player pane or the frame the
// way a user or the shell would, and leaves its picture.
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>

#include "tests/support/test_device.h"
#include "tests/support/qt_app.h"
#include "tests/ui/main_frame_rules_fixture.h"
#include "ui/rules/layout/player_layout.h"
#include "ui/widgets/main_frame/demo_tour.h"
#include "ui/widgets/main_frame/main_frame.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {
namespace {
using namespace zelvor::testing;

QPoint PlaceCentre(int button, double across = 0.5,
                   ScreenOrientation orientation = ScreenOrientation::Portrait) {
    const PixelRect r =
        ButtonRect(PlayerLayoutFor(orientation).buttons[static_cast<std::size_t>(button)]);
    return QPointF(r.left + (r.right - r.left) * across, (r.top + r.bottom) / 2.0).toPoint();
}

TEST(DemoTourSteps, ReachThePaneAndTheFrameAndLeaveAPictureEach) {
    EnsureQtApplication();
    AppValues() = {};
    TestDevice dev;
    dev.WriteFile(u"\\Storage Card\\song.mp3", "x");
    dev.WriteFile(u"\\Storage Card\\tune.mp3", "x");
    SelectSkinModule(0);
    FakeOutside outside;
    FakePlayerScreen* player = nullptr;
    FramePaneMakers makers;
    const QPoint menuPortrait = PlaceCentre(kButtonMenu);
    const QPoint menuLandscape = PlaceCentre(kButtonMenu, 0.5, ScreenOrientation::Landscape);
    makers.player = [&](QWidget* parent, FrameMessages& messages) {
        auto pane = std::make_unique<FakePlayerScreen>(parent);
        player = pane.get();
        // The Menu button, as the real screen hands it to the frame.
        pane->onTap = [&messages, menuPortrait, menuLandscape](QPoint at) {
            if (at == menuPortrait || at == menuLandscape)
                messages.ShowMenu();
        };
        return pane;
    };
    CMainFrame frame(QSize(240, 320), outside, PathOnlyRecord, makers);
    ASSERT_TRUE(frame.Create());
    bool closed = false;
    QObject::connect(&frame, &CMainFrame::Closed, [&] { closed = true; });
    std::vector<int> keysBeforeClose;
    std::vector<QPoint> tapsBeforeClose;
    std::size_t queuedBeforeClose = 0;
    player->onDestroy = [&] {
        keysBeforeClose = player->keys;
        tapsBeforeClose = player->taps;
        queuedBeforeClose = player->queue.size();
    };

    const QString folder = QString::fromStdString((ArtifactDir() / "tour").string());
    QDir(folder).removeRecursively();
    DemoTour tour(frame, folder, 0.02);
    frame.PostFrameMessage({kMsgStartupCheck, 0, 0});
    tour.Start();
    ASSERT_TRUE(SpinUntil([&] { return closed; }, 20000));

    const QStringList files = QDir(folder).entryList({"*.png"}, QDir::Files, QDir::Name);
    EXPECT_EQ(files, (QStringList{"01-first-start.png", "02-library-found.png", "03-play.png",
                                  "04-pause.png", "05-next.png", "06-seek.png", "07-random.png",
                                  "08-repeat.png", "09-volume.png", "10-panel-portrait.png",
                                  "11-panel-delete.png", "12-panel-hand-on.png", "13-turn.png",
                                  "14-panel-landscape.png", "15-panel-leave.png",
                                  "16-portrait.png", "17-colour.png", "18-landscape.png"}));
    EXPECT_EQ(tour.Saved().size(), 18);
    EXPECT_EQ(QImage(folder + "/02-library-found.png").size(), QSize(240, 320));
    EXPECT_EQ(QImage(folder + "/18-landscape.png").size(), QSize(320, 240));
    EXPECT_EQ(QImage(folder + "/14-panel-landscape.png").size(), QSize(320, 240));
    EXPECT_EQ(QImage(folder + "/10-panel-portrait.png").size(), QSize(240, 320));
    // The panel shows over the player and is gone again after hand on and leave.
    EXPECT_NE(QImage(folder + "/14-panel-landscape.png"), QImage(folder + "/13-turn.png"));
    EXPECT_EQ(QImage(folder + "/12-panel-hand-on.png"), QImage(folder + "/09-volume.png"));
    EXPECT_EQ(QImage(folder + "/15-panel-leave.png"), QImage(folder + "/13-turn.png"));

    EXPECT_EQ(keysBeforeClose, (std::vector<int>{Qt::Key_Return, Qt::Key_Return, Qt::Key_Return,
                                                 Qt::Key_Right, Qt::Key_Down, Qt::Key_Down,
                                                 Qt::Key_Down}));
    EXPECT_EQ(tapsBeforeClose,
              (std::vector<QPoint>{PlaceCentre(kButtonSeekBar, 0.6), PlaceCentre(kButtonRandomOff),
                                   PlaceCentre(kButtonRepeatOff), menuPortrait, menuLandscape}));
    // Two songs queued, the second deleted on the panel and the list handed on.
    EXPECT_EQ(queuedBeforeClose, 1u);
    // The colour changed from the program's own images to red.
    EXPECT_EQ(AppValues().guiColor, 2);
    EXPECT_EQ(dev.Registry().QueryDword(RegistryRoot::LocalMachine, u"OMBREL", u"GUI Color"), 2u);
    ReleaseSkinModule();
}

} // namespace
} // namespace zelvor
