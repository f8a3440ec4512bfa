#include "desktop/mpris_mapping.h"

#include <gtest/gtest.h>

#include "playback/play_state.h"

namespace zelvor {
namespace {

TEST(MprisMapping, StatusAndVolumeReadAsTheInterfaceShowsThem) {
    for (std::int32_t state = kPlayStateEmpty; state <= kPlayStateDisplay + 1; ++state)
        EXPECT_EQ(PlaybackStatusName(state), state == kPlayStatePlaying  ? "Playing"
                                             : state == kPlayStatePaused ? "Paused"
                                                                         : "Stopped");
    for (int step = 0; step < kMprisVolumeSteps; ++step) {
        EXPECT_DOUBLE_EQ(VolumeLevel(step, false), step / 10.0);
        EXPECT_DOUBLE_EQ(VolumeLevel(step, true), 0.0);
    }
    EXPECT_DOUBLE_EQ(VolumeLevel(12, false), 1.0);
}

struct VolumeCase {
    const char* name;
    double requested;
    int index;
    bool muted;
    bool toggleMute;
    int steps;
};

class PlanVolumeTest : public ::testing::TestWithParam<VolumeCase> {};

TEST_P(PlanVolumeTest, Plans) {
    const VolumeCase& c = GetParam();
    const VolumePlan plan = PlanVolume(c.requested, c.index, c.muted);
    EXPECT_EQ(plan.toggleMute, c.toggleMute);
    EXPECT_EQ(plan.steps, c.steps);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PlanVolumeTest,
    ::testing::Values(VolumeCase{"UpToNearestStep", 0.54, 3, false, false, 2},
                      VolumeCase{"RoundsHalfUp", 0.25, 5, false, false, -2},
                      VolumeCase{"Down", 0.0999, 5, false, false, -4},
                      VolumeCase{"AboveOneIsTop", 7.0, 9, false, false, 1},
                      VolumeCase{"SameStepNothing", 0.7, 7, false, false, 0},
                      VolumeCase{"ZeroMutes", 0.0, 6, false, true, 0},
                      VolumeCase{"ZeroWhileMutedStays", 0.0, 6, true, false, 0},
                      VolumeCase{"NegativeMutes", -0.5, 6, false, true, 0},
                      VolumeCase{"TinyIsLowestStep", 0.01, 0, false, false, 1},
                      VolumeCase{"SameStepWhileMutedUnmutes", 0.6, 6, true, true, 0},
                      VolumeCase{"StepWhileMutedUnmutesByItself", 0.8, 6, true, false, 2}),
    [](const auto& tp) { return std::string(tp.param.name); });

// Pressing repeat as often as asked lands on the mode asked for, in fewer
// than three presses; names go both ways, unknown ones to none.
TEST(MprisMapping, LoopStatusBothWaysAndRepeatPresses) {
    for (int mode = 0; mode < 3; ++mode) {
        EXPECT_EQ(RepeatModeOf(LoopStatusName(mode)), mode);
        for (int to = 0; to < 3; ++to) {
            int presses = RepeatPresses(mode, to);
            EXPECT_TRUE(presses >= 0 && presses < 3 && (mode + presses) % 3 == to) << mode << to;
        }
    }
    EXPECT_EQ((std::vector<std::string_view>{LoopStatusName(0), LoopStatusName(1), LoopStatusName(2),
                                        LoopStatusName(3), LoopStatusName(-1)}),
              (std::vector<std::string_view>{"None", "Track", "Playlist", "None", "None"}));
    EXPECT_EQ(RepeatModeOf("track"), std::nullopt);
    EXPECT_EQ(TrackObjectPath(std::nullopt), "/org/mpris/MediaPlayer2/TrackList/NoTrack");
    EXPECT_EQ(TrackObjectPath(41u), "/org/mpris/MediaPlayer2/zelvor/track/41");
}

TEST(MprisMapping, RelativeSeek) {
    constexpr std::int64_t s = kMicrosecondsPerSecond;
    EXPECT_FALSE(PlanSeek(10 * s, 60 * s, 5 * s).next);
    EXPECT_EQ(PlanSeek(10 * s, 60 * s, 5 * s).targetUs, 15 * s);
    EXPECT_EQ(PlanSeek(10 * s, 60 * s, -30 * s).targetUs, 0);
    EXPECT_EQ(PlanSeek(10 * s, 60 * s, 50 * s).targetUs, 60 * s);
    EXPECT_TRUE(PlanSeek(10 * s, 60 * s, 50 * s + 1).next);
    EXPECT_FALSE(PlanSeek(10 * s, 0, 500 * s).next); // length unknown
}

TEST(MprisMapping, SetPositionOnlyForTheCurrentTrackAndWithinIt) {
    const std::string track = "/org/mpris/MediaPlayer2/zelvor/track/2";
    EXPECT_TRUE(AcceptSetPosition(track, track, 0, 100));
    EXPECT_TRUE(AcceptSetPosition(track, track, 100, 100));
    EXPECT_FALSE(AcceptSetPosition(track, track, 101, 100));
    EXPECT_FALSE(AcceptSetPosition(track, track, -1, 100));
    EXPECT_FALSE(AcceptSetPosition(track, "/org/mpris/MediaPlayer2/zelvor/track/3", 5, 100));
}

TEST(MprisMapping, PositionJumps) {
    constexpr std::int64_t s = kMicrosecondsPerSecond;
    EXPECT_FALSE(PositionJumped(10 * s, 11 * s, 1 * s, true, 2 * s));  // played on
    EXPECT_TRUE(PositionJumped(10 * s, 11 * s + 1, 0, false, 1 * s));  // paused, moved
    EXPECT_FALSE(PositionJumped(10 * s, 10 * s, 1 * s, false, 2 * s)); // paused, still
    EXPECT_TRUE(PositionJumped(10 * s, 40 * s, 1 * s, true, 2 * s));   // forward seek
    EXPECT_TRUE(PositionJumped(40 * s, 10 * s, 1 * s, true, 2 * s));   // back
    EXPECT_FALSE(PositionJumped(10 * s, 13 * s, 1 * s, true, 2 * s));  // at the edge
}

TEST(MprisMapping, ChangedPropertiesNameWhatDiffers) {
    MprisState a;
    a.playState = kPlayStateStopped;
    a.volumeStep = 5;
    MprisState b = a;
    b.playState = kPlayStateEmpty; // both read Stopped
    EXPECT_TRUE(ChangedProperties(a, b).empty());

    b.playState = kPlayStatePlaying;
    b.muted = true;
    b.random = true;
    b.repeatMode = 2;
    b.track.title = u"x";
    b.hasEntries = true;
    b.canSeek = true;
    const std::vector<std::string_view> all = {
        "PlaybackStatus", "Volume",        "Shuffle", "LoopStatus", "Metadata",
        "CanGoNext",      "CanGoPrevious", "CanPlay", "CanSeek"};
    EXPECT_EQ(ChangedProperties(a, b), all);

    MprisState c = a;
    c.volumeStep = 0;
    c.muted = false;
    MprisState d = a;
    d.volumeStep = 7;
    d.muted = true; // silent both ways
    EXPECT_EQ(ChangedProperties(c, d), std::vector<std::string_view>{});
    d.track.lengthUs = 1;
    EXPECT_EQ(ChangedProperties(c, d), std::vector<std::string_view>{"Metadata"});
}

} // namespace
} // namespace zelvor
