#pragma once
// GraphNotifyWaiter: the notify hook for owners without an event loop (tools,
// tests). The graph calls the hook from its own thread; the owner blocks in
// Wait on its thread and then calls the engine's OnGraphNotify there.
//
// The waiter must outlive every graph given its hook.

#include <chrono>
#include <condition_variable>
#include <mutex>

#include "playback/media_graph.h"

namespace zelvor {

class GraphNotifyWaiter {
public:
    MediaGraph::NotifyHook Hook();
    // True when a notification came (since the last Wait) within the time.
    bool Wait(std::chrono::milliseconds timeout);

private:
    std::mutex m_lock;
    std::condition_variable m_signal;
    bool m_pending = false;
};

} // namespace zelvor
