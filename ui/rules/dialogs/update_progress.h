#pragma once
// The arithmetic of the update dialog's progress bar and the rules by which
// its OK and Cancel end it, without a toolkit. The dialog sends what these
// say to its bar and ends itself when they say so.

#include <cstdint>

namespace zelvor {

// The progress range as the update sets it. In percent mode the bar runs
// from 0 to 100 and positions are turned into a percentage of the range;
// otherwise the bar's range is [lower, upper] and positions go as given.
// The device's bar took 16-bit bounds; these are 32-bit, so that an add
// phase over more than 32,767 files still moves the bar.
struct ProgressRange {
    int lower = 0;
    int upper = 100;
    bool percentMode = false;
};

// The bar's own range for a progress range.
struct BarRange {
    int minimum = 0;
    int maximum = 100;
};
BarRange BarRangeOf(const ProgressRange& range);

// What one progress position does.
struct ProgressStep {
    bool show = false;     // send `value` to the bar, then pump; false: neither
    int value = 0;
    bool finished = false; // the upper bound, or exactly 100 %, was reached
};

// In percent mode a range of zero span leaves the bar alone. A percentage
// above 100 wraps (150 % shows as 50); exactly 100 % shows as 100. Positions
// below the lower bound count as the lower bound.
ProgressStep ComputeProgressStep(const ProgressRange& range, int position);

enum class DialogEnd { StayOpen, Ok, Cancel };

// Phases: 0 before the update starts, 1 search, 2 add, 3 finish. In phases 1
// and 2 OK and Cancel only stop the update; the running loop notices it at
// its next pump and the dialog then ends as Cancel.
DialogEnd EndOnOk(int phase);     // ends (as OK) only in phase 3
DialogEnd EndOnCancel(int phase); // ends (as Cancel) in phases 0 and 3

} // namespace zelvor
