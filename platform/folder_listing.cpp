#include "platform/folder_listing.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/stored_attributes.h"
#include "platform/text.h"

namespace zelvor {
namespace fs = std::filesystem;
namespace {

constexpr std::size_t kFolderBufferBytes = 16 * 1024;

// 100-ns units since 1601-01-01, the device's file time.
std::uint64_t ToFileTime(const struct timespec& ts) {
    constexpr std::int64_t kSecondsFrom1601To1970 = 11644473600LL;
    std::int64_t seconds = ts.tv_sec + kSecondsFrom1601To1970;
    if (seconds < 0)
        return 0;
    return static_cast<std::uint64_t>(seconds) * 10000000ULL +
           static_cast<std::uint64_t>(ts.tv_nsec) / 100;
}

void FillTimes(const struct stat& st, FindData& out) {
    out.creationTime = ToFileTime(st.st_ctim);
    out.lastAccessTime = ToFileTime(st.st_atim);
    out.lastWriteTime = ToFileTime(st.st_mtim);
    out.size = S_ISDIR(st.st_mode) ? 0 : static_cast<std::uint64_t>(st.st_size);
}

// One entry of an open folder. Everything goes relative to the folder's
// descriptor: a listing must not walk the whole path again for every entry.
bool FillFindDataAt(int dirFd, const char* entry, const fs::path& folder, FolderWords words,
                    std::u16string name, FindData& out) {
    struct stat st {};
    if (::fstatat(dirFd, entry, &st, AT_SYMLINK_NOFOLLOW) != 0)
        return false;
    bool isLink = S_ISLNK(st.st_mode);
    if (isLink && ::fstatat(dirFd, entry, &st, 0) != 0)
        return false; // a dangling link
    out.attributes = AttributesOf(st, ReadStoredAttributesAt(dirFd, entry, folder, words)) |
                     (isLink ? kAttrReparsePoint : 0);
    FillTimes(st, out);
    out.name = std::move(name);
    return true;
}

// The lighter details from the entry's type as the folder listing gives it;
// a file system that gives no type falls back to a full stat.
bool FillLightFindData(int dirFd, const dirent64& entry, const fs::path& folder, FolderWords words,
                       FindDetail detail, std::u16string name, FindData& out) {
    if (entry.d_type == DT_UNKNOWN || entry.d_type == DT_LNK)
        return FillFindDataAt(dirFd, entry.d_name, folder, words, std::move(name), out);
    out = FindData{};
    const bool isDir = entry.d_type == DT_DIR;
    if (detail == FindDetail::Attributes)
        out.attributes = ReadStoredAttributesAt(dirFd, entry.d_name, folder, words)
                             .value_or(isDir ? 0 : kAttrArchive);
    if (isDir)
        out.attributes |= kAttrDirectory;
    out.name = std::move(name);
    return true;
}

// Yields a folder's entries as they are asked for, so a caller that stops
// early (an emptiness test) pays for one entry, not the whole folder. Bound
// folders that appear in this folder come last, in place of any host entry
// of the same name.
class HostFindHandle final : public FindHandle {

public:
    HostFindHandle(FolderStream dir, fs::path folder, std::u16string pattern, std::vector<FindData> bound,
                   std::vector<std::u16string> boundNames, FindDetail detail)
        : m_dir(std::move(dir)), m_folder(std::move(folder)), m_pattern(std::move(pattern)),
          m_bound(std::move(bound)), m_boundNames(std::move(boundNames)), m_detail(detail),
          m_words(m_dir && detail != FindDetail::TypeOnly ? ProbeFolderWords(m_dir.Fd())
                                                          : FolderWords::kNone) {}

    bool Next(FindData& out) override {
        while (m_dir) {
            const dirent64* entry = m_dir.Next();
            if (!entry)
                break;
            std::string_view raw = entry->d_name;
            if (raw == "." || raw == "..")
                continue;
            std::u16string name = FromUtf8(raw);
            if (!MatchesWildcard(name, m_pattern) || IsBound(name))
                continue;
            bool filled = m_detail == FindDetail::Full
                              ? FillFindDataAt(m_dir.Fd(), entry->d_name, m_folder,
                                               m_words, std::move(name), out)
                              : FillLightFindData(m_dir.Fd(), *entry, m_folder,
                                                  m_words, m_detail, std::move(name), out);
            if (filled)
                return true;
        }
        if (m_nextBound >= m_bound.size())
            return false;
        out = std::move(m_bound[m_nextBound++]);
        return true;
    }

private:
    // A binding hides the host entry of its name even while its own host
    // folder is missing: a card that is not inserted is not there.
    bool IsBound(std::u16string_view name) const {
        for (const std::u16string& b : m_boundNames) {
            if (EqualsIgnoreCase(b, name))
                return true;
        }
        return false;
    }

