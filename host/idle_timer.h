#pragma once
// SystemIdleTimerReset: keeps the machine from suspending or blanking while
// the player plays. The player calls it at most every 50 seconds, and only
// while playing.
//
// On the host it is a best-effort action: on an X11 display with the xset
// program, "xset s reset" restarts the screen saver's countdown. Anywhere
// else (a frame-buffer device, Wayland, the offscreen platform of tests) it
// does nothing. There is deliberately no D-Bus inhibitor: an inhibitor is a
// lock to take and release, while the device's call is a nudge that expires
// on its own, which is what the player's rhythm of resets expects.

#include <QString>

namespace zelvor {

class IdleTimer {
public:
    virtual ~IdleTimer() = default;
    virtual void SystemIdleTimerReset() = 0;
};

class HostIdleTimer final : public IdleTimer {
public:
    // Looks for the display and the program once; UI thread.
    HostIdleTimer();
    void SystemIdleTimerReset() override;
    // Whether a reset does anything on this host.
    bool Available() const { return !m_xset.isEmpty(); }

private:
    QString m_xset;
};

} // namespace zelvor
