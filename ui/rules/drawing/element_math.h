#pragma once
// The arithmetic behind the player screen's composite elements, free of any
// toolkit: which digit image goes in which cell, how much of the volume gauge
// is filled, and which battery image a level shows.

#include <array>

#include "res/bitmap_ids.h"
#include "ui/rules/layout/player_layout.h"

namespace zelvor {

constexpr int kDigitSeparatorIndex = 10;

// Digit image indices for hh:mm:ss: hours / 10, hours % 10, separator,
// minutes / 10, minutes % 10, separator, seconds / 10, seconds % 10. Each
// digit is taken modulo 10, so a time of 100 hours or more wraps instead of
// asking for an image that does not exist; negative parts show as 0.
std::array<int, kTimeDigitCells> TimeDigitCells(int hours, int minutes, int seconds);

// Left edge of digit cell `cell` (0-7), one cell width apart.
constexpr int DigitCellLeft(int timeLeft, int cell) {
    return timeLeft + cell * kDigitCellSize.width;
}

// Pixels of the "full" gauge image shown for a volume index (0-10, clamped):
// index * width / 10, whole pixels.
int VolumeFilledWidth(int volumeIndex, int gaugeWidth);

// The battery image for a level: 0-5 the charge, 100 charging or unknown,
// -1 no battery. 0 for any other level, which draws nothing.
BitmapId BatteryBitmapId(int level);

} // namespace zelvor
