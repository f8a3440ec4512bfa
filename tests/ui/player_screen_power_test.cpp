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

// A power-supply folder: one sub-folder a supply, file name -> contents
// (a line feed is added); the level the gauge shows and the status read.
int LevelOf(const Supplies& supplies, SystemPowerStatus& status) {
    testing::TempDir dir;
    for (const auto& [name, files] : supplies) {
        std::filesystem::create_directories(dir.Path() / name);
        for (const auto& [file, text] : files)
            std::ofstream(dir.Path() / name / file) << text << "\n";
    }
    const bool read = ReadPowerStatus(dir.Path(), status);
    EXPECT_TRUE(read);
    return BatteryLevelOf(read, status);
}

TEST(PowerStatus, TheChargeInFifthsOnBattery) {
    const std::pair<int, int> cases[] = {{0, 0},  {1, 1},  {20, 1}, {21, 2}, {40, 2}, {41, 3},
                                         {60, 3}, {61, 4}, {80, 4}, {81, 5}, {100, 5}};
    for (auto [percent, level] : cases) {
        SystemPowerStatus status;
        EXPECT_EQ(LevelOf({{"AC", {{"type", "Mains"}, {"online", "0"}}},
                           {"BAT0", {{"type", "Battery"},
                                     {"capacity", std::to_string(percent)},
                                     {"status", "Discharging"}}}},
                          status),
                  level)
            << percent << " %";
    }
}

// 100 is the charging image.
TEST(PowerStatus, WhichSuppliesCountAndHow) {
    struct Case {
        const char* what;
        Supplies supplies;
        int level;
    };
    const Case cases[] = {
        {"a full battery on mains is not charging",
         {{"ADP1", {{"type", "Mains"}, {"online", "1"}}},
          {"BAT0", {{"type", "Battery"}, {"capacity", "100"}, {"status", "Full"}}}},
         5},
        {"an online USB supply is mains power",
         {{"ucsi-source-psy-1", {{"type", "USB"}, {"online", "1"}}},
          {"BAT1", {{"type", "Battery"}, {"capacity", "64"}, {"status", "Charging"}}}},
         100},
        // Sorted first, but a wireless mouse's; then one not present.
        {"a peripheral's battery is not the system's",
         {{"BAT-mouse", {{"type", "Battery"}, {"scope", "Device"}, {"capacity", "5"}}},
          {"BAT0", {{"type", "Battery"}, {"present", "0"}}},
          {"BAT1", {{"type", "Battery"}, {"capacity", "77"}, {"status", "Discharging"}}}},
         4},
        {"the first battery by name, whatever the listing order",
         {{"BAT1", {{"type", "Battery"}, {"capacity", "90"}}},
          {"BAT0", {{"type", "Battery"}, {"capacity", "10"}}}},
         1},
    };
    for (const Case& c : cases) {
        SystemPowerStatus status;
        EXPECT_EQ(LevelOf(c.supplies, status), c.level) << c.what;
    }
}

TEST(PowerStatus, TheStatusReadFromTheSupplies) {
    SystemPowerStatus status;
    EXPECT_EQ(LevelOf({{"AC", {{"type", "Mains"}, {"online", "1"}}},
                       {"BAT0", {{"type", "Battery"}, {"capacity", "30"}, {"status", "Charging"}}}},
                      status),
              100);
    EXPECT_EQ(status.acLineStatus, kAcLineOnline);
    EXPECT_EQ(status.batteryLifePercent, 30);
    EXPECT_TRUE(status.batteryFlag & kBatteryFlagCharging);

    EXPECT_EQ(LevelOf({{"AC", {{"type", "Mains"}, {"online", "1"}}}}, status), 100);
    EXPECT_EQ(status.batteryFlag, kBatteryFlagNoBattery);
    EXPECT_EQ(status.batteryLifePercent, kBatteryPercentUnknown);
    EXPECT_EQ(LevelOf({}, status), 100);
    EXPECT_EQ(status.acLineStatus, kAcLineUnknown);
    // Without a capacity, the energy counters give the charge.
    EXPECT_EQ(LevelOf({{"BAT0", {{"type", "Battery"}, {"energy_now", "18500000"},
                                 {"energy_full", "50000000"}, {"status", "Discharging"}}}},
                      status),
              2);
    EXPECT_EQ(status.batteryLifePercent, 37);
}

TEST(PowerStatus, AFolderThatCannotBeReadGivesTheChargingImage) {
    testing::TempDir dir;
    SystemPowerStatus status;
    EXPECT_FALSE(ReadPowerStatus(dir.Path() / "missing", status));
    EXPECT_EQ(BatteryLevelOf(false, status), 100);
}

TEST(PowerStatus, ValuesThatAreNotWhatTheKernelWritesReadAsUnknown) {
    const Files batteries[] = {
        {{"type", "Battery"}, {"capacity", "abc"}},
        {{"type", "Battery"}, {"capacity", "150"}},
        {{"type", "Battery"}, {"capacity", "-3"}},
        {{"type", "Battery"}, {"capacity", "42 %"}},
        {{"type", "Battery"}, {"capacity", std::string(5000, '7')}},
        {{"type", "Battery"}, {"energy_now", "5"}, {"energy_full", "0"}},
        {{"type", "Battery"}, {"charge_now", "900"}, {"charge_full", "100"}},
    };
    for (const Files& files : batteries) {
        SystemPowerStatus status;
        EXPECT_EQ(LevelOf({{"BAT0", files}}, status), 100) << files.rbegin()->second;
        EXPECT_EQ(status.batteryLifePercent, kBatteryPercentUnknown) << files.rbegin()->second;
    }
}

} // namespace
} // namespace zelvor
