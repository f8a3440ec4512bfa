#pragma once
// A scripted MediaGraph for the engine's tests. The factory holds the script
// (which files render, which calls fail, what each graph reports) and one
// call log shared by all its graphs, in the order the calls were made:
// "create", "render a.mp3", "query Control", "notify", "volume -2400",
// "run", "pause", "stop", "wait", "seek 0", "event 1", "free 1",
// "destroy a.mp3". Reads (duration, position) are not logged.

#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "playback/media_graph.h"

namespace zelvor::testing {

struct FakeGraphScript {
    HResult createResult = kOk;
    // File names (last host path component) that no graph can render.
    std::set<std::string> unrenderable;
    // A render failure that a file recovers from once its tag was stripped.
    std::set<std::string> renderableAfterStrip;
    std::map<GraphSlot, HResult> slotFailures;
    HResult notifyResult = kOk;
    HResult runResult = kOk;
    HResult stopResult = kOk;
    HResult seekResult = kOk;
    std::map<std::string, std::int64_t> durations; // 100-ns units, by file name
    // Events a graph queues when it is run, by file name.
    std::map<std::string, std::vector<std::int32_t>> eventsOnRun;
};

class FakeMediaGraphFactory;

class FakeMediaGraph : public MediaGraph {
public:
    explicit FakeMediaGraph(FakeMediaGraphFactory& factory) : m_factory(factory) {}
    ~FakeMediaGraph() override;

    HResult RenderFile(const std::filesystem::path& file) override;
    HResult QuerySlot(GraphSlot slot) override;
    HResult Run() override;
    HResult Pause() override { return Log("pause"); }
    HResult Stop() override;
    HResult WaitForCompletion(std::int32_t, std::int32_t* eventCode) override {
        *eventCode = 0;
        return Log("wait", kVfwEWrongState);
    }
    HResult GetEvent(std::int32_t* eventCode, std::intptr_t* param1, std::intptr_t* param2,
                     std::int32_t timeoutMs) override;
    HResult FreeEventParams(std::int32_t eventCode, std::intptr_t, std::intptr_t) override {
        return Log("free " + std::to_string(eventCode));
    }
    HResult SetNotify(NotifyHook hook) override;
    HResult GetDuration(std::int64_t* duration) override;
    HResult GetCurrentPosition(std::int64_t* current) override {
        *current = position;
        return kOk;
    }
    HResult SetPositions(std::int64_t current) override;
    HResult PutVolume(std::int32_t value) override {
        volume = value;
        return Log("volume " + std::to_string(value));
    }

    // Queues an event and calls the hook, as a graph thread would.
    void QueueEvent(std::int32_t code);
    const std::string& File() const { return m_file; }
    std::int64_t position = 0;
    std::int32_t volume = 0;

private:
    // Logs the call and returns its result.
    HResult Log(const std::string& entry, HResult result = kOk);

    FakeMediaGraphFactory& m_factory;
    std::string m_file;
    std::deque<std::int32_t> m_events;
    NotifyHook m_hook;
};

class FakeMediaGraphFactory : public MediaGraphFactory {
public:
    HResult CreateGraph(std::unique_ptr<MediaGraph>& graph) override;

    FakeGraphScript script;
    std::vector<std::string> log;
    // Files whose tag was stripped (the OpenTrack repair calls Strip).
    std::set<std::string> stripped;
    int liveGraphs = 0;
    FakeMediaGraph* current = nullptr; // the graph made last, while it lives

    void Strip(const std::string& fileName) { stripped.insert(fileName); }
    // The log entries since a mark, for checking one operation's calls.
    std::vector<std::string> LogSince(std::size_t mark) const {
        return {log.begin() + static_cast<std::ptrdiff_t>(mark), log.end()};
    }
};

} // namespace zelvor::testing
