#pragma once
// Paints the player screen, or the part of it that a repaint asked for, into
// the screen's off-screen image. The dirty area's background is put back
// first and every element that meets it is drawn over it, so a tick of the
// position timer redraws only the thumb and the digits; the widget then
// copies the image to the window in one go.

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QRect>
#include <QString>

#include "playback/player_buttons.h"
#include "ui/widgets/drawing/player_elements.h"
#include "ui/widgets/player_screen/player_screen_images.h"
#include "ui/rules/player_screen/screen_geometry.h"

namespace zelvor {

struct ScreenFonts {
    QFont text;    // the title and the clock
    QFont counter; // "n/m"
};

// The screen's fonts: DejaVu Sans stands in for the device's bold UI font
// of 13 pixels.
ScreenFonts DefaultScreenFonts();

// Everything that is shown, at the moment of painting. The references must
// live for the call.
struct PlayerScreenScene {
    const PlayerScreenImages& images;
    const ScreenGeometry& geometry;
    const PlayerButtons& buttons;
    const ScreenFonts& fonts;
    int thumbX = 0;
    bool thumbDragged = false;
    TimeDigits time;
    int volumeIndex = 0;
    bool muted = false;
    QString clock;
    int batteryLevel = 100;
    bool indicator = false;
    QString title; // as shown: already scrolled
    QString counter;
};

// The image each display state draws for a button, or null for none: the
// normal image (state 0), the pressed one (1, the normal image when it has
// none), and for state 2 the greyed-out image, but only while no other
// button of its place shows (Play greyed out, not under Pause).
const QImage* ButtonImageFor(const PlayerScreenScene& scene, int button);

void PaintPlayerScreen(QPainter& target, const PlayerScreenScene& scene, const QRect& dirty);

} // namespace zelvor
