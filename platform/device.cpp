#include "platform/device.h"

#include <cstdlib>
#include <system_error>

namespace zelvor {
namespace fs = std::filesystem;
namespace {

Device* g_current = nullptr;

constexpr std::u16string_view kSdmmcKey = u"System\\StorageManager\\Profiles\\SDMMC";
constexpr std::u16string_view kDefaultCardRoot = u"\\Storage Card";

bool CreateLayout(const fs::path& root, std::string* error) {
    std::error_code ec;
    for (const char* folder : {"Storage Card", "Flash Disk/Zelvor", "Windows"}) {
        fs::create_directories(root / folder, ec);
        if (ec) {
            if (error)
                *error = "cannot create " + (root / folder).string() + ": " + ec.message();
            return false;
        }
    }
    return true;
}

} // namespace

fs::path DefaultDeviceRoot() {
    if (const char* root = std::getenv("ZELVOR_ROOT"); root && *root)
        return root;
    if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data)
        return fs::path(data) / "zelvor" / "device";
    if (const char* home = std::getenv("HOME"); home && *home)
        return fs::path(home) / ".local" / "share" / "zelvor" / "device";
    return fs::path("zelvor-device");
}

fs::path RegistryFolderOf(const fs::path& deviceRoot) {
    return deviceRoot / "Windows" / "Registry";
}

std::u16string StorageCardRootFromRegistry(const RegistryStore& registry) {
    auto folder = registry.QueryString(RegistryRoot::LocalMachine, kSdmmcKey, u"Folder");
    if (!folder)
        return std::u16string(kDefaultCardRoot);
    // The value is read into a buffer of 258 characters and a terminator.
    constexpr size_t kMaxFolderChars = 258;
    return u"\\" + folder->substr(0, std::min(folder->find(u'\0'), kMaxFolderChars));
}

std::unique_ptr<Device> Device::Open(const DeviceConfig& config, std::string* error) {
    std::error_code ec;
    if (!fs::exists(config.root, ec)) {
        if (!CreateLayout(config.root, error))
            return nullptr;
    } else if (!fs::is_directory(config.root, ec)) {
        if (error)
            *error = config.root.string() + " is not a folder";
        return nullptr;
    }
    std::unique_ptr<Device> device(new Device);
    device->m_fs = std::make_unique<DeviceFileSystem>(config.root);
    device->m_registry = std::make_unique<RegistryStore>(RegistryFolderOf(device->m_fs->HostRoot()));
    device->m_programDirectory = DeviceFileSystem::NormalizePath(config.programDirectory);
    if (config.flash)
        device->m_fs->Bind(u"\\Flash Disk", *config.flash);
    if (config.card)
        device->m_fs->Bind(StorageCardRootFromRegistry(*device->m_registry), *config.card);
    return device;
}

Device& CurrentDevice() {
    if (g_current == nullptr)
        std::abort(); // a programming error: no device was opened
    return *g_current;
}

Device* CurrentDevicePointer() {
    return g_current;
}

void SetCurrentDevice(Device* device) {
    g_current = device;
}

} // namespace zelvor
