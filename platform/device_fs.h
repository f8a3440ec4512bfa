#pragma once
// The device's file system on a Linux host.
//
// The program sees the device namespace: UTF-16 paths with backslashes
// ("\Storage Card\Music\a.mp3"). These paths are stored in the library and
// playlist files, so the files stay byte-compatible with the device's. This
// class maps them onto a host folder (the device root) and onto bindings of
// device prefixes to other host folders, the way a device mounts a card:
//
//   - lookup ignores case, component by component, as FAT does;
//   - "." and ".." are resolved on the device path and never climb above "\";
//   - a path whose host form would leave its root or binding (through a
//     symbolic link) is refused;
//   - hidden and system attributes are kept as FAT attributes on a FAT
//     folder, otherwise in the extended attribute "user.zelvor.attributes".
//
// Every call is a plain return value: false, nullptr, std::nullopt or
// kInvalidAttributes on failure. Methods are virtual so that tests can stand
// a failing disk in for the real one.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/device_path.h"
#include "platform/kept_folder.h"
#include "platform/tree_signature.h"

namespace zelvor {

// Attribute bits as the device's file system reports them.
constexpr std::uint32_t kAttrReadOnly = 0x01;
constexpr std::uint32_t kAttrHidden = 0x02;
constexpr std::uint32_t kAttrSystem = 0x04;
constexpr std::uint32_t kAttrDirectory = 0x10;
constexpr std::uint32_t kAttrArchive = 0x20;
constexpr std::uint32_t kAttrNormal = 0x80;
// A symbolic link on the host, reported as the device's file systems report
// links (reparse points), on top of the attributes of what it points to.
constexpr std::uint32_t kAttrReparsePoint = 0x400;
constexpr std::uint32_t kInvalidAttributes = 0xFFFFFFFF;

// One entry of a folder listing: the device's find-data record.
// Times are in 100-ns units since 1601-01-01 (the device's file time).
struct FindData {
    std::uint32_t attributes = 0;
    std::uint64_t creationTime = 0;
    std::uint64_t lastAccessTime = 0;
    std::uint64_t lastWriteTime = 0;
    std::uint64_t size = 0;
    std::u16string name; // last path component only
};

// An iteration started by FindFirst; each Next yields one more entry.
class FindHandle {
public:
    virtual ~FindHandle() = default;
    virtual bool Next(FindData& out) = 0;
};

// An open file with random access. Closing is destruction.
class DeviceFile {
public:
    virtual ~DeviceFile() = default;
    virtual std::uint64_t Size() const = 0;
    // Reads up to out.size() bytes at offset; returns how many were read
    // (fewer at the end of the file, 0 on error).
    virtual std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) = 0;
    // Writes all of data at offset; false when not everything was written.
    virtual bool WriteAt(std::uint64_t offset, std::span<const std::byte> data) = 0;
    virtual bool Truncate(std::uint64_t size) = 0;
};

enum class FileMode { Read, ReadWrite };

// How much of each entry a listing fills in (FindFirstFileEx's basic info):
// a walk that only tells folders from files need not stat every entry.
enum class FindDetail {
    Full,       // everything
    Attributes, // name and attribute bits; no size, times or read-only bit
    TypeOnly,   // name, and the directory and reparse-point bits only
};

// Which folder of the host a device path stands for: its device and inode
// numbers (links followed).
struct FolderIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    bool operator==(const FolderIdentity&) const = default;
};

struct DiskSpace {
    std::uint64_t freeBytesAvailableToCaller = 0;
    std::uint64_t totalBytes = 0;
    std::uint64_t totalFreeBytes = 0;
};

class DeviceFileSystem {
public:
    // hostRoot is the host folder that stands for "\"; it must exist.
    explicit DeviceFileSystem(std::filesystem::path hostRoot);
    virtual ~DeviceFileSystem();
    DeviceFileSystem(const DeviceFileSystem&) = delete;
    DeviceFileSystem& operator=(const DeviceFileSystem&) = delete;

    // Binds a device folder ("\Storage Card") to a host folder, like a mount.
    // The host folder need not exist: a card that is not inserted.
    // A later binding of the same prefix replaces the earlier one.
    void Bind(std::u16string_view devicePrefix, std::filesystem::path hostFolder);
    void Unbind(std::u16string_view devicePrefix);

    const std::filesystem::path& HostRoot() const { return m_hostRoot; }

