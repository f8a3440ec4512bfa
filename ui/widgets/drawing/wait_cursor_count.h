#pragma once
// The system wait cursor over the program's windows, in the two forms the
// screens need: for the length of a scope (long work inside a widget), and
// switched on and off by rules that say "wait cursor on" and later "off",
// where the count keeps an "off" from taking down a cursor that this screen
// did not put up, and whatever is still up goes with the screen.

#include <QGuiApplication>

namespace zelvor {

class ScopedWaitCursor {
public:
    ScopedWaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~ScopedWaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    ScopedWaitCursor(const ScopedWaitCursor&) = delete;
    ScopedWaitCursor& operator=(const ScopedWaitCursor&) = delete;
};

class WaitCursorCount {
public:
    WaitCursorCount() = default;
    ~WaitCursorCount() {
        while (m_count > 0)
            Set(false);
    }
    WaitCursorCount(const WaitCursorCount&) = delete;
    WaitCursorCount& operator=(const WaitCursorCount&) = delete;

    void Set(bool on) {
        if (on) {
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
            ++m_count;
        } else if (m_count > 0) {
            QGuiApplication::restoreOverrideCursor();
            --m_count;
        }
    }

private:
    int m_count = 0;
};

} // namespace zelvor
