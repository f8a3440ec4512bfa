#pragma once
// The player's small transparent images: seek thumb, time digits and the
// remaining-time marker, volume gauge, battery, indicator and title emblem.
// They are blended over the portrait background at their places (all of
// which are white in both orientations) and the thumb over the seek bar.

#include <QImage>

#include "palette.h"
#include "skin_set.h"

namespace zelvor::skin {

void AddPlayerSprites(SkinImages& images, const Palette& palette,
                      const QImage& portraitBackground, const QImage& portraitSeekBar);

} // namespace zelvor::skin
