#pragma once
// Every image the player screen draws, loaded for one layout: from the
// active skin module, except the battery gauge, which always comes from the
// program's own images. Loaded again (the old ones dropped) whenever the
// layout is rebuilt. A bitmap that fails to load stays null: its element is
// not drawn, and a button without its normal image cannot be hit.

#include <QImage>
#include <array>

#include "ui/widgets/drawing/player_elements.h"
#include "ui/rules/layout/player_layout.h"
#include "ui/rules/player_screen/screen_geometry.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {

struct ButtonImages {
    QImage normal;
    QImage pressed;
    QImage third; // the greyed-out image, null where the button has none
};

// Battery images by level: 0-5, then charging or unknown (100), then none
// (-1).
constexpr int kBatteryImageCount = 8;

struct PlayerScreenImages {
    QImage background;
    std::array<ButtonImages, kPlayerButtonCount> buttons;
    QImage thumb;
    QImage thumbPressed;
    DigitImages digits;
    VolumeGaugeImages gauge;
    QImage remainingMarker;
    QImage titleEmblem;
    QImage indicator;
    std::array<QImage, kBatteryImageCount> battery;

    // The image for a battery level; a null image for a level with none.
    const QImage& BatteryImage(int level) const;
};

PlayerScreenImages LoadPlayerScreenImages(const SkinHandle& skin, const PlayerLayout& layout);

// The hit rectangles and sizes the loaded images give the layout.
ScreenGeometry GeometryOf(const PlayerLayout& layout, const PlayerScreenImages& images);

} // namespace zelvor
