#pragma once
// The player screen's seventeen buttons by index: a button's identity, used
// by the playback core (display states) and by the screen's layout (places).

namespace zelvor {

enum PlayerButton : int {
    kButtonNext = 0,
    kButtonPrevious = 1,
    kButtonStop = 2,
    kButtonPlay = 3,
    kButtonPause = 4,
    kButtonSeekBar = 5,
    kButtonVolumeUp = 6,
    kButtonVolumeDown = 7,
    kButtonRepeatOff = 8,
    kButtonRepeatOne = 9,
    kButtonRepeatAll = 10,
    kButtonRandomOff = 11,
    kButtonRandomOn = 12,
    kButtonLibrary = 13,
    kButtonHide = 14,
    kButtonDisplayOff = 15,
    kButtonMenu = 16,
    kButtonCount = 17,
};

constexpr int kPlayerButtonCount = kButtonCount;

} // namespace zelvor
