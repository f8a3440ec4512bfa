#pragma once
// The power state the player's battery gauge shows, read the way the device
// reports it (GetSystemPowerStatusEx) from the host's power-supply folder
// (/sys/class/power_supply): one sub-folder per supply, with small text
// files ("type", "online", "capacity", "status", "scope", "present").
//
// Every file is treated as hostile: at most a few bytes are read, numbers
// outside their range read as unknown. Plain POSIX, no Qt.

#include <cstdint>
#include <filesystem>

namespace zelvor {

// The fields of the device's power status that the player looks at.
constexpr std::uint8_t kAcLineOffline = 0;
constexpr std::uint8_t kAcLineOnline = 1;
constexpr std::uint8_t kAcLineUnknown = 255;
constexpr std::uint8_t kBatteryFlagHigh = 1;
constexpr std::uint8_t kBatteryFlagLow = 2;
constexpr std::uint8_t kBatteryFlagCritical = 4;
constexpr std::uint8_t kBatteryFlagCharging = 8;
constexpr std::uint8_t kBatteryFlagNoBattery = 128;
constexpr std::uint8_t kBatteryFlagUnknown = 255;
constexpr std::uint8_t kBatteryPercentUnknown = 255;

struct SystemPowerStatus {
    std::uint8_t acLineStatus = kAcLineUnknown;
    std::uint8_t batteryFlag = kBatteryFlagUnknown;
    std::uint8_t batteryLifePercent = kBatteryPercentUnknown; // 0-100, or unknown
};

// The system's power-supply folder.
const std::filesystem::path& DefaultPowerSupplyFolder();

// Reads the supplies below `folder`. Mains and USB supplies that are online
// make the AC line online (offline when there are such supplies and none is
// online, unknown when there are none). The first present battery, by name,
// that powers the system (not a device's, such as a mouse's: scope "Device")
// gives the percentage and the charging flag; no battery reads as unknown.
// False when the folder cannot be listed.
bool ReadPowerStatus(const std::filesystem::path& folder, SystemPowerStatus& status);

// The battery gauge's level: 100 (the charging image) when the status could
// not be read, when charging on mains power, or when the charge is unknown;
// else 5 for 81-100 %, 4 for 61-80, 3 for 41-60, 2 for 21-40, 1 for 1-20,
// 0 for 0.
int BatteryLevelOf(bool statusRead, const SystemPowerStatus& status);

// Where the player gets its power status: the host's folder, or a fake.
class PowerSource {
public:
    virtual ~PowerSource() = default;
    // GetSystemPowerStatusEx: false when the status cannot be read.
    virtual bool GetSystemPowerStatusEx(SystemPowerStatus& status) = 0;
};

class SysfsPowerSource final : public PowerSource {
public:
    explicit SysfsPowerSource(std::filesystem::path folder = DefaultPowerSupplyFolder())
        : m_folder(std::move(folder)) {}
    bool GetSystemPowerStatusEx(SystemPowerStatus& status) override {
        return ReadPowerStatus(m_folder, status);
    }

private:
    std::filesystem::path m_folder;
};

// The level for the power source's current status.
int ReadBatteryLevel(PowerSource& source);

} // namespace zelvor
