#pragma once
// One device on the host: its root folder, file system with bindings, and
// registry. Programs open one at start-up and make it current; the rules of
// the core reach the file system and the registry through CurrentDevice(),
// as the device's own code reaches its platform's global services. Tests
// open a fresh device in a temporary folder and make it current for the
// duration of the test (ScopedCurrentDevice).

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "platform/device_fs.h"
#include "platform/registry_store.h"

namespace zelvor {

struct DeviceConfig {
    std::filesystem::path root;               // host folder that stands for "\"
    std::optional<std::filesystem::path> card;  // bound at the storage card root
    std::optional<std::filesystem::path> flash; // bound at "\Flash Disk"
    std::u16string programDirectory = u"\\Flash Disk\\Zelvor";
};

// The root from the environment: ZELVOR_ROOT, else
// $XDG_DATA_HOME/zelvor/device, else ~/.local/share/zelvor/device.
std::filesystem::path DefaultDeviceRoot();

class Device {
public:
    // Opens the device; on first use (the root does not exist yet) the root is
    // created with the standard layout: "Storage Card", "Flash Disk",
    // "Flash Disk\Zelvor" and "Windows". nullptr, with a reason in *error,
    // when the root cannot be created or is not a folder.
    static std::unique_ptr<Device> Open(const DeviceConfig& config, std::string* error = nullptr);

    DeviceFileSystem& FileSystem() { return *m_fs; }
    const DeviceFileSystem& FileSystem() const { return *m_fs; }
    RegistryStore& Registry() { return *m_registry; }
    const RegistryStore& Registry() const { return *m_registry; }
    // The device path of the program directory, without a trailing "\".
    const std::u16string& ProgramDirectory() const { return m_programDirectory; }
    const std::filesystem::path& Root() const { return m_fs->HostRoot(); }

    // Replaces the file system (tests stand a failing disk in for the host's).
    void SetFileSystem(std::unique_ptr<DeviceFileSystem> fs) { m_fs = std::move(fs); }

private:
    Device() = default;
    std::unique_ptr<DeviceFileSystem> m_fs;
    std::unique_ptr<RegistryStore> m_registry;
    std::u16string m_programDirectory;
};

// Where the hives live on the host, inside the device root.
std::filesystem::path RegistryFolderOf(const std::filesystem::path& deviceRoot);

// The storage card root as the registry names it: "\" + the "Folder" value of
// HKLM "System\StorageManager\Profiles\SDMMC", or "\Storage Card" when the key
// or the value is missing.
std::u16string StorageCardRootFromRegistry(const RegistryStore& registry);

// The current device. CurrentDevice() must only be called while one is set.
Device& CurrentDevice();
Device* CurrentDevicePointer();
void SetCurrentDevice(Device* device);

class ScopedCurrentDevice {
public:
    explicit ScopedCurrentDevice(Device& device) : m_previous(CurrentDevicePointer()) {
        SetCurrentDevice(&device);
    }
    ~ScopedCurrentDevice() { SetCurrentDevice(m_previous); }
    ScopedCurrentDevice(const ScopedCurrentDevice&) = delete;
    ScopedCurrentDevice& operator=(const ScopedCurrentDevice&) = delete;

private:
    Device* m_previous;
};

} // namespace zelvor
