#include "tests/support/fake_media_graph.h"

namespace zelvor::testing {
namespace {

const char* const kSlotNames[] = {"Builder",     "Control",    "Events",    "Seeking",
                                  "VideoWindow", "BasicVideo", "BasicAudio"};

} // namespace

HResult FakeMediaGraphFactory::CreateGraph(std::unique_ptr<MediaGraph>& graph) {
    log.push_back("create");
    if (Failed(script.createResult))
        return script.createResult;
    auto fake = std::make_unique<FakeMediaGraph>(*this);
    current = fake.get();
    ++liveGraphs;
    graph = std::move(fake);
    return kOk;
}

FakeMediaGraph::~FakeMediaGraph() {
    Log("destroy " + m_file);
    --m_factory.liveGraphs;
    if (m_factory.current == this)
        m_factory.current = nullptr;
}

HResult FakeMediaGraph::Log(const std::string& entry, HResult result) {
    m_factory.log.push_back(entry);
    return result;
}

HResult FakeMediaGraph::RenderFile(const std::filesystem::path& file) {
    m_file = file.filename().string();
    Log("render " + m_file);
    const FakeGraphScript& script = m_factory.script;
    if (script.unrenderable.count(m_file))
        return kVfwEUnsupportedStream;
    if (script.renderableAfterStrip.count(m_file) && !m_factory.stripped.count(m_file))
        return kVfwEUnsupportedStream;
    return kOk;
}

HResult FakeMediaGraph::QuerySlot(GraphSlot slot) {
    Log(std::string("query ") + kSlotNames[static_cast<int>(slot)]);
    auto failure = m_factory.script.slotFailures.find(slot);
    return failure == m_factory.script.slotFailures.end() ? kOk : failure->second;
}

HResult FakeMediaGraph::Run() {
    Log("run");
    if (Failed(m_factory.script.runResult))
        return m_factory.script.runResult;
    auto events = m_factory.script.eventsOnRun.find(m_file);
    if (events != m_factory.script.eventsOnRun.end()) {
        for (std::int32_t code : events->second)
            QueueEvent(code);
    }
    return kOk;
}

HResult FakeMediaGraph::Stop() {
    return Log("stop", m_factory.script.stopResult);
}

HResult FakeMediaGraph::GetEvent(std::int32_t* eventCode, std::intptr_t* param1,
                                 std::intptr_t* param2, std::int32_t) {
    if (m_events.empty())
        return kEAbort;
    *eventCode = m_events.front();
    *param1 = 0;
    *param2 = 0;
    m_events.pop_front();
    Log("event " + std::to_string(*eventCode));
    return kOk;
}

HResult FakeMediaGraph::SetNotify(NotifyHook hook) {
    Log("notify");
    if (Failed(m_factory.script.notifyResult))
        return m_factory.script.notifyResult;
    m_hook = std::move(hook);
    return kOk;
}

HResult FakeMediaGraph::GetDuration(std::int64_t* duration) {
    auto found = m_factory.script.durations.find(m_file);
    *duration = found == m_factory.script.durations.end() ? 0 : found->second;
    return kOk;
}

HResult FakeMediaGraph::SetPositions(std::int64_t current) {
    Log("seek " + std::to_string(current));
    if (Failed(m_factory.script.seekResult))
        return m_factory.script.seekResult;
    position = current;
    return kOk;
}

void FakeMediaGraph::QueueEvent(std::int32_t code) {
    m_events.push_back(code);
    if (m_hook)
        m_hook();
}

} // namespace zelvor::testing
