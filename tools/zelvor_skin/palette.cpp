#include "palette.h"

#include <array>

namespace zelvor::skin {
namespace {

struct Scheme {
    const char* name;
    const char* module;
    QRgb accent;
};

constexpr std::array<Scheme, kSkinColourCount> kSchemes = {{
    {"Indigo", "", 0x4A55C9},
    {"Blue", "ZelvorBlue", 0x1F74D4},
    {"Red", "ZelvorRed", 0xD2343F},
    {"Orange", "ZelvorOrange", 0xEA7414},
    {"Green", "ZelvorGreen", 0x23955A},
}};

} // namespace

QColor Mix(const QColor& a, const QColor& b, double amount) {
    const auto channel = [amount](int x, int y) {
        return static_cast<int>(x * amount + y * (1.0 - amount) + 0.5);
    };
    return QColor(channel(a.red(), b.red()), channel(a.green(), b.green()),
                  channel(a.blue(), b.blue()));
}

Palette PaletteFor(int colour) {
    const Scheme& s = kSchemes[colour >= 0 && colour < kSkinColourCount ? colour : 0];
    const QColor accent(s.accent);
    const QColor white(Qt::white);
    const QColor ink(0x1D, 0x22, 0x2B);
    Palette p;
    p.name = QString::fromLatin1(s.name);
    p.moduleName = QString::fromLatin1(s.module);
    p.accent = accent;
    p.accentDeep = Mix(accent, ink, 0.72);
    p.accentSoft = Mix(accent, white, 0.16);
    p.accentWash = Mix(accent, QColor(0xF3, 0xF4, 0xF6), 0.07);
    p.chrome = accent;
    p.surface = white;
    p.ink = ink;
    p.inkSoft = QColor(0x5F, 0x68, 0x76);
    p.line = QColor(0xDC, 0xE0, 0xE6);
    p.disabled = QColor(0xB8, 0xBE, 0xC7);
    return p;
}

} // namespace zelvor::skin
