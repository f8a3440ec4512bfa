// The player screen's timers, driven by calling their handlers with a fake
// clock: the clock and battery refresh, the idle-timer rhythm, the scrolling
// title, and the graph's end of stream arriving as a posted event.

#include <gtest/gtest.h>

#include "tests/ui/player_screen_rig.h"

namespace zelvor {
namespace {
using testing::ScreenRig;

TEST(PlayerScreenTimers, TheClockTimerRefreshesTheClockAndBatteryInEveryState) {
    ScreenRig rig;
    EXPECT_EQ(rig.Screen().Control().Clock(), u"09:41"); // read when the screen was made
    rig.PlayList({u"a.mp3"});
    // Stopped, playing, paused; a charging flag without mains shows the charge.
    const std::array<int, 3> steps[] = {{-1, 35, 2}, {kButtonPlay, 61, 4}, {kButtonPause, 0, 0}};
    for (auto [button, percent, level] : steps) {
        if (button >= 0)
            rig.TapButton(button);
        EXPECT_TRUE(rig.Screen().TimerRunning(kTimerClock));
        rig.host.now.minute = static_cast<std::uint16_t>(percent);
        rig.host.power = {kAcLineOffline, kBatteryFlagCharging, static_cast<std::uint8_t>(percent)};
        rig.Screen().OnTimer(kTimerClock);
        EXPECT_EQ(rig.Screen().Control().Clock(), ClockText(rig.host.now));
        EXPECT_EQ(rig.Screen().Control().BatteryLevel(), level);
    }
    rig.host.powerRead = false; // the status could not be read: the charging image
    rig.Screen().OnTimer(kTimerClock);
    EXPECT_EQ(rig.Screen().Control().BatteryLevel(), 100);
}

TEST(PlayerScreenTimers, TheIdleTimerIsResetOnAnyTickOnlyWhilePlaying) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3"});
    rig.host.tick = 5'000'000;
    rig.Screen().OnTimer(kTimerClock);
    EXPECT_EQ(rig.host.idleResets, 0); // stopped
    rig.TapButton(kButtonPlay);
    rig.Screen().OnTimer(kTimerPosition);
    rig.host.tick += kIdleResetIntervalMs;
    rig.Screen().OnTimer(kTimerClock);
    EXPECT_EQ(rig.host.idleResets, 2);
    rig.TapButton(kButtonPause);
    rig.host.tick += 2 * kIdleResetIntervalMs;
    rig.Screen().OnTimer(kTimerClock);
    EXPECT_EQ(rig.host.idleResets, 2); // paused
}

TEST(PlayerScreenTimers, APositionTickScrollsOnlyATitleWiderThanItsArea) {
    ScreenRig rig;
    rig.PlayList({u"A title far too long to fit in the title area of the screen.mp3", u"b.mp3"});
    const PlayQueue& queue = rig.GetPlayer().Queue();
    ASSERT_TRUE(queue.TitleScrolls());
    rig.TapButton(kButtonPlay);
    EXPECT_TRUE(rig.Screen().TimerRunning(kTimerPosition));
    rig.Graph()->position = 61 * testing::kSecond;
    rig.Screen().OnTimer(kTimerPosition);
    EXPECT_EQ(rig.GetPlayer().Position().Time(), (TimeDisplay{0, 1, 1}));
    EXPECT_EQ(queue.TitleScrollOffset(), 1);
    rig.TapButton(kButtonNext); // "b" fits: it stands still
    rig.Screen().OnTimer(kTimerPosition);
    EXPECT_EQ(queue.TitleScrollOffset(), 0);
    rig.TapButton(kButtonPause);
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerPosition));
}

TEST(PlayerScreenTimers, TheEndOfATrackArrivesAsAPostedEventAndAdvances) {
    ScreenRig rig;
    rig.factory.script.eventsOnRun["a.mp3"] = {kEcComplete};
    rig.PlayList({u"a.mp3", u"b.mp3"});
    rig.TapButton(kButtonPlay);
    EXPECT_EQ(rig.GetPlayer().Queue().CurrentIndex(), 0); // not inside the graph's call
    QApplication::processEvents();
    EXPECT_EQ(rig.Graph()->File(), "b.mp3");
    EXPECT_EQ(rig.State(), kPlayStatePlaying);
}

} // namespace
} // namespace zelvor
