#pragma once
// The desktop's remote control (media keys, playerctl, a panel applet)
// drives the player through the very commands of the player screen's
// buttons, so it gets their beeps and their rules: Play is the Play button,
// Pause the Pause button, Next and Previous the step buttons, a volume
// request is presses of the volume buttons, Shuffle and Loop presses of the
// mode buttons, a position request the seek bar's release.
//
// Borrows the player; UI thread only, like the buttons.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "desktop/mpris_mapping.h"
#include "playback/player.h"

namespace zelvor {

void RemotePlay(Player& player);      // no effect while playing
void RemotePause(Player& player);     // no effect unless playing
void RemotePlayPause(Player& player);
void RemoteStop(Player& player);
void RemoteNext(Player& player);
void RemotePrevious(Player& player);
void RemoteSetVolume(Player& player, double level);
void RemoteSetRandom(Player& player, bool on);
void RemoteSetRepeat(Player& player, int repeatMode);
// False when the track cannot seek now (no track, or seeking disabled).
bool RemoteSeekTo(Player& player, std::int64_t positionUs);
// A relative seek; past the end it is Next.
void RemoteSeekBy(Player& player, std::int64_t offsetUs);

std::int64_t RemotePositionUs(Player& player);
std::int64_t RemoteLengthUs(Player& player);

// The player as the interface shows it; `urlOf` turns a device path into
// the file's URL on the host.
using TrackUrlOf = std::function<std::string(std::u16string_view devicePath)>;
MprisState ReadMprisState(Player& player, const TrackUrlOf& urlOf);

} // namespace zelvor
