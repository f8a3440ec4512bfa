#include "host/gst_media_graph.h"

#include <cmath>
#include <cstdio>
#include <string>

#include "host/gst_adts_duration.h"

namespace zelvor {
namespace {

// playbin's flags: audio only, with its own software volume.
constexpr guint kPlayFlagAudio = 0x2;
constexpr guint kPlayFlagSoftVolume = 0x10;
constexpr gint64 kNanosPerUnit = 100;

HResult ErrorResult(const GError* error) {
    // A stream nobody can demux or decode is what the caller must be told
    // apart: the engine's MP3 repair retries on any failure.
    if (error && (error->domain == GST_STREAM_ERROR || error->domain == GST_CORE_ERROR))
        return kVfwEUnsupportedStream;
    if (error && error->domain == GST_RESOURCE_ERROR)
        return kVfwENotFound;
    return kEFail;
}

double GainOf(std::int32_t hundredthsDb) {
    if (hundredthsDb <= -10000)
        return 0.0;
    return std::pow(10.0, hundredthsDb / 2000.0);
}

} // namespace

void EnsureGstreamer() {
    static std::once_flag once;
    std::call_once(once, [] { gst_init(nullptr, nullptr); });
}

GstMediaGraph::GstMediaGraph(AudioSinkChoice sink, std::shared_ptr<WavCapture> capture,
                             std::shared_ptr<std::atomic<std::int32_t>> level)
    : m_sink(std::move(sink)), m_capture(std::move(capture)), m_level(std::move(level)) {}

GstMediaGraph::~GstMediaGraph() {
    {
        std::lock_guard guard(m_lock);
        m_hook = nullptr;
    }
    if (m_playbin) {
        // NULL joins every streaming thread: no message, hook call or
        // rendered buffer can follow.
        gst_element_set_state(m_playbin, GST_STATE_NULL);
        GstBus* bus = gst_element_get_bus(m_playbin);
        gst_bus_set_sync_handler(bus, nullptr, nullptr, nullptr);
        gst_object_unref(bus);
        gst_object_unref(m_playbin);
    }
    if (m_capture)
        m_capture->EndSegment();
}

GstBusSyncReply GstMediaGraph::OnBusMessage(GstBus*, GstMessage* message, gpointer self) {
    static_cast<GstMediaGraph*>(self)->HandleMessage(message);
    // Everything is handled here; nothing is left on the bus to pile up.
    return GST_BUS_DROP;
}

void GstMediaGraph::HandleMessage(GstMessage* message) {
    switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_EOS: {
        std::lock_guard guard(m_lock);
        m_complete = true;
        m_completionCode = kEcComplete;
        QueueEvent(kEcComplete, 0);
        break;
    }
    case GST_MESSAGE_ERROR: {
        GError* error = nullptr;
        gchar* debug = nullptr;
        gst_message_parse_error(message, &error, &debug);
        HResult hr = ErrorResult(error);
        g_clear_error(&error);
        g_free(debug);
        std::lock_guard guard(m_lock);
        if (m_error == kOk)
            m_error = hr;
        if (m_rendered) {
            m_complete = true;
            m_completionCode = kEcErrorAbort;
            QueueEvent(kEcErrorAbort, hr);
        }
        break;
    }
    default:
        return;
    }
    m_changed.notify_all();
}

void GstMediaGraph::QueueEvent(std::int32_t code, std::intptr_t param) {
    // Called with m_lock held, on a GStreamer thread. The hook only posts or
    // signals, so calling it under the lock cannot deadlock, and the lock
    // keeps the destructor from clearing it mid-call.
    m_events.push_back({code, param});
    if (m_hook)
        m_hook();
}

HResult GstMediaGraph::SetState(GstState state) {
    return gst_element_set_state(m_playbin, state) == GST_STATE_CHANGE_FAILURE ? kEFail : kOk;
}

HResult GstMediaGraph::Settle(std::chrono::milliseconds limit) {
    auto deadline = std::chrono::steady_clock::now() + limit;
    for (;;) {
        {
            std::lock_guard guard(m_lock);
            if (m_error != kOk)
                return m_error;
        }
        // Returns as soon as the change completes; the slice only bounds how
        // long an error that does not fail the change goes unseen.
        GstStateChangeReturn result =
            gst_element_get_state(m_playbin, nullptr, nullptr, 20 * GST_MSECOND);
        if (result == GST_STATE_CHANGE_SUCCESS || result == GST_STATE_CHANGE_NO_PREROLL) {
            std::lock_guard guard(m_lock);
            return m_error;
        }
        if (result == GST_STATE_CHANGE_FAILURE) {
            std::lock_guard guard(m_lock);
            return m_error != kOk ? m_error : kEFail;
        }
        if (std::chrono::steady_clock::now() >= deadline)
            return kVfwETimeout;
    }
}

