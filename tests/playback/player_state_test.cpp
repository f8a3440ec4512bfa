#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/playback/engine_rig.h"

namespace zelvor {
namespace {
using testing::EngineRig;

bool Shown(const EngineRig& rig, int button) {
    return rig.buttons.State(button) == kDisplayNormal;
}

// What every state shows: Play and Pause share one place (so one of them
// at most); only Playing runs the position timer; Stop shows while there is
// something to stop; a state the player does not know shows as Empty.
TEST(PlayState, EveryStateShowsWhatCanBeDoneInIt) {
    for (std::int32_t state : std::initializer_list<std::int32_t>{kPlayStateEmpty, kPlayStateStopped, kPlayStatePlaying,
                               kPlayStatePaused, kPlayStateDisplay, std::int32_t{7}}) {
        SCOPED_TRACE(state);
        EngineRig rig({u"a.mp3"});
        rig.factory.script.durations["a.mp3"] = 1'800'000'000;
        rig.engine.OpenTrack(rig.Path(0));
        rig.engine.SetPlayState(state);
        const bool known = state != kPlayStateEmpty && state != 7;
        EXPECT_EQ(Shown(rig, kButtonPause), state == kPlayStatePlaying);
        EXPECT_EQ(Shown(rig, kButtonPlay), state == kPlayStateStopped || state == kPlayStatePaused);
        EXPECT_EQ(Shown(rig, kButtonStop), known && state != kPlayStateStopped);
        EXPECT_EQ(rig.buttons.ThumbState() == kDisplayNormal, known);
        EXPECT_EQ(rig.view.TimerRunning(kTimerPosition), state == kPlayStatePlaying);
        EXPECT_EQ(rig.engine.SeekDisabled(), state != kPlayStatePlaying);
        EXPECT_EQ(rig.view.states.back(), state);
    }
}

// A graph that cannot tell the track's length cannot seek either: Pause
// hides.
TEST(PlayState, PlayingATrackOfUnknownLengthDisablesSeekAndPause) {
    EngineRig rig({u"stream.mp3"});
    rig.engine.BuildGraph(rig.Path(0), true); // the duration reads as 0
    EXPECT_TRUE(rig.engine.SeekDisabled());
    EXPECT_FALSE(Shown(rig, kButtonPause));
}

// A step moves one place within the table and unmutes first; the graph gets
// the table's value at once.
TEST(Volume, StepsStayWithinTheTableAndUnmuteFirst) {
    for (auto [index, muted, up, expected] :
         {std::tuple{10, false, true, 10}, {9, false, true, 10}, {0, false, false, 0},
          {1, false, false, 0}, {10, true, true, 10}, {4, true, false, 3}}) {
        SCOPED_TRACE(::testing::Message() << index << (up ? " up" : " down"));
        EngineRig rig({u"a.mp3"});
        rig.volume.Restore(index, muted);
        rig.engine.OpenTrack(rig.Path(0));
        rig.volume.VolumeStep(up);
        EXPECT_EQ(std::pair(rig.volume.Index(), rig.volume.Muted()), std::pair(expected, false));
        EXPECT_EQ(rig.factory.current->volume, kVolumeTable[expected]);
        EXPECT_EQ(rig.view.volumeRepaints, 1);
    }
}

// The profile can hold anything: an index off the table reads as the default.
TEST(Volume, RestoredIndexesOffTheTableReadAsTheDefault) {
    EngineRig rig;
    for (auto [index, restored] : {std::pair{-1, 5}, {11, 5}, {0, 0}, {10, 10}}) {
        rig.volume.Restore(index, false);
        EXPECT_EQ(rig.volume.Index(), restored) << index;
    }
}

} // namespace
} // namespace zelvor
