#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "playback/buffering_time.h"
#include "playback/player_settings.h"
#include "tests/playback/engine_rig.h"

namespace zelvor {
namespace {
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::EngineRig;

struct StateRow {
    std::int32_t state;
    bool timer;
    bool seekDisabled;
    int stop, play, pause, thumb;
};

class PlayStateTable : public ::testing::TestWithParam<StateRow> {};

TEST_P(PlayStateTable, ShowsTheButtonsThumbAndTimerOfTheState) {
    const StateRow& row = GetParam();
    EngineRig rig({u"a.mp3"});
    rig.factory.script.durations["a.mp3"] = 1'800'000'000;
    rig.engine.OpenTrack(rig.Path(0));
    rig.engine.SetPlayState(row.state);
    EXPECT_EQ(rig.view.TimerRunning(kTimerPosition), row.timer);
    EXPECT_EQ(rig.engine.SeekDisabled(), row.seekDisabled);
    EXPECT_EQ(rig.buttons.State(kButtonStop), row.stop);
    EXPECT_EQ(rig.buttons.State(kButtonPlay), row.play);
    EXPECT_EQ(rig.buttons.State(kButtonPause), row.pause);
    EXPECT_EQ(rig.buttons.ThumbState(), row.thumb);
    EXPECT_EQ(rig.view.states.back(), row.state);
}

INSTANTIATE_TEST_SUITE_P(EveryState, PlayStateTable,
                         ::testing::Values(StateRow{kPlayStateStopped, false, true, 2, 0, 2, 0},
                                           StateRow{kPlayStatePlaying, true, false, 0, 2, 0, 0},
                                           StateRow{kPlayStatePaused, false, true, 0, 0, 2, 0},
                                           StateRow{kPlayStateDisplay, false, true, 0, 2, 2, 0},
                                           StateRow{kPlayStateEmpty, false, true, 2, 2, 2, 2},
                                           StateRow{7, false, true, 2, 2, 2, 2}));

TEST(PlayState, PlayingATrackOfUnknownLengthDisablesSeekAndHidesPause) {
    EngineRig rig({u"stream.mp3"});
    rig.engine.BuildGraph(rig.Path(0), true); // duration reads as 0
    EXPECT_TRUE(rig.engine.SeekDisabled());
    EXPECT_EQ(rig.buttons.State(kButtonPause), kDisplayHidden);
    EXPECT_EQ(rig.buttons.State(kButtonPlay), kDisplayHidden);
}

TEST(PlayState, PlayingWithoutASeekingSlotLeavesSeekEnabled) {
    EngineRig rig;
    rig.engine.SetPlayState(kPlayStatePlaying);
    EXPECT_FALSE(rig.engine.SeekDisabled());
    EXPECT_EQ(rig.buttons.State(kButtonPause), kDisplayNormal);
}

TEST(PlayState, RepaintsOnlyWhatChangesAndStartsTheTimerOnce) {
    EngineRig rig;
    rig.engine.SetPlayState(kPlayStateEmpty);
    EXPECT_THAT(rig.view.repaintedButtons, ElementsAre(kButtonStop, kButtonPlay, kButtonPause));
    EXPECT_EQ(rig.view.thumbRepaints, 1);
    rig.view.repaintedButtons.clear();
    rig.engine.SetPlayState(kPlayStateEmpty);
    EXPECT_THAT(rig.view.repaintedButtons, IsEmpty());

    rig.engine.SetPlayState(kPlayStatePlaying);
    rig.engine.SetPlayState(kPlayStatePlaying);
    EXPECT_THAT(rig.view.timerStarts, ElementsAre(kTimerPosition));
    EXPECT_EQ(rig.view.timers[kTimerPosition], 500);
    rig.engine.SetPlayState(kPlayStatePaused);
    EXPECT_FALSE(rig.view.TimerRunning(kTimerPosition));
}

TEST(PlayState, StepButtonsAreDisabledForAnEmptyQueue) {
    EngineRig rig;
    rig.engine.RefreshStepButtons();
    EXPECT_EQ(rig.buttons.State(kButtonNext), kDisplayHidden);
    EXPECT_EQ(rig.buttons.State(kButtonPrevious), kDisplayHidden);
    rig.AddTracks({u"a.mp3"});
    rig.engine.RefreshStepButtons();
    EXPECT_EQ(rig.buttons.State(kButtonNext), kDisplayNormal);
    EXPECT_EQ(rig.buttons.State(kButtonPrevious), kDisplayNormal);
}

TEST(BufferingTime, AnythingButThreeThousandIsRewrittenAndFlushed) {
    testing::TestDevice device;
    EXPECT_EQ(ReadBufferingTime(), 2u); // no key
    FixBufferingTime();
    RegistryStore reread(RegistryFolderOf(device.Root()));
    EXPECT_EQ(reread.QueryDword(RegistryRoot::LocalMachine, kBufferingTimeKey, u"buffering time"),
              3000u);

    device.Registry().SetString(RegistryRoot::LocalMachine, kBufferingTimeKey,
                                kBufferingTimeValue, u"3000");
    EXPECT_EQ(ReadBufferingTime(), 2u); // a value of another type
    FixBufferingTime();
    EXPECT_EQ(ReadBufferingTime(), 3000u);
}

TEST(BufferingTime, ThreeThousandAlreadyThereIsNotRewritten) {
    testing::TestDevice device;
    WriteBufferingTime(3000);
    auto hive = device.Registry().HivePath(RegistryRoot::LocalMachine);
    auto written = std::filesystem::last_write_time(hive);
    std::filesystem::last_write_time(hive, written - std::chrono::hours(1));
    FixBufferingTime();
    EXPECT_EQ(std::filesystem::last_write_time(hive), written - std::chrono::hours(1));
}

struct VolumeCase {
    int index;
    bool muted;
    bool up;
    int expectedIndex;
    std::int32_t sent;
};

class VolumeStepCases : public ::testing::TestWithParam<VolumeCase> {};

TEST_P(VolumeStepCases, StepsWithinTheTableAndUnmutesFirst) {
    const VolumeCase& c = GetParam();
    EngineRig rig({u"a.mp3"});
    rig.volume.Restore(c.index, c.muted);
    rig.engine.OpenTrack(rig.Path(0));
    rig.volume.VolumeStep(c.up);
    EXPECT_EQ(rig.volume.Index(), c.expectedIndex);
    EXPECT_FALSE(rig.volume.Muted());
    EXPECT_EQ(rig.factory.current->volume, c.sent);
    EXPECT_EQ(rig.view.volumeRepaints, 1);
}

INSTANTIATE_TEST_SUITE_P(Edges, VolumeStepCases,
                         ::testing::Values(VolumeCase{10, false, true, 10, 0},
                                           VolumeCase{0, false, false, 0, -10000},
                                           VolumeCase{0, false, true, 1, -4000},
                                           VolumeCase{1, false, false, 0, -10000},
                                           VolumeCase{5, false, true, 6, -2000},
                                           VolumeCase{10, true, true, 10, 0},
                                           VolumeCase{0, true, false, 0, -10000},
                                           VolumeCase{4, true, false, 3, -3200}));

TEST(Volume, MuteSendsSilenceAndUnmuteTheIndexValue) {
    EngineRig rig({u"a.mp3"});
    rig.volume.Restore(9, false);
    rig.engine.OpenTrack(rig.Path(0));
    rig.volume.ToggleMute();
    EXPECT_EQ(rig.factory.current->volume, kSilence);
    EXPECT_EQ(rig.view.fullRepaints, 1);
    rig.volume.ToggleMute();
    EXPECT_EQ(rig.factory.current->volume, -800);
}

TEST(Volume, ChangesWithoutAGraphAreKeptForTheNextOne) {
    EngineRig rig({u"a.mp3"});
    rig.volume.VolumeStep(true);
    rig.volume.VolumeStep(true);
    EXPECT_EQ(rig.volume.Index(), 7);
    rig.engine.OpenTrack(rig.Path(0));
    EXPECT_EQ(rig.factory.current->volume, -1600);
}

TEST(PlayerSettings, DefaultsRoundTripAndOutOfRangeValues) {
    testing::TestDevice device;
    PlayerSettings read = LoadPlayerSettings();
    EXPECT_FALSE(read.random);
    EXPECT_EQ(read.repeatMode, 0);
    EXPECT_FALSE(read.muted);
    EXPECT_EQ(read.volumeIndex, 5);

    SavePlayerSettings({true, 2, true, 0});
    read = LoadPlayerSettings();
    EXPECT_TRUE(read.random);
    EXPECT_EQ(read.repeatMode, 2);
    EXPECT_TRUE(read.muted);
    EXPECT_EQ(read.volumeIndex, 0);
    const std::u16string base = u"Software\\Quorrel Systems Inc.\\Zelvor\\";
    EXPECT_EQ(device.Registry().QueryDword(RegistryRoot::CurrentUser, base + u"MP3", u"Volume"), 0u);
    EXPECT_EQ(device.Registry().QueryDword(RegistryRoot::CurrentUser, base + u"MainSection", u"Mute"),
              1u);

    device.Registry().SetDword(RegistryRoot::CurrentUser, base + u"MP3", u"Volume", 11);
    device.Registry().SetDword(RegistryRoot::CurrentUser, base + u"MainSection", u"Repeat", 3);
    read = LoadPlayerSettings();
    EXPECT_EQ(read.volumeIndex, 5);
    EXPECT_EQ(read.repeatMode, 0);
}

} // namespace
} // namespace zelvor
