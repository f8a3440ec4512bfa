#include "host/power_status.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace zelvor {
namespace {

// The files hold a word or a number and a line feed; anything longer is not
// what the kernel writes.
constexpr std::size_t kMaxValueBytes = 64;

// The trimmed first line of a small file; nullopt when it cannot be read.
std::optional<std::string> ReadValue(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in)
        return std::nullopt;
    std::string text(kMaxValueBytes, '\0');
    in.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(in.gcount()));
    text = text.substr(0, text.find('\n'));
    while (!text.empty() && (text.back() == ' ' || text.back() == '\r' || text.back() == '\t'))
        text.pop_back();
    return text;
}

std::optional<std::int64_t> ReadNumber(const std::filesystem::path& file) {
    auto text = ReadValue(file);
    if (!text || text->empty())
        return std::nullopt;
    std::int64_t value = 0;
    auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), value);
    if (error != std::errc() || end != text->data() + text->size())
        return std::nullopt;
    return value;
}

bool IsExternalSupply(const std::string& type) {
    return type == "Mains" || type == "Wireless" || type.rfind("USB", 0) == 0;
}

// The charge in percent: "capacity" where the driver has it, else the ratio
// of the energy or charge counters; nullopt when neither makes sense.
std::optional<int> BatteryPercent(const std::filesystem::path& supply) {
    if (auto capacity = ReadNumber(supply / "capacity"))
        return *capacity >= 0 && *capacity <= 100 ? std::optional<int>(static_cast<int>(*capacity))
                                                  : std::nullopt;
    for (const char* kind : {"energy", "charge"}) {
        auto now = ReadNumber(supply / (std::string(kind) + "_now"));
        auto full = ReadNumber(supply / (std::string(kind) + "_full"));
        if (now && full && *full > 0 && *now >= 0 && *now <= *full)
            return static_cast<int>(*now * 100 / *full);
    }
    return std::nullopt;
}

std::uint8_t FlagForPercent(int percent) {
    if (percent > 66)
        return kBatteryFlagHigh;
    if (percent < 5)
        return kBatteryFlagLow | kBatteryFlagCritical;
    return percent < 33 ? kBatteryFlagLow : 0;
}

// A battery of the system: present, and not a peripheral's.
bool IsSystemBattery(const std::filesystem::path& supply) {
    auto scope = ReadValue(supply / "scope");
    if (scope && *scope == "Device")
        return false;
    auto present = ReadNumber(supply / "present");
    return !present || *present != 0;
}

void ReadBattery(const std::filesystem::path& supply, SystemPowerStatus& status) {
    auto percent = BatteryPercent(supply);
    if (!percent) {
        status.batteryFlag = kBatteryFlagUnknown;
        status.batteryLifePercent = kBatteryPercentUnknown;
        return;
    }
    status.batteryLifePercent = static_cast<std::uint8_t>(*percent);
    status.batteryFlag = FlagForPercent(*percent);
    auto state = ReadValue(supply / "status");
    if (state && *state == "Charging")
        status.batteryFlag |= kBatteryFlagCharging;
}

} // namespace

const std::filesystem::path& DefaultPowerSupplyFolder() {
    static const std::filesystem::path folder = "/sys/class/power_supply";
    return folder;
}

bool ReadPowerStatus(const std::filesystem::path& folder, SystemPowerStatus& status) {
    status = SystemPowerStatus{};
    std::error_code error;
    std::vector<std::filesystem::path> supplies;
    for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end;
         it.increment(error)) {
        supplies.push_back(it->path());
    }
    if (error)
        return false;
    // Sysfs lists in no particular order; by name the same battery is chosen
    // on every read.
    std::sort(supplies.begin(), supplies.end());
    bool haveExternal = false;
    bool haveBattery = false;
    for (const auto& supply : supplies) {
        auto type = ReadValue(supply / "type");
        if (!type)
            continue;
        if (IsExternalSupply(*type)) {
            if (!haveExternal)
                status.acLineStatus = kAcLineOffline;
            haveExternal = true;
            auto online = ReadNumber(supply / "online");
            if (online && *online > 0)
                status.acLineStatus = kAcLineOnline;
        } else if (*type == "Battery" && !haveBattery && IsSystemBattery(supply)) {
            haveBattery = true;
            ReadBattery(supply, status);
        }
    }
    if (!haveBattery)
        status.batteryFlag = kBatteryFlagNoBattery; // the charge stays unknown
    return true;
}

int BatteryLevelOf(bool statusRead, const SystemPowerStatus& status) {
    constexpr int kChargingOrUnknown = 100;
    if (!statusRead)
        return kChargingOrUnknown;
    if (status.acLineStatus == kAcLineOnline && (status.batteryFlag & kBatteryFlagCharging))
        return kChargingOrUnknown;
    int percent = status.batteryLifePercent;
    if (percent == kBatteryPercentUnknown || percent > 100)
        return kChargingOrUnknown;
    if (percent == 0)
        return 0;
    return (percent + 19) / 20; // 1-20 -> 1, 21-40 -> 2, ... 81-100 -> 5
}

int ReadBatteryLevel(PowerSource& source) {
    SystemPowerStatus status;
    bool read = source.GetSystemPowerStatusEx(status);
    return BatteryLevelOf(read, status);
}

} // namespace zelvor
