#include "platform/tree_signature.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/folder_listing.h"
#include "platform/text.h"

namespace zelvor {
namespace fs = std::filesystem;
namespace {

// Folders below this depth are not walked: it bounds the open descriptors.
constexpr std::size_t kMaxDepth = 64;

std::uint64_t Mix(std::uint64_t x) { // splitmix64's finaliser
    x ^= x >> 30;
    x *= 0xbf58476d1ce4e5b9ULL;
    x ^= x >> 27;
    x *= 0x94d049bb133111ebULL;
    return x ^ (x >> 31);
}

std::uint64_t HashOfName(std::string_view text) { // FNV-1a
    std::uint64_t h = 0xcbf29ce484222325ULL;
    for (unsigned char c : text)
        h = (h ^ c) * 0x100000001b3ULL;
    return h;
}

struct Frame {
    FolderStream dir;
    std::string relative; // from the walked folder, "/"-separated
    dev_t device;
    ino_t inode;
};

class Walk {
public:
    Walk(const fs::path& folder, const fs::path& base, const FileNameFilter& counts)
        : m_folder(folder), m_counts(counts) {
        std::error_code ec;
        m_base = fs::weakly_canonical(base, ec);
        if (ec)
            m_base = base;
    }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    std::optional<std::uint64_t> Run() {
        if (!Enter(AT_FDCWD, m_folder.c_str(), {}))
            return std::nullopt;
        while (!m_stack.empty()) {
            const dirent64* entry = m_stack.back().dir.Next();
            if (!entry) {
                m_stack.pop_back();
                continue;
            }
            Visit(*entry);
        }
        const std::uint64_t signature = Mix(m_sum ^ Mix(m_files));
        return signature == 0 ? 1 : signature;
    }

private:
    bool Enter(int parentFd, const char* name, std::string relative) {
        FolderStream dir(::openat(parentFd, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        struct stat st {};
        if (!dir || ::fstat(dir.Fd(), &st) != 0)
            return false;
        m_stack.push_back({std::move(dir), std::move(relative), st.st_dev, st.st_ino});
        return true;
    }

    bool OnCurrentPath(const struct stat& st) const {
        return std::any_of(m_stack.begin(), m_stack.end(), [&](const Frame& f) {
            return f.device == st.st_dev && f.inode == st.st_ino;
        });
    }

    // A link counts only where the device would follow it: within the base.
    bool LinkStaysInside(const std::string& relative) const {
        char real[PATH_MAX];
        if (!::realpath((m_folder / relative).c_str(), real))
            return false;
        fs::path target(real);
        auto [b, t] = std::mismatch(m_base.begin(), m_base.end(), target.begin(), target.end());
        return b == m_base.end();
    }

    void Visit(const dirent64& entry) {
        std::string_view name = entry.d_name; // "." and ".." are dot folders, never entered
        const Frame& parent = m_stack.back();
        std::string relative = parent.relative.empty() ? std::string(name)
                                                       : parent.relative + "/" + std::string(name);
        const int parentFd = parent.dir.Fd();
        if (entry.d_type == DT_DIR) {
            EnterFolder(parentFd, name, std::move(relative));
            return;
        }
        // Files that do not count are not even looked at.
        if (entry.d_type == DT_REG && !m_counts(FromUtf8(name)))
            return;
        struct stat st {};
        if (::fstatat(parentFd, entry.d_name, &st, 0) != 0)
            return; // gone, or a dangling link
        if (IsLink(parentFd, entry) && !LinkStaysInside(relative))
            return;
        if (S_ISDIR(st.st_mode)) {
            if (!OnCurrentPath(st)) // else a link back to one of its own ancestors
                EnterFolder(parentFd, name, std::move(relative));
            return;
        }
        if (S_ISREG(st.st_mode) && (entry.d_type == DT_REG || m_counts(FromUtf8(name))))
            AddFile(relative, st);
    }

    static bool IsLink(int parentFd, const dirent64& entry) {
        if (entry.d_type != DT_UNKNOWN)
            return entry.d_type == DT_LNK;
        struct stat st {};
        return ::fstatat(parentFd, entry.d_name, &st, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(st.st_mode);
    }

    void EnterFolder(int parentFd, std::string_view name, std::string relative) {
        if (name.front() != '.' && m_stack.size() < kMaxDepth)
            Enter(parentFd, std::string(name).c_str(), std::move(relative));
    }

    void AddFile(const std::string& relative, const struct stat& st) {
        const std::uint64_t changed =
            static_cast<std::uint64_t>(st.st_mtim.tv_sec) * 1000000000ULL +
            static_cast<std::uint64_t>(st.st_mtim.tv_nsec);
        // Added per file, so the order the folders list their entries in
        // does not matter.
        m_sum += Mix(HashOfName(relative) ^
                     Mix(static_cast<std::uint64_t>(st.st_size) ^ Mix(changed)));
        ++m_files;
    }

    fs::path m_folder;
    fs::path m_base;
    const FileNameFilter& m_counts;
    std::vector<Frame> m_stack;
    std::uint64_t m_sum = 0;
    std::uint64_t m_files = 0;
};

} // namespace

std::optional<std::uint64_t> HostTreeSignature(const fs::path& folder, const fs::path& base,
                                               const FileNameFilter& counts) {
    Walk walk(folder, base, counts);
    return walk.Run();
}

} // namespace zelvor