HResult GstMediaGraph::RenderFile(const std::filesystem::path& file) {
    if (m_playbin)
        return kVfwEWrongState;
    m_playbin = gst_element_factory_make("playbin", nullptr);
    if (!m_playbin)
        return kEFail;
    gst_object_ref_sink(m_playbin);
    GstElement* sink = MakeAudioSink(m_sink, m_capture);
    if (!sink)
        return kEFail;
    GError* error = nullptr;
    gchar* uri = gst_filename_to_uri(file.c_str(), &error);
    if (!uri) {
        g_clear_error(&error);
        gst_object_unref(gst_object_ref_sink(sink));
        return kEInvalidArg;
    }
    m_prerolledLevel = m_level->load();
    g_object_set(m_playbin, "uri", uri, "flags", kPlayFlagAudio | kPlayFlagSoftVolume,
                 "audio-sink", sink, "volume", GainOf(m_prerolledLevel), nullptr);
    g_free(uri);
    GstBus* bus = gst_element_get_bus(m_playbin);
    gst_bus_set_sync_handler(bus, &GstMediaGraph::OnBusMessage, this, nullptr);
    gst_object_unref(bus);

    HResult hr = SetState(GST_STATE_PAUSED);
    if (!Failed(hr))
        hr = Settle(kRenderTimeout);
    gint audioStreams = 0;
    if (!Failed(hr)) {
        g_object_get(m_playbin, "n-audio", &audioStreams, nullptr);
        if (audioStreams < 1)
            hr = kVfwEUnsupportedStream;
    }
    if (Failed(hr)) {
        gst_element_set_state(m_playbin, GST_STATE_NULL);
        return hr;
    }
    gint64 nanos = 0;
    if (!gst_element_query_duration(m_playbin, GST_FORMAT_TIME, &nanos)) {
        if (auto counted = AdtsDuration(file)) {
            m_duration = *counted;
            m_countedDuration = true;
        }
    }
    std::lock_guard guard(m_lock);
    m_rendered = true;
    return kOk;
}

HResult GstMediaGraph::QuerySlot(GraphSlot) {
    // One playbin does all of it.
    return m_playbin ? kOk : kVfwEWrongState;
}

HResult GstMediaGraph::Run() {
    if (!m_playbin)
        return kVfwEWrongState;
    if (m_pendingSeek) {
        HResult hr = SeekAndSettle(*m_pendingSeek);
        if (Failed(hr))
            return hr;
    }
    {
        std::lock_guard guard(m_lock);
        m_running = true;
    }
    HResult hr = SetState(GST_STATE_PLAYING);
    if (Failed(hr)) {
        std::lock_guard guard(m_lock);
        m_running = false;
    }
    return hr;
}

HResult GstMediaGraph::Pause() {
    if (!m_playbin)
        return kVfwEWrongState;
    {
        std::lock_guard guard(m_lock);
        m_running = false;
    }
    m_changed.notify_all();
    return SetState(GST_STATE_PAUSED);
}

HResult GstMediaGraph::Stop() {
    HResult hr = Pause();
    DropQueuedCompletion();
    return hr;
}

void GstMediaGraph::DropQueuedCompletion() {
    std::lock_guard guard(m_lock);
    std::erase_if(m_events, [](const Event& e) { return e.code == kEcComplete; });
}

HResult GstMediaGraph::WaitForCompletion(std::int32_t timeoutMs, std::int32_t* eventCode) {
    *eventCode = 0;
    std::unique_lock guard(m_lock);
    auto ended = [this] { return m_complete || !m_running; };
    if (timeoutMs == kInfinite)
        m_changed.wait(guard, ended);
    else
        m_changed.wait_for(guard, std::chrono::milliseconds(timeoutMs), ended);
    if (!m_running)
        return kVfwEWrongState;
    if (!m_complete)
        return kEAbort;
    *eventCode = m_completionCode;
    return kOk;
}

