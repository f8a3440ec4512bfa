#pragma once
// Where things are on the player screen once its images are loaded: the
// buttons' hit rectangles (a button's place and the size of its normal
// image), the seek thumb, and the areas each element repaints. Pixels from
// the screen's top-left. Free of any toolkit so that tests check hits and
// repaint areas without a window.

#include <array>
#include <optional>

#include "playback/player_buttons.h"
#include "playback/seek_bar.h"
#include "ui/rules/layout/pixel_geometry.h"
#include "ui/rules/layout/player_layout.h"

namespace zelvor {

struct ScreenGeometry {
    const PlayerLayout* layout = nullptr; // static storage
    // Empty for a button whose normal image did not load: it is neither
    // drawn nor hit.
    std::array<PixelRect, kPlayerButtonCount> buttons{};
    PixelSize thumb; // the thumb image's size
};

// The geometry for a layout and the sizes of the loaded images (a null
// image has size 0 x 0).
ScreenGeometry MakeScreenGeometry(const PlayerLayout& layout,
                                  const std::array<PixelSize, kPlayerButtonCount>& normalImages,
                                  PixelSize thumbImage);

// The first button, in index order, that is not hidden (display state 2)
// and whose rectangle holds the point; nullopt when none does.
std::optional<int> ButtonAt(const ScreenGeometry& geometry, const PlayerButtons& buttons,
                            PixelPoint point);

// The thumb drawn at its left edge on the seek bar's top.
PixelRect ThumbRect(const ScreenGeometry& geometry, const SeekBar& bar);

// The elements a repaint is asked for, each with its own area.
enum class ScreenElement {
    SeekBar,         // the bar and the whole travel of the thumb
    TimeDigits,      // the eight digit cells
    RemainingMarker, // the cell left of the digits
    Volume,
    Clock,
    Battery,
    Indicator,
    Title,
    Counter,
};

PixelRect ElementArea(const ScreenGeometry& geometry, ScreenElement element);
// A button's place, or its image where that is larger.
PixelRect ButtonArea(const ScreenGeometry& geometry, int button);

// The smallest rectangle holding both (either may be empty).
PixelRect Union(const PixelRect& a, const PixelRect& b);

} // namespace zelvor
