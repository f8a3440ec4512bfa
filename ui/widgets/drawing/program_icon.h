#pragma once
// The program's icon: a rounded tile in a given colour with a white pair of
// notes. One list of shapes is painted (the About box, the panel's title
// bar, the desktop's PNG sizes) and written out as SVG (the desktop's
// scalable size), so every place shows the same icon.

#include <QColor>
#include <QImage>
#include <QString>

namespace zelvor {

// The icon painted at size x size pixels, transparent outside the tile.
QImage PaintProgramIcon(int size, const QColor& tile);

// The icon as an SVG document on a 24 x 24 view box.
QString ProgramIconSvg(const QColor& tile);

} // namespace zelvor
