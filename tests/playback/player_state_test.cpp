#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "playback/buffering_time.h"
#include "playback/player_settings.h"
#include "tests/playback/engine_rig.h"

namespace zelvor {
namespace {
using ::testing::ElementsAre;
using testing::EngineRig;

bool Shown(const EngineRig& rig, int button) {
    return rig.buttons.State(button) == kDisplayNormal;
}

// What every state shows: Play and Pause share one place and never show
// together; only Playing runs the position timer; Stop shows while there is
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
        EXPECT_FALSE(Shown(rig, kButtonPlay) && Shown(rig, kButtonPause));
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
// hides. Without a seeking slot nothing says so.
TEST(PlayState, PlayingATrackOfUnknownLengthDisablesSeekAndPause) {
    EngineRig rig({u"stream.mp3"});
    rig.engine.BuildGraph(rig.Path(0), true); // the duration reads as 0
    EXPECT_TRUE(rig.engine.SeekDisabled());
    EXPECT_FALSE(Shown(rig, kButtonPause));
    EngineRig none;
    none.engine.SetPlayState(kPlayStatePlaying);
    EXPECT_FALSE(none.engine.SeekDisabled());
    EXPECT_TRUE(Shown(none, kButtonPause));
}

TEST(PlayState, StartsTheTimerOnce) {
    EngineRig rig;
    rig.engine.SetPlayState(kPlayStatePlaying);
    rig.engine.SetPlayState(kPlayStatePlaying);
    EXPECT_THAT(rig.view.timerStarts, ElementsAre(kTimerPosition));
    EXPECT_EQ(rig.view.timers[kTimerPosition], 500);
}

TEST(PlayState, StepButtonsShowForAQueueOfAnyLength) {
    EngineRig rig;
    rig.engine.RefreshStepButtons();
    EXPECT_FALSE(Shown(rig, kButtonNext) || Shown(rig, kButtonPrevious));
    rig.AddTracks({u"a.mp3"});
    rig.engine.RefreshStepButtons();
    EXPECT_TRUE(Shown(rig, kButtonNext) && Shown(rig, kButtonPrevious));
}

TEST(BufferingTime, AnythingButThreeThousandIsRewrittenOnce) {
    testing::TestDevice device;
    EXPECT_EQ(ReadBufferingTime(), 2u); // no key
    device.Registry().SetString(RegistryRoot::LocalMachine, kBufferingTimeKey,
                                kBufferingTimeValue, u"3000");
    EXPECT_EQ(ReadBufferingTime(), 2u); // a value of another type
    FixBufferingTime();
    RegistryStore reread(RegistryFolderOf(device.Root())); // flushed
    EXPECT_EQ(reread.QueryDword(RegistryRoot::LocalMachine, kBufferingTimeKey, u"buffering time"),
              3000u);
    auto hive = device.Registry().HivePath(RegistryRoot::LocalMachine);
    auto stamp = std::filesystem::last_write_time(hive) - std::chrono::hours(1);
    std::filesystem::last_write_time(hive, stamp);
    FixBufferingTime(); // already right: not written again
    EXPECT_EQ(std::filesystem::last_write_time(hive), stamp);
}

// A step moves one place within the table and unmutes first; the graph gets
// the table's value at once.
TEST(Volume, StepsStayWithinTheTableAndUnmuteFirst) {
    const struct {
        int index;
        bool muted, up;
        int expected;
    } cases[] = {{10, false, true, 10}, {9, false, true, 10}, {0, false, false, 0},
                 {1, false, false, 0},  {10, true, true, 10}, {4, true, false, 3}};
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.index << (c.up ? " up" : " down"));
        EngineRig rig({u"a.mp3"});
        rig.volume.Restore(c.index, c.muted);
        rig.engine.OpenTrack(rig.Path(0));
        rig.volume.VolumeStep(c.up);
        EXPECT_EQ(rig.volume.Index(), c.expected);
        EXPECT_FALSE(rig.volume.Muted());
        EXPECT_EQ(rig.factory.current->volume, kVolumeTable[c.expected]);
        EXPECT_EQ(rig.view.volumeRepaints, 1);
    }
}

TEST(Volume, MuteTogglesSilenceAndChangesWithoutAGraphWaitForTheNext) {
    EngineRig rig({u"a.mp3"});
    for (auto [index, restored] : {std::pair{-1, 5}, {11, 5}, {0, 0}, {10, 10}}) {
        rig.volume.Restore(index, false); // from the profile, which anyone can edit
        EXPECT_EQ(rig.volume.Index(), restored) << index;
    }
    rig.volume.VolumeStep(false);
    rig.engine.OpenTrack(rig.Path(0));
    EXPECT_EQ(rig.factory.current->volume, -800);
    rig.volume.ToggleMute();
    EXPECT_EQ(rig.factory.current->volume, kSilence);
    EXPECT_EQ(rig.view.fullRepaints, 1);
    rig.volume.ToggleMute();
    EXPECT_EQ(rig.factory.current->volume, -800);
}

TEST(PlayerSettings, DefaultsRoundTripAndOutOfRangeValues) {
    testing::TestDevice device;
    PlayerSettings read = LoadPlayerSettings();
    EXPECT_EQ(std::tie(read.random, read.repeatMode, read.muted, read.volumeIndex),
              std::make_tuple(false, 0, false, 5));
    SavePlayerSettings({true, 2, true, 0});
    read = LoadPlayerSettings();
    EXPECT_EQ(std::tie(read.random, read.repeatMode, read.muted, read.volumeIndex),
              std::make_tuple(true, 2, true, 0));
    const std::u16string base = u"Software\\Quorrel Systems Inc.\\Zelvor\\";
    auto& registry = device.Registry();
    EXPECT_EQ(registry.QueryDword(RegistryRoot::CurrentUser, base + u"MainSection", u"Mute"), 1u);
    registry.SetDword(RegistryRoot::CurrentUser, base + u"MP3", u"Volume", 11);
    registry.SetDword(RegistryRoot::CurrentUser, base + u"MainSection", u"Repeat", 3);
    read = LoadPlayerSettings();
    EXPECT_EQ(read.volumeIndex, 5);
    EXPECT_EQ(read.repeatMode, 0);
}

} // namespace
} // namespace zelvor
