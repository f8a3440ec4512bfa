#include "ui/rules/drawing/element_math.h"

#include <algorithm>

namespace zelvor {
namespace {

int Tens(int value) {
    return value < 0 ? 0 : (value / 10) % 10;
}

int Units(int value) {
    return value < 0 ? 0 : value % 10;
}

} // namespace

std::array<int, kTimeDigitCells> TimeDigitCells(int hours, int minutes, int seconds) {
    return {Tens(hours),   Units(hours),   kDigitSeparatorIndex, Tens(minutes),
            Units(minutes), kDigitSeparatorIndex, Tens(seconds),   Units(seconds)};
}

int VolumeFilledWidth(int volumeIndex, int gaugeWidth) {
    return std::clamp(volumeIndex, 0, 10) * std::max(gaugeWidth, 0) / 10;
}

BitmapId BatteryBitmapId(int level) {
    if (level == 100) {
        return kBmpBatteryCharging;
    }
    if (level == -1) {
        return kBmpBatteryNone;
    }
    if (level >= 0 && level <= 5) {
        return static_cast<BitmapId>(kBmpBatteryLevel0 + level);
    }
    return 0;
}

} // namespace zelvor
