#include "ui/widgets/drawing/player_elements.h"

#include "ui/widgets/drawing/blit.h"
#include "ui/rules/drawing/element_math.h"
#include "ui/rules/layout/player_layout.h"

namespace zelvor {

void DrawTimeDigits(QPainter& target, const QImage& background, PixelPoint timeArea,
                    const TimeDigits& time, const DigitImages& digits,
                    const QImage& remainingMarker) {
    const int cellWidth = kDigitCellSize.width;
    const int cellHeight = kDigitCellSize.height;
    const int markerLeft = timeArea.x - cellWidth;
    // The marker goes over whatever the cell shows: its pixels are either
    // opaque or keyed out, so drawing it again over itself changes nothing.
    if (time.remaining) {
        DrawBitmapTransparent(target, remainingMarker, markerLeft, timeArea.y);
    } else {
        RestoreBackground(target, background, markerLeft, timeArea.y, cellWidth, cellHeight);
    }
    const auto cells = TimeDigitCells(time.hours, time.minutes, time.seconds);
    for (int cell = 0; cell < kTimeDigitCells; ++cell) {
        const QImage& digit = digits[static_cast<std::size_t>(cells[static_cast<std::size_t>(cell)])];
        if (digit.isNull()) {
            continue;
        }
        const int left = DigitCellLeft(timeArea.x, cell);
        RestoreBackground(target, background, left, timeArea.y, cellWidth, cellHeight);
        DrawBitmapTransparent(target, digit, left, timeArea.y);
    }
}

void DrawVolumeGauge(QPainter& target, const QImage& background, PixelPoint at, int volumeIndex,
                     bool muted, const VolumeGaugeImages& images) {
    RestoreBackground(target, background, at.x, at.y, kVolumeGaugeSize.width,
                      kVolumeGaugeSize.height);
    if (muted) {
        DrawBitmapTransparent(target, images.mute, at.x, at.y);
        return;
    }
    const int width = images.full.width();
    const int filled = VolumeFilledWidth(volumeIndex, width);
    if (filled > 0) {
        DrawBitmapTransparent(target, images.full, at.x, at.y,
                              QRect(0, 0, filled, images.full.height()));
    }
    if (width - filled > 0) {
        DrawBitmapTransparent(target, images.empty, at.x + filled, at.y,
                              QRect(filled, 0, width - filled, images.empty.height()));
    }
}

void DrawClockText(QPainter& target, const QImage& background, const PixelRect& rect,
                   const QString& text, const QFont& font) {
    RestoreBackground(target, background, rect.left, rect.top, rect.Width(), rect.Height());
    target.save();
    target.setFont(font);
    target.setPen(Qt::black);
    target.setBackgroundMode(Qt::TransparentMode);
    target.drawText(QRect(rect.left, rect.top, rect.Width(), rect.Height()),
                    Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    target.restore();
}

void DrawBatteryGauge(QPainter& target, const QImage& background, PixelPoint at,
                      const QImage& levelImage) {
    RestoreBackground(target, background, at.x, at.y, kBatterySize.width, kBatterySize.height);
    DrawBitmapTransparent(target, levelImage, at.x, at.y);
}

void DrawIndicator(QPainter& target, const QImage& background, PixelPoint at, bool shown,
                   const QImage& indicator) {
    RestoreBackground(target, background, at.x, at.y, kIndicatorSize.width,
                      kIndicatorSize.height);
    if (shown) {
        DrawBitmapTransparent(target, indicator, at.x, at.y);
    }
}

} // namespace zelvor
