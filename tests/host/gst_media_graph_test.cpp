// The GStreamer graph on real files made by ffmpeg, captured through the wav
// sink. Every test plays in real time: files are kept to a few seconds.

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <fstream>
#include <random>

#include "host/gst_media_graph.h"
#include "tests/support/test_media.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {
using testing::Codec;
using testing::ReadWav;
using testing::TempDir;

constexpr std::int64_t kUnitsPerSecond = 10'000'000;
constexpr std::int32_t kWaitMs = 20'000;

// Renders a file into a fresh graph of the factory.
std::unique_ptr<MediaGraph> Rendered(MediaGraphFactory& factory, const std::filesystem::path& file,
                                     HResult* result = nullptr) {
    std::unique_ptr<MediaGraph> graph;
    EXPECT_EQ(factory.CreateGraph(graph), kOk);
    HResult hr = graph->RenderFile(file);
    if (result)
        *result = hr;
    return graph;
}

// Runs the graph until its end of stream is taken from the event queue.
void PlayToEnd(MediaGraph& graph) {
    ASSERT_EQ(graph.Run(), kOk);
    std::int32_t code = 0;
    std::intptr_t p1 = 0, p2 = 0;
    ASSERT_EQ(graph.GetEvent(&code, &p1, &p2, kWaitMs), kOk);
    EXPECT_EQ(code, kEcComplete);
}

// Renders the file into a graph heard through a wav capture, lets play() drive
// it, and reads the capture once the graph is gone.
template <class Play>
std::optional<testing::WavData> Captured(const std::filesystem::path& file, Play play) {
    auto capture = std::filesystem::path(file).replace_extension(".capture.wav");
    {
        GstGraphFactory factory(AudioSinkChoice{AudioSinkChoice::Kind::Wav, capture, false});
        auto graph = Rendered(factory, file);
        play(*graph);
    }
    return ReadWav(capture);
}

// A tone that starts after three seconds of silence: where it starts in the
// capture tells where a seek landed.
std::filesystem::path LateTone(const TempDir& dir, Codec codec) {
    auto file = dir.Path() / (std::string("late") + ExtensionOf(codec));
    EXPECT_TRUE(testing::MakeAudioFile(file, codec, 4.0, "if(gte(t,3),0.5*sin(2*PI*440*t),0)"));
    return file;
}

// Where the late tone starts in a capture, in seconds.
double Onset(const testing::WavData& wav) {
    auto frame = wav.FirstFrameAbove(800);
    EXPECT_TRUE(frame);
    return frame ? static_cast<double>(*frame) / wav.rate : -1;
}

// One capture per row, of the late tone sought to 2.5 s: the graph's length
// and end position, where the tone starts (where the seek landed), how long
// the capture runs and its peak (the tone is at half scale; -20 dB is a tenth).
struct Played {
    const char* name;
    Codec codec;
    std::int32_t volume;
    double minPeak, maxPeak; // as parts of half scale
};

void PrintTo(const Played& played, std::ostream* out) {
    *out << played.name;
}

class GstPlayed : public ::testing::TestWithParam<Played> {};

TEST_P(GstPlayed, SeekLandsAndTheCaptureHasTheLengthAndLevel) {
    TempDir dir;
    auto wav = Captured(LateTone(dir, GetParam().codec), [](MediaGraph& graph) {
        std::int64_t duration = 0, position = 0;
        graph.GetDuration(&duration);
        EXPECT_NEAR(duration / 1e7, 4.0, 0.1);
        ASSERT_EQ(graph.PutVolume(GetParam().volume), kOk);
        ASSERT_EQ(graph.SetPositions(25 * kUnitsPerSecond / 10), kOk);
        graph.GetCurrentPosition(&position);
        EXPECT_NEAR(position / 1e7, 2.5, 0.1);
        PlayToEnd(graph);
        graph.GetCurrentPosition(&position);
        EXPECT_NEAR(position / 1e7, duration / 1e7, 0.1);
    });
    ASSERT_TRUE(wav);
    EXPECT_EQ(wav->rate, 44100);
    EXPECT_EQ(wav->channels, 2);
    EXPECT_NEAR(wav->Seconds(), 1.5, 0.1);
    const double peak = wav->Peak() / 16384.0;
    EXPECT_GE(peak, GetParam().minPeak);
    EXPECT_LE(peak, GetParam().maxPeak);
    if (GetParam().maxPeak > 0) {
        EXPECT_NEAR(Onset(*wav), 0.5, 0.1);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Formats, GstPlayed,
    ::testing::Values(Played{"Mp3", Codec::Mp3, 0, 0.73, 1.1}, Played{"Wma", Codec::Wma, 0, 0.73, 1.1},
                      Played{"Aac", Codec::Aac, 0, 0.73, 1.1},
                      Played{"Mp3Minus20dB", Codec::Mp3, -2000, 0.085, 0.115},
                      Played{"AacSilent", Codec::Aac, -10000, 0, 0}),
    [](const auto& tp) { return std::string(tp.param.name); });

TEST(GstRender, AFileNoDecoderTakesFailsQuickly) {
    TempDir dir;
    std::mt19937 random(7);
    std::vector<char> noise(64 * 1024);
    for (char& c : noise)
        c = static_cast<char>(random());
    const std::pair<const char*, std::string> cases[] = {
        {"noise.mp3", std::string(noise.begin(), noise.end())},
        {"empty.wma", ""},
        {"text.aac", "this is not audio at all\n"},
        {"truncated.wma", std::string("\x30\x26\xB2\x75\x8E\x66\xCF\x11", 8)},
    };
    GstGraphFactory factory(AudioSinkChoice{AudioSinkChoice::Kind::Fake, {}, false});
    for (const auto& [name, bytes] : cases) {
        auto path = dir.Path() / name;
        std::ofstream(path, std::ios::binary) << bytes;
        auto start = std::chrono::steady_clock::now();
        HResult hr = kOk;
        auto graph = Rendered(factory, path, &hr);
        auto took = std::chrono::steady_clock::now() - start;
        EXPECT_TRUE(Failed(hr)) << name;
        EXPECT_LT(took, GstMediaGraph::kRenderTimeout + std::chrono::seconds(1)) << name;
    }
}

TEST(GstEvents, VolumeRangeStopDropsAnEndNotYetTakenAndWaitingNeedsARunningGraph) {
    TempDir dir;
    auto file = dir.Path() / "short.mp3";
    ASSERT_TRUE(testing::MakeAudioFile(file, Codec::Mp3, 0.3));
    GstGraphFactory factory(AudioSinkChoice{AudioSinkChoice::Kind::Fake, {}, false});
    auto graph = Rendered(factory, file);
    EXPECT_EQ(graph->PutVolume(1), kEInvalidArg);
    EXPECT_EQ(graph->PutVolume(-10001), kEInvalidArg);
    std::int32_t code = -1;
    EXPECT_EQ(graph->WaitForCompletion(kInfinite, &code), kVfwEWrongState);
    std::atomic<int> notified = 0;
    graph->SetNotify([&] { ++notified; });
    ASSERT_EQ(graph->Run(), kOk);
    EXPECT_EQ(graph->WaitForCompletion(kWaitMs, &code), kOk);
    EXPECT_EQ(code, kEcComplete);
    EXPECT_EQ(notified, 1);
    graph->Stop();
    std::intptr_t p1 = 0, p2 = 0;
    EXPECT_EQ(graph->GetEvent(&code, &p1, &p2, 0), kEAbort);
}

} // namespace
} // namespace zelvor
