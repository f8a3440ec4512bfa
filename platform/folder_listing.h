#pragma once
// The POSIX side of a folder listing for DeviceFileSystem: an entry's
// attribute bits and times as the device reports them, the case-blind lookup
// of one name, and the handle that yields a folder's entries. Everything is
// read relative to the folder's descriptor, never by walking the whole path
// again for each entry.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <dirent.h>
#include <sys/stat.h>

#include "platform/device_fs.h"

namespace zelvor {

// An open folder read straight through getdents64, closed when it goes.
// A folder of a large collection is opened by descriptor and read once;
// readdir's DIR would add a stat and two fcntl calls to every folder.
class FolderStream {
public:
    FolderStream() = default;
    // Takes the descriptor (-1: an empty stream).
    explicit FolderStream(int fd) : m_fd(fd) {}
    static FolderStream Open(const std::filesystem::path& folder);
    FolderStream(FolderStream&& other) noexcept;
    FolderStream& operator=(FolderStream&& other) noexcept;
    ~FolderStream();

    explicit operator bool() const { return m_fd >= 0; }
    int Fd() const { return m_fd; }
    // The next entry, "." and ".." included; nullptr at the end or on an
    // error, after which the stream is closed.
    const dirent64* Next();

private:
    void Close();

    int m_fd = -1;
    std::unique_ptr<char[]> m_buffer;
    std::size_t m_filled = 0;
    std::size_t m_offset = 0;
};

// The attributes the device reports for a host entry with this stat and
// stored word (nullopt: none stored).
std::uint32_t AttributesOf(const struct stat& st, std::optional<std::uint32_t> stored);

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
