#include "ui/rules/layout/player_layout.h"

namespace zelvor {
namespace {

// Transport buttons are round, 48 pixels across in both orientations; the
// row of mode buttons is 40 high; the three system buttons are 32 square so
// they fit the landscape screen's narrow margins.
constexpr PixelSize kTransport{48, 48};
constexpr PixelSize kPortraitMode{40, 40};
constexpr PixelSize kLandscapeMode{44, 40};
constexpr PixelSize kSystem{32, 32};
// The portrait bar ends where the volume gauge below it begins, which leaves
// it 26 pixels of touch height; the landscape bar has room for 32. The thumb
// (22 wide) travels 166 and 212 pixels.
constexpr PixelSize kPortraitSeekBar{188, 26};
constexpr PixelSize kLandscapeSeekBar{234, 32};

constexpr PlayerLayout kPortrait{
    ScreenOrientation::Portrait,
    {240, 320},
    kBmpPortraitBackground,
    {{
        {kBmpPortraitNext, kBmpPortraitNextPressed, kBmpPortraitNextDisabled, {178, 251}, kTransport},
        {kBmpPortraitPrevious, kBmpPortraitPreviousPressed, kBmpPortraitPreviousDisabled, {13, 251},
         kTransport},
        {kBmpPortraitStop, kBmpPortraitStopPressed, kBmpPortraitStopDisabled, {122, 251}, kTransport},
        {kBmpPortraitPlay, kBmpPortraitPlayPressed, kBmpPortraitPlayDisabled, {68, 251}, kTransport},
        {kBmpPortraitPause, kBmpPortraitPausePressed, 0, {68, 251}, kTransport},
        {kBmpPortraitSeekBar, kBmpPortraitSeekBarPressed, 0, {26, 58}, kPortraitSeekBar},
        {kBmpPortraitVolumeUp, kBmpPortraitVolumeUpPressed, 0, {53, 197}, kPortraitMode},
        {kBmpPortraitVolumeDown, kBmpPortraitVolumeDownPressed, 0, {8, 197}, kPortraitMode},
        {kBmpPortraitRepeatOff, kBmpPortraitRepeatOffPressed, 0, {145, 197}, kPortraitMode},
        {kBmpPortraitRepeatOne, kBmpPortraitRepeatOnePressed, 0, {145, 197}, kPortraitMode},
        {kBmpPortraitRepeatAll, kBmpPortraitRepeatAllPressed, 0, {145, 197}, kPortraitMode},
        {kBmpPortraitRandomOff, kBmpPortraitRandomOffPressed, 0, {101, 197}, kPortraitMode},
        {kBmpPortraitRandomOn, kBmpPortraitRandomOnPressed, 0, {101, 197}, kPortraitMode},
        {kBmpPortraitLibrary, kBmpPortraitLibraryPressed, 0, {191, 197}, kPortraitMode},
        {kBmpHide, kBmpHidePressed, 0, {160, 6}, kSystem},
        {kBmpDisplayOff, kBmpDisplayOffPressed, 0, {202, 6}, kSystem},
        {kBmpMenu, kBmpMenuPressed, 0, {6, 6}, kSystem},
    }},
    {60, 112},
    {48, 84},
    {44, 6, 100, 38},
    {128, 15},
    {104, 12},
    {14, 153},
    {34, 150, 228, 174},
    {120, 84, 214, 98},
};

constexpr PlayerLayout kLandscape{
    ScreenOrientation::Landscape,
    {320, 240},
    kBmpLandscapeBackground,
    {{
        {kBmpLandscapeNext, kBmpLandscapeNextPressed, kBmpLandscapeNextDisabled, {216, 180},
         kTransport},
        {kBmpLandscapePrevious, kBmpLandscapePreviousPressed, kBmpLandscapePreviousDisabled,
         {51, 180}, kTransport},
        {kBmpLandscapeStop, kBmpLandscapeStopPressed, kBmpLandscapeStopDisabled, {160, 180},
         kTransport},
        {kBmpLandscapePlay, kBmpLandscapePlayPressed, kBmpLandscapePlayDisabled, {106, 180},
         kTransport},
        {kBmpLandscapePause, kBmpLandscapePausePressed, 0, {106, 180}, kTransport},
        {kBmpLandscapeSeekBar, kBmpLandscapeSeekBarPressed, 0, {43, 26}, kLandscapeSeekBar},
        {kBmpLandscapeVolumeUp, kBmpLandscapeVolumeUpPressed, 0, {72, 130}, kLandscapeMode},
        {kBmpLandscapeVolumeDown, kBmpLandscapeVolumeDownPressed, 0, {20, 130}, kLandscapeMode},
        {kBmpLandscapeRepeatOff, kBmpLandscapeRepeatOffPressed, 0, {184, 130}, kLandscapeMode},
        {kBmpLandscapeRepeatOne, kBmpLandscapeRepeatOnePressed, 0, {184, 130}, kLandscapeMode},
        {kBmpLandscapeRepeatAll, kBmpLandscapeRepeatAllPressed, 0, {184, 130}, kLandscapeMode},
        {kBmpLandscapeRandomOff, kBmpLandscapeRandomOffPressed, 0, {132, 130}, kLandscapeMode},
        {kBmpLandscapeRandomOn, kBmpLandscapeRandomOnPressed, 0, {132, 130}, kLandscapeMode},
        {kBmpLandscapeLibrary, kBmpLandscapeLibraryPressed, 0, {244, 130}, kLandscapeMode},
        {kBmpHide, kBmpHidePressed, 0, {250, 64}, kSystem},
        {kBmpDisplayOff, kBmpDisplayOffPressed, 0, {284, 64}, kSystem},
        {kBmpMenu, kBmpMenuPressed, 0, {6, 64}, kSystem},
    }},
    {98, 72},
    {52, 58},
    {10, 0, 70, 24},
    {284, 5},
    {256, 2},
    {14, 108},
    {34, 104, 306, 126},
    {180, 0, 250, 24},
};

} // namespace

const PlayerLayout& PlayerLayoutFor(ScreenOrientation orientation) {
    return orientation == ScreenOrientation::Portrait ? kPortrait : kLandscape;
}

PixelRect ButtonRect(const PlayerButtonPlace& button) {
    return PixelRect::At(button.position, button.size);
}

PixelRect TimeRect(const PlayerLayout& layout) {
    return {layout.timeArea.x - kDigitCellSize.width, layout.timeArea.y,
            layout.timeArea.x + kTimeDigitCells * kDigitCellSize.width,
            layout.timeArea.y + kDigitCellSize.height};
}

PixelRect VolumeGaugeRect(const PlayerLayout& layout) {
    return PixelRect::At(layout.volumeGauge, kVolumeGaugeSize);
}

PixelRect BatteryRect(const PlayerLayout& layout) {
    return PixelRect::At(layout.battery, kBatterySize);
}

PixelRect IndicatorRect(const PlayerLayout& layout) {
    return PixelRect::At(layout.indicator, kIndicatorSize);
}

PixelRect TitleEmblemRect(const PlayerLayout& layout) {
    return PixelRect::At(layout.titleEmblem, kTitleEmblemSize);
}

PlayerButton PlaceGroupOf(PlayerButton button) {
    switch (button) {
    case kButtonPause:
        return kButtonPlay;
    case kButtonRepeatOne:
    case kButtonRepeatAll:
        return kButtonRepeatOff;
    case kButtonRandomOn:
        return kButtonRandomOff;
    default:
        return button;
    }
}

} // namespace zelvor
