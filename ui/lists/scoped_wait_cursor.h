#pragma once
// The system wait cursor for the length of a scope, for long work inside a
// widget; the cursor before it comes back however the work ends.

#include <QGuiApplication>

namespace zelvor {

class ScopedWaitCursor {
public:
    ScopedWaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~ScopedWaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    ScopedWaitCursor(const ScopedWaitCursor&) = delete;
    ScopedWaitCursor& operator=(const ScopedWaitCursor&) = delete;
};

} // namespace zelvor
