#pragma once
// From the dialogs' templates, laid out in dialog units, to pixels on the
// small screens, without a toolkit.
//
// The device drew its dialogs in Tahoma 8 at 96 dpi: a 5-pixel average
// character and a 13-pixel line, so one horizontal unit (a quarter of the
// character) is 5/4 pixel and one vertical unit (an eighth of the line) is
// 13/8 pixel. With that the largest template (the About box, 175 units) is
// 219 pixels wide and fits a 240-pixel screen with a margin on each side.
// Buttons are then only 23 pixels tall, too small for a finger: each touch
// target is raised to kMinTouchHeight, and the dialog grows by as much.

#include <string>
#include <string_view>

#include "ui/rules/layout/pixel_geometry.h"

namespace zelvor {

constexpr int kMinTouchHeight = 32; // pixels
// The message dialog's text holds 127 characters (128 with the terminator).
constexpr std::size_t kMessageTextLimit = 127;

// A rectangle of a template, in dialog units.
struct DialogRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

// Rounded to the nearest pixel.
int DialogUnitsToPixelsX(int units);
int DialogUnitsToPixelsY(int units);
PixelRect DialogRectToPixels(const DialogRect& rect);

// A button: as converted, made at least kMinTouchHeight tall (growing
// downwards from its top).
PixelRect TouchRect(const DialogRect& rect);

// The pixel size of a template of width x height units whose lowest row
// holds touch targets of buttonHeight units: their growth is added below.
PixelSize DialogPixelSize(int width, int height, int buttonHeight);

// The message text as the dialog keeps it: at most kMessageTextLimit UTF-16
// units, and never half of a surrogate pair at the cut.
std::u16string CutMessageText(std::u16string_view text);

} // namespace zelvor
