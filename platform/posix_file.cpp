#include "platform/posix_file.h"

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace zelvor {

PosixFile::~PosixFile() {
    ::close(m_fd);
}

std::uint64_t PosixFile::Size() const {
    if (m_sizeAtOpen)
        return *m_sizeAtOpen;
    struct stat st {};
    return ::fstat(m_fd, &st) == 0 ? static_cast<std::uint64_t>(st.st_size) : 0;
}

std::size_t PosixFile::ReadAt(std::uint64_t offset, std::span<std::byte> out) {
    std::size_t done = 0;
    while (done < out.size()) {
        ssize_t n = ::pread(m_fd, out.data() + done, out.size() - done,
                            static_cast<off_t>(offset + done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            break;
        done += static_cast<std::size_t>(n);
    }
    return done;
}

bool PosixFile::WriteAt(std::uint64_t offset, std::span<const std::byte> data) {
    std::size_t done = 0;
    while (done < data.size()) {
        ssize_t n = ::pwrite(m_fd, data.data() + done, data.size() - done,
                             static_cast<off_t>(offset + done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += static_cast<std::size_t>(n);
    }
    return true;
}

bool PosixFile::Truncate(std::uint64_t size) {
    return ::ftruncate(m_fd, static_cast<off_t>(size)) == 0;
}

} // namespace zelvor
