#pragma once
// The player screen's keys, by the device's key codes: the arrow keys and
// Return of a keyboard, and the hardware buttons (codes above 200).

#include "playback/player.h"

namespace zelvor {

constexpr int kKeyReturn = 13;
constexpr int kKeyLeft = 37;
constexpr int kKeyUp = 38;
constexpr int kKeyRight = 39;
constexpr int kKeyDown = 40;
constexpr int kKeyStopButton = 149;
// Hardware buttons; the seek keys 234 and 235 are the position's own.
constexpr int kKeyHardStop = 236;
constexpr int kKeyHardPlay = 237;
constexpr int kKeyHardPrevious = 238;
constexpr int kKeyHardNext = 239;
constexpr int kKeyHardVolumeUp = 241;
constexpr int kKeyHardVolumeDown = 242;

enum class KeyAction {
    None,
    PlayPause, // Pause while playing, else Play
    Previous,
    Next,
    VolumeUp,
    VolumeDown,
    Stop,
    SeekForward,
    SeekBack,
};

KeyAction KeyActionOf(int deviceKey);

// A key went down: acts on the player. False for a key the screen ignores.
bool PlayerKeyDown(Player& player, int deviceKey);
// Any key went up: a held seek key stops seeking, the held key is forgotten.
void PlayerKeyUp(Player& player);

} // namespace zelvor
