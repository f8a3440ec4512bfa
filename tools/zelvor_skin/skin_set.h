#pragma once
// A whole skin: every bitmap of the catalogue drawn in one palette, and the
// files it is shipped as (one PNG per bitmap, named by number, listed in a
// Qt resource collection for rcc).

#include <QImage>
#include <QString>
#include <map>

#include "res/bitmap_ids.h"

namespace zelvor::skin {

using SkinImages = std::map<BitmapId, QImage>;

// Every bitmap of the catalogue in colour 0-4.
SkinImages RenderSkinSet(int colour);

// Writes <id>.png for every image and `qrcName` listing them under `prefix`
// into `folder` (made when missing). False, with a reason, when a file
// cannot be written.
bool WriteSkinSet(const SkinImages& images, const QString& folder, const QString& qrcName,
                  const QString& prefix, QString* error);

} // namespace zelvor::skin
