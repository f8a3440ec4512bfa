#pragma once
// The player's profile values, read once when the player screen is made and
// written once when it goes: Random, Repeat and Mute in "MainSection", the
// volume index as "Volume" in "MP3".

#include <cstdint>

namespace zelvor {

struct PlayerSettings {
    bool random = false;
    int repeatMode = 0;  // 0 off, 1 the current track, 2 the whole queue
    bool muted = false;
    int volumeIndex = 5; // 0-10
};

// Values outside their range (an edited profile) read as their defaults.
PlayerSettings LoadPlayerSettings();
void SavePlayerSettings(const PlayerSettings& settings);

} // namespace zelvor
