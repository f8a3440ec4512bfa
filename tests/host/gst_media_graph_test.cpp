// The GStreamer graph on real files made by ffmpeg, captured through the wav
// sink. Every test plays in real time: files are kept to a few seconds.

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
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
    auto frame = wav.FirstFrameAbove(4000);
    EXPECT_TRUE(frame);
    return frame ? static_cast<double>(*frame) / wav.rate : -1;
}

class PlayedFormat : public ::testing::TestWithParam<Codec> {};

TEST_P(PlayedFormat, PlaysToItsEndAndTheCaptureHasItsLength) {
    TempDir dir;
    auto file = dir.Path() / (std::string("tone") + ExtensionOf(GetParam()));
    ASSERT_TRUE(testing::MakeAudioFile(file, GetParam(), 2.0));
    auto wav = Captured(file, [](MediaGraph& graph) {
        std::int64_t duration = 0, position = 0;
        graph.GetDuration(&duration);
        EXPECT_NEAR(duration / 1e7, 2.0, 0.1);
        PlayToEnd(graph);
        graph.GetCurrentPosition(&position);
        EXPECT_NEAR(position / 1e7, duration / 1e7, 0.1);
    });
    ASSERT_TRUE(wav);
    EXPECT_EQ(wav->rate, 44100);
    EXPECT_EQ(wav->channels, 2);
    EXPECT_NEAR(wav->Seconds(), 2.0, 0.05);
    EXPECT_GT(wav->Peak(), 12000); // the tone is at half scale
}

INSTANTIATE_TEST_SUITE_P(Mp3WmaAac, PlayedFormat,
                         ::testing::Values(Codec::Mp3, Codec::Wma, Codec::Aac),
                         [](const auto& param) { return std::string(ExtensionOf(param.param) + 1); });

TEST(GstSeek, LandsWithinATenthOfASecond) {
    TempDir dir;
    auto wav = Captured(LateTone(dir, Codec::Mp3), [](MediaGraph& graph) {
        ASSERT_EQ(graph.SetPositions(25 * kUnitsPerSecond / 10), kOk);
        std::int64_t position = 0;
        graph.GetCurrentPosition(&position);
        EXPECT_NEAR(position / 1e7, 2.5, 0.1);
        PlayToEnd(graph);
    });
    ASSERT_TRUE(wav);
    EXPECT_NEAR(Onset(*wav), 0.5, 0.1);
    EXPECT_NEAR(wav->Seconds(), 1.5, 0.1);
}

TEST(GstSeek, ASeekWhilePlayingKeepsPlayingFromTheTarget) {
    TempDir dir;
    auto wav = Captured(LateTone(dir, Codec::Wma), [](MediaGraph& graph) {
        ASSERT_EQ(graph.Run(), kOk);
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        ASSERT_EQ(graph.SetPositions(2 * kUnitsPerSecond), kOk);
        std::int32_t code = 0;
        std::intptr_t p1 = 0, p2 = 0;
        ASSERT_EQ(graph.GetEvent(&code, &p1, &p2, kWaitMs), kOk);
    });
    ASSERT_TRUE(wav);
    // About 0.3 s of silence before the seek, one more second after it.
    EXPECT_NEAR(Onset(*wav), 1.3, 0.15);
    EXPECT_NEAR(wav->Seconds(), 2.3, 0.15);
}

TEST(GstVolume, SilenceCapturesZerosAndFullLevelTheSignal) {
    TempDir dir;
    auto file = dir.Path() / "tone.aac";
    ASSERT_TRUE(testing::MakeAudioFile(file, Codec::Aac, 1.0));
    int peaks[3] = {};
    const std::int32_t volumes[3] = {-10000, 0, -2000};
    for (int i = 0; i < 3; ++i) {
        auto wav = Captured(file, [&](MediaGraph& graph) {
            ASSERT_EQ(graph.PutVolume(volumes[i]), kOk);
            PlayToEnd(graph);
        });
        ASSERT_TRUE(wav);
        EXPECT_NEAR(wav->Seconds(), 1.0, 0.05);
        peaks[i] = wav->Peak();
    }
    EXPECT_EQ(peaks[0], 0);
    EXPECT_GT(peaks[1], 12000);
    // -20 dB is a tenth of the amplitude.
    EXPECT_NEAR(static_cast<double>(peaks[2]) / peaks[1], 0.1, 0.01);
}

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
