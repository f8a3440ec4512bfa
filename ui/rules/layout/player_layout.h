#pragma once
// Where everything on the player screen goes, in both orientations: the
// seventeen buttons (index = the button's identity, as the screen's button
// array holds them) with their bitmaps, and the places of the time digits,
// the volume gauge, the clock, the battery, the indicator and the texts.
// Free of any toolkit so that the screen, the skin generator and the tests
// share one table. All places are in pixels from the screen's top-left.
//
// Buttons that share a place (Play and Pause, the three Repeat images, the
// two Random images) are never shown together. Button images are drawn
// transparently (magenta outside their shape), so their rounded corners show
// the background; the sizes here are those of the normal images.

#include <array>
#include <cstdint>
#include <span>

#include "playback/player_button_ids.h"
#include "res/bitmap_ids.h"
#include "ui/rules/layout/pixel_geometry.h"

namespace zelvor {

enum class ScreenOrientation { Portrait, Landscape };

// Portrait when the screen is taller than wide; a square screen is landscape.
constexpr ScreenOrientation OrientationOf(int screenWidth, int screenHeight) {
    return screenHeight > screenWidth ? ScreenOrientation::Portrait : ScreenOrientation::Landscape;
}


struct PlayerButtonPlace {
    BitmapId normal = 0;
    BitmapId pressed = 0;
    BitmapId third = 0; // greyed-out image, 0 when the button has none
    PixelPoint position;
    PixelSize size; // of every image of the button
};

// Fixed sizes of the composite elements, in pixels.
constexpr PixelSize kDigitCellSize{18, 32};
constexpr int kTimeDigitCells = 8; // hh:mm:ss, the separators included
constexpr PixelSize kVolumeGaugeSize{38, 10};
constexpr PixelSize kBatterySize{28, 14};
constexpr PixelSize kIndicatorSize{20, 20};
constexpr PixelSize kSeekThumbSize{22, 26};
constexpr PixelSize kTitleEmblemSize{16, 16};

struct PlayerLayout {
    ScreenOrientation orientation;
    PixelSize screen;
    BitmapId background;
    std::array<PlayerButtonPlace, kPlayerButtonCount> buttons;
    PixelPoint timeArea;    // left-top of the first digit cell; the marker sits one cell left
    PixelPoint volumeGauge; // left-top of the 38 x 10 gauge
    PixelRect clock;        // the clock text, centred vertically
    PixelPoint battery;
    PixelPoint indicator;
    PixelPoint titleEmblem;
    PixelRect title;   // the scrolling title text
    PixelRect counter; // "n/m", right-aligned
};

const PlayerLayout& PlayerLayoutFor(ScreenOrientation orientation);

PixelRect ButtonRect(const PlayerButtonPlace& button);
// The remaining-time marker's cell followed by the eight digit cells.
PixelRect TimeRect(const PlayerLayout& layout);
PixelRect VolumeGaugeRect(const PlayerLayout& layout);
PixelRect BatteryRect(const PlayerLayout& layout);
PixelRect IndicatorRect(const PlayerLayout& layout);
PixelRect TitleEmblemRect(const PlayerLayout& layout);

// The buttons that take turns at one place; every other button is alone.
// Returns the first button of the group a button belongs to.
PlayerButton PlaceGroupOf(PlayerButton button);

} // namespace zelvor
