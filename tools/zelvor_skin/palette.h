#pragma once
// The five colour schemes of the skin. Colour 0 is the program's own set;
// 1 to 4 are the Blue, Red, Orange and Green bundles. Every scheme shares the
// neutral greys and differs in its accent, from which the tints are mixed.

#include <QColor>
#include <QString>

namespace zelvor::skin {

constexpr int kSkinColourCount = 5;

struct Palette {
    QString name;       // "Indigo", "Blue", ...
    QString moduleName; // "" for the program's own set, else e.g. "ZelvorBlue"
    QColor accent;      // filled buttons, active modes, the thumb
    QColor accentDeep;  // pressed filled buttons
    QColor accentSoft;  // pressed and active tiles
    QColor accentWash;  // the screens' backdrop
    QColor chrome;      // bars behind the image buttons
    QColor surface;     // cards and bars
    QColor ink;         // digits, primary icons
    QColor inkSoft;     // secondary icons
    QColor line;        // hairlines, empty tracks
    QColor disabled;    // greyed-out icons
};

// colour 0-4; anything else gives colour 0.
Palette PaletteFor(int colour);

// a over b by `amount` (0 = b, 1 = a).
QColor Mix(const QColor& a, const QColor& b, double amount);

} // namespace zelvor::skin
