#pragma once
// The player's play state and what each state shows: which transport buttons
// are visible, whether the seek thumb may be used and whether the position
// timer runs.

#include <cstdint>

namespace zelvor {

enum PlayState : std::int32_t {
    kPlayStateEmpty = 0,   // no track loaded
    kPlayStateStopped = 1, // a graph exists for the current track, at its start, not running
    kPlayStatePlaying = 2,
    kPlayStatePaused = 3,
    kPlayStateDisplay = 4, // a state the screen can show; no operation enters it
};

// A button's display state: 0 normal, 1 pressed, 2 hidden or disabled.
constexpr int kDisplayNormal = 0;
constexpr int kDisplayPressed = 1;
constexpr int kDisplayHidden = 2;

// What a play state shows. The Pause button while playing depends on
// whether seeking is disabled; pauseWhenSeekDisabled gives that case.
struct PlayStateDisplay {
    bool positionTimer;
    int stop;
    int play;
    int pause;
    int pauseWhenSeekDisabled;
    int seekThumb;
};

// The table row for a state; any value outside 1-4 shows as Empty.
PlayStateDisplay DisplayForPlayState(std::int32_t state);

const char* PlayStateName(std::int32_t state);

} // namespace zelvor
