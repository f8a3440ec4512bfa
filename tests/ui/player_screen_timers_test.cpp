// The player screen's timers, driven by calling their handlers with a fake
// clock: the clock and battery refresh, the idle-timer rhythm, the scrolling
// title, and the graph's end of stream arriving as a posted event.

#include <gtest/gtest.h>

#include "tests/ui/player_screen_rig.h"

namespace zelvor {
namespace {
using testing::ScreenRig;

TEST(PlayerScreenTimers, TheClockAndBatteryRefreshEveryFiveSecondsInEveryState) {
    struct Step {
        int button; // tapped first, -1 for none
        std::int32_t state;
        std::uint16_t minute;
        std::u16string clock;
        SystemPowerStatus power;
        int level;
    };
    const Step steps[] = {
        {-1, kPlayStateStopped, 5, u"07:05", {kAcLineOffline, 0, 35}, 2},
        // A charging flag without mains shows the charge, not the charging image.
        {kButtonPlay, kPlayStatePlaying, 10, u"07:10", {kAcLineOffline, kBatteryFlagCharging, 61}, 4},
        {kButtonPause, kPlayStatePaused, 15, u"07:15", {kAcLineOffline, 0, 0}, 0},
    };
    ScreenRig rig;
    EXPECT_EQ(rig.Screen().Control().Clock(), u"09:41"); // read when the screen was made
    rig.PlayList({u"a.mp3"});
    for (const Step& step : steps) {
        SCOPED_TRACE(step.state);
        if (step.button >= 0)
            rig.TapButton(step.button);
        ASSERT_EQ(rig.State(), step.state);
        EXPECT_TRUE(rig.Screen().TimerRunning(kTimerClock));
        rig.host.now.hour = 7;
        rig.host.now.minute = step.minute;
        rig.host.power = step.power;
        rig.Screen().OnTimer(kTimerClock);
        EXPECT_EQ(rig.Screen().Control().Clock(), step.clock);
        EXPECT_EQ(rig.Screen().Control().BatteryLevel(), step.level);
    }
    rig.host.powerRead = false; // the status could not be read: the charging image
    rig.Screen().OnTimer(kTimerClock);
    EXPECT_EQ(rig.Screen().Control().BatteryLevel(), 100);
}

TEST(PlayerScreenTimers, TheIdleTimerIsResetOnlyWhilePlayingAndAtMostEveryFiftySeconds) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3"});
    rig.host.tick = 5'000'000;
    rig.Screen().OnTimer(kTimerClock);
    rig.Screen().OnTimer(kTimerPosition);
    EXPECT_EQ(rig.host.idleResets, 0); // stopped
    rig.TapButton(kButtonPlay);
    rig.Screen().OnTimer(kTimerPosition);
    EXPECT_EQ(rig.host.idleResets, 1);
    rig.host.tick += 49'999;
    rig.Screen().OnTimer(kTimerPosition);
    rig.Screen().OnTimer(kTimerClock);
    EXPECT_EQ(rig.host.idleResets, 1);
    rig.host.tick += 1;
    rig.Screen().OnTimer(kTimerClock); // whichever timer ticks
    EXPECT_EQ(rig.host.idleResets, 2);
    rig.TapButton(kButtonPause);
    rig.host.tick += 120'000;
    rig.Screen().OnTimer(kTimerClock);
    EXPECT_EQ(rig.host.idleResets, 2); // paused
}

TEST(PlayerScreenTimers, ATitleWiderThanItsAreaScrollsOneCharacterAPositionTick) {
    ScreenRig rig;
    rig.PlayList({u"A title far too long to fit in the title area of the screen.mp3", u"b.mp3"});
    const PlayQueue& queue = rig.GetPlayer().Queue();
    ASSERT_TRUE(queue.TitleScrolls());
    rig.TapButton(kButtonPlay);
    for (std::size_t tick = 0; tick < queue.TitleText().size(); ++tick)
        rig.Screen().OnTimer(kTimerPosition);
    EXPECT_EQ(queue.TitleScrollOffset(), 0); // once round
    rig.Screen().OnTimer(kTimerPosition);
    EXPECT_EQ(queue.TitleScrollOffset(), 1);
    rig.TapButton(kButtonNext); // "b" fits: it stands still
    EXPECT_FALSE(queue.TitleScrolls());
    rig.Screen().OnTimer(kTimerPosition);
    EXPECT_EQ(queue.TitleScrollOffset(), 0);
}

TEST(PlayerScreenTimers, TheEndOfATrackArrivesAsAPostedEventAndAdvances) {
    ScreenRig rig;
    rig.factory.script.eventsOnRun["a.mp3"] = {kEcComplete};
    rig.PlayList({u"a.mp3", u"b.mp3"});
    rig.TapButton(kButtonPlay);
    EXPECT_EQ(rig.GetPlayer().Queue().CurrentIndex(), 0); // not inside the graph's call
    QApplication::processEvents();
    EXPECT_EQ(rig.GetPlayer().Queue().CurrentIndex(), 1);
    EXPECT_EQ(rig.Graph()->File(), "b.mp3");
    EXPECT_EQ(rig.State(), kPlayStatePlaying);
}

TEST(PlayerScreenTimers, ThePositionTimerRunsOnlyWhilePlaying) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3"});
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerPosition));
    rig.TapButton(kButtonPlay);
    EXPECT_TRUE(rig.Screen().TimerRunning(kTimerPosition));
    rig.Graph()->position = 61 * testing::kSecond;
    rig.Screen().OnTimer(kTimerPosition);
    EXPECT_EQ(rig.GetPlayer().Position().Time(), (TimeDisplay{0, 1, 1}));
    rig.TapButton(kButtonPause);
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerPosition));
}

} // namespace
} // namespace zelvor
