#include "platform/folder_listing.h"

#include <fcntl.h>

#include "platform/stored_attributes.h"
#include "platform/text.h"

namespace zelvor {
namespace fs = std::filesystem;
namespace {

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
bool FillFindDataAt(int dirFd, const char* entry, const fs::path& folder, bool mayBeFat,
                    std::u16string name, FindData& out) {
    struct stat st {};
    if (::fstatat(dirFd, entry, &st, AT_SYMLINK_NOFOLLOW) != 0)
        return false;
    bool isLink = S_ISLNK(st.st_mode);
    if (isLink && ::fstatat(dirFd, entry, &st, 0) != 0)
        return false; // a dangling link
    out.attributes = AttributesOf(dirFd, entry, folder, st, mayBeFat) | (isLink ? kAttrReparsePoint : 0);
    FillTimes(st, out);
    out.name = std::move(name);
    return true;
}

// The lighter details from the entry's type as the folder listing gives it;
// a file system that gives no type falls back to a full stat.
bool FillLightFindData(int dirFd, const dirent& entry, const fs::path& folder, bool mayBeFat,
                       FindDetail detail, std::u16string name, FindData& out) {
    if (entry.d_type == DT_UNKNOWN || entry.d_type == DT_LNK)
        return FillFindDataAt(dirFd, entry.d_name, folder, mayBeFat, std::move(name), out);
    out = FindData{};
    const bool isDir = entry.d_type == DT_DIR;
    if (detail == FindDetail::Attributes)
        out.attributes = ReadStoredAttributesAt(dirFd, entry.d_name, folder, mayBeFat)
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
          m_mayBeFat(m_dir && IsFatFolder(::dirfd(m_dir.get()))) {}

    bool Next(FindData& out) override {
        while (m_dir) {
            dirent* entry = ::readdir(m_dir.get());
            if (!entry) {
                m_dir.reset();
                break;
            }
            std::string_view raw = entry->d_name;
            if (raw == "." || raw == "..")
                continue;
            std::u16string name = FromUtf8(raw);
            if (!MatchesWildcard(name, m_pattern) || IsBound(name))
                continue;
            bool filled = m_detail == FindDetail::Full
                              ? FillFindDataAt(::dirfd(m_dir.get()), entry->d_name, m_folder,
                                               m_mayBeFat, std::move(name), out)
                              : FillLightFindData(::dirfd(m_dir.get()), *entry, m_folder,
                                                  m_mayBeFat, m_detail, std::move(name), out);
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
    bool m_mayBeFat;
};

} // namespace

std::uint32_t AttributesOf(int dirFd, const char* entry, const fs::path& folder,
                           const struct stat& st, bool mayBeFat) {
    bool isDir = S_ISDIR(st.st_mode);
    std::uint32_t attrs =
        ReadStoredAttributesAt(dirFd, entry, folder, mayBeFat).value_or(isDir ? 0 : kAttrArchive);
    if ((st.st_mode & S_IWUSR) == 0)
        attrs |= kAttrReadOnly;
    if (isDir)
        attrs |= kAttrDirectory;
    return attrs;
}

bool FillFindData(const fs::path& host, std::u16string name, FindData& out) {
    return FillFindDataAt(AT_FDCWD, host.c_str(), {}, true, std::move(name), out);
}

std::string FindEntryIgnoringCase(const fs::path& folder, std::u16string_view name, bool& noLink) {
    std::string exact = ToUtf8(name);
    struct stat st {};
    if (::lstat((folder / exact).c_str(), &st) == 0) {
        if (S_ISLNK(st.st_mode))
            noLink = false;
        return exact;
    }
    FolderStream dir(::opendir(folder.c_str()));
    if (!dir)
        return {};
    std::string found;
    while (dirent* entry = ::readdir(dir.get())) {
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
