#pragma once
// The POSIX side of a folder listing for DeviceFileSystem: an entry's
// attribute bits and times as the device reports them, the case-blind lookup
// of one name, and the handle that yields a folder's entries. Everything is
// read relative to the folder's descriptor, never by walking the whole path
// again for each entry.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <dirent.h>
#include <sys/stat.h>

#include "platform/device_fs.h"

namespace zelvor {

// An open folder stream, closed when it goes.
struct FolderStreamCloser {
    void operator()(DIR* dir) const { ::closedir(dir); }
};
using FolderStream = std::unique_ptr<DIR, FolderStreamCloser>;

// The attributes of the entry `entry` of the folder open as dirFd (`folder`
// is its path); AT_FDCWD with a full path in `entry` also does.
std::uint32_t AttributesOf(int dirFd, const char* entry, const std::filesystem::path& folder,
                           const struct stat& st, bool mayBeFat = true);

// The find data of a host path under the given device name; false when it
// cannot be read (a dangling link among them).
bool FillFindData(const std::filesystem::path& host, std::u16string name, FindData& out);

// The entry of `folder` whose name equals `name` ignoring case, preferring an
// exact match. Empty when there is none. Clears noLink when the entry is, or
// may be, a symbolic link.
std::string FindEntryIgnoringCase(const std::filesystem::path& folder, std::u16string_view name,
                                  bool& noLink);

// A handle over the open folder (which may be null when only bound folders
// are listed) that yields the entries matching `pattern`, then `bound` (the
// bindings that appear in this folder, hiding host entries of their names).
std::unique_ptr<FindHandle> ListFolder(FolderStream dir, std::filesystem::path folder,
                                       std::u16string pattern, std::vector<FindData> bound,
                                       std::vector<std::u16string> boundNames, FindDetail detail);

} // namespace zelvor