    // The device path with ".", ".." and repeated separators resolved, always
    // beginning with "\" and without a trailing "\" (except the root itself).
    static std::u16string NormalizePath(std::u16string_view devicePath);

    // The host path that stands for a device path, each existing component
    // matched ignoring case; components that do not exist are kept as given
    // (so the result also names a file about to be created). nullopt when the
    // path is refused (it would leave the device root or its binding).
    virtual std::optional<std::filesystem::path> ToHostPath(std::u16string_view devicePath) const;

    // FindFirstFileW: pattern is a device path whose last component may hold
    // the wildcards "*" and "?" ("*.*" matches every name, as on the device).
    // Returns nullptr when nothing matches; otherwise the first match is in
    // `first` and the handle yields the rest. "." and ".." are never listed.
    virtual std::unique_ptr<FindHandle> FindFirst(std::u16string_view pattern, FindData& first,
                                                  FindDetail detail = FindDetail::Full) const;

    virtual std::uint32_t GetAttributes(std::u16string_view path) const;
    // Sets read-only, hidden, system and archive; the directory bit is ignored.
    virtual bool SetAttributes(std::u16string_view path, std::uint32_t attributes);

    virtual bool CreateDirectory(std::u16string_view path);
    virtual bool RemoveDirectory(std::u16string_view path); // empty folders only
    virtual bool DeleteFile(std::u16string_view path);
    // Fails when `to` exists (the device's MoveFile does not replace).
    virtual bool MoveFile(std::u16string_view from, std::u16string_view to);

    virtual std::optional<DiskSpace> GetDiskFreeSpace(std::u16string_view path) const;
    // True when the host folder that stands for the path is a mount point of
    // its own (a real card), not a folder of a file system it shares.
    virtual bool IsOwnMount(std::u16string_view path) const;
    // HostTreeSignature of the host folder that stands for the path, within
    // the root or binding it lies in; nullopt when it cannot be opened.
    virtual std::optional<std::uint64_t> TreeSignature(std::u16string_view path,
                                                       const FileNameFilter& counts) const;
    // nullopt when the path is refused or names nothing.
    std::optional<FolderIdentity> Identity(std::u16string_view path) const;

    // Opens an existing file; create=true makes it (empty) when missing.
    virtual std::unique_ptr<DeviceFile> OpenFile(std::u16string_view path, FileMode mode,
                                                 bool create = false);

    // The whole file, or nullopt when it cannot be opened or read. Files larger
    // than maxBytes are refused rather than allocated.
    virtual std::optional<std::vector<std::byte>> ReadWholeFile(
        std::u16string_view path, std::uint64_t maxBytes = std::uint64_t{1} << 30) const;

    // Replaces the file atomically: the bytes go to a temporary file in the
    // same folder, which is synced and renamed over the old file, and the
    // folder is synced. A failure at any step leaves the old file as it was.
    // The attributes the old file had are carried over.
    virtual bool ReplaceFile(std::u16string_view path, std::span<const std::byte> data);

protected:
    struct Resolved {
        std::filesystem::path host;
        std::filesystem::path base; // the root or binding the path lies under
    };
    std::optional<Resolved> Resolve(std::u16string_view devicePath) const;

private:
    struct Binding {
        std::u16string prefix; // normalized device path
        std::filesystem::path host;
        bool hostIsReal = false; // existed when bound: host is its canonical path
        std::shared_ptr<const KeptFolder> kept; // null unless hostIsReal
    };
    // The root or binding a normalized path lies in, and the rest of it.
    struct Located {
        const std::filesystem::path* base;
        bool baseIsReal;
        const KeptFolder* kept;
        std::u16string_view rest;
    };
    Located Locate(std::u16string_view normalized) const;
    // The host file or folder for a device path opened with the open(2)
    // flags: at once below a kept folder when the path allows, else through
    // ToHostPath. nullopt when refused; fd -1 when the open failed. The host
    // path is filled in only withHost (it may be left empty otherwise).
    struct Opened {
        int fd;
        std::filesystem::path host;
    };
    std::optional<Opened> OpenHost(std::u16string_view devicePath, int flags,
                                   bool withHost = true) const;

    std::filesystem::path m_hostRoot;
    bool m_hostRootIsReal = false;
    std::shared_ptr<const KeptFolder> m_rootKept; // null unless m_hostRootIsReal
    std::vector<Binding> m_bindings;
};
} // namespace zelvor
