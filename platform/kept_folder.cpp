#include "platform/kept_folder.h"

#include <cerrno>
#include <string>

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/text.h"

namespace zelvor {
namespace {

int OpenAt2(int dirFd, const char* path, int flags, std::uint64_t resolve) {
    struct open_how how {};
    how.flags = static_cast<std::uint64_t>(flags) | O_CLOEXEC;
    how.resolve = resolve;
    long fd = 0;
    do
        fd = ::syscall(SYS_openat2, dirFd, path, &how, sizeof how);
    while (fd < 0 && errno == EINTR);
    return static_cast<int>(fd);
}

} // namespace

KeptFolder::KeptFolder(std::filesystem::path host) : m_host(std::move(host)) {
    m_fd = ::open(m_host.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    struct stat st {};
    if (m_fd >= 0 && ::fstat(m_fd, &st) == 0) {
        m_device = st.st_dev;
        m_inode = st.st_ino;
    } else if (m_fd >= 0) {
        ::close(m_fd);
        m_fd = -1;
    }
}

KeptFolder::~KeptFolder() {
    if (m_fd >= 0)
        ::close(m_fd);
}

int KeptFolder::OpenExact(std::string_view relative, int flags) const {
    if (m_fd < 0 || (flags & O_CREAT) != 0)
        return -1;
    struct stat now {};
    if (::stat(m_host.c_str(), &now) != 0)
        return -1;
    int base = m_fd;
    bool fresh = now.st_dev != m_device || now.st_ino != m_inode;
    if (fresh && (base = ::open(m_host.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) < 0)
        return -1;
    const std::string path = relative.empty() ? std::string(".") : std::string(relative);
    const int fd = OpenAt2(base, path.c_str(), flags, RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS);
    if (fresh)
        ::close(base);
    return fd;
}

std::string HostRelativeOf(std::u16string_view deviceRest) {
    while (!deviceRest.empty() && deviceRest.front() == u'\\')
        deviceRest.remove_prefix(1);
    std::string relative = ToUtf8(deviceRest);
    for (char& c : relative) {
        if (c == '\\')
            c = '/';
    }
    return relative;
}

} // namespace zelvor
