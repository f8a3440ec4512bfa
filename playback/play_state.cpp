#include "playback/play_state.h"

namespace zelvor {
namespace {

constexpr int N = kDisplayNormal;
constexpr int H = kDisplayHidden;

// positionTimer, stop, play, pause, pause when seek is disabled, seek thumb.
// Play and Pause share one place on the screen: exactly one of them shows
// wherever either can be used.
constexpr PlayStateDisplay kEmpty{false, H, H, H, H, H};
constexpr PlayStateDisplay kStopped{false, H, N, H, H, N};
constexpr PlayStateDisplay kPlaying{true, N, H, N, H, N};
constexpr PlayStateDisplay kPaused{false, N, N, H, H, N};
constexpr PlayStateDisplay kDisplayOnly{false, N, H, H, H, N};

} // namespace

PlayStateDisplay DisplayForPlayState(std::int32_t state) {
    switch (state) {
    case kPlayStateStopped:
        return kStopped;
    case kPlayStatePlaying:
        return kPlaying;
    case kPlayStatePaused:
        return kPaused;
    case kPlayStateDisplay:
        return kDisplayOnly;
    default:
        return kEmpty;
    }
}

const char* PlayStateName(std::int32_t state) {
    switch (state) {
    case kPlayStateEmpty:
        return "Empty";
    case kPlayStateStopped:
        return "Stopped";
    case kPlayStatePlaying:
        return "Playing";
    case kPlayStatePaused:
        return "Paused";
    case kPlayStateDisplay:
        return "Display";
    default:
        return "Unknown";
    }
}

} // namespace zelvor
