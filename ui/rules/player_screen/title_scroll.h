#pragma once
// The scrolling title. A title wider than its area carries twenty spaces at
// its end (the play queue adds them) and scrolls one character a tick of
// the position timer: the text shown starts at the scroll offset and goes
// on from the beginning, so the gap of spaces runs round like a marquee.
// Offsets count UTF-16 code units; a surrogate pair is stepped over whole.

#include <string>
#include <string_view>

namespace zelvor {

// The text as shown at an offset (offsets past the end count from 0).
std::u16string RotatedTitle(std::u16string_view title, int offset);

// The offset after one tick: the next character, back to 0 after the last.
int NextTitleOffset(std::u16string_view title, int offset);

} // namespace zelvor
