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
        for (const auto& entry : factory.log)
            if (entry.starts_with("seek"))
                seeks.push_back(entry);
        return seeks;
    }
};

TEST(MediaTimes, ReadsAreWholeSecondsAndSeekTargetsKeepTheirFraction) {
    EXPECT_EQ(WholeSecondsOf(59'999'999), 5.0);
    EXPECT_EQ(WholeSecondsOf(-15'000'000), -1.0); // truncated toward zero
    EXPECT_EQ(MediaTimeOf(2.5), 25'000'000);
    EXPECT_EQ(MediaTimeOf(-1.5), -15'000'000);
}

TEST(ReadingTimes, NeedAGraphAndThePositionIsNotReadWhileStopped) {
    EngineRig rig;
    double seconds = 7;
    EXPECT_FALSE(rig.position.GetDurationSeconds(seconds));
    EXPECT_EQ(seconds, 0);
    EXPECT_FALSE(rig.position.SeekToSeconds(3));

    PlayingRig playing(90 * kSecond, 42 * kSecond + 9'999'999);
    EXPECT_TRUE(playing.position.GetPositionSeconds(seconds));
    EXPECT_EQ(seconds, 42);
    playing.engine.StopCommand();
    playing.factory.current->position = 42 * kSecond;
    EXPECT_FALSE(playing.position.GetPositionSeconds(seconds));
    EXPECT_EQ(seconds, 0);
    EXPECT_TRUE(playing.position.GetDurationSeconds(seconds));
    EXPECT_EQ(seconds, 90);
    EXPECT_TRUE(playing.position.SeekToSeconds(3));
}

// Ten seconds within the track; nothing within a second of either end.
TEST(SeekStep, MovesTenSecondsWithinTheTrackWhilePlaying) {
    const struct {
        double position;
        bool forward;
        std::vector<std::string> seeks;
    } cases[] = {{59.5, true, {}},  {59, true, {}},  {55, true, {"seek 600000000"}},
                 {20, true, {"seek 300000000"}}, {0.5, false, {}}, {1.9, false, {}},
                 {7, false, {"seek 0"}},         {25, false, {"seek 150000000"}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.position << (c.forward ? " forward" : " back"));
        PlayingRig rig(60 * kSecond, MediaTimeOf(c.position));
        rig.position.SeekStep(c.forward);
        EXPECT_EQ(rig.Seeks(), c.seeks);
    }
    PlayingRig paused(60 * kSecond, 20 * kSecond);
    paused.engine.TogglePause();
    paused.position.SeekStep(true);
    EXPECT_THAT(paused.Seeks(), IsEmpty());
}

TEST(TimeDisplay, SplitsElapsedOrRemainingSeconds) {
    const struct {
        std::int64_t duration, value;
        bool remaining;
        TimeDisplay expected;
    } cases[] = {{59, 30, true, {0, 0, 29}},      {4000, 3725, false, {1, 2, 5}},
                 {4000, 3599, false, {0, 59, 59}}, {4000, 3600, false, {1, 0, 0}},
                 {100, 100, true, {0, 0, 0}},      {100, 0, true, {0, 1, 40}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.value);
        PlayingRig rig(c.duration * kSecond, 0);
        if (c.remaining)
            rig.position.ToggleRemainingTime();
        rig.position.SetTimeDisplay(c.value, false);
        EXPECT_EQ(rig.position.Time(), c.expected);
    }
}

// The tick moves the thumb by the fraction played and repaints the time;
// a dragged thumb stays and a captured bar skips everything.
TEST(UpdatePosition, MovesTheThumbUnlessTheUserHoldsIt) {
    PlayingRig rig(100 * kSecond, 40 * kSecond);
    rig.view.timeRepaints = 0;
    rig.position.SetTimeDisplay(-1, false); // a negative value reads the position
    EXPECT_EQ(rig.position.Time(), (TimeDisplay{0, 0, 40}));
    EXPECT_EQ(rig.view.timeRepaints, 0);
    rig.factory.current->position = 50 * kSecond;
    rig.position.UpdatePosition();
    EXPECT_EQ(rig.position.Bar().thumbX, 26 + 83); // L + (R - L - 4) x 0.5
    EXPECT_EQ(rig.position.Time(), (TimeDisplay{0, 0, 50}));
    EXPECT_EQ(rig.view.timeRepaints, 1);
    rig.position.PressThumb();
    rig.position.DragTo(60);
    rig.factory.current->position = 70 * kSecond;
    rig.position.UpdatePosition();
    EXPECT_EQ(rig.position.Bar().thumbX, 50);
    EXPECT_EQ(rig.position.Time(), (TimeDisplay{0, 1, 10}));

    PlayingRig captured(100 * kSecond, 50 * kSecond);
    captured.position.PressBar(150);
    EXPECT_TRUE(captured.view.mouseCaptured);
    captured.position.UpdatePosition();
    EXPECT_EQ(captured.position.Bar().thumbX, 140);
    EXPECT_EQ(captured.position.Time(), TimeDisplay{});
    captured.position.Release(150);
    EXPECT_FALSE(captured.view.mouseCaptured);

    PlayingRig unknown(0, 50 * kSecond); // no length: the thumb stays at the left end
    unknown.position.Bar().thumbX = 150;
    unknown.position.UpdatePosition();
    EXPECT_EQ(unknown.position.Bar().thumbX, 26);
}

