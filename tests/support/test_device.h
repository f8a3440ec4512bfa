#pragma once
// Test scaffolding: a temporary folder removed at the end of the test, and a
// fresh device in it made current for the duration of the test.

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/device.h"

namespace zelvor::testing {

class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

// A device whose root is a fresh temporary folder with the standard layout.
class TestDevice {
public:
    explicit TestDevice(DeviceConfig config = {});
    Device& Get() { return *m_device; }
    DeviceFileSystem& Fs() { return m_device->FileSystem(); }
    RegistryStore& Registry() { return m_device->Registry(); }
    const std::filesystem::path& Root() const { return m_root; }
    // The host path of a device path (which need not exist yet).
    std::filesystem::path Host(std::u16string_view devicePath) const;

    // Writes a host file below the root (folders made as needed).
    void WriteFile(std::u16string_view devicePath, std::string_view bytes);
    void WriteFile(std::u16string_view devicePath, const std::vector<std::byte>& bytes);
    std::string ReadFile(std::u16string_view devicePath) const;

private:
    TempDir m_dir;
    std::filesystem::path m_root;
    std::unique_ptr<Device> m_device;
    std::unique_ptr<ScopedCurrentDevice> m_scope;
};

// A card of its own (a mount point) with its free space under test control:
// on the host the registry shares a disk with the "card", so real figures
// would move with every flush. A folder that does not exist still has no
// free space.
class FixedSpaceFileSystem : public DeviceFileSystem {
public:
    using DeviceFileSystem::DeviceFileSystem;
    bool IsOwnMount(std::u16string_view) const override { return true; }
    std::optional<DiskSpace> GetDiskFreeSpace(std::u16string_view path) const override {
        if (!DeviceFileSystem::GetDiskFreeSpace(path))
            return std::nullopt;
        return DiskSpace{free, free * 2, free};
    }
    std::uint64_t free = 0x1'2345'6789;
};

std::vector<std::byte> Bytes(std::string_view text);
// UTF-16LE bytes of a text, with the byte-order mark when asked.
std::string Utf16Le(std::u16string_view text, bool withBom = false);

} // namespace zelvor::testing
