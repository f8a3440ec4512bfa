#pragma once
// Every skin bitmap's resource number, defined once. The program's own
// images and the four colour bundles hold the same numbers, so a screen asks
// for an image by number whichever skin is active.
//
// Numbers 14xx belong to the landscape player screen, 15xx to the portrait
// one; the rest are shared. Sizes are in pixels; the layouts in ui/rules/layout/
// place them. Magenta RGB(255, 0, 255) marks the transparent pixels of the
// images that are drawn transparently.
//
// The player's buttons have a normal, a pressed and for the four transport
// buttons a third, greyed-out image shown while the button cannot act.

#include <cstdint>

namespace zelvor {

using BitmapId = std::uint16_t;

// Player screen, portrait (240 x 320 background).
constexpr BitmapId kBmpPortraitBackground = 1532;
constexpr BitmapId kBmpPortraitNext = 1501;
constexpr BitmapId kBmpPortraitNextPressed = 1502;
constexpr BitmapId kBmpPortraitNextDisabled = 1503;
constexpr BitmapId kBmpPortraitPrevious = 1505;
constexpr BitmapId kBmpPortraitPreviousPressed = 1506;
constexpr BitmapId kBmpPortraitPreviousDisabled = 1507;
constexpr BitmapId kBmpPortraitSeekBar = 1513;
constexpr BitmapId kBmpPortraitSeekBarPressed = 1515;
constexpr BitmapId kBmpPortraitStop = 1517;
constexpr BitmapId kBmpPortraitStopPressed = 1518;
constexpr BitmapId kBmpPortraitStopDisabled = 1519;
constexpr BitmapId kBmpPortraitPause = 1523;
constexpr BitmapId kBmpPortraitPausePressed = 1524;
constexpr BitmapId kBmpPortraitPlay = 1526;
constexpr BitmapId kBmpPortraitPlayPressed = 1527;
constexpr BitmapId kBmpPortraitPlayDisabled = 1528;
constexpr BitmapId kBmpPortraitVolumeUp = 1533;
constexpr BitmapId kBmpPortraitVolumeUpPressed = 1534;
constexpr BitmapId kBmpPortraitVolumeDown = 1535;
constexpr BitmapId kBmpPortraitVolumeDownPressed = 1536;
constexpr BitmapId kBmpPortraitRepeatOff = 1537;
constexpr BitmapId kBmpPortraitRepeatOffPressed = 1538;
constexpr BitmapId kBmpPortraitRepeatAll = 1539;
constexpr BitmapId kBmpPortraitRepeatAllPressed = 1540;
constexpr BitmapId kBmpPortraitRandomOff = 1541;
constexpr BitmapId kBmpPortraitRandomOffPressed = 1542;
constexpr BitmapId kBmpPortraitRandomOn = 1543;
constexpr BitmapId kBmpPortraitRandomOnPressed = 1544;
constexpr BitmapId kBmpPortraitLibrary = 1545;
constexpr BitmapId kBmpPortraitLibraryPressed = 1546;
constexpr BitmapId kBmpPortraitRepeatOne = 1553;
constexpr BitmapId kBmpPortraitRepeatOnePressed = 1554;

// Player screen, landscape (320 x 240 background).
constexpr BitmapId kBmpLandscapeBackground = 1432;
constexpr BitmapId kBmpLandscapeNext = 1401;
constexpr BitmapId kBmpLandscapeNextPressed = 1402;
constexpr BitmapId kBmpLandscapeNextDisabled = 1403;
constexpr BitmapId kBmpLandscapePrevious = 1405;
constexpr BitmapId kBmpLandscapePreviousPressed = 1406;
constexpr BitmapId kBmpLandscapePreviousDisabled = 1407;
constexpr BitmapId kBmpLandscapeSeekBar = 1413;
constexpr BitmapId kBmpLandscapeSeekBarPressed = 1415;
constexpr BitmapId kBmpLandscapeStop = 1417;
constexpr BitmapId kBmpLandscapeStopPressed = 1418;
constexpr BitmapId kBmpLandscapeStopDisabled = 1419;
constexpr BitmapId kBmpLandscapePause = 1423;
constexpr BitmapId kBmpLandscapePausePressed = 1424;
constexpr BitmapId kBmpLandscapePlay = 1426;
constexpr BitmapId kBmpLandscapePlayPressed = 1427;
constexpr BitmapId kBmpLandscapePlayDisabled = 1428;
constexpr BitmapId kBmpLandscapeVolumeUp = 1435;
constexpr BitmapId kBmpLandscapeVolumeUpPressed = 1436;
constexpr BitmapId kBmpLandscapeVolumeDown = 1437;
constexpr BitmapId kBmpLandscapeVolumeDownPressed = 1438;
constexpr BitmapId kBmpLandscapeRepeatOff = 1441;
constexpr BitmapId kBmpLandscapeRepeatOffPressed = 1442;
constexpr BitmapId kBmpLandscapeRepeatAll = 1443;
constexpr BitmapId kBmpLandscapeRepeatAllPressed = 1444;
constexpr BitmapId kBmpLandscapeRandomOff = 1445;
constexpr BitmapId kBmpLandscapeRandomOffPressed = 1446;
constexpr BitmapId kBmpLandscapeRandomOn = 1447;
constexpr BitmapId kBmpLandscapeRandomOnPressed = 1448;
constexpr BitmapId kBmpLandscapeLibrary = 1449;
constexpr BitmapId kBmpLandscapeLibraryPressed = 1450;
constexpr BitmapId kBmpLandscapeRepeatOne = 1551;
constexpr BitmapId kBmpLandscapeRepeatOnePressed = 1552;

// Player screen, both orientations.
constexpr BitmapId kBmpSeekThumb = 1430;        // 22 x 26, transparent
constexpr BitmapId kBmpSeekThumbPressed = 1431; // 22 x 26, transparent
constexpr BitmapId kBmpMenu = 1433;             // 32 x 32
constexpr BitmapId kBmpMenuPressed = 1434;
constexpr BitmapId kBmpHide = 1561; // 32 x 32
constexpr BitmapId kBmpHidePressed = 1562;
constexpr BitmapId kBmpDisplayOff = 2028; // 32 x 32
constexpr BitmapId kBmpDisplayOffPressed = 2029;
constexpr BitmapId kBmpVolumeGaugeFull = 1462;  // 38 x 10, transparent
constexpr BitmapId kBmpVolumeGaugeEmpty = 1463; // 38 x 10, transparent
constexpr BitmapId kBmpVolumeGaugeMute = 1559;  // 38 x 10, transparent
constexpr BitmapId kBmpRemainingTimeMarker = 1560; // 18 x 32, transparent
constexpr BitmapId kBmpTitleEmblem = 1565;         // 16 x 16, transparent, before the title
constexpr BitmapId kBmpIndicator = 2027;           // 20 x 20, transparent
// Battery gauge, 28 x 14, transparent: levels 0 to 5, charging or unknown
// (level 100), and no battery (level -1).
constexpr BitmapId kBmpBatteryLevel0 = 1566;
constexpr BitmapId kBmpBatteryLevel5 = 1571;
constexpr BitmapId kBmpBatteryCharging = 1572;
constexpr BitmapId kBmpBatteryNone = 2030;
// Time digits, 18 x 32, transparent: 0 to 9 in order, then the separator.
constexpr BitmapId kBmpDigit0 = 1580;
constexpr BitmapId kBmpDigitSeparator = 1590;
constexpr int kDigitImageCount = 11;

// Browser screen.
constexpr BitmapId kBmpBrowserPortraitBackground = 1548;  // 240 x 320
constexpr BitmapId kBmpBrowserLandscapeBackground = 1477; // 320 x 240
constexpr BitmapId kBmpBrowserUp = 1549;                  // 33 x 37, like every button below
constexpr BitmapId kBmpBrowserUpPressed = 1550;
constexpr BitmapId kBmpBrowserUpdate = 1563;
constexpr BitmapId kBmpBrowserUpdatePressed = 1564;
constexpr BitmapId kBmpBrowserPlay = 1573;
constexpr BitmapId kBmpBrowserPlayPressed = 1574;
// Shared by the browser and the play list panel.
constexpr BitmapId kBmpDeleteSongs = 1473;
constexpr BitmapId kBmpDeleteSongsPressed = 1474;
constexpr BitmapId kBmpFavourites = 1475;
constexpr BitmapId kBmpFavouritesPressed = 1476;

// Play list panel.
constexpr BitmapId kBmpPanelBackground = 1468; // 320 x 320: covers the pane in either orientation
constexpr BitmapId kBmpPanelHandOn = 1469;
constexpr BitmapId kBmpPanelHandOnPressed = 1470;
constexpr BitmapId kBmpPanelClear = 1471;
constexpr BitmapId kBmpPanelClearPressed = 1472;

} // namespace zelvor
