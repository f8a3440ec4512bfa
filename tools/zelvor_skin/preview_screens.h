#pragma once
// Mock-ups of the screens made from a skin's bitmaps, with sample texts.

#include <QImage>

#include "skin_set.h"
#include "ui/rules/layout/player_layout.h"

namespace zelvor::skin {

// `busy` shows the other states: pressed buttons, Pause, a greyed-out Next,
// remaining time, mute, charging and the indicator.
QImage PlayerMockup(const SkinImages& images, ScreenOrientation orientation, bool busy);
QImage BrowserMockup(const SkinImages& images, ScreenOrientation orientation);
// The panel in a landscape pane, where its list fits.
QImage PanelMockup(const SkinImages& images);

} // namespace zelvor::skin
