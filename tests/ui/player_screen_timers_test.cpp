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
        std::uint8_t percent;
        int level;
    };
    const Step steps[] = {
        {-1, kPlayStateStopped, 5, u"07:05", 35, 2},
        {kButtonPlay, kPlayStatePlaying, 10, u"07:10", 61, 4},
        {kButtonPause, kPlayStatePaused, 15, u"07:15", 0, 0},
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
        rig.host.power = {kAcLineOffline, 0, step.percent};
        rig.Screen().OnTimer(kTimerClock);
        EXPECT_EQ(rig.Screen().Control().Clock(), step.clock);
        EXPECT_EQ(rig.Screen().Control().BatteryLevel(), step.level);
    }
}

TEST(PlayerScreenTimers, TheBatteryShowsChargingOnMainsAndWhenUnknown) {
    struct Case {
        SystemPowerStatus status;
        bool read;
        int level;
    };
    const Case cases[] = {
        {{kAcLineOnline, kBatteryFlagCharging | kBatteryFlagLow, 15}, true, 100},
        {{kAcLineOffline, kBatteryFlagCharging, 15}, true, 1}, // charging flag without mains
        {{kAcLineOnline, kBatteryFlagHigh, 100}, true, 5},     // full, on mains
        {{kAcLineOffline, kBatteryFlagNoBattery, kBatteryPercentUnknown}, true, 100},
        {{kAcLineOffline, kBatteryFlagHigh, 90}, false, 100}, // the status could not be read
    };
    ScreenRig rig;
    for (const Case& c : cases) {
        rig.host.power = c.status;
        rig.host.powerRead = c.read;
        rig.Screen().OnTimer(kTimerClock);
        EXPECT_EQ(rig.Screen().Control().BatteryLevel(), c.level)
            << int(c.status.acLineStatus) << " " << int(c.status.batteryFlag) << " "
            << int(c.status.batteryLifePercent);
    }
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
    const int length = static_cast<int>(queue.TitleText().size());
    for (int tick = 1; tick <= length; ++tick)
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
    // Nothing happens inside the graph's call: the news is posted.
    EXPECT_EQ(rig.GetPlayer().Queue().CurrentIndex(), 0);
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
    rig.Graph()->position = 61 * 10000000LL;
    rig.Screen().OnTimer(kTimerPosition);
    EXPECT_EQ(rig.GetPlayer().Position().Time(), (TimeDisplay{0, 1, 1}));
    rig.TapButton(kButtonPause);
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerPosition));
}

} // namespace
} // namespace zelvor
