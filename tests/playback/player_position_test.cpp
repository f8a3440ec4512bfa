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
        std::ranges::copy_if(factory.log, std::back_inserter(seeks),
                             [](const std::string& entry) { return entry.starts_with("seek"); });
        return seeks;
    }
};

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
    using Seeks = std::vector<std::string>;
    for (const auto& [key, state, buttonHeld, expected] :
         {std::tuple{kKeySeekForward, kPlayStateStopped, false,
                     Seeks{"seek 100000000", "seek 200000000"}},
          {kKeySeekBack, kPlayStatePaused, false, Seeks{"seek 200000000", "seek 100000000"}},
          {kKeySeekForward, kPlayStatePlaying, true, Seeks{"seek 400000000", "seek 500000000"}}}) {
        SCOPED_TRACE(state);
        PlayingRig rig(60 * kSecond, 30 * kSecond);
        if (state == kPlayStateStopped)
            rig.engine.StopCommand(); // rewinds to 0
        if (state == kPlayStatePaused)
            rig.engine.TogglePause();
        if (buttonHeld)
            rig.view.StartTimer(kTimerPressHold, kTimerPeriodMs);
        const auto before = rig.Seeks().size();
        rig.position.SeekKeyDown(key);
        EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
        EXPECT_EQ(rig.view.TimerRunning(kTimerSeekHold), !buttonHeld);
        rig.factory.current->position = MediaTimeOf(key == kKeySeekForward ? 10 : 20) +
                                        (buttonHeld ? 30 * kSecond : 0);
        rig.position.SeekHoldTick();
        rig.position.SeekKeyUp();
        EXPECT_EQ(rig.position.HeldKey(), 0);
        EXPECT_FALSE(rig.view.TimerRunning(kTimerSeekHold));
        rig.position.SeekHoldTick();
        auto seeks = rig.Seeks();
        seeks.erase(seeks.begin(), seeks.begin() + static_cast<long>(before));
        EXPECT_EQ(seeks, expected);
    }
}

} // namespace
} // namespace zelvor
