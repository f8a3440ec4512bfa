// The player screen from creation to destruction: the start-up message
// after its first paint, what the frame hands it, the settings and queue it
// leaves behind, its two orientations and what it paints in them.

#include <gtest/gtest.h>

#include "res/window_messages.h"
#include "playback/player_settings.h"
#include "tests/ui/player_screen_rig.h"

namespace zelvor {
namespace {
using testing::ScreenRig;

TEST(PlayerScreenLifecycle, TheFirstPaintAsksTheFrameOnceToCheckTheLibrary) {
    ScreenRig rig;
    rig.Screen().repaint();
    rig.Screen().update();
    QApplication::processEvents();
    EXPECT_EQ(rig.frame.posted, (std::vector<WindowMessage>{{kMsgStartupCheck, 0, 0}}));
}

TEST(PlayerScreenLifecycle, DestructionWritesTheSettingsAndTheQueueForTheNextStart) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3", u"b.mp3", u"c.mp3"});
    for (int button : {kButtonVolumeUp, kButtonVolumeUp, kButtonRepeatOff, kButtonRandomOff,
                       kButtonPlay})
        rig.TapButton(button);
    rig.DestroyScreen();
    const PlayerSettings saved = LoadPlayerSettings();
    EXPECT_TRUE(saved.random);
    EXPECT_EQ(saved.repeatMode, kRepeatOne);
    EXPECT_EQ(saved.volumeIndex, 7);
    EXPECT_EQ(rig.factory.liveGraphs, 0); // the graph was released

    rig.MakeScreen(ScreenOrientation::Portrait);
    EXPECT_EQ(rig.Screen().QueueCount(), 3);
    EXPECT_EQ(rig.State(), kPlayStateStopped); // the first entry loaded, silent
    EXPECT_EQ(rig.GetPlayer().Volume().Index(), 7);
    EXPECT_EQ(rig.ButtonState(kButtonRandomOn), kDisplayNormal);
}

TEST(PlayerScreenLifecycle, TheShellStatusShowsTheIndicatorAndItsMessagePausesPlayback) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3"});
    rig.Screen().SetShellStatus(9999);
    EXPECT_TRUE(rig.Screen().Control().IndicatorShown());
    rig.Screen().SetShellStatus(0);
    EXPECT_FALSE(rig.Screen().Control().IndicatorShown());
    rig.Screen().OnShellPlayerMessage(); // stopped: nothing
    EXPECT_EQ(rig.State(), kPlayStateStopped);
    rig.TapButton(kButtonPlay);
    rig.Screen().OnShellPlayerMessage();
    rig.Screen().OnShellPlayerMessage(); // pauses, never toggles
    EXPECT_EQ(rig.State(), kPlayStatePaused);
}

// The card's return opens the current entry again, playing only if it was.
TEST(PlayerScreenLifecycle, ARemovedCardReleasesTheTrackAndItsReturnOpensItAgain) {
    for (bool playing : {true, false}) {
        ScreenRig rig;
        if (playing) { // the second of two entries, playing
            rig.PlayList({u"a.mp3", u"b.mp3"});
            rig.TapButton(kButtonNext);
            rig.TapButton(kButtonPlay);
        } else {
            rig.PlayList({u"b.mp3"});
        }
        rig.Screen().Resume(); // nothing was released: nothing happens
        EXPECT_EQ(rig.factory.liveGraphs, 1);
        rig.Screen().ReleaseCurrentTrack();
        EXPECT_EQ(rig.factory.liveGraphs, 0);
        EXPECT_EQ(rig.State(), kPlayStateStopped);
        rig.Screen().ReleaseCurrentTrack(); // nothing held: remembers the first
        rig.Screen().Resume();
        ASSERT_NE(rig.Graph(), nullptr);
        EXPECT_EQ(rig.Graph()->File(), "b.mp3");
        EXPECT_EQ(rig.State(), playing ? kPlayStatePlaying : kPlayStateStopped);
    }
    // An entry opened in between is left as it is.
    ScreenRig rig;
    rig.PlayList({u"a.mp3", u"b.mp3"});
    rig.TapButton(kButtonPlay);
    rig.Screen().ReleaseCurrentTrack();
    rig.TapButton(kButtonNext);
    rig.Screen().Resume();
    EXPECT_EQ(rig.Graph()->File(), "b.mp3");
    EXPECT_EQ(rig.State(), kPlayStateStopped);
}

class PlayerScreenPicture : public ::testing::TestWithParam<ScreenOrientation> {
protected:
    void Save(const QImage& shot, const char* state) {
        const char* shape = GetParam() == ScreenOrientation::Portrait ? "portrait" : "landscape";
        EXPECT_TRUE(shot.save(QString::fromStdString(
            (testing::ArtifactDir() / ("player_screen_" + std::string(shape) + "_" + state + ".png"))
                .string())));
    }
};

// With nothing to play, and playing a long title an hour in, for people.
TEST_P(PlayerScreenPicture, IsSavedEmptyAndPlaying) {
    ScreenRig rig(GetParam());
    Save(rig.Screen().RenderScreen(), "empty");
    rig.PlayList({u"Salt and Cedar by the Lowland Choir, recorded live.mp3", u"b.mp3"}, 3725);
    for (int button : {kButtonPlay, kButtonRepeatOff, kButtonVolumeUp})
        rig.TapButton(button);
    rig.Graph()->position = 1234 * testing::kSecond;
    rig.Screen().OnTimer(kTimerPosition);
    rig.Screen().SetShellStatus(1);
    Save(rig.Screen().RenderScreen(), "playing");
}

ZELVOR_BOTH_ORIENTATIONS(PlayerScreenPicture);

} // namespace
} // namespace zelvor
