// The battery gauge's level from a power-supply folder laid out as the
// kernel lays out /sys/class/power_supply, including the entries that are
// not the system's battery and files that do not hold what they should.

#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <string>

#include "host/power_status.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {

using Files = std::map<std::string, std::string>;
using Supplies = std::vector<std::pair<std::string, Files>>;

TEST(PowerStatus, TheChargeInFifthsOnBattery) {
    for (int percent = 0; percent <= 100; ++percent) { // 1-20 % is one fifth, 81-100 five
        const SystemPowerStatus status{kAcLineOffline, kBatteryFlagHigh,
                                       static_cast<std::uint8_t>(percent)};
        EXPECT_EQ(BatteryLevelOf(true, status), (percent + 19) / 20) << percent << " %";
    }
    EXPECT_EQ(BatteryLevelOf(false, {kAcLineOffline, kBatteryFlagHigh, 50}), 100);
}

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

} // namespace
} // namespace zelvor
