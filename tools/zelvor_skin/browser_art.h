#pragma once
// The browser screen's and the play list panel's backgrounds and buttons.

#include "palette.h"
#include "skin_set.h"

namespace zelvor::skin {

void AddBrowserArt(SkinImages& images, const Palette& palette);

} // namespace zelvor::skin
