#include "platform/durable_file.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <string>
#include <string_view>

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

std::string TemporaryPrefixFor(const std::filesystem::path& target) {
    return "." + target.filename().string() + ".tmp-";
}

std::filesystem::path TemporaryNameFor(const std::filesystem::path& target) {
    static std::atomic<unsigned> counter{0};
    std::string name = TemporaryPrefixFor(target) + std::to_string(::getpid()) + "-" +
                       std::to_string(counter++);
    return target.parent_path() / name;
}

// The process that made a temporary name, or 0 when the name is not one.
pid_t WriterOf(std::string_view name, std::string_view prefix) {
    if (!name.starts_with(prefix))
        return 0;
    name.remove_prefix(prefix.size());
    pid_t pid = 0;
    auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), pid);
    return error == std::errc() && end != name.data() && *end == '-' ? pid : 0;
}

// A writer killed half-way (power lost, the process killed) leaves its
// temporary file behind. The program never reads such a file (its name
// starts with a dot and ends in no known extension), and the next write of
// the same target removes it, unless the process that made it still runs.
void RemoveStaleTemporaries(const std::filesystem::path& target) {
    const std::string prefix = TemporaryPrefixFor(target);
    const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
    std::error_code ec;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ec)) {
        const pid_t pid = WriterOf(entry.path().filename().string(), prefix);
        if (pid > 0 && pid != ::getpid() && ::kill(pid, 0) != 0 && errno == ESRCH)
            ::unlink(entry.path().c_str());
    }
}

} // namespace

bool WriteFileDurably(const std::filesystem::path& target, std::span<const std::byte> data) {
    RemoveStaleTemporaries(target);
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
