// The player screen from creation to destruction: the start-up message
// after its first paint, what the frame hands it, the settings and queue it
// leaves behind, its two orientations and what it paints in them. Its
// timers, driven by calling their handlers with a fake clock: the clock and
// battery, the idle-timer rhythm, the scrolling title, and the graph's end
// of stream arriving as a posted event.

#include <gtest/gtest.h>

#include "res/window_messages.h"
#include "playback/player_settings.h"
#include "tests/ui/player_screen_rig.h"

namespace zelvor {
namespace {
using testing::ScreenRig;

// What reaches the screen from outside: its first paint asks the frame once
// to check the library; the shell's status shows the indicator and its
// message pauses a playing track, never toggles; the graph's end of stream
// arrives as a posted event, not inside the graph's call, and advances.
TEST(PlayerScreenLifecycle, TheFirstPaintTheShellAndTheEndOfATrack) {
    ScreenRig rig;
    rig.factory.script.eventsOnRun["a.mp3"] = {kEcComplete};
    rig.PlayList({u"a.mp3", u"b.mp3"});
    rig.Screen().repaint();
    rig.Screen().update();
    QApplication::processEvents();
    EXPECT_EQ(rig.frame.posted, (std::vector<WindowMessage>{{kMsgStartupCheck, 0, 0}}));
    rig.Screen().SetShellStatus(9999);
    EXPECT_TRUE(rig.Screen().Control().IndicatorShown());
    rig.Screen().SetShellStatus(0);
    EXPECT_FALSE(rig.Screen().Control().IndicatorShown());
    rig.Screen().OnShellPlayerMessage(); // stopped: nothing
    EXPECT_EQ(rig.State(), kPlayStateStopped);
    rig.TapButton(kButtonPlay);
    EXPECT_EQ(rig.GetPlayer().Queue().CurrentIndex(), 0);
    QApplication::processEvents();
    EXPECT_EQ(rig.Graph()->File(), "b.mp3");
    rig.Screen().OnShellPlayerMessage();
    rig.Screen().OnShellPlayerMessage();
    EXPECT_EQ(rig.State(), kPlayStatePaused);
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

// In every state the clock timer refreshes the clock and the battery (a
// charging flag without mains shows the charge); only while playing does a
// tick reset the idle timer.
TEST(PlayerScreenTimers, TheClockTimerRefreshesTheClockAndBatteryAndTheIdleTimer) {
    ScreenRig rig;
    EXPECT_EQ(rig.Screen().Control().Clock(), u"09:41"); // read when the screen was made
    rig.PlayList({u"a.mp3"});
    // Stopped, playing, paused: the level shown and the idle resets so far.
    const std::array<int, 4> steps[] = {
        {-1, 35, 2, 0}, {kButtonPlay, 61, 4, 1}, {kButtonPause, 0, 0, 1}};
    for (auto [button, percent, level, resets] : steps) {
        if (button >= 0)
            rig.TapButton(button);
        EXPECT_TRUE(rig.Screen().TimerRunning(kTimerClock));
        rig.host.tick += kIdleResetIntervalMs;
        rig.host.now.minute = static_cast<std::uint16_t>(percent);
        rig.host.power = {kAcLineOffline, kBatteryFlagCharging, static_cast<std::uint8_t>(percent)};
        rig.Screen().OnTimer(kTimerClock);
        EXPECT_EQ(rig.Screen().Control().Clock(), ClockText(rig.host.now));
        EXPECT_EQ(rig.Screen().Control().BatteryLevel(), level);
        EXPECT_EQ(rig.host.idleResets, resets);
    }
    rig.host.powerRead = false; // the status could not be read: the charging image
    rig.Screen().OnTimer(kTimerClock);
    EXPECT_EQ(rig.Screen().Control().BatteryLevel(), 100);
}

TEST(PlayerScreenTimers, APositionTickScrollsOnlyATitleWiderThanItsArea) {
    ScreenRig rig;
    rig.PlayList({u"A title far too long to fit in the title area of the screen.mp3", u"b.mp3"});
    const PlayQueue& queue = rig.GetPlayer().Queue();
    rig.TapButton(kButtonPlay);
    rig.Graph()->position = 61 * testing::kSecond;
    rig.Screen().OnTimer(kTimerPosition);
    EXPECT_EQ(rig.GetPlayer().Position().Time(), (TimeDisplay{0, 1, 1}));
    EXPECT_EQ(queue.TitleScrollOffset(), 1);
    rig.TapButton(kButtonNext); // "b" fits: it stands still
    rig.Screen().OnTimer(kTimerPosition);
    EXPECT_EQ(queue.TitleScrollOffset(), 0);
}

class PlayerScreenPicture : public ::testing::TestWithParam<ScreenOrientation> {};

// Playing a long title an hour in, for people.
TEST_P(PlayerScreenPicture, IsSavedPlaying) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"Salt and Cedar by the Lowland Choir, recorded live.mp3", u"b.mp3"}, 3725);
    for (int button : {kButtonPlay, kButtonRepeatOff, kButtonVolumeUp})
        rig.TapButton(button);
    rig.Graph()->position = 1234 * testing::kSecond;
    rig.Screen().OnTimer(kTimerPosition);
    rig.Screen().SetShellStatus(1);
    const std::string shape = GetParam() == ScreenOrientation::Portrait ? "portrait" : "landscape";
    EXPECT_TRUE(rig.Screen().RenderScreen().save(QString::fromStdString(
        (testing::ArtifactDir() / ("player_screen_" + shape + ".png")).string())));
}

ZELVOR_BOTH_ORIENTATIONS(PlayerScreenPicture);

} // namespace
} // namespace zelvor
