// The battery gauge's level from a power-supply folder laid out as the
// kernel lays out /sys/class/power_supply, including the entries that are
// not the system's battery and files that do not hold what they should.

#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <string>

#include "platform/host/power_status.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {

class FakePowerSupplies {
public:
    // One supply: file name -> contents (a line feed is added).
    void Add(const std::string& name, const std::map<std::string, std::string>& files) {
        auto folder = m_dir.Path() / name;
        std::filesystem::create_directories(folder);
        for (const auto& [file, text] : files)
            std::ofstream(folder / file) << text << "\n";
    }
    const std::filesystem::path& Folder() const { return m_dir.Path(); }
    int Level() {
        SystemPowerStatus status;
        bool read = ReadPowerStatus(Folder(), status);
        return BatteryLevelOf(read, status);
    }

private:
    testing::TempDir m_dir;
};

TEST(PowerStatus, TheChargeInFifthsOnBattery) {
    const std::pair<int, int> cases[] = {{0, 0},  {1, 1},  {20, 1}, {21, 2}, {40, 2}, {41, 3},
                                         {60, 3}, {61, 4}, {80, 4}, {81, 5}, {100, 5}};
    for (auto [percent, level] : cases) {
        FakePowerSupplies sysfs;
        sysfs.Add("AC", {{"type", "Mains"}, {"online", "0"}});
        sysfs.Add("BAT0", {{"type", "Battery"},
                           {"capacity", std::to_string(percent)},
                           {"status", "Discharging"}});
        EXPECT_EQ(sysfs.Level(), level) << percent << " %";
    }
}

TEST(PowerStatus, ChargingOnMainsShowsTheChargingImage) {
    FakePowerSupplies sysfs;
    sysfs.Add("AC", {{"type", "Mains"}, {"online", "1"}});
    sysfs.Add("BAT0", {{"type", "Battery"}, {"capacity", "30"}, {"status", "Charging"}});
    SystemPowerStatus status;
    ASSERT_TRUE(ReadPowerStatus(sysfs.Folder(), status));
    EXPECT_EQ(status.acLineStatus, kAcLineOnline);
    EXPECT_EQ(status.batteryLifePercent, 30);
    EXPECT_TRUE(status.batteryFlag & kBatteryFlagCharging);
    EXPECT_EQ(BatteryLevelOf(true, status), 100);
}

TEST(PowerStatus, AFullBatteryOnMainsIsNotCharging) {
    FakePowerSupplies sysfs;
    sysfs.Add("ADP1", {{"type", "Mains"}, {"online", "1"}});
    sysfs.Add("BAT0", {{"type", "Battery"}, {"capacity", "100"}, {"status", "Full"}});
    EXPECT_EQ(sysfs.Level(), 5);
}

TEST(PowerStatus, AnOnlineUsbSupplyIsMainsPower) {
    FakePowerSupplies sysfs;
    sysfs.Add("ucsi-source-psy-1", {{"type", "USB"}, {"online", "1"}});
    sysfs.Add("BAT1", {{"type", "Battery"}, {"capacity", "64"}, {"status", "Charging"}});
    EXPECT_EQ(sysfs.Level(), 100);
}

TEST(PowerStatus, WithoutABatteryTheChargeIsUnknown) {
    FakePowerSupplies sysfs;
    sysfs.Add("AC", {{"type", "Mains"}, {"online", "1"}});
    SystemPowerStatus status;
    ASSERT_TRUE(ReadPowerStatus(sysfs.Folder(), status));
    EXPECT_EQ(status.batteryFlag, kBatteryFlagNoBattery);
    EXPECT_EQ(status.batteryLifePercent, kBatteryPercentUnknown);
    EXPECT_EQ(BatteryLevelOf(true, status), 100);

    FakePowerSupplies empty;
    EXPECT_EQ(empty.Level(), 100);
    SystemPowerStatus none;
    ASSERT_TRUE(ReadPowerStatus(empty.Folder(), none));
    EXPECT_EQ(none.acLineStatus, kAcLineUnknown);
}

TEST(PowerStatus, AFolderThatCannotBeReadGivesTheChargingImage) {
    testing::TempDir dir;
    SystemPowerStatus status;
    EXPECT_FALSE(ReadPowerStatus(dir.Path() / "missing", status));
    EXPECT_EQ(BatteryLevelOf(false, status), 100);
}

TEST(PowerStatus, APeripheralsBatteryIsNotTheSystems) {
    FakePowerSupplies sysfs;
    // Sorted first, but a wireless mouse's.
    sysfs.Add("BAT-mouse", {{"type", "Battery"}, {"scope", "Device"}, {"capacity", "5"}});
    sysfs.Add("BAT0", {{"type", "Battery"}, {"present", "0"}});
    sysfs.Add("BAT1", {{"type", "Battery"}, {"capacity", "77"}, {"status", "Discharging"}});
    EXPECT_EQ(sysfs.Level(), 4);
}

TEST(PowerStatus, TheFirstBatteryByNameIsReadWhateverTheListingOrder) {
    FakePowerSupplies sysfs;
    sysfs.Add("BAT1", {{"type", "Battery"}, {"capacity", "90"}});
    sysfs.Add("BAT0", {{"type", "Battery"}, {"capacity", "10"}});
    EXPECT_EQ(sysfs.Level(), 1);
}

TEST(PowerStatus, ValuesThatAreNotWhatTheKernelWritesReadAsUnknown) {
    const std::map<std::string, std::string> batteries[] = {
        {{"type", "Battery"}, {"capacity", "abc"}},
        {{"type", "Battery"}, {"capacity", "150"}},
        {{"type", "Battery"}, {"capacity", "-3"}},
        {{"type", "Battery"}, {"capacity", "42 %"}},
        {{"type", "Battery"}, {"capacity", std::string(5000, '7')}},
        {{"type", "Battery"}, {"energy_now", "5"}, {"energy_full", "0"}},
        {{"type", "Battery"}, {"charge_now", "900"}, {"charge_full", "100"}},
    };
    for (const auto& files : batteries) {
        FakePowerSupplies sysfs;
        sysfs.Add("BAT0", files);
        SystemPowerStatus status;
        ASSERT_TRUE(ReadPowerStatus(sysfs.Folder(), status));
        EXPECT_EQ(status.batteryLifePercent, kBatteryPercentUnknown) << files.rbegin()->second;
        EXPECT_EQ(BatteryLevelOf(true, status), 100);
    }
}

TEST(PowerStatus, WithoutACapacityTheEnergyCountersGiveTheCharge) {
    FakePowerSupplies sysfs;
    sysfs.Add("BAT0", {{"type", "Battery"},
                       {"energy_now", "18500000"},
                       {"energy_full", "50000000"},
                       {"status", "Discharging"}});
    SystemPowerStatus status;
    ASSERT_TRUE(ReadPowerStatus(sysfs.Folder(), status));
    EXPECT_EQ(status.batteryLifePercent, 37);
    EXPECT_EQ(BatteryLevelOf(true, status), 2);
}

} // namespace
} // namespace zelvor
