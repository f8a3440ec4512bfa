#include "desktop/mpris_mapping.h"

#include <algorithm>
#include <cmath>

#include "playback/play_state.h"

namespace zelvor {
namespace {

constexpr int kRepeatModes = 3;
constexpr std::string_view kLoopNames[kRepeatModes] = {"None", "Track", "Playlist"};

} // namespace

std::string_view PlaybackStatusName(std::int32_t playState) {
    if (playState == kPlayStatePlaying)
        return "Playing";
    if (playState == kPlayStatePaused)
        return "Paused";
    return "Stopped";
}

double VolumeLevel(int stepIndex, bool muted) {
    if (muted)
        return 0.0;
    return std::clamp(stepIndex, 0, kMprisVolumeSteps - 1) / double(kMprisVolumeSteps - 1);
}

VolumePlan PlanVolume(double requested, int stepIndex, bool muted) {
    VolumePlan plan;
    if (!(requested > 0.0)) { // NaN too: silence is the safe reading
        plan.toggleMute = !muted;
        return plan;
    }
    const int target = static_cast<int>(
        std::lround(std::min(requested, 1.0) * (kMprisVolumeSteps - 1)));
    // A request too small for step 1 still means "audible": the lowest step.
    plan.steps = std::max(target, 1) - stepIndex;
    // A step unmutes by itself; with no step to take, unmute alone.
    plan.toggleMute = muted && plan.steps == 0;
    return plan;
}

std::string_view LoopStatusName(int repeatMode) {
    return kLoopNames[repeatMode >= 0 && repeatMode < kRepeatModes ? repeatMode : 0];
}

std::optional<int> RepeatModeOf(std::string_view loopStatus) {
    for (int mode = 0; mode < kRepeatModes; ++mode)
        if (kLoopNames[mode] == loopStatus)
            return mode;
    return std::nullopt;
}

int RepeatPresses(int from, int to) {
    return ((to - from) % kRepeatModes + kRepeatModes) % kRepeatModes;
}

std::string TrackObjectPath(std::optional<std::uint32_t> orderNumber) {
    if (!orderNumber)
        return "/org/mpris/MediaPlayer2/TrackList/NoTrack";
    return "/org/mpris/MediaPlayer2/zelvor/track/" + std::to_string(*orderNumber);
}

SeekPlan PlanSeek(std::int64_t positionUs, std::int64_t lengthUs, std::int64_t offsetUs) {
    const std::int64_t target = positionUs + offsetUs;
    if (lengthUs > 0 && target > lengthUs)
        return {true, 0};
    return {false, std::max<std::int64_t>(target, 0)};
}

bool AcceptSetPosition(std::string_view currentTrackPath, std::string_view requestedTrackPath,
                       std::int64_t targetUs, std::int64_t lengthUs) {
    return currentTrackPath == requestedTrackPath && targetUs >= 0 && targetUs <= lengthUs;
}

bool PositionJumped(std::int64_t beforeUs, std::int64_t nowUs, std::int64_t elapsedUs,
                    bool playing, std::int64_t toleranceUs) {
    const std::int64_t expected = beforeUs + (playing ? elapsedUs : 0);
    return std::llabs(nowUs - expected) > toleranceUs;
}

std::vector<std::string_view> ChangedProperties(const MprisState& before, const MprisState& now) {
    std::vector<std::string_view> names;
    const auto note = [&names](bool differs, std::string_view name) {
        if (differs)
            names.push_back(name);
    };
    note(PlaybackStatusName(before.playState) != PlaybackStatusName(now.playState),
         "PlaybackStatus");
    note(VolumeLevel(before.volumeStep, before.muted) != VolumeLevel(now.volumeStep, now.muted),
         "Volume");
    note(before.random != now.random, "Shuffle");
    note(before.repeatMode != now.repeatMode, "LoopStatus");
    note(!(before.track == now.track), "Metadata");
    note(before.hasEntries != now.hasEntries, "CanGoNext");
    note(before.hasEntries != now.hasEntries, "CanGoPrevious");
    note(before.hasEntries != now.hasEntries, "CanPlay");
    note(before.canSeek != now.canSeek, "CanSeek");
    return names;
}

} // namespace zelvor
