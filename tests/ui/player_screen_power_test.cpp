// The battery gauge's level from a power-supply folder laid out as the
// kernel lays out /sys/class/power_supply, including the entries that are
// not the system's battery and files that do not hold what they should;
// then the player's short sounds.

#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <string>

#include "host/power_status.h"
#include "tests/support/test_device.h"
#include <cmath>
#include "host/host_sounds.h"
#include "tests/support/test_media.h"
#include "tests/ui/player_screen_rig.h"

namespace zelvor {
namespace {

using Files = std::map<std::string, std::string>;
using Supplies = std::vector<std::pair<std::string, Files>>;

struct SupplyCase {
    const char* what;
    Supplies supplies; // one sub-folder a supply: file name -> contents
    int level;         // 100 is the charging image
    int percent;
};

Files Battery(std::string capacity) {
    return {{"type", "Battery"}, {"capacity", capacity}, {"status", "Discharging"}};
}

TEST(PowerStatus, WhichSuppliesCountAndWhatTheirFilesSay) {
    const auto mains = [](const char* type) { return Files{{"type", type}, {"online", "1"}}; };
    const int unknown = kBatteryPercentUnknown;
    const SupplyCase cases[] = {
        {"a battery on mains is not charging when full",
         {{"ADP1", mains("Mains")}, {"BAT0", {{"type", "Battery"}, {"capacity", "100"}, {"status", "Full"}}}}, 5, 100},
        {"charging on mains", {{"AC", mains("Mains")}, {"BAT0", {{"type", "Battery"}, {"capacity", "30"}, {"status", "Charging"}}}}, 100, 30},
        {"an online USB supply is mains power",
         {{"usb", mains("USB")}, {"BAT1", {{"type", "Battery"}, {"capacity", "64"}, {"status", "Charging"}}}}, 100, 64},
        {"a peripheral's battery and one not present are not the system's",
         {{"BAT-mouse", {{"type", "Battery"}, {"scope", "Device"}, {"capacity", "5"}}},
          {"BAT0", {{"type", "Battery"}, {"present", "0"}}},
          {"BAT1", Battery("77")}}, 4, 77},
        {"the first battery by name", {{"BAT1", Battery("90")}, {"BAT0", Battery("10")}}, 1, 10},
        {"a fifth is up to 20 %", {{"BAT0", Battery("20")}}, 1, 20},
        {"two fifths from 21 %", {{"BAT0", Battery("21")}}, 2, 21},
        {"empty", {{"BAT0", Battery("0")}}, 0, 0},
        {"mains alone", {{"AC", mains("Mains")}}, 100, unknown},
        {"nothing at all", {}, 100, unknown},
        {"the energy counters without a capacity",
         {{"BAT0", {{"type", "Battery"}, {"energy_now", "18500000"}, {"energy_full", "50000000"}}}}, 2, 37},
        {"not a number", {{"BAT0", Battery("abc")}}, 100, unknown},
        {"above 100", {{"BAT0", Battery("150")}}, 100, unknown},
        {"negative", {{"BAT0", Battery("-3")}}, 100, unknown},
        {"a unit after the number", {{"BAT0", Battery("42 %")}}, 100, unknown},
        {"a huge number", {{"BAT0", Battery(std::string(5000, '7'))}}, 100, unknown},
        {"a zero full energy", {{"BAT0", {{"type", "Battery"}, {"energy_now", "5"}, {"energy_full", "0"}}}}, 100, unknown},
        {"a charge above full", {{"BAT0", {{"type", "Battery"}, {"charge_now", "900"}, {"charge_full", "100"}}}}, 100, unknown},
    };
    for (const SupplyCase& c : cases) {
        testing::TempDir dir;
        for (const auto& [name, files] : c.supplies) {
            std::filesystem::create_directories(dir.Path() / name);
            for (const auto& [file, text] : files)
                std::ofstream(dir.Path() / name / file) << text << "\n";
        }
        SystemPowerStatus status;
        ASSERT_TRUE(ReadPowerStatus(dir.Path(), status)) << c.what;
        EXPECT_EQ(BatteryLevelOf(true, status), c.level) << c.what;
        EXPECT_EQ(status.batteryLifePercent, c.percent) << c.what;
    }
    SystemPowerStatus status;
    EXPECT_FALSE(ReadPowerStatus("/nonexistent/power_supply", status));
}

// The player's short sounds through GStreamer, heard through a WAV capture
// (never a sound card): the device's wave files.
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
        // It ends by itself.
        EXPECT_TRUE(testing::SpinUntil([&] { return sounds.ActiveSounds() == 0; }, 10000));
    }
    auto wav = testing::ReadWav(capture);
    ASSERT_TRUE(wav);
    EXPECT_NEAR(wav->Seconds(), 0.25, 0.05);
    EXPECT_GT(wav->Peak(), 6000);
}

} // namespace
} // namespace zelvor
