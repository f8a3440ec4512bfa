#include "platform/host_attributes.h"

#include <charconv>
#include <string>

#include <fcntl.h>
#include <linux/msdos_fs.h>
#include <linux/magic.h>
#include <sys/ioctl.h>
#include <sys/vfs.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/device_fs.h"

namespace zelvor {
namespace {

constexpr const char* kXattrName = "user.zelvor.attributes";
constexpr std::uint32_t kStoredBits = kAttrReadOnly | kAttrHidden | kAttrSystem | kAttrArchive;

// FAT keeps the attribute byte itself; the ioctl fails with ENOTTY elsewhere.
std::optional<std::uint32_t> FatAttributes(const std::filesystem::path& host) {
    int fd = ::open(host.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
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

} // namespace

std::optional<std::uint32_t> ReadStoredAttributes(const std::filesystem::path& host,
                                                  bool mayBeFat) {
    if (mayBeFat) {
        if (auto fat = FatAttributes(host))
            return fat;
    }
    char buffer[16];
    ssize_t n = ::getxattr(host.c_str(), kXattrName, buffer, sizeof buffer);
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

bool WriteStoredAttributes(const std::filesystem::path& host, std::uint32_t attributes) {
    if (SetFatAttributes(host, attributes))
        return true;
    std::string text = std::to_string(attributes & kStoredBits);
    return ::setxattr(host.c_str(), kXattrName, text.data(), text.size(), 0) == 0;
}

} // namespace zelvor
