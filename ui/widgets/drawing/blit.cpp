#include "ui/widgets/drawing/blit.h"

namespace zelvor {
namespace {

// Copies with the source's pixels replacing the target's, as SRCCOPY does,
// whatever alpha the image carries.
void CopyRect(QPainter& target, const QImage& image, int x, int y, const QRect& source) {
    const QPainter::CompositionMode old = target.compositionMode();
    target.setCompositionMode(QPainter::CompositionMode_Source);
    target.drawImage(QPoint(x, y), image, source);
    target.setCompositionMode(old);
}

} // namespace

void DrawBitmap(QPainter& target, const QImage& bitmap, int x, int y) {
    if (!bitmap.isNull()) {
        CopyRect(target, bitmap, x, y, bitmap.rect());
    }
}

void RestoreBackground(QPainter& target, const QImage& background, int x, int y, int width,
                       int height) {
    if (!background.isNull() && width > 0 && height > 0) {
        CopyRect(target, background, x, y, QRect(x, y, width, height));
    }
}

QImage KeyOutTransparentColour(const QImage& bitmap) {
    QImage keyed = bitmap.convertToFormat(QImage::Format_ARGB32);
    for (int row = 0; row < keyed.height(); ++row) {
        auto* line = reinterpret_cast<QRgb*>(keyed.scanLine(row));
        for (int column = 0; column < keyed.width(); ++column) {
            if ((line[column] | 0xFF000000u) == kTransparentKey) {
                line[column] = 0;
            }
        }
    }
    return keyed;
}

void DrawBitmapTransparent(QPainter& target, const QImage& bitmap, int x, int y) {
    DrawBitmapTransparent(target, bitmap, x, y, bitmap.rect());
}

void DrawBitmapTransparent(QPainter& target, const QImage& bitmap, int x, int y,
                           const QRect& source) {
    const QRect part = source.intersected(bitmap.rect());
    if (bitmap.isNull() || part.isEmpty()) {
        return;
    }
    const QImage keyed = KeyOutTransparentColour(bitmap.copy(part));
    const QPainter::CompositionMode old = target.compositionMode();
    target.setCompositionMode(QPainter::CompositionMode_SourceOver);
    target.drawImage(QPoint(x + part.x() - source.x(), y + part.y() - source.y()), keyed);
    target.setCompositionMode(old);
}

} // namespace zelvor
