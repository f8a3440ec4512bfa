#pragma once
// The player screen's composite elements. Each one first puts back its own
// patch of the background image (the screen's full-size background, from
// which any rectangle can be restored at the same place) and then draws over
// it, so an element can be repainted alone on a timer tick. Positions are
// pixels on the screen; images that failed to load are null and skipped,
// their background patch is still restored.

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QString>
#include <array>

#include "res/bitmap_ids.h"
#include "ui/rules/layout/pixel_geometry.h"

namespace zelvor {

// Digit images 0-9 and the separator (index 10), 18 x 32 each.
using DigitImages = std::array<QImage, kDigitImageCount>;

struct TimeDigits {
    int hours = 0;
    int minutes = 0;
    int seconds = 0;
    bool remaining = false; // showing the time left: the marker precedes the digits
};

// The marker cell one cell left of timeArea, then eight cells of hh:mm:ss.
void DrawTimeDigits(QPainter& target, const QImage& background, PixelPoint timeArea,
                    const TimeDigits& time, const DigitImages& digits,
                    const QImage& remainingMarker);

struct VolumeGaugeImages {
    QImage full;
    QImage empty;
    QImage mute;
};

// Volume index 0-10: the left index * W / 10 pixels of the full image (W its
// width), the rest of the empty image from the same offset; muted, the mute
// image alone.
void DrawVolumeGauge(QPainter& target, const QImage& background, PixelPoint at, int volumeIndex,
                     bool muted, const VolumeGaugeImages& images);

// Black text on the background, one line, centred vertically in `rect`.
void DrawClockText(QPainter& target, const QImage& background, const PixelRect& rect,
                   const QString& text, const QFont& font);

// The battery image for the level (see BatteryBitmapId), which the caller
// loads from the program's own images whatever the skin.
void DrawBatteryGauge(QPainter& target, const QImage& background, PixelPoint at,
                      const QImage& levelImage);

void DrawIndicator(QPainter& target, const QImage& background, PixelPoint at, bool shown,
                   const QImage& indicator);

} // namespace zelvor
