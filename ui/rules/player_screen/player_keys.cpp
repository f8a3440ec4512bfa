#include "ui/rules/player_screen/player_keys.h"

namespace zelvor {

KeyAction KeyActionOf(int deviceKey) {
    switch (deviceKey) {
    case kKeyReturn:
    case kKeyHardPlay:
        return KeyAction::PlayPause;
    case kKeyLeft:
    case kKeyHardPrevious:
        return KeyAction::Previous;
    case kKeyRight:
    case kKeyHardNext:
        return KeyAction::Next;
    case kKeyUp:
    case kKeyHardVolumeUp:
        return KeyAction::VolumeUp;
    case kKeyDown:
    case kKeyHardVolumeDown:
        return KeyAction::VolumeDown;
    case kKeyStopButton:
    case kKeyHardStop:
        return KeyAction::Stop;
    case kKeySeekForward:
        return KeyAction::SeekForward;
    case kKeySeekBack:
        return KeyAction::SeekBack;
    default:
        return KeyAction::None;
    }
}

bool PlayerKeyDown(Player& player, int deviceKey) {
    PlaybackEngine& engine = player.Engine();
    switch (KeyActionOf(deviceKey)) {
    case KeyAction::None:
        return false;
    case KeyAction::PlayPause:
        // Remembered as Return whichever key it was: a key up forgets it.
        player.Position().SetHeldKey(kKeyReturn);
        if (engine.State() == kPlayStatePlaying)
            engine.TogglePause();
        else
            engine.PlayCommand(true);
        return true;
    case KeyAction::Previous:
        player.Queue().PreviousCommand();
        return true;
    case KeyAction::Next:
        player.Queue().NextCommand();
        return true;
    case KeyAction::VolumeUp:
        player.Volume().VolumeStep(true);
        return true;
    case KeyAction::VolumeDown:
        player.Volume().VolumeStep(false);
        return true;
    case KeyAction::Stop:
        engine.StopCommand();
        return true;
    case KeyAction::SeekForward:
    case KeyAction::SeekBack:
        player.Position().SeekKeyDown(deviceKey);
        return true;
    }
    return false;
}

void PlayerKeyUp(Player& player) {
    player.Position().SeekKeyUp();
}

} // namespace zelvor
