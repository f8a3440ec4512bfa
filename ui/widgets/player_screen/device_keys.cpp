#include "ui/widgets/player_screen/device_keys.h"

#include <Qt>

#include "playback/player_position.h"
#include "ui/rules/player_screen/player_keys.h"

namespace zelvor {

int DeviceKeyOf(int qtKey) {
    switch (qtKey) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return kKeyReturn;
    case Qt::Key_Left:
        return kKeyLeft;
    case Qt::Key_Up:
        return kKeyUp;
    case Qt::Key_Right:
        return kKeyRight;
    case Qt::Key_Down:
        return kKeyDown;
    case Qt::Key_Stop:
        return kKeyStopButton;
    case Qt::Key_MediaStop:
        return kKeyHardStop;
    case Qt::Key_MediaPlay:
    case Qt::Key_MediaPause:
    case Qt::Key_MediaTogglePlayPause:
        return kKeyHardPlay;
    case Qt::Key_MediaPrevious:
        return kKeyHardPrevious;
    case Qt::Key_MediaNext:
        return kKeyHardNext;
    case Qt::Key_VolumeUp:
        return kKeyHardVolumeUp;
    case Qt::Key_VolumeDown:
        return kKeyHardVolumeDown;
    case Qt::Key_AudioForward:
    case Qt::Key_Period:
        return kKeySeekForward;
    case Qt::Key_AudioRewind:
    case Qt::Key_Comma:
        return kKeySeekBack;
    default:
        return 0;
    }
}

} // namespace zelvor
