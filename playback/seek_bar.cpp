#include "playback/seek_bar.h"

#include <algorithm>

namespace zelvor {

// The thumb-to-time mapping's offset; the time-to-thumb mapping has none.
constexpr int kThumbOffset = 4;

void SeekBar::SetGeometry(int barLeft, int barWidth, int thumbImageWidth, int screenOriginX) {
    left = barLeft;
    right = barLeft + (barWidth - thumbImageWidth);
    thumbWidth = thumbImageWidth;
    originX = screenOriginX;
    thumbX = std::clamp(thumbX, left, std::max(left, right));
}

int SeekBar::ThumbForFraction(double fraction) const {
    return left + static_cast<int>((right - left - kThumbOffset) * fraction);
}

int SeekBar::ThumbForMouse(int mouseX) const {
    int x = mouseX - thumbWidth / 2 - originX;
    // L wins over R, so a bar narrower than its thumb pins the thumb at L.
    return std::max(left, std::min(x, right));
}

double SeekBar::FractionForThumb(int x) const {
    int span = right - left - kThumbOffset;
    if (span <= 0)
        return 0.0;
    double fraction = static_cast<double>(x - left - kThumbOffset) / span;
    return std::clamp(fraction, 0.0, 1.0);
}

} // namespace zelvor
