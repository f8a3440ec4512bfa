#include "host/idle_timer.h"

#include "host/display_xset.h"

namespace zelvor {

HostIdleTimer::HostIdleTimer() : m_xset(FindXsetForDisplay()) {}

void HostIdleTimer::SystemIdleTimerReset() {
    if (Available())
        RunXset(m_xset, {QStringLiteral("s"), QStringLiteral("reset")});
}

} // namespace zelvor
