#pragma once
// The xset program of an X11 display: the one host tool through which the
// player can nudge the screen saver and switch the display off. Used only
// when the application really draws on X11 (Qt's "xcb" platform): under
// Wayland's X server, on a frame buffer or offscreen, xset would reach no
// display of ours.

#include <QString>
#include <QStringList>

namespace zelvor {

// The path of xset, or empty when this is not an X11 session or xset is
// not installed.
QString FindXsetForDisplay();

// Starts xset with the arguments and does not wait for it: a display
// action never holds up the player. False when it could not be started.
bool RunXset(const QString& xset, const QStringList& arguments);

} // namespace zelvor
