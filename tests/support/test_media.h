#pragma once
// Test media for the GStreamer graph: audio files made by ffmpeg at test time
// and a reader for the WAV captures the graph writes.

#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "library/track_list.h"
#include "tests/support/test_device.h"

namespace zelvor::testing {

enum class Codec { Mp3, Wma, Aac };

// The file extension and ffmpeg encoder of a codec.
const char* ExtensionOf(Codec codec);

// Writes an audio file of the given length with ffmpeg. expression is an
// aevalsrc expression of t (seconds), e.g. "0.5*sin(2*PI*440*t)".
// 44.1 kHz stereo. False when ffmpeg failed.
bool MakeAudioFile(const std::filesystem::path& path, Codec codec, double seconds,
                   const std::string& expression = "0.5*sin(2*PI*440*t)");

// A one-second file per codec on the device's card ("\\Storage Card\\Music\\1.mp3",
// "2.wma", ...), and the queue of records that names them in that order.
// An empty list when ffmpeg failed.
TrackList MakeAlbum(TestDevice& device, std::initializer_list<Codec> codecs);

struct WavData {
    int rate = 0;
    int channels = 0;
    int bitsPerSample = 0;
    std::vector<std::int16_t> samples; // interleaved

    double Seconds() const {
        return channels && rate ? static_cast<double>(samples.size()) / channels / rate : 0;
    }
    int Peak(std::size_t fromFrame = 0, std::size_t toFrame = SIZE_MAX) const;
    // The first frame whose magnitude exceeds the threshold, or nullopt.
    std::optional<std::size_t> FirstFrameAbove(int threshold) const;
};

// A 16-bit PCM WAV file; nullopt when it is not one (or its sizes lie).
std::optional<WavData> ReadWav(const std::filesystem::path& path);

} // namespace zelvor::testing
