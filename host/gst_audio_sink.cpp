#include "host/gst_audio_sink.h"

#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>

#include <gst/audio/audio.h>

namespace zelvor {
namespace {

// What a wav sink needs while it renders: the capture, and whether the next
// buffer is this graph's first.
struct WavSinkContext {
    std::shared_ptr<WavCapture> capture;
    bool first = true;
};

void FreeWavSinkContext(gpointer data, GClosure*) {
    delete static_cast<WavSinkContext*>(data);
}

// fakesink's "handoff": called on the streaming thread once the buffer's
// time has come (the sink syncs to the clock), so it is what was played.
void OnRendered(GstElement*, GstBuffer* buffer, GstPad* pad, gpointer data) {
    auto* context = static_cast<WavSinkContext*>(data);
    GstCaps* caps = gst_pad_get_current_caps(pad);
    if (!caps)
        return;
    GstAudioInfo info;
    bool known = gst_audio_info_from_caps(&info, caps);
    gst_caps_unref(caps);
    if (!known)
        return;
    WavFormat format{GST_AUDIO_INFO_RATE(&info), GST_AUDIO_INFO_CHANNELS(&info)};
    GstMapInfo map;
    if (!gst_buffer_map(buffer, &map, GST_MAP_READ))
        return;
    context->capture->Append(format,
                             std::span(reinterpret_cast<const std::byte*>(map.data), map.size),
                             context->first);
    context->first = false;
    gst_buffer_unmap(buffer, &map);
}

GstElement* MakeTimedFakeSink(const char* name) {
    GstElement* sink = gst_element_factory_make("fakesink", name);
    if (sink)
        g_object_set(sink, "sync", TRUE, nullptr);
    return sink;
}

GstElement* MakeWavSink(const std::shared_ptr<WavCapture>& capture) {
    if (!capture)
        return nullptr;
    GstElement* bin = gst_bin_new("wav-capture");
    GstElement* convert = gst_element_factory_make("audioconvert", nullptr);
    GstElement* resample = gst_element_factory_make("audioresample", nullptr);
    GstElement* filter = gst_element_factory_make("capsfilter", nullptr);
    GstElement* sink = MakeTimedFakeSink(nullptr);
    if (!convert || !resample || !filter || !sink) {
        for (GstElement* e : {convert, resample, filter, sink}) {
            if (e)
                gst_object_unref(gst_object_ref_sink(e));
        }
        gst_object_unref(gst_object_ref_sink(bin));
        return nullptr;
    }
    // No dither: silence must stay exact zeros in the capture.
    g_object_set(convert, "dithering", 0, "noise-shaping", 0, nullptr);
    GstCaps* caps = gst_caps_new_simple("audio/x-raw", "format", G_TYPE_STRING, "S16LE", "layout",
                                        G_TYPE_STRING, "interleaved", nullptr);
    WavFormat fixed = capture->Format();
    if (fixed.rate > 0)
        gst_caps_set_simple(caps, "rate", G_TYPE_INT, fixed.rate, "channels", G_TYPE_INT,
                            fixed.channels, nullptr);
    g_object_set(filter, "caps", caps, nullptr);
    gst_caps_unref(caps);

    g_object_set(sink, "signal-handoffs", TRUE, nullptr);
    g_signal_connect_data(sink, "handoff", G_CALLBACK(OnRendered),
                          new WavSinkContext{capture, true}, FreeWavSinkContext,
                          GConnectFlags(0));

    gst_bin_add_many(GST_BIN(bin), convert, resample, filter, sink, nullptr);
    gst_element_link_many(convert, resample, filter, sink, nullptr);
    GstPad* target = gst_element_get_static_pad(convert, "sink");
    gst_element_add_pad(bin, gst_ghost_pad_new("sink", target));
    gst_object_unref(target);
    return bin;
}

} // namespace

std::optional<AudioSinkChoice> ParseAudioSinkChoice(std::string_view text) {
    AudioSinkChoice sink;
    if (text == "auto")
        return sink;
    if (text == "fake") {
        sink.kind = AudioSinkChoice::Kind::Fake;
        return sink;
    }
    constexpr std::string_view kWav = "wav:";
    if (text.starts_with(kWav) && text.size() > kWav.size()) {
        sink.kind = AudioSinkChoice::Kind::Wav;
        sink.wavPath = std::string(text.substr(kWav.size()));
        return sink;
    }
    return std::nullopt;
}

AudioSinkChoice AudioSinkFromEnvironment() {
    const char* value = std::getenv("ZELVOR_AUDIO_SINK");
    if (!value || !*value)
        return {};
    if (auto sink = ParseAudioSinkChoice(value))
        return *sink;
    static std::once_flag warned;
    std::call_once(warned, [value] {
        std::fprintf(stderr, "zelvor: ZELVOR_AUDIO_SINK=%s names no sink; using auto\n", value);
    });
    return {};
}

GstElement* MakeAudioSink(const AudioSinkChoice& sink, const std::shared_ptr<WavCapture>& capture) {
    switch (sink.kind) {
    case AudioSinkChoice::Kind::Fake:
        return MakeTimedFakeSink("fake-audio");
    case AudioSinkChoice::Kind::Wav:
        return MakeWavSink(capture);
    case AudioSinkChoice::Kind::Auto:
        break;
    }
    return gst_element_factory_make("autoaudiosink", nullptr);
}

} // namespace zelvor
