#pragma once
// The MediaGraph on GStreamer: one playbin per file, audio only, with the
// sink chosen by ZELVOR_AUDIO_SINK (gst_audio_sink.h).
//
// - RenderFile prerolls the file (PAUSED) and waits at most kRenderTimeout:
//   a file no decoder takes fails with an error instead of hanging.
// - Times: GStreamer's nanoseconds are divided by 100; seeks are flushing and
//   accurate, and return once the graph has settled at the new position.
// - Volume: hundredths of a decibel become the linear gain 10^(v / 2000) of
//   playbin's software volume; -10000 is exact silence.
// - Events: end of stream is queued as kEcComplete, an error after the
//   render as kEcErrorAbort with the HResult in param 1. Both call the notify
//   hook from GStreamer's thread; the hook must not block.
// - Stop pauses the graph (it stays prerolled, so it can be sought and run)
//   and drops an end of stream not yet taken: a stopped graph has nothing
//   left to complete.
// - A seek while nothing plays (paused, stopped, or run to its end) is kept
//   and carried out by Run: a graph that ran to its end is rewound only to be
//   stopped and released, and restarting it would play the first moments of
//   the track before the owner's Stop. The position reads as the target.

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>

#include <gst/gst.h>

#include "host/gst_audio_sink.h"
#include "playback/media_graph.h"

namespace zelvor {

class GstMediaGraph final : public MediaGraph {
public:
    static constexpr std::chrono::milliseconds kRenderTimeout{5000};
    static constexpr std::chrono::milliseconds kSeekTimeout{5000};

    // The capture is needed for (and only used by) a wav sink. level holds
    // the volume (hundredths of a decibel) shared by the factory's graphs.
    GstMediaGraph(AudioSinkChoice sink, std::shared_ptr<WavCapture> capture,
                  std::shared_ptr<std::atomic<std::int32_t>> level);
    ~GstMediaGraph() override;
    GstMediaGraph(const GstMediaGraph&) = delete;
    GstMediaGraph& operator=(const GstMediaGraph&) = delete;

    HResult RenderFile(const std::filesystem::path& file) override;
    HResult QuerySlot(GraphSlot slot) override;
    HResult Run() override;
    HResult Pause() override;
    HResult Stop() override;
    HResult WaitForCompletion(std::int32_t timeoutMs, std::int32_t* eventCode) override;
    HResult GetEvent(std::int32_t* eventCode, std::intptr_t* param1, std::intptr_t* param2,
                     std::int32_t timeoutMs) override;
    HResult FreeEventParams(std::int32_t eventCode, std::intptr_t param1,
                            std::intptr_t param2) override;
    HResult SetNotify(NotifyHook hook) override;
    HResult GetDuration(std::int64_t* duration) override;
    HResult GetCurrentPosition(std::int64_t* position) override;
    HResult SetPositions(std::int64_t current) override;
    HResult PutVolume(std::int32_t volume) override;

private:
    struct Event {
        std::int32_t code;
        std::intptr_t param;
    };

    static GstBusSyncReply OnBusMessage(GstBus* bus, GstMessage* message, gpointer self);
    void HandleMessage(GstMessage* message);
    void QueueEvent(std::int32_t code, std::intptr_t param);
    HResult SetState(GstState state);
    // Waits until a state change or seek has settled, an error came, or the
    // time is up.
    HResult Settle(std::chrono::milliseconds limit);
    void DropQueuedCompletion();
    // Seeks (flushing, accurate) to a media time and waits until it settled.
    HResult SeekAndSettle(std::int64_t current);

    AudioSinkChoice m_sink;
    std::shared_ptr<WavCapture> m_capture;
    std::shared_ptr<std::atomic<std::int32_t>> m_level;
    GstElement* m_playbin = nullptr;
    std::int32_t m_prerolledLevel = 0; // the volume the prerolled audio has

    std::mutex m_lock; // guards what GStreamer's threads touch, below
    std::condition_variable m_changed;
    std::deque<Event> m_events;
    NotifyHook m_hook;
    bool m_rendered = false;  // errors before this fail the render
    HResult m_error = kOk;    // the first error while rendering or seeking
    bool m_running = false;   // Run was called and neither Pause nor Stop since
    bool m_complete = false;  // end of stream reached since the last Run or seek
    std::int32_t m_completionCode = 0;

    std::int64_t m_duration = 0; // last duration read, 100-ns units
    bool m_countedDuration = false; // m_duration was counted in the file
    std::int64_t m_position = 0; // last position read or sought
    std::optional<std::int64_t> m_pendingSeek; // carried out by Run
};

class GstGraphFactory final : public MediaGraphFactory {
public:
    explicit GstGraphFactory(AudioSinkChoice sink = AudioSinkFromEnvironment());
    // kEFail when GStreamer or the capture file cannot be set up.
    HResult CreateGraph(std::unique_ptr<MediaGraph>& graph) override;
    // The wav capture, once the first graph made it.
    std::shared_ptr<WavCapture> Capture() const { return m_capture; }

private:
    AudioSinkChoice m_sink;
    std::shared_ptr<WavCapture> m_capture;
    std::shared_ptr<std::atomic<std::int32_t>> m_level =
        std::make_shared<std::atomic<std::int32_t>>(0);
};

// gst_init, once per process.
void EnsureGstreamer();

} // namespace zelvor
