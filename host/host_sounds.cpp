#include "host/host_sounds.h"

#include <algorithm>
#include <cstdio>

#include "platform/device.h"
#include "host/gst_media_graph.h"

namespace zelvor {
namespace {

// The beep: a soft 880 Hz tone of 120 ms.
constexpr int kBeepRate = 44100;
constexpr int kBeepSamples = kBeepRate * 120 / 1000;
constexpr double kBeepFrequency = 880.0;
constexpr double kBeepVolume = 0.3;

AudioSinkChoice SoundSinkFromEnvironment() {
    AudioSinkChoice sink = AudioSinkFromEnvironment();
    if (sink.kind == AudioSinkChoice::Kind::Wav)
        sink = AudioSinkChoice{AudioSinkChoice::Kind::Fake, {}, false};
    return sink;
}

void Discard(GstElement* element) {
    if (element)
        gst_object_unref(gst_object_ref_sink(element));
}

// Detaches the bus handler first, so none runs once the pipeline is going;
// stopping joins its streaming threads.
void ReleasePipeline(GstElement* pipeline) {
    GstBus* bus = gst_element_get_bus(pipeline);
    gst_bus_set_sync_handler(bus, nullptr, nullptr, nullptr);
    gst_object_unref(bus);
    gst_element_set_state(pipeline, GST_STATE_NULL);
    gst_object_unref(pipeline);
}

} // namespace

HostSounds::HostSounds() : HostSounds(SoundSinkFromEnvironment()) {}

HostSounds::HostSounds(AudioSinkChoice sink) : m_sink(std::move(sink)) {
    EnsureGstreamer();
    if (m_sink.kind == AudioSinkChoice::Kind::Wav) {
        std::string error;
        m_capture = WavCapture::Create(m_sink.wavPath, false, &error);
        if (!m_capture)
            std::fprintf(stderr, "zelvor: sounds: %s\n", error.c_str());
    }
}

HostSounds::~HostSounds() {
    // Stopping joins the streaming threads, so no bus handler runs after.
    for (GstElement* pipeline : m_active)
        ReleasePipeline(pipeline);
    if (m_capture)
        m_capture->EndSegment();
}

GstElement* HostSounds::MakeSink() {
    if (m_sink.kind == AudioSinkChoice::Kind::Wav && !m_capture)
        return nullptr;
    return MakeAudioSink(m_sink, m_capture);
}

void HostSounds::MessageBeep() {
    if (ActiveSounds() >= kMaxActive)
        return;
    GstElement* pipeline = gst_pipeline_new("beep");
    GstElement* source = gst_element_factory_make("audiotestsrc", nullptr);
    GstElement* convert = gst_element_factory_make("audioconvert", nullptr);
    GstElement* sink = MakeSink();
    if (!pipeline || !source || !convert || !sink) {
        for (GstElement* e : {pipeline, source, convert, sink})
            Discard(e);
        return;
    }
    g_object_set(source, "wave", 0 /* sine */, "freq", kBeepFrequency, "volume", kBeepVolume,
                 "samplesperbuffer", kBeepSamples, "num-buffers", 1, nullptr);
    gst_bin_add_many(GST_BIN(pipeline), source, convert, sink, nullptr);
    GstCaps* caps = gst_caps_new_simple("audio/x-raw", "rate", G_TYPE_INT, kBeepRate, "channels",
                                        G_TYPE_INT, 1, nullptr);
    bool linked =
        gst_element_link_filtered(source, convert, caps) && gst_element_link(convert, sink);
    gst_caps_unref(caps);
    if (!linked) {
        Discard(pipeline);
        return;
    }
    Start(pipeline);
}

bool HostSounds::PlaySound(std::u16string_view devicePath) {
    Device* device = CurrentDevicePointer();
    if (!device || ActiveSounds() >= kMaxActive)
        return false;
    auto host = device->FileSystem().ToHostPath(devicePath);
    std::error_code error;
    if (!host || !std::filesystem::is_regular_file(*host, error))
        return false;
    gchar* uri = gst_filename_to_uri(host->c_str(), nullptr);
    GstElement* pipeline = gst_element_factory_make("playbin", "sound");
    GstElement* sink = MakeSink();
    GstElement* video = gst_element_factory_make("fakesink", nullptr);
    if (!uri || !pipeline || !sink || !video) {
        g_free(uri);
        for (GstElement* e : {pipeline, sink, video})
            Discard(e);
        return false;
    }
    g_object_set(pipeline, "uri", uri, "audio-sink", sink, "video-sink", video, nullptr);
    g_free(uri);
    return Start(pipeline);
}

bool HostSounds::Start(GstElement* pipeline) {
    gst_object_ref_sink(pipeline);
    GstBus* bus = gst_element_get_bus(pipeline);
    gst_bus_set_sync_handler(bus, &HostSounds::OnBusMessage, new SoundContext{this, pipeline},
                             [](gpointer context) { delete static_cast<SoundContext*>(context); });
    gst_object_unref(bus);
    m_active.push_back(pipeline);
    if (gst_element_set_state(pipeline, GST_STATE_PLAYING) == GST_STATE_CHANGE_FAILURE) {
        Finish(pipeline);
        return false;
    }
    return true;
}

GstBusSyncReply HostSounds::OnBusMessage(GstBus*, GstMessage* message, gpointer data) {
    const auto* context = static_cast<const SoundContext*>(data);
    const GstMessageType type = GST_MESSAGE_TYPE(message);
    // Only the pipeline's own end of stream means that every sink is done;
    // an error from any element ends the sound.
    const bool ended =
        (type == GST_MESSAGE_EOS && GST_MESSAGE_SRC(message) == GST_OBJECT(context->pipeline)) ||
        type == GST_MESSAGE_ERROR;
    if (ended) {
        // Finish looks the pipeline up among the active ones, so a sound
        // that reports its end twice is torn down once.
        HostSounds* self = context->owner;
        GstElement* pipeline = context->pipeline;
        QMetaObject::invokeMethod(
            self, [self, pipeline] { self->Finish(pipeline); }, Qt::QueuedConnection);
    }
    // Handled here; nothing piles up on the bus (which frees the message).
    return GST_BUS_DROP;
}

void HostSounds::Finish(GstElement* pipeline) {
    auto it = std::find(m_active.begin(), m_active.end(), pipeline);
    if (it == m_active.end())
        return;
    m_active.erase(it);
    ReleasePipeline(pipeline);
    if (m_capture)
        m_capture->EndSegment();
}

} // namespace zelvor
