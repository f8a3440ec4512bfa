#pragma once
// Places of the browser screen's list and five image buttons, and of the play
// list panel's list and four buttons, in pixels. Image buttons are copied
// opaquely, so their images carry their own background: the colour of the
// bar they sit on, which is the same in both orientations and on the panel.

#include <array>
#include <cstdint>

#include "res/bitmap_ids.h"
#include "ui/rules/layout/pixel_geometry.h"
#include "ui/rules/layout/player_layout.h"

namespace zelvor {

constexpr PixelSize kImageButtonSize{33, 37};

struct ImageButtonPlace {
    int command = 0; // control id and command number
    BitmapId normal = 0;
    BitmapId pressed = 0;
    PixelRect rect;
};

enum BrowserButton : int {
    kBrowserUp = 0,
    kBrowserUpdate = 1,
    kBrowserFavourites = 2, // add to and delete from the favourites share this place
    kBrowserDeleteFavourite = 3,
    kBrowserPlay = 4,
};
constexpr int kBrowserButtonCount = 5;

struct BrowserLayout {
    PixelSize screen;
    BitmapId background;
    PixelRect list;
    std::array<ImageButtonPlace, kBrowserButtonCount> buttons;
    // From one pixel below the list to the screen's bottom, list's left to right.
    PixelRect status;
};

BrowserLayout BrowserLayoutFor(ScreenOrientation orientation);

constexpr int kPanelButtonCount = 4;

struct PanelLayout {
    PixelSize background; // the bitmap covers a pane of either orientation
    PixelRect list;
    // Hand on (1002), clear (1003), delete selected (1004), leave (1005),
    // side by side in the panel's top bar so that a portrait pane shows them.
    std::array<ImageButtonPlace, kPanelButtonCount> buttons;
};

const PanelLayout& PlayListPanelLayout();

} // namespace zelvor
