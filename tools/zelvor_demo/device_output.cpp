#include "tools/zelvor_demo/device_output.h"

namespace zelvor::demo {

bool CreateDeviceFolders(DeviceFileSystem& fs, std::u16string_view folder) {
    std::u16string path = DeviceFileSystem::NormalizePath(folder);
    if (path == u"\\")
        return true;
    std::size_t next = 1;
    while (true) {
        std::size_t slash = path.find(u'\\', next);
        std::u16string_view prefix = std::u16string_view(path).substr(0, slash);
        std::uint32_t attributes = fs.GetAttributes(prefix);
        if (attributes == kInvalidAttributes) {
            if (!fs.CreateDirectory(prefix))
                return false;
        } else if ((attributes & kAttrDirectory) == 0) {
            return false;
        }
        if (slash == std::u16string::npos)
            return true;
        next = slash + 1;
    }
}

bool WriteDeviceFile(DeviceFileSystem& fs, std::u16string_view path,
                     std::span<const std::byte> bytes) {
    if (!CreateDeviceFolders(fs, DeviceFolderOf(DeviceFileSystem::NormalizePath(path))))
        return false;
    auto file = fs.OpenFile(path, FileMode::ReadWrite, true);
    return file && file->Truncate(0) && file->WriteAt(0, bytes);
}

} // namespace zelvor::demo
