#pragma once
// The program's icon for desktops (ui/widgets/drawing/program_icon.h) in the
// program's own accent, written as the hicolor theme's PNG sizes and SVG.

#include <QString>
#include <vector>

namespace zelvor::skin {

// The sizes in pixels the icon theme is given as PNG files.
const std::vector<int>& AppIconSizes();

// Writes DIR/hicolor/<n>x<n>/apps/zelvor.png for every size and
// DIR/hicolor/scalable/apps/zelvor.svg. False, with a reason, on a write error.
bool WriteAppIcons(const QString& folder, QString* error);

} // namespace zelvor::skin
