#include "platform/durable_file.h"

#include <atomic>
#include <cerrno>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace zelvor {
namespace {

bool WriteAll(int fd, std::span<const std::byte> data) {
    size_t done = 0;
    while (done < data.size()) {
        ssize_t n = ::write(fd, data.data() + done, data.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += static_cast<size_t>(n);
    }
    return true;
}

bool SyncFolder(const std::filesystem::path& folder) {
    int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return false;
    bool ok = ::fsync(fd) == 0;
    ::close(fd);
    return ok;
}

std::filesystem::path TemporaryNameFor(const std::filesystem::path& target) {
    static std::atomic<unsigned> counter{0};
    std::string name = "." + target.filename().string() + ".tmp-" + std::to_string(::getpid()) +
                       "-" + std::to_string(counter++);
    return target.parent_path() / name;
}

} // namespace

bool WriteFileDurably(const std::filesystem::path& target, std::span<const std::byte> data) {
    const std::filesystem::path temp = TemporaryNameFor(target);
    int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    if (fd < 0)
        return false;
    bool ok = WriteAll(fd, data) && ::fsync(fd) == 0;
    ok = (::close(fd) == 0) && ok;
    if (ok)
        ok = ::rename(temp.c_str(), target.c_str()) == 0;
    if (!ok) {
        ::unlink(temp.c_str());
        return false;
    }
    // The rename is only durable once the folder's entry is on disk. The new
    // file is in place either way, so a failing folder sync is not a failure.
    SyncFolder(target.has_parent_path() ? target.parent_path() : ".");
    return true;
}

} // namespace zelvor
