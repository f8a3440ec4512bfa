// The frame around the real player screen on the fake graph: the screen's
// first paint starts the library check, the library found fills its queue,
// and the frame turns it between the two orientations. Pictures of both are
// left in the artifacts folder.
#include <gtest/gtest.h>

#include <QImage>

#include "tests/playback/fake_media_graph.h"
#include "tests/support/test_device.h"
#include "tests/ui/main_frame_app.h"
#include "tests/ui/main_frame_rules_fixture.h"
#include "ui/widgets/main_frame/main_frame.h"
#include "ui/widgets/player_screen/player_screen.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {
namespace {
using namespace zelvor::testing;

// Host services that do nothing, on mains power at a fixed time.
struct QuietHost : SoundPlayer, IdleTimer, DisplayPower, PowerSource {
    void MessageBeep() override {}
    bool PlaySound(std::u16string_view) override { return true; }
    void SystemIdleTimerReset() override {}
    bool SetDisplayOff() override { return false; }
    bool GetSystemPowerStatusEx(SystemPowerStatus& out) override {
        out = {kAcLineOnline, kBatteryFlagHigh, 80};
        return true;
    }
    PlayerScreenHost Services() {
        PlayerScreenHost host{this, this, this, this, {}, {}};
        host.tickCount = [] { return 5000u; };
        host.localTime = [] { return LocalTime{2024, 6, 1, 14, 12, 34, 0, 0}; };
        return host;
    }
};

// Records named by their files, with the file name as album and title.
std::unique_ptr<TrackRecord> TitledRecord(std::u16string_view path, int typeCode) {
    auto record = PathOnlyRecord(path, typeCode);
    record->SetField(kFieldTitle, FileNameOfPath(path, true));
    record->SetField(kFieldDuration, std::int64_t{200});
    return record;
}

void SavePicture(const QImage& image, const char* name) {
    image.save(QString::fromStdString((ArtifactDir() / name).string()));
}

TEST(FrameWithPlayerScreen, FillsTheQueueAfterTheFirstPaintAndTurnsWithTheScreen) {
    EnsureWidgetApplication();
    AppValues() = {};
    TestDevice dev;
    for (auto path : {u"\\Storage Card\\Sunrise Walk.mp3", u"\\Storage Card\\Harbour Lights.mp3",
                      u"\\Flash Disk\\Evening Tide.mp3"})
        dev.WriteFile(path, "x");
    SelectSkinModule(0);
    FakeOutside outside;
    FakeMediaGraphFactory graphs;
    QuietHost host;
    CPlayerScreen* screen = nullptr;
    FramePaneMakers makers;
    makers.player = [&](QWidget* parent, FrameMessages& frame) {
        auto pane = std::make_unique<CPlayerScreen>(frame, graphs, ScreenOrientation::Portrait,
                                                    host.Services(), parent);
        screen = pane.get();
        return pane;
    };
    {
        CMainFrame frame(QSize(240, 320), outside, TitledRecord, makers);
        ASSERT_TRUE(frame.Create());
        ASSERT_TRUE(SpinUntil([&] { return screen->QueueCount() == 3; }));
        SpinEvents(100);
        const QImage portrait = frame.grab().toImage();
        EXPECT_EQ(portrait.size(), QSize(240, 320));
        SavePicture(portrait, "main_frame_portrait.png");

        frame.SetScreenSize(QSize(320, 240));
        SpinEvents(100);
        EXPECT_EQ(screen->Orientation(), ScreenOrientation::Landscape);
        EXPECT_EQ(screen->geometry(), QRect(0, 0, 320, 240));
        const QImage landscape = frame.grab().toImage();
        EXPECT_EQ(landscape.size(), QSize(320, 240));
        SavePicture(landscape, "main_frame_landscape.png");
    }
    ReleaseSkinModule();
}

} // namespace
} // namespace zelvor
