#pragma once
// Painting text needs a GUI application (for the font database); the tests
// make one on the offscreen platform, once, for the whole test program.
// Painted: a copy of `target` after `draw` painted on it.

#include <QImage>
#include <QPainter>

namespace zelvor::testing {

void EnsureGuiApplication();

template <typename Draw>
QImage Painted(QImage target, Draw draw) {
    QPainter painter(&target);
    draw(painter);
    painter.end();
    return target;
}

} // namespace zelvor::testing
