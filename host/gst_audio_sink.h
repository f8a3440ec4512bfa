#pragma once
// Where a graph's audio goes, chosen by ZELVOR_AUDIO_SINK:
//   auto      the desktop's or device's sound output (autoaudiosink), the default
//   fake      nowhere, but in real time, so positions and seeks behave as played
//   wav:PATH  captured to a WAV file (see WavCapture), also in real time

#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>

#include <gst/gst.h>

#include "host/gst_wav_capture.h"

namespace zelvor {

struct AudioSinkChoice {
    enum class Kind { Auto, Fake, Wav };
    Kind kind = Kind::Auto;
    std::filesystem::path wavPath;
    // Capture the silence between graphs too (benchmarks of the gap).
    bool padGaps = false;
};

// nullopt when the text names no sink.
std::optional<AudioSinkChoice> ParseAudioSinkChoice(std::string_view text);
// ZELVOR_AUDIO_SINK, or auto when it is unset or empty; a value that names
// no sink is reported on standard error once and read as auto.
AudioSinkChoice AudioSinkFromEnvironment();

// A new floating sink element (or bin) for one graph, nullptr when the
// elements are missing. The wav sink appends to the capture, which must be
// given for Kind::Wav.
GstElement* MakeAudioSink(const AudioSinkChoice& sink, const std::shared_ptr<WavCapture>& capture);

} // namespace zelvor
