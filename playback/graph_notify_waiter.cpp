#include "playback/graph_notify_waiter.h"

namespace zelvor {

MediaGraph::NotifyHook GraphNotifyWaiter::Hook() {
    return [this] {
        {
            std::lock_guard guard(m_lock);
            m_pending = true;
        }
        m_signal.notify_one();
    };
}

bool GraphNotifyWaiter::Wait(std::chrono::milliseconds timeout) {
    std::unique_lock guard(m_lock);
    bool notified = m_signal.wait_for(guard, timeout, [this] { return m_pending; });
    m_pending = false;
    return notified;
}

} // namespace zelvor
