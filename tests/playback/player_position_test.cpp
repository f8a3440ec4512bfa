#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "playback/media_time.h"
#include "tests/playback/engine_rig.h"

namespace zelvor {
namespace {
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::EngineRig;

constexpr std::int64_t kSecond = kMediaTimePerSecond;

// A rig playing one track of the given length, at the given position.
struct PlayingRig : EngineRig {
    PlayingRig(std::int64_t duration, std::int64_t at) {
        AddTracks({u"a.mp3"});
        factory.script.durations["a.mp3"] = duration;
        engine.BuildGraph(Path(0), true);
        factory.current->position = at;
        // A 190-pixel bar with a 20-pixel thumb at x 26: L 26, R 196.
        position.Bar().SetGeometry(26, 190, 20, 0);
    }
    std::vector<std::string> Seeks() const {
        std::vector<std::string> seeks;
        for (const auto& entry : factory.log) {
            if (entry.starts_with("seek"))
                seeks.push_back(entry);
        }
        return seeks;
    }
};

TEST(MediaTimes, ReadsAreWholeSecondsAndSeekTargetsKeepTheirFraction) {
    EXPECT_EQ(WholeSecondsOf(59'999'999), 5.0);
    EXPECT_EQ(WholeSecondsOf(-15'000'000), -1.0); // truncated toward zero
    EXPECT_EQ(MediaTimeOf(2.5), 25'000'000);
    EXPECT_EQ(MediaTimeOf(0.1), 1'000'000);
    EXPECT_EQ(MediaTimeOf(123.0), 1'230'000'000);
    EXPECT_EQ(MediaTimeOf(-1.5), -15'000'000);
}

TEST(ReadingTimes, WithoutAGraphEveryReadIsZeroAndFalse) {
    EngineRig rig;
    double seconds = 7;
    EXPECT_FALSE(rig.position.GetDurationSeconds(seconds));
    EXPECT_EQ(seconds, 0);
    seconds = 7;
    EXPECT_FALSE(rig.position.GetPositionSeconds(seconds));
    EXPECT_EQ(seconds, 0);
    EXPECT_FALSE(rig.position.SeekToSeconds(3));
}

TEST(ReadingTimes, ThePositionIsNotReadWhileStopped) {
    PlayingRig rig(90 * kSecond, 42 * kSecond + 9'999'999);
    double seconds = 0;
    EXPECT_TRUE(rig.position.GetPositionSeconds(seconds));
    EXPECT_EQ(seconds, 42);
    rig.engine.StopCommand();
    rig.factory.current->position = 42 * kSecond;
    EXPECT_FALSE(rig.position.GetPositionSeconds(seconds));
    EXPECT_EQ(seconds, 0);
    EXPECT_TRUE(rig.position.GetDurationSeconds(seconds));
    EXPECT_EQ(seconds, 90);
}

struct SeekStepCase {
    double duration;
    double position;
    bool forward;
    std::vector<std::string> seeks;
};

class SeekSteps : public ::testing::TestWithParam<SeekStepCase> {};

TEST_P(SeekSteps, MoveTenSecondsWithinTheTrack) {
    const SeekStepCase& c = GetParam();
    PlayingRig rig(MediaTimeOf(c.duration), MediaTimeOf(c.position));
    rig.position.SeekStep(c.forward);
    EXPECT_EQ(rig.Seeks(), c.seeks);
}

INSTANTIATE_TEST_SUITE_P(
    Edges, SeekSteps,
    ::testing::Values(SeekStepCase{60, 59.5, true, {}},                 // within 1 s of the end
                      SeekStepCase{60, 59, true, {}},                   // exactly 1 s before it
                      SeekStepCase{60, 55, true, {"seek 600000000"}},   // lands at the end
                      SeekStepCase{60, 20, true, {"seek 300000000"}},
                      SeekStepCase{60, 0.5, false, {}},                 // reads as 0
                      SeekStepCase{60, 1.9, false, {}},                 // reads as 1
                      SeekStepCase{60, 7, false, {"seek 0"}},           // lands at the start
                      SeekStepCase{60, 25, false, {"seek 150000000"}}));

TEST(SeekStep, DoesNothingUnlessPlaying) {
    PlayingRig rig(60 * kSecond, 20 * kSecond);
    rig.engine.TogglePause();
    rig.position.SeekStep(true);
    EXPECT_THAT(rig.Seeks(), IsEmpty());
}

struct TimeCase {
    std::int64_t duration;
    std::int64_t value;
    bool remaining;
    TimeDisplay expected;
};

class TimeDisplays : public ::testing::TestWithParam<TimeCase> {};

TEST_P(TimeDisplays, SplitElapsedOrRemainingSeconds) {
    const TimeCase& c = GetParam();
    PlayingRig rig(c.duration * kSecond, 0);
    if (c.remaining)
        rig.position.ToggleRemainingTime();
    rig.position.SetTimeDisplay(c.value, false);
    EXPECT_EQ(rig.position.Time(), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, TimeDisplays,
                         ::testing::Values(TimeCase{59, 30, true, {0, 0, 29}},
                                           TimeCase{4000, 3725, false, {1, 2, 5}},
                                           TimeCase{4000, 0, false, {0, 0, 0}},
                                           TimeCase{4000, 3599, false, {0, 59, 59}},
                                           TimeCase{4000, 3600, false, {1, 0, 0}},
                                           TimeCase{100, 100, true, {0, 0, 0}},
                                           TimeCase{100, 0, true, {0, 1, 40}}));

TEST(TimeDisplay, ANegativeValueReadsThePositionAndRepaintIsOptional) {
    PlayingRig rig(300 * kSecond, 125 * kSecond);
    rig.view.timeRepaints = 0;
    rig.position.SetTimeDisplay(-1, false);
    EXPECT_EQ(rig.position.Time(), (TimeDisplay{0, 2, 5}));
    EXPECT_EQ(rig.view.timeRepaints, 0);
    rig.position.SetTimeDisplay(-1, true);
    EXPECT_EQ(rig.view.timeRepaints, 1);
}

TEST(UpdatePosition, MovesTheThumbByTheFractionPlayed) {
    PlayingRig rig(100 * kSecond, 50 * kSecond);
    rig.position.UpdatePosition();
    EXPECT_EQ(rig.position.Bar().thumbX, 26 + 83); // L + (R - L - 4) x 0.5
    EXPECT_EQ(rig.position.Time(), (TimeDisplay{0, 0, 50}));
}

TEST(UpdatePosition, AZeroDurationLeavesTheThumbAtTheLeftEnd) {
    PlayingRig rig(0, 50 * kSecond);
    rig.position.Bar().thumbX = 150;
    rig.position.UpdatePosition();
    EXPECT_EQ(rig.position.Bar().thumbX, 26);
}

TEST(UpdatePosition, ADraggedThumbStaysAndACapturedBarSkipsEverything) {
    PlayingRig rig(100 * kSecond, 50 * kSecond);
    rig.position.PressThumb();
    rig.position.DragTo(60);
    rig.position.UpdatePosition();
    EXPECT_EQ(rig.position.Bar().thumbX, 50);
    EXPECT_EQ(rig.position.Time(), (TimeDisplay{0, 0, 50}));

    PlayingRig captured(100 * kSecond, 50 * kSecond);
    captured.position.PressBar(150);
    captured.factory.current->position = 70 * kSecond;
    captured.position.UpdatePosition();
    EXPECT_EQ(captured.position.Bar().thumbX, 140);
    EXPECT_EQ(captured.position.Time(), TimeDisplay{});
}

TEST(SeekBar, ThumbArithmeticKeepsTheFourPixelAsymmetry) {
    SeekBar bar;
    bar.SetGeometry(26, 190, 20, 8);
    EXPECT_EQ(bar.right, 196);
    EXPECT_EQ(bar.ThumbForMouse(50), 50 - 10 - 8);
    EXPECT_EQ(bar.ThumbForMouse(0), 26);
    EXPECT_EQ(bar.ThumbForMouse(400), 196);
    EXPECT_EQ(bar.FractionForThumb(30), 0.0);
    EXPECT_EQ(bar.FractionForThumb(196), 1.0);
    EXPECT_DOUBLE_EQ(bar.FractionForThumb(113), 83.0 / 166.0);
    // A thumb dropped at X comes back 4 pixels to its left.
    int dropped = 113;
    EXPECT_EQ(bar.ThumbForFraction(bar.FractionForThumb(dropped)), dropped - 4);

    SeekBar narrow;
    narrow.SetGeometry(26, 22, 20, 0); // bar only 2 pixels wider than the thumb
    EXPECT_EQ(narrow.FractionForThumb(28), 0.0);
}

TEST(SeekBar, ReleasingADragSeeksToTheDroppedFraction) {
    PlayingRig rig(166 * kSecond, 10 * kSecond);
    rig.position.PressThumb();
    EXPECT_EQ(rig.position.Bar().drag, kDragActive);
    rig.position.Release(123); // thumb 113: 83 of 166 pixels
    EXPECT_THAT(rig.Seeks(), ElementsAre("seek 830000000"));
    EXPECT_EQ(rig.position.Bar().drag, kDragIdle);
    EXPECT_EQ(rig.view.erasedRepaints, 1);
    EXPECT_EQ(rig.view.updates, 1);
    EXPECT_EQ(rig.position.Time(), TimeDisplay{}); // playing: the timer shows it
}

TEST(SeekBar, ReleasingWhilePausedShowsTheTargetAtOnce) {
    PlayingRig rig(166 * kSecond, 10 * kSecond);
    rig.engine.TogglePause();
    rig.position.PressThumb();
    rig.position.Release(123);
    EXPECT_EQ(rig.position.Time(), (TimeDisplay{0, 1, 23}));
}

TEST(SeekBar, ABlockedDragIsNotStarted) {
    PlayingRig rig(166 * kSecond, 10 * kSecond);
    rig.position.Bar().drag = kDragBlocked;
    rig.position.PressThumb();
    rig.position.Release(123);
    EXPECT_EQ(rig.position.Bar().drag, kDragBlocked);
    EXPECT_THAT(rig.Seeks(), IsEmpty());
}

TEST(SeekKeys, AStoppedTrackStartsPlayingAndSeeks) {
    PlayingRig rig(60 * kSecond, 20 * kSecond);
    rig.engine.StopCommand();
    rig.factory.current->position = 0;
    rig.position.SeekKeyDown(kKeySeekForward);
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
    EXPECT_THAT(rig.Seeks(), ElementsAre("seek 0", "seek 100000000"));
    EXPECT_TRUE(rig.view.TimerRunning(kTimerSeekHold));
}

TEST(SeekKeys, APausedTrackResumesAndHoldingSeeksEachTick) {
    PlayingRig rig(60 * kSecond, 30 * kSecond);
    rig.engine.TogglePause();
    rig.position.SeekKeyDown(kKeySeekBack);
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
    rig.position.SeekHoldTick();
    rig.position.SeekHoldTick();
    EXPECT_THAT(rig.Seeks(), ElementsAre("seek 200000000", "seek 100000000", "seek 0"));
    rig.position.SeekKeyUp();
    EXPECT_FALSE(rig.view.TimerRunning(kTimerSeekHold));
    rig.position.SeekHoldTick();
    EXPECT_EQ(rig.Seeks().size(), 3u);
}

TEST(SeekKeys, TheHoldTimerIsNotStartedWhileAButtonIsHeld) {
    PlayingRig rig(60 * kSecond, 30 * kSecond);
    rig.view.StartTimer(kTimerPressHold, kTimerPeriodMs);
    rig.position.SeekKeyDown(kKeySeekForward);
    EXPECT_FALSE(rig.view.TimerRunning(kTimerSeekHold));
    EXPECT_THAT(rig.Seeks(), ElementsAre("seek 400000000"));
}

} // namespace
} // namespace zelvor
