#pragma once
// What the interactive library update shows and asks: the progress bar, the
// count line, the message line, and a pump that keeps the screen alive and
// tells whether Cancel came in. The update dialog and the command line both
// implement it; the silent update runs without one.

#include <string_view>

namespace zelvor {

class UpdateView {
public:
    virtual ~UpdateView() = default;

    // The bar's range; in percent mode positions are shown as a percentage
    // of the range. Takes effect at once (range, then a fresh bar).
    virtual void SetRange(int lower, int upper, bool percentMode) = 0;
    virtual void SetPosition(int position) = 0;
    // Each change is shown at once: the update holds the thread meanwhile.
    virtual void SetCountLine(std::u16string_view text) = 0;
    virtual void SetMessageLine(std::u16string_view text) = 0;
    // Handles whatever input is waiting; true when Cancel came in.
    virtual bool Pump() = 0;
    virtual void BeginWaitCursor() {}
    virtual void EndWaitCursor() {}
    // The pause after the success text, before the view closes.
    virtual void Pause(int milliseconds) { (void)milliseconds; }
};

} // namespace zelvor