    FolderStream m_dir;
    fs::path m_folder;
    std::u16string m_pattern;
    std::vector<FindData> m_bound;
    std::vector<std::u16string> m_boundNames;
    size_t m_nextBound = 0;
    FindDetail m_detail;
    FolderWords m_words;
};

} // namespace

FolderStream FolderStream::Open(const fs::path& folder) {
    return FolderStream(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

FolderStream::FolderStream(FolderStream&& other) noexcept
    : m_fd(std::exchange(other.m_fd, -1)), m_buffer(std::move(other.m_buffer)),
      m_filled(other.m_filled), m_offset(other.m_offset) {}

FolderStream& FolderStream::operator=(FolderStream&& other) noexcept {
    if (this != &other) {
        Close();
        m_fd = std::exchange(other.m_fd, -1);
        m_buffer = std::move(other.m_buffer);
        m_filled = other.m_filled;
        m_offset = other.m_offset;
    }
    return *this;
}

FolderStream::~FolderStream() {
    Close();
}

void FolderStream::Close() {
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
    m_buffer.reset();
}

const dirent64* FolderStream::Next() {
    if (m_fd < 0)
        return nullptr;
    if (m_offset >= m_filled) {
        if (!m_buffer)
            m_buffer = std::make_unique_for_overwrite<char[]>(kFolderBufferBytes);
        ssize_t n = 0;
        do
            n = ::getdents64(m_fd, m_buffer.get(), kFolderBufferBytes);
        while (n < 0 && errno == EINTR);
        if (n <= 0) {
            Close();
            return nullptr;
        }
        m_filled = static_cast<std::size_t>(n);
        m_offset = 0;
    }
    const auto* entry = reinterpret_cast<const dirent64*>(m_buffer.get() + m_offset);
    m_offset += entry->d_reclen;
    return entry;
}

std::uint32_t AttributesOf(const struct stat& st, std::optional<std::uint32_t> stored) {
    bool isDir = S_ISDIR(st.st_mode);
    std::uint32_t attrs = stored.value_or(isDir ? 0 : kAttrArchive);
    if ((st.st_mode & S_IWUSR) == 0)
        attrs |= kAttrReadOnly;
    if (isDir)
        attrs |= kAttrDirectory;
    return attrs;
}

// Through the folder that holds it, so that its word is read the way a
// listing of that folder reads it.
bool FillFindData(const fs::path& host, std::u16string name, FindData& out) {
    const fs::path folder = host.parent_path();
    FolderStream dir = FolderStream::Open(folder);
    if (!dir)
        return false;
    const int dirFd = dir.Fd();
    return FillFindDataAt(dirFd, host.filename().c_str(), folder, ProbeFolderWords(dirFd),
                          std::move(name), out);
}

std::string FindEntryIgnoringCase(const fs::path& folder, std::u16string_view name, bool& noLink) {
    std::string exact = ToUtf8(name);
    struct stat st {};
    if (::lstat((folder / exact).c_str(), &st) == 0) {
        if (S_ISLNK(st.st_mode))
            noLink = false;
        return exact;
    }
    FolderStream dir = FolderStream::Open(folder);
    if (!dir)
        return {};
    std::string found;
    while (const dirent64* entry = dir.Next()) {
        std::u16string candidate = FromUtf8(entry->d_name);
        if (EqualsIgnoreCase(candidate, name)) {
            found = entry->d_name;
            if (entry->d_type != DT_DIR && entry->d_type != DT_REG)
                noLink = false;
            break;
        }
    }
    return found;
}

std::unique_ptr<FindHandle> ListFolder(FolderStream dir, fs::path folder, std::u16string pattern,
                                       std::vector<FindData> bound,
                                       std::vector<std::u16string> boundNames, FindDetail detail) {
    return std::make_unique<HostFindHandle>(std::move(dir), std::move(folder), std::move(pattern),
                                            std::move(bound), std::move(boundNames), detail);
}

} // namespace zelvor
