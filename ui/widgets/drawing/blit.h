#pragma once
// The three blit primitives every screen paints with. They draw into the
// painter's device, which is the screen's off-screen image: a screen paints
// its background and each element there and copies the result to the window
// once. A null bitmap (one that failed to load) draws nothing. Coordinates
// are pixels in the target.

#include <QImage>
#include <QPainter>
#include <QRect>

namespace zelvor {

// The transparent key of the skin's images.
constexpr QRgb kTransparentKey = 0xFFFF00FF; // RGB(255, 0, 255)

// The whole bitmap at (x, y), pixels copied as they are.
void DrawBitmap(QPainter& target, const QImage& bitmap, int x, int y);

// The width x height patch of `background` at (x, y) put back at (x, y):
// erases an element before it is drawn again.
void RestoreBackground(QPainter& target, const QImage& background, int x, int y, int width,
                       int height);

// The whole bitmap at (x, y), leaving out every magenta pixel.
void DrawBitmapTransparent(QPainter& target, const QImage& bitmap, int x, int y);
// Only the `source` part of the bitmap, its top-left at (x, y).
void DrawBitmapTransparent(QPainter& target, const QImage& bitmap, int x, int y,
                           const QRect& source);

// A copy with an alpha channel in which the magenta pixels are clear.
QImage KeyOutTransparentColour(const QImage& bitmap);

} // namespace zelvor
