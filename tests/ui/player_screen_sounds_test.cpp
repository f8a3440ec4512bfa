// The player's short sounds through GStreamer, heard through a WAV capture
// (never a sound card): the beep, the device's wave files, and the rule
// that a capture named in the environment belongs to the playback graph.

#include <QApplication>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>

#include "host/host_sounds.h"
#include "tests/support/test_media.h"
#include "tests/support/test_device.h"
#include "tests/ui/player_screen_rig.h"

namespace zelvor {
namespace {

// A 16-bit mono PCM wave file of a 660 Hz tone at 22050 Hz.
std::string ToneWav(double seconds) {
    std::string out;
    auto le = [&out](std::uint32_t value, int bytes) {
        for (int i = 0; i < bytes; ++i)
            out.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
    };
    const auto frames = static_cast<std::uint32_t>(22050 * seconds);
    out += "RIFF";
    le(36 + 2 * frames, 4);
    out += "WAVEfmt "; // PCM, mono, the rate, bytes a second, bytes a frame, bits a sample
    for (auto [value, bytes] : {std::pair{16u, 4}, {1u, 2}, {1u, 2}, {22050u, 4}, {44100u, 4},
                                {2u, 2}, {16u, 2}})
        le(value, bytes);
    out += "data";
    le(2 * frames, 4);
    for (std::uint32_t i = 0; i < frames; ++i)
        le(static_cast<std::uint16_t>(
               static_cast<std::int16_t>(12000 * std::sin(2 * M_PI * 660 * i / 22050))),
           2);
    return out;
}

// Runs the event loop until every sound ended (or a generous time is up).
bool WaitUntilQuiet(const HostSounds& sounds) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (sounds.ActiveSounds() > 0 && std::chrono::steady_clock::now() < deadline)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    return sounds.ActiveSounds() == 0;
}

// What `play` made heard through a capture of its own, the sounds gone after.
std::optional<testing::WavData> Heard(const std::filesystem::path& capture,
                                      const std::function<void(HostSounds&)>& play) {
    testing::EnsureQtApplication();
    {
        HostSounds sounds(AudioSinkChoice{AudioSinkChoice::Kind::Wav, capture, false});
        play(sounds);
    }
    return testing::ReadWav(capture);
}

TEST(HostSounds, TheBeepIsAShortToneThatEndsByItself) {
    testing::TempDir dir;
    auto wav = Heard(dir.Path() / "beep.wav", [](HostSounds& sounds) {
        sounds.MessageBeep();
        EXPECT_EQ(sounds.ActiveSounds(), 1);
        ASSERT_TRUE(WaitUntilQuiet(sounds));
    });
    ASSERT_TRUE(wav);
    EXPECT_NEAR(wav->Seconds(), 0.12, 0.03);
    EXPECT_GT(wav->Peak(), 3000);
}

TEST(HostSounds, TheDevicesWaveFilesPlayAndMissingOnesDoNot) {
    testing::TestDevice device;
    device.WriteFile(kSoundDeleteSong, ToneWav(0.25));
    auto wav = Heard(device.Root() / "sounds.wav", [](HostSounds& sounds) {
        EXPECT_FALSE(sounds.PlaySound(kSoundMyFavorite)); // not on this device
        EXPECT_EQ(sounds.ActiveSounds(), 0);
        EXPECT_TRUE(sounds.PlaySound(u"\\WINDOWS\\deletesong.WAV")); // found ignoring case
        ASSERT_TRUE(WaitUntilQuiet(sounds));
    });
    ASSERT_TRUE(wav);
    EXPECT_NEAR(wav->Seconds(), 0.25, 0.05);
    EXPECT_GT(wav->Peak(), 6000);
}

TEST(HostSounds, SoundsStillPlayingStopWithTheirOwnerAndLeaveTheCaptureWhole) {
    testing::TestDevice device;
    device.WriteFile(kSoundMyFavorite, ToneWav(3.0));
    const auto capture = device.Root() / "cut.wav";
    auto wav = Heard(capture, [&](HostSounds& sounds) {
        ASSERT_TRUE(sounds.PlaySound(kSoundMyFavorite));
        // Until the first audio reached the capture (a header and more).
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        std::error_code error;
        while (std::filesystem::file_size(capture, error) < 4096 &&
               std::chrono::steady_clock::now() < deadline)
            QApplication::processEvents(QEventLoop::AllEvents, 20);
        EXPECT_EQ(sounds.ActiveSounds(), 1);
    }); // stopped at the owner's end, long before the tone's
    ASSERT_TRUE(wav);
    EXPECT_LT(wav->Seconds(), 2.5);
}

TEST(HostSounds, ACaptureNamedInTheEnvironmentIsLeftToThePlaybackGraph) {
    testing::EnsureQtApplication();
    testing::TempDir dir;
    const auto capture = dir.Path() / "tracks.wav";
    const char* before = std::getenv("ZELVOR_AUDIO_SINK");
    const std::string saved = before ? before : "fake";
    setenv("ZELVOR_AUDIO_SINK", ("wav:" + capture.string()).c_str(), 1);
    {
        HostSounds sounds;
        sounds.MessageBeep();
        EXPECT_TRUE(WaitUntilQuiet(sounds));
    }
    setenv("ZELVOR_AUDIO_SINK", saved.c_str(), 1);
    EXPECT_FALSE(std::filesystem::exists(capture));
}

TEST(HostSounds, ABurstOfBeepsIsCappedAndTheRestDropped) {
    testing::EnsureQtApplication();
    HostSounds sounds(AudioSinkChoice{AudioSinkChoice::Kind::Fake, {}, false});
    for (int i = 0; i < HostSounds::kMaxActive + 3; ++i)
        sounds.MessageBeep();
    EXPECT_EQ(sounds.ActiveSounds(), HostSounds::kMaxActive);
    EXPECT_TRUE(WaitUntilQuiet(sounds));
}

} // namespace
} // namespace zelvor