TEST(SeekBar, ThumbArithmeticKeepsTheFourPixelAsymmetry) {
    SeekBar bar;
    bar.SetGeometry(26, 190, 20, 8);
    EXPECT_EQ(bar.ThumbForMouse(50), 50 - 10 - 8);
    EXPECT_EQ(bar.ThumbForMouse(0), 26);
    EXPECT_EQ(bar.ThumbForMouse(400), 196);
    EXPECT_EQ(bar.FractionForThumb(30), 0.0);
    EXPECT_EQ(bar.FractionForThumb(196), 1.0);
    EXPECT_EQ(bar.ThumbForFraction(bar.FractionForThumb(113)), 113 - 4); // dropped at X: X - 4
    SeekBar narrow;
    narrow.SetGeometry(26, 22, 20, 0); // only 2 pixels wider than the thumb
    EXPECT_EQ(narrow.FractionForThumb(28), 0.0);
}

// Dropping the thumb seeks to its fraction; paused, the target shows at once.
TEST(SeekBar, ReleasingADragSeeksToTheDroppedFraction) {
    for (bool paused : {false, true}) {
        PlayingRig rig(166 * kSecond, 10 * kSecond);
        if (paused)
            rig.engine.TogglePause();
        rig.position.PressThumb();
        EXPECT_EQ(rig.position.Bar().drag, SeekDrag::kActive);
        rig.position.Release(123); // thumb 113: 83 of 166 pixels
        EXPECT_THAT(rig.Seeks(), ElementsAre("seek 830000000"));
        EXPECT_EQ(rig.position.Bar().drag, SeekDrag::kIdle);
        EXPECT_EQ(rig.view.erasedRepaints, 1);
        EXPECT_EQ(rig.view.updates, 1);
        EXPECT_EQ(rig.position.Time(), (paused ? TimeDisplay{0, 1, 23} : TimeDisplay{}));
    }
    PlayingRig blocked(166 * kSecond, 10 * kSecond);
    blocked.position.Bar().drag = SeekDrag::kBlocked;
    blocked.position.PressThumb();
    blocked.position.Release(123);
    EXPECT_EQ(blocked.position.Bar().drag, SeekDrag::kBlocked);
    EXPECT_THAT(blocked.Seeks(), IsEmpty());
}

// A seek key plays a stopped or paused track, seeks, and seeks again on each
// tick of the hold timer (not started while a button is held) until released.
TEST(SeekKeys, PlayAndSeekEachTickWhileHeld) {
    const struct {
        int key;
        std::int32_t state;
        bool buttonHeld;
        std::vector<std::string> seeks;
    } cases[] = {{kKeySeekForward, kPlayStateStopped, false, {"seek 100000000", "seek 200000000"}},
                 {kKeySeekBack, kPlayStatePaused, false, {"seek 200000000", "seek 100000000"}},
                 {kKeySeekForward, kPlayStatePlaying, true, {"seek 400000000", "seek 500000000"}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.state);
        PlayingRig rig(60 * kSecond, 30 * kSecond);
        if (c.state == kPlayStateStopped)
            rig.engine.StopCommand(); // rewinds to 0
        if (c.state == kPlayStatePaused)
            rig.engine.TogglePause();
        if (c.buttonHeld)
            rig.view.StartTimer(kTimerPressHold, kTimerPeriodMs);
        const auto before = rig.Seeks().size();
        rig.position.SeekKeyDown(c.key);
        EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
        EXPECT_EQ(rig.view.TimerRunning(kTimerSeekHold), !c.buttonHeld);
        rig.factory.current->position = MediaTimeOf(c.key == kKeySeekForward ? 10 : 20) +
                                        (c.buttonHeld ? 30 * kSecond : 0);
        rig.position.SeekHoldTick();
        rig.position.SeekKeyUp();
        EXPECT_EQ(rig.position.HeldKey(), 0);
        EXPECT_FALSE(rig.view.TimerRunning(kTimerSeekHold));
        rig.position.SeekHoldTick();
        auto seeks = rig.Seeks();
        seeks.erase(seeks.begin(), seeks.begin() + static_cast<long>(before));
        EXPECT_EQ(seeks, c.seeks);
    }
}

} // namespace
} // namespace zelvor
