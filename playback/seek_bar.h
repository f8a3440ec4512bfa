#pragma once
// The seek bar's geometry and the thumb arithmetic, in screen pixels.
//
// The thumb travels from L (left) to R = L + bar width - thumb width. The
// time-to-thumb mapping and the thumb-to-time mapping differ by 4 pixels:
// a thumb dropped at X comes back 4 pixels further left on the next tick.
// Both formulas are kept as they are, so any skin must make the bar wider
// than the thumb by more than 4 pixels; where it does not, every thumb
// position maps to the start of the track.

namespace zelvor {

// Where a drag of the thumb stands: none, under way, or blocked (no new
// drag starts until the flag is cleared).
enum class SeekDrag { kIdle, kActive, kBlocked };

struct SeekBar {
    int left = 0;       // L
    int right = 0;      // R
    int thumbWidth = 0;
    int originX = 0;    // the screen's horizontal origin, subtracted from mouse positions
    int thumbX = 0;     // the thumb's current left edge
    SeekDrag drag = SeekDrag::kIdle;
    bool captured = false;

    // Places the bar (its left end, the widths of the bar and thumb images).
    void SetGeometry(int barLeft, int barWidth, int thumbImageWidth, int screenOriginX);

    // Thumb position for a played fraction: L + integer part of (R - L - 4) x fraction.
    int ThumbForFraction(double fraction) const;
    // Thumb position under the mouse: x - thumb width / 2 - origin, within L..R.
    int ThumbForMouse(int mouseX) const;
    // Played fraction for a thumb position: (X - L - 4) / (R - L - 4), within 0..1.
    double FractionForThumb(int x) const;
};

} // namespace zelvor
