#pragma once
// Writing the demo's files through the device's file system, so that paths
// take the same route (case-insensitive lookup, bindings) as the player's.

#include "platform/device_fs.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace zelvor::demo {

// Creates the folder and every missing folder above it. True when it exists.
bool CreateDeviceFolders(DeviceFileSystem& fs, std::u16string_view folder);

// Creates or replaces the file (its folders made as needed).
bool WriteDeviceFile(DeviceFileSystem& fs, std::u16string_view path,
                     std::span<const std::byte> bytes);

} // namespace zelvor::demo