HResult GstMediaGraph::GetEvent(std::int32_t* eventCode, std::intptr_t* param1,
                                std::intptr_t* param2, std::int32_t timeoutMs) {
    std::unique_lock guard(m_lock);
    auto queued = [this] { return !m_events.empty(); };
    if (timeoutMs == kInfinite)
        m_changed.wait(guard, queued);
    else if (timeoutMs > 0)
        m_changed.wait_for(guard, std::chrono::milliseconds(timeoutMs), queued);
    if (m_events.empty())
        return kEAbort;
    *eventCode = m_events.front().code;
    *param1 = m_events.front().param;
    *param2 = 0;
    m_events.pop_front();
    return kOk;
}

HResult GstMediaGraph::FreeEventParams(std::int32_t, std::intptr_t, std::intptr_t) {
    return kOk; // parameters are plain numbers
}

HResult GstMediaGraph::SetNotify(NotifyHook hook) {
    std::lock_guard guard(m_lock);
    m_hook = std::move(hook);
    // Events queued before the hook was given are not lost.
    if (m_hook && !m_events.empty())
        m_hook();
    return kOk;
}

HResult GstMediaGraph::GetDuration(std::int64_t* duration) {
    gint64 nanos = 0;
    if (m_playbin && !m_countedDuration &&
        gst_element_query_duration(m_playbin, GST_FORMAT_TIME, &nanos) && nanos >= 0)
        m_duration = nanos / kNanosPerUnit;
    *duration = m_duration;
    return m_playbin ? kOk : kVfwEWrongState;
}

HResult GstMediaGraph::GetCurrentPosition(std::int64_t* position) {
    gint64 nanos = 0;
    if (m_pendingSeek)
        m_position = *m_pendingSeek;
    else if (m_playbin && gst_element_query_position(m_playbin, GST_FORMAT_TIME, &nanos) && nanos >= 0)
        m_position = nanos / kNanosPerUnit;
    *position = m_position;
    return m_playbin ? kOk : kVfwEWrongState;
}

HResult GstMediaGraph::SetPositions(std::int64_t current) {
    if (!m_playbin || !m_rendered)
        return kVfwEWrongState;
    if (current < 0)
        current = 0;
    {
        std::lock_guard guard(m_lock);
        if (m_running && !m_complete) {
            // Playing on: the seek is heard at once.
            m_pendingSeek.reset();
        } else {
            // Nothing plays (paused, stopped, or run to its end, which no
            // longer counts as running): the seek waits for Run, so a graph
            // rewound only to be stopped and released costs no decoding.
            m_running = false;
            m_complete = false;
            m_pendingSeek = current;
            m_position = current;
            return kOk;
        }
    }
    return SeekAndSettle(current);
}

HResult GstMediaGraph::SeekAndSettle(std::int64_t current) {
    auto flags = static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE);
    if (!gst_element_seek_simple(m_playbin, GST_FORMAT_TIME, flags, current * kNanosPerUnit))
        return kEFail;
    HResult hr = Settle(kSeekTimeout);
    m_prerolledLevel = m_level->load();
    m_pendingSeek.reset();
    std::lock_guard guard(m_lock);
    m_complete = false;
    m_position = current;
    return hr;
}

HResult GstMediaGraph::PutVolume(std::int32_t volume) {
    if (volume < -10000 || volume > 0)
        return kEInvalidArg;
    if (!m_playbin)
        return kVfwEWrongState;
    m_level->store(volume);
    g_object_set(m_playbin, "volume", GainOf(volume), nullptr);
    bool running = false;
    {
        std::lock_guard guard(m_lock);
        running = m_running || !m_rendered;
    }
    // The sink holds audio prerolled at the old level; it would be the first
    // thing heard. Preroll it again where the graph stands.
    if (!running && volume != m_prerolledLevel) {
        std::int64_t position = 0;
        GetCurrentPosition(&position); // the pending seek's target, if any
        SeekAndSettle(position);
    }
    return kOk;
}

GstGraphFactory::GstGraphFactory(AudioSinkChoice sink) : m_sink(std::move(sink)) {}

HResult GstGraphFactory::CreateGraph(std::unique_ptr<MediaGraph>& graph) {
    EnsureGstreamer();
    if (m_sink.kind == AudioSinkChoice::Kind::Wav && !m_capture) {
        std::string error;
        m_capture = WavCapture::Create(m_sink.wavPath, m_sink.padGaps, &error);
        if (!m_capture) {
            std::fprintf(stderr, "zelvor: %s\n", error.c_str());
            return kEFail;
        }
    }
    graph = std::make_unique<GstMediaGraph>(m_sink, m_capture, m_level);
    return kOk;
}

} // namespace zelvor
