#pragma once
// MediaGraph: one audio file's playback graph, the object behind every graph
// slot the engine keeps (builder, control, events, seeking, video window,
// basic video, basic audio). The engine creates one per track through a
// MediaGraphFactory and never reuses it for another file.
//
// Units: media times are signed 64-bit counts of 100-ns units; volume is in
// hundredths of a decibel, 0 = full level, -10000 = silence.
//
// Threads: every call is made on the owner's thread. Only the notify hook is
// called from whatever thread the graph's events arise on; the hook must get
// the news to the owner's thread (post an event, signal a waiter), where the
// owner drains the queue with GetEvent.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>

namespace zelvor {

// Result codes with the meaning and values the engine's callers know.
using HResult = std::int32_t;
constexpr HResult kOk = 0;
constexpr HResult kFalse = 1;
constexpr HResult kEPointer = static_cast<HResult>(0x80004003);
constexpr HResult kEAbort = static_cast<HResult>(0x80004004);
constexpr HResult kEFail = static_cast<HResult>(0x80004005);
constexpr HResult kEInvalidArg = static_cast<HResult>(0x80070057);
constexpr HResult kEOutOfMemory = static_cast<HResult>(0x8007000E);
constexpr HResult kVfwEWrongState = static_cast<HResult>(0x80040227);
constexpr HResult kVfwETimeout = static_cast<HResult>(0x8004025E);
constexpr HResult kVfwEUnsupportedStream = static_cast<HResult>(0x80040265);
constexpr HResult kVfwENotFound = static_cast<HResult>(0x80040216);

constexpr bool Failed(HResult hr) {
    return hr < 0;
}

// Graph event codes.
constexpr std::int32_t kEcComplete = 1;   // the stream reached its end
constexpr std::int32_t kEcUserAbort = 2;
constexpr std::int32_t kEcErrorAbort = 3; // playback failed; param 1 holds the HResult

// Milliseconds for "wait as long as it takes".
constexpr std::int32_t kInfinite = -1;

// The slots the engine fills one by one after a file is rendered; each can
// fail on its own, which the engine reports by name.
enum class GraphSlot : int {
    Builder = 0,
    Control,
    Events,
    Seeking,
    VideoWindow,
    BasicVideo,
    BasicAudio,
};
constexpr int kGraphSlotCount = 7;

class MediaGraph {
public:
    using NotifyHook = std::function<void()>;

    virtual ~MediaGraph() = default;

    // Builds the graph for a host file and prerolls it, so that the duration
    // is known and Run starts at once. Fails (within a bounded time) when no
    // decoder takes the file.
    virtual HResult RenderFile(const std::filesystem::path& file) = 0;

    // Obtains another slot of the same graph; a real graph has them all.
    virtual HResult QuerySlot(GraphSlot slot) = 0;

    // Control. Stop keeps the graph built: it can be sought and run again.
    virtual HResult Run() = 0;
    virtual HResult Pause() = 0;
    virtual HResult Stop() = 0;

    // Events. WaitForCompletion returns kEcComplete or kEcErrorAbort in
    // *eventCode when the running graph ends, at once with kVfwEWrongState
    // when it is not running, or kEAbort after timeoutMs (kInfinite: never).
    virtual HResult WaitForCompletion(std::int32_t timeoutMs, std::int32_t* eventCode) = 0;
    // Takes the oldest queued event; kEAbort when none arrives in timeoutMs.
    virtual HResult GetEvent(std::int32_t* eventCode, std::intptr_t* param1,
                             std::intptr_t* param2, std::int32_t timeoutMs) = 0;
    virtual HResult FreeEventParams(std::int32_t eventCode, std::intptr_t param1,
                                    std::intptr_t param2) = 0;
    // The hook called (from any thread) whenever an event is queued; an
    // empty hook stops notifications. The graph calls it no more once it is
    // destroyed.
    virtual HResult SetNotify(NotifyHook hook) = 0;

    // Seeking, in 100-ns units. SetPositions moves the current position to an
    // absolute time and leaves the stop position as it is.
    virtual HResult GetDuration(std::int64_t* duration) = 0;
    virtual HResult GetCurrentPosition(std::int64_t* position) = 0;
    virtual HResult SetPositions(std::int64_t current) = 0;

    // Basic audio: hundredths of a decibel, -10000 to 0.
    virtual HResult PutVolume(std::int32_t volume) = 0;
};

// Creates graphs (CoCreateInstance of the filter graph).
class MediaGraphFactory {
public:
    virtual ~MediaGraphFactory() = default;
    virtual HResult CreateGraph(std::unique_ptr<MediaGraph>& graph) = 0;
};

} // namespace zelvor
