#pragma once
// The values start-up sets once and every screen reads: the shell's language
// and GUI colour numbers and whether the screen is taller than wide. The
// program directory is kept with the other fixed places (config/settings.h).
//
// One set per process, changed only on the UI thread: at start-up, when the
// shell announces a new language or colour, and when the screen turns.

#include <cstdint>
#include <string_view>

namespace zelvor {

struct ApplicationValues {
    std::int16_t language = 0;  // column of "Ombrel.txt"; 0 = built-in English
    std::uint16_t guiColor = 0; // skin colour; 0 = the program's own images
    std::uint8_t portrait = 1;  // 1 when the screen is taller than wide
};

ApplicationValues& AppValues();

// The portrait flag: 1 when the screen is taller than wide.
constexpr std::uint8_t PortraitFlag(int screenWidth, int screenHeight) {
    return screenHeight > screenWidth ? 1 : 0;
}

// A user-visible text in the application's language (LoadLocalText with
// "Ombrel.txt"); the view is overwritten by the next call.
std::u16string_view LoadAppText(std::uint16_t id);

} // namespace zelvor
