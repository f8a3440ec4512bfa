// The player's short sounds through GStreamer, heard through a WAV capture
// (never a sound card): the device's wave files.

#include <QApplication>
#include <chrono>
#include <cmath>
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

TEST(HostSounds, TheDevicesWaveFilesPlayAndMissingOnesDoNot) {
    testing::EnsureQtApplication();
    testing::TestDevice device;
    device.WriteFile(kSoundDeleteSong, ToneWav(0.25));
    const auto capture = device.Root() / "sounds.wav";
    {
        HostSounds sounds(AudioSinkChoice{AudioSinkChoice::Kind::Wav, capture, false});
        EXPECT_FALSE(sounds.PlaySound(kSoundMyFavorite)); // not on this device
        EXPECT_EQ(sounds.ActiveSounds(), 0);
        EXPECT_TRUE(sounds.PlaySound(u"\\WINDOWS\\deletesong.WAV")); // found ignoring case
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (sounds.ActiveSounds() > 0 && std::chrono::steady_clock::now() < deadline)
            QApplication::processEvents(QEventLoop::AllEvents, 20);
        EXPECT_EQ(sounds.ActiveSounds(), 0); // it ended by itself
    }
    auto wav = testing::ReadWav(capture);
    ASSERT_TRUE(wav);
    EXPECT_NEAR(wav->Seconds(), 0.25, 0.05);
    EXPECT_GT(wav->Peak(), 6000);
}

} // namespace
} // namespace zelvor
