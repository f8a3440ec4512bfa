#pragma once
// How the player's state reads on the desktop's media-player interface
// (MPRIS 2), and how the interface's requests become the player's own steps.
// Kept free of Qt and D-Bus so that each mapping is checked directly.
//
//   status   Playing and Paused as they are; every other state is Stopped.
//   volume   the eleven steps 0-10 read as 0.0, 0.1 ... 1.0, and mute reads
//            as 0.0. A request picks the nearest step; 0.0 mutes (the step
//            is kept, so unmuting gives the same loudness back), and a step
//            while muted unmutes, as the volume buttons do.
//   loop     repeat 0/1/2 is None / Track / Playlist; a request presses the
//            repeat button until it shows the mode asked for.
//   time     microseconds on the interface, seconds in the player.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

constexpr int kMprisVolumeSteps = 11;
constexpr std::int64_t kMicrosecondsPerSecond = 1'000'000;

std::string_view PlaybackStatusName(std::int32_t playState);

double VolumeLevel(int stepIndex, bool muted);

// What a volume request does: unmute or mute first, then steps (positive
// up, negative down).
struct VolumePlan {
    bool toggleMute = false;
    int steps = 0;
};
VolumePlan PlanVolume(double requested, int stepIndex, bool muted);

std::string_view LoopStatusName(int repeatMode);
// The repeat mode a loop status names; nullopt for an unknown name.
std::optional<int> RepeatModeOf(std::string_view loopStatus);
// How many presses of the repeat button take `from` to `to`.
int RepeatPresses(int from, int to);

// The track's object path: the entry's number in the playlist's own order,
// which stays with the track through shuffles; the interface's "no track"
// path when there is none.
std::string TrackObjectPath(std::optional<std::uint32_t> orderNumber);

// What a relative seek does: a target past the end goes to the next track,
// one before the start seeks to the start.
struct SeekPlan {
    bool next = false;
    std::int64_t targetUs = 0;
};
SeekPlan PlanSeek(std::int64_t positionUs, std::int64_t lengthUs, std::int64_t offsetUs);

// An absolute position request is ignored unless it is for the current
// track and within it.
bool AcceptSetPosition(std::string_view currentTrackPath, std::string_view requestedTrackPath,
                       std::int64_t targetUs, std::int64_t lengthUs);

// Whether the position moved other than by playing on since the last look:
// a jump of more than `toleranceUs` from where it should be now.
bool PositionJumped(std::int64_t beforeUs, std::int64_t nowUs, std::int64_t elapsedUs,
                    bool playing, std::int64_t toleranceUs);

// What the interface shows of the player, and which of its properties
// differ between two looks.
struct MprisTrack {
    std::string trackId;
    std::u16string title, artist, album, genre;
    int trackNumber = 0;
    std::int64_t lengthUs = 0;
    std::string url;
    friend bool operator==(const MprisTrack&, const MprisTrack&) = default;
};

struct MprisState {
    std::int32_t playState = 0;
    int volumeStep = 0;
    bool muted = false;
    bool random = false;
    int repeatMode = 0;
    bool hasEntries = false;
    bool canSeek = false;
    MprisTrack track;
};

// Names of the Player interface's properties that differ (PlaybackStatus,
// Volume, Shuffle, LoopStatus, Metadata, CanGoNext, CanGoPrevious, CanPlay,
// CanSeek), in that order.
std::vector<std::string_view> ChangedProperties(const MprisState& before, const MprisState& now);

} // namespace zelvor
