#include "platform/stored_attributes.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <string>

#include <fcntl.h>
#include <linux/msdos_fs.h>
#include <linux/magic.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/device_fs.h"

namespace zelvor {
namespace {

constexpr const char* kXattrName = "user.zelvor.attributes";
constexpr const char* kFolderMarkName = "user.zelvor.words";
constexpr std::uint32_t kStoredBits = kAttrReadOnly | kAttrHidden | kAttrSystem | kAttrArchive;

// getxattrat(2) came with Linux 6.13; its number is the same on every
// architecture. Older kernels answer ENOSYS and are asked by path.
#ifndef SYS_getxattrat
#define SYS_getxattrat 464
#endif
struct XattrArgs { // struct xattr_args of <linux/xattr.h>
    std::uint64_t value;
    std::uint32_t size;
    std::uint32_t flags;
};
std::atomic<bool> g_noGetxattrat{false};

// FAT keeps the attribute byte itself; the ioctl fails with ENOTTY elsewhere.
std::optional<std::uint32_t> FatAttributes(int dirFd, const char* name) {
    int fd = ::openat(dirFd, name, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return std::nullopt;
    std::uint32_t attrs = 0;
    bool ok = ::ioctl(fd, FAT_IOCTL_GET_ATTRIBUTES, &attrs) == 0;
    ::close(fd);
    return ok ? std::optional(attrs & kStoredBits) : std::nullopt;
}

bool SetFatAttributes(const std::filesystem::path& host, std::uint32_t attributes) {
    int fd = ::open(host.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return false;
    std::uint32_t current = 0;
    bool ok = ::ioctl(fd, FAT_IOCTL_GET_ATTRIBUTES, &current) == 0;
    if (ok) {
        std::uint32_t wanted = (current & ~kStoredBits) | (attributes & kStoredBits);
        ok = ::ioctl(fd, FAT_IOCTL_SET_ATTRIBUTES, &wanted) == 0;
    }
    ::close(fd);
    return ok;
}

// The stored word's bytes; -1 when there is none.
ssize_t GetXattrAt(int dirFd, const char* name, const std::filesystem::path& folder, char* buffer,
                   std::size_t size) {
    if (!g_noGetxattrat.load(std::memory_order_relaxed)) {
        XattrArgs args{reinterpret_cast<std::uintptr_t>(buffer), static_cast<std::uint32_t>(size), 0};
        long n = ::syscall(SYS_getxattrat, dirFd, name, 0, kXattrName, &args, sizeof args);
        if (n >= 0 || errno != ENOSYS)
            return static_cast<ssize_t>(n);
        g_noGetxattrat = true;
    }
    const std::filesystem::path host = dirFd == AT_FDCWD ? std::filesystem::path(name) : folder / name;
    return ::getxattr(host.c_str(), kXattrName, buffer, size);
}

std::optional<std::uint32_t> XattrWord(int dirFd, const char* name,
                                       const std::filesystem::path& folder) {
    char buffer[16];
    ssize_t n = GetXattrAt(dirFd, name, folder, buffer, sizeof buffer);
    if (n <= 0)
        return std::nullopt;
    std::uint32_t value = 0;
    auto [end, ec] = std::from_chars(buffer, buffer + n, value);
    if (ec != std::errc() || end != buffer + n)
        return std::nullopt;
    return value & kStoredBits;
}

bool IsFatFolder(int dirFd) {
    struct statfs info {};
    return ::fstatfs(dirFd, &info) == 0 && info.f_type == MSDOS_SUPER_MAGIC;
}

bool MarkFolder(const std::filesystem::path& folder) {
    return ::setxattr(folder.c_str(), kFolderMarkName, "1", 1, 0) == 0;
}

} // namespace

FolderWords ProbeFolderWords(int dirFd) {
    if (::fgetxattr(dirFd, kFolderMarkName, nullptr, 0) >= 0)
        return FolderWords::kStored;
    const int error = errno;
    if (error == ENODATA)
        return FolderWords::kNone;
    // Only a file system without extended attributes (FAT among them) says
    // so; only then is it worth asking which one it is.
    if (IsFatFolder(dirFd))
        return FolderWords::kFat;
    return error == ENOTSUP ? FolderWords::kNone : FolderWords::kStored;
}

std::optional<std::uint32_t> ReadStoredAttributesAt(int dirFd, const char* name,
                                                    const std::filesystem::path& folder,
                                                    FolderWords words) {
    switch (words) {
    case FolderWords::kFat:
        return FatAttributes(dirFd, name);
    case FolderWords::kStored:
        return XattrWord(dirFd, name, folder);
    case FolderWords::kNone:
        break;
    }
    return std::nullopt;
}

std::optional<std::uint32_t> ReadStoredAttributes(const std::filesystem::path& host) {
    if (auto fat = FatAttributes(AT_FDCWD, host.c_str()))
        return fat;
    return XattrWord(AT_FDCWD, host.c_str(), {});
}

bool WriteStoredAttributes(const std::filesystem::path& host, std::uint32_t attributes) {
    if (SetFatAttributes(host, attributes))
        return true;
    // The mark goes first: a word in an unmarked folder would be missed.
    if (!MarkFolder(host.parent_path()))
        return false;
    std::string text = std::to_string(attributes & kStoredBits);
    return ::setxattr(host.c_str(), kXattrName, text.data(), text.size(), 0) == 0;
}

void KeepWordVisible(const std::filesystem::path& host) {
    if (XattrWord(AT_FDCWD, host.c_str(), {}))
        MarkFolder(host.parent_path());
}

} // namespace zelvor
