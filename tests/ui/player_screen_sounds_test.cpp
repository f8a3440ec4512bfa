// The player's short sounds through GStreamer, heard through a WAV capture
// (never a sound card): the beep, the device's wave files, and the rule
// that a capture named in the environment belongs to the playback graph.

#include <QApplication>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

#include "platform/host/host_sounds.h"
#include "tests/host/test_media.h"
#include "tests/support/test_device.h"
#include "tests/ui/player_screen_rig.h"

namespace zelvor {
namespace {

// A 16-bit mono PCM wave file of a 660 Hz tone.
std::string ToneWav(int rate, double seconds) {
    const auto frames = static_cast<std::uint32_t>(rate * seconds);
    std::string data;
    for (std::uint32_t i = 0; i < frames; ++i) {
        auto sample = static_cast<std::int16_t>(12000 * std::sin(2 * M_PI * 660 * i / rate));
        data.push_back(static_cast<char>(sample & 0xFF));
        data.push_back(static_cast<char>((sample >> 8) & 0xFF));
    }
    auto le = [](std::uint32_t value, int bytes) {
        std::string out;
        for (int i = 0; i < bytes; ++i)
            out.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
        return out;
    };
    const auto size = static_cast<std::uint32_t>(data.size());
    return "RIFF" + le(36 + size, 4) + "WAVEfmt " + le(16, 4) + le(1, 2) + le(1, 2) +
           le(static_cast<std::uint32_t>(rate), 4) + le(static_cast<std::uint32_t>(rate) * 2, 4) +
           le(2, 2) + le(16, 2) + "data" + le(size, 4) + data;
}

// Runs the event loop until every sound ended (or a generous time is up).
bool WaitUntilQuiet(const HostSounds& sounds) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (sounds.ActiveSounds() > 0 && std::chrono::steady_clock::now() < deadline)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    return sounds.ActiveSounds() == 0;
}

AudioSinkChoice WavSink(const std::filesystem::path& path) {
    AudioSinkChoice sink;
    sink.kind = AudioSinkChoice::Kind::Wav;
    sink.wavPath = path;
    return sink;
}

TEST(HostSounds, TheBeepIsAShortToneThatEndsByItself) {
    testing::EnsureWidgetApplication();
    testing::TempDir dir;
    const auto capture = dir.Path() / "beep.wav";
    {
        HostSounds sounds(WavSink(capture));
        sounds.MessageBeep();
        EXPECT_EQ(sounds.ActiveSounds(), 1);
        ASSERT_TRUE(WaitUntilQuiet(sounds));
    }
    auto wav = testing::ReadWav(capture);
    ASSERT_TRUE(wav);
    EXPECT_NEAR(wav->Seconds(), 0.12, 0.03);
    EXPECT_GT(wav->Peak(), 3000);
}

TEST(HostSounds, TheDevicesWaveFilesPlayAndMissingOnesDoNot) {
    testing::EnsureWidgetApplication();
    testing::TestDevice device;
    device.WriteFile(kSoundDeleteSong, ToneWav(22050, 0.25));
    const auto capture = device.Root() / "sounds.wav";
    {
        HostSounds sounds(WavSink(capture));
        EXPECT_FALSE(sounds.PlaySound(kSoundMyFavorite)); // not on this device
        EXPECT_EQ(sounds.ActiveSounds(), 0);
        EXPECT_TRUE(sounds.PlaySound(u"\\WINDOWS\\deletesong.WAV")); // found ignoring case
        ASSERT_TRUE(WaitUntilQuiet(sounds));
    }
    auto wav = testing::ReadWav(capture);
    ASSERT_TRUE(wav);
    EXPECT_NEAR(wav->Seconds(), 0.25, 0.05);
    EXPECT_GT(wav->Peak(), 6000);
}

TEST(HostSounds, ACaptureNamedInTheEnvironmentIsLeftToThePlaybackGraph) {
    testing::EnsureWidgetApplication();
    testing::TempDir dir;
    const auto capture = dir.Path() / "tracks.wav";
    const char* before = std::getenv("ZELVOR_AUDIO_SINK");
    const std::string saved = before ? before : "";
    const std::string value = "wav:" + capture.string();
    setenv("ZELVOR_AUDIO_SINK", value.c_str(), 1);
    {
        HostSounds sounds;
        sounds.MessageBeep();
        EXPECT_TRUE(WaitUntilQuiet(sounds));
    }
    if (before)
        setenv("ZELVOR_AUDIO_SINK", saved.c_str(), 1);
    else
        unsetenv("ZELVOR_AUDIO_SINK");
    EXPECT_FALSE(std::filesystem::exists(capture));
}

TEST(HostSounds, ABurstOfBeepsIsCappedAndTheRestDropped) {
    testing::EnsureWidgetApplication();
    HostSounds sounds(AudioSinkChoice{AudioSinkChoice::Kind::Fake, {}, false});
    for (int i = 0; i < HostSounds::kMaxActive + 3; ++i)
        sounds.MessageBeep();
    EXPECT_EQ(sounds.ActiveSounds(), HostSounds::kMaxActive);
    EXPECT_TRUE(WaitUntilQuiet(sounds));
}

TEST(HostSounds, SoundsStillPlayingStopWithTheirOwnerAndLeaveTheCaptureWhole) {
    testing::EnsureWidgetApplication();
    testing::TestDevice device;
    device.WriteFile(kSoundMyFavorite, ToneWav(22050, 3.0));
    const auto capture = device.Root() / "cut.wav";
    {
        HostSounds sounds(WavSink(capture));
        ASSERT_TRUE(sounds.PlaySound(kSoundMyFavorite));
        // Until the first audio reached the capture (a header and more).
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        std::error_code error;
        while (std::filesystem::file_size(capture, error) < 4096 &&
               std::chrono::steady_clock::now() < deadline)
            QApplication::processEvents(QEventLoop::AllEvents, 20);
        EXPECT_EQ(sounds.ActiveSounds(), 1);
    } // stopped here, long before the tone's end
    auto wav = testing::ReadWav(capture);
    ASSERT_TRUE(wav);
    EXPECT_LT(wav->Seconds(), 2.5);
}

} // namespace
} // namespace zelvor
