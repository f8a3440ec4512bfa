#pragma once
// The wait cursor for the length of a scope: the cursor before it comes
// back when the work ends, however it ends.

#include "ui/rules/main_frame/frame_window.h"

namespace zelvor {

class WaitCursor {
public:
    explicit WaitCursor(FrameWindow& window) : m_window(window) { m_window.BeginWaitCursor(); }
    ~WaitCursor() { m_window.EndWaitCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    FrameWindow& m_window;
};

} // namespace zelvor
