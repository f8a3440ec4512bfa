#pragma once
// The device's hidden, system, read-only and archive bits on a host file:
// FAT attributes on a FAT folder, otherwise an extended attribute.

#include <cstdint>
#include <filesystem>
#include <optional>

namespace zelvor {

// The attribute bits stored for a host file, without the directory bit;
// nullopt when none are stored (the caller picks the default). mayBeFat
// false skips the FAT query, for callers that know the folder is not FAT.
std::optional<std::uint32_t> ReadStoredAttributes(const std::filesystem::path& host,
                                                  bool mayBeFat = true);
// The same for the entry `name` of the folder open as dirFd (AT_FDCWD with a
// full path in `name` also does): the lookup starts at the folder instead of
// walking its whole path again for every entry. `folder` is the folder's
// path, for kernels that read attributes by path only.
std::optional<std::uint32_t> ReadStoredAttributesAt(int dirFd, const char* name,
                                                    const std::filesystem::path& folder,
                                                    bool mayBeFat = true);
// Whether the folder open as dirFd lies on a FAT file system.
bool IsFatFolder(int dirFd);
// Stores the bits; false when the host file system can keep none of them.
bool WriteStoredAttributes(const std::filesystem::path& host, std::uint32_t attributes);

} // namespace zelvor
