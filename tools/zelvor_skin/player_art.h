#pragma once
// The player screen's bitmaps: both backgrounds, every button image, the
// seek thumb, the digits and the small gauges.

#include "palette.h"
#include "skin_set.h"

namespace zelvor::skin {

void AddPlayerArt(SkinImages& images, const Palette& palette);

} // namespace zelvor::skin
