#pragma once
// The program's icon for desktops: a rounded tile in the program's own accent
// with a white pair of notes. One list of shapes is both painted (the PNG
// sizes of the hicolor theme) and written out as SVG (the scalable size), so
// the two never drift apart.

#include <QImage>
#include <QString>
#include <vector>

namespace zelvor::skin {

// The sizes in pixels the icon theme is given as PNG files.
const std::vector<int>& AppIconSizes();

// The icon painted at size × size pixels, transparent outside the tile.
QImage PaintAppIcon(int size);

// The icon as an SVG document on a 24 × 24 view box.
QString AppIconSvg();

// Writes DIR/hicolor/<n>x<n>/apps/zelvor.png for every size and
// DIR/hicolor/scalable/apps/zelvor.svg. False, with a reason, on a write error.
bool WriteAppIcons(const QString& folder, QString* error);

} // namespace zelvor::skin
