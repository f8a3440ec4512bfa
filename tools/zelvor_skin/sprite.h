#pragma once
// Turning antialiased drawings into skin bitmaps. Art is painted on a clear
// ARGB canvas; Flatten composes it over the picture it will sit on (its
// "matte": the background under its place on the screen) and keys every
// pixel the art does not touch to magenta. Soft edges are thus blended with
// the right colours already, and no pink fringe appears when the screen
// leaves the magenta out.

#include <QImage>
#include <QPainter>

namespace zelvor::skin {

// A clear canvas of the given size.
QImage Canvas(int width, int height);

// A painter on the canvas with antialiasing on.
void BeginArt(QPainter& painter, QImage& canvas);

// The art composed over the matte (same size, or a flat colour); pixels the
// art leaves clear become magenta. An opaque result where keyOut is false.
QImage Flatten(const QImage& art, const QImage& matte, bool keyOut = true);
QImage Flatten(const QImage& art, const QColor& matte, bool keyOut = true);

// A keyed image shown over `under` (same size): what the screen will show.
QImage ShowOver(const QImage& keyed, const QImage& under);

// The part of an image at (x, y), width x height.
QImage Crop(const QImage& image, int x, int y, int width, int height);

} // namespace zelvor::skin
