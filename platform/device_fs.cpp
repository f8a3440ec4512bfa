#include "platform/device_fs.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "platform/durable_file.h"
#include "platform/folder_listing.h"
#include "platform/posix_file.h"
#include "platform/stored_attributes.h"
#include "platform/text.h"

namespace zelvor {
namespace fs = std::filesystem;
namespace {

// Whether a host path lies inside base, compared component by component.
bool IsWithin(const fs::path& path, const fs::path& base) {
    auto [b, p] = std::mismatch(base.begin(), base.end(), path.begin(), path.end());
    return b == base.end();
}

} // namespace

DeviceFileSystem::DeviceFileSystem(fs::path hostRoot) {
    std::error_code ec;
    fs::path canonical = fs::weakly_canonical(hostRoot, ec);
    m_hostRoot = ec ? std::move(hostRoot) : std::move(canonical);
    m_hostRootIsReal = !ec && fs::exists(m_hostRoot, ec);
    if (m_hostRootIsReal)
        m_rootKept = std::make_shared<const KeptFolder>(m_hostRoot);
}

DeviceFileSystem::~DeviceFileSystem() = default;

void DeviceFileSystem::Bind(std::u16string_view devicePrefix, fs::path hostFolder) {
    std::u16string prefix = NormalizePath(devicePrefix);
    Unbind(prefix);
    std::error_code ec;
    fs::path canonical = fs::weakly_canonical(hostFolder, ec);
    bool isReal = !ec && fs::exists(canonical, ec);
    fs::path host = ec ? std::move(hostFolder) : std::move(canonical);
    auto kept = isReal ? std::make_shared<const KeptFolder>(host) : nullptr;
    m_bindings.push_back({std::move(prefix), std::move(host), isReal, std::move(kept)});
    // Longest prefix first, so the most specific binding wins.
    std::sort(m_bindings.begin(), m_bindings.end(),
              [](const Binding& a, const Binding& b) { return a.prefix.size() > b.prefix.size(); });
}

void DeviceFileSystem::Unbind(std::u16string_view devicePrefix) {
    std::u16string prefix = NormalizePath(devicePrefix);
    std::erase_if(m_bindings, [&](const Binding& b) { return EqualsIgnoreCase(b.prefix, prefix); });
}

std::u16string DeviceFileSystem::NormalizePath(std::u16string_view devicePath) {
    std::vector<std::u16string_view> kept;
    for (std::u16string_view part : SplitDeviceComponents(devicePath)) {
        if (part == u".")
            continue;
        if (part == u"..") {
            if (!kept.empty())
                kept.pop_back();
            continue;
        }
        kept.push_back(part);
    }
    std::u16string out;
    for (std::u16string_view part : kept) {
        out += u'\\';
        out += part;
    }
    return out.empty() ? std::u16string(u"\\") : out;
}

DeviceFileSystem::Located DeviceFileSystem::Locate(std::u16string_view normalized) const {
    for (const Binding& b : m_bindings) {
        if (StartsWithIgnoreCase(normalized, b.prefix) &&
            (normalized.size() == b.prefix.size() || normalized[b.prefix.size()] == u'\\'))
            return {&b.host, b.hostIsReal, b.kept.get(), normalized.substr(b.prefix.size())};
    }
    return {&m_hostRoot, m_hostRootIsReal, m_rootKept.get(), normalized};
}

std::optional<DeviceFileSystem::Resolved> DeviceFileSystem::Resolve(
    std::u16string_view devicePath) const {
    if (devicePath.find(u'\0') != std::u16string_view::npos)
        return std::nullopt;
    const std::u16string normalized = NormalizePath(devicePath);
    const Located located = Locate(normalized);
    const fs::path& base = *located.base;

    // The usual case in one call: every component spelled as on the disk and
    // no link on the way, so the path cannot have left its base.
    if (located.kept) {
        std::string relative = HostRelativeOf(located.rest);
        int fd = located.kept->OpenExact(relative, O_PATH);
        if (fd >= 0) {
            ::close(fd);
            return Resolved{relative.empty() ? base : base / relative, base};
        }
    }

    fs::path host = base;
    bool noLink = located.baseIsReal;
    bool exists = true;
    for (std::u16string_view part : SplitDeviceComponents(located.rest)) {
        std::string name = exists ? FindEntryIgnoringCase(host, part, noLink) : std::string();
        if (name.empty()) {
            exists = false;
            name = ToUtf8(part);
        }
        host /= name;
    }

    // A symbolic link may not lead out of the root or binding it lies in.
    // Without a link below a base that was a real path when it was set, the
    // path cannot leave it, and the costly check (a realpath of every
    // component from "/") is skipped: it took half the time of reading a tag.
    if (!noLink) {
        std::error_code ec;
        fs::path real = fs::weakly_canonical(host, ec);
        if (ec || !IsWithin(real, base))
            return std::nullopt;
    }
    return Resolved{std::move(host), base};
}

std::optional<DeviceFileSystem::Opened> DeviceFileSystem::OpenHost(std::u16string_view devicePath,
                                                                   int flags, bool withHost) const {
    if (devicePath.find(u'\0') == std::u16string_view::npos && (flags & O_CREAT) == 0) {
        const std::u16string normalized = NormalizePath(devicePath);
        const Located located = Locate(normalized);
        if (located.kept) {
            std::string relative = HostRelativeOf(located.rest);
            int fd = located.kept->OpenExact(relative, flags);
            if (fd >= 0 && !withHost)
                return Opened{fd, {}};
            if (fd >= 0)
                return Opened{fd, relative.empty() ? *located.base : *located.base / relative};
        }
    }
    auto host = ToHostPath(devicePath);
    if (!host)
        return std::nullopt;
    return Opened{::open(host->c_str(), flags | O_CLOEXEC, 0644), std::move(*host)};
}

std::optional<fs::path> DeviceFileSystem::ToHostPath(std::u16string_view devicePath) const {
    auto resolved = Resolve(devicePath);
    if (!resolved)
        return std::nullopt;
    return std::move(resolved->host);
}

std::unique_ptr<FindHandle> DeviceFileSystem::FindFirst(std::u16string_view pattern,
                                                        FindData& first, FindDetail detail) const {
    std::u16string normalized = NormalizePath(pattern);
    std::u16string_view folder = DeviceFolderOf(normalized);
    std::u16string_view namePattern = DeviceNameOf(normalized);
    if (namePattern.empty())
        return nullptr;
    auto opened = OpenHost(folder.empty() ? std::u16string_view(u"\\") : folder,
                           O_RDONLY | O_DIRECTORY);
    if (!opened)
        return nullptr;

    // Bound folders show up in their parent like mount points. Both sides
    // are normalized already ("\a", or "" for the root), so they compare as
    // they stand: a scan asks this once for every folder it lists.
    std::vector<FindData> bound;
    std::vector<std::u16string> boundNames;
    for (const Binding& b : m_bindings) {
        if (!EqualsIgnoreCase(DeviceFolderOf(b.prefix), folder))
            continue;
        std::u16string name(DeviceNameOf(b.prefix));
        boundNames.push_back(name);
        FindData data;
        if (MatchesWildcard(name, namePattern) && FillFindData(b.host, name, data))
            bound.push_back(std::move(data));
    }
    FolderStream dir(opened->fd);
    if (!dir && bound.empty())
        return nullptr;
    auto handle = ListFolder(std::move(dir), std::move(opened->host), std::u16string(namePattern),
                             std::move(bound), std::move(boundNames), detail);
    if (!handle->Next(first))
        return nullptr;
    return handle;
}

std::uint32_t DeviceFileSystem::GetAttributes(std::u16string_view path) const {
    auto host = ToHostPath(path);
    struct stat st {};
    if (!host || ::stat(host->c_str(), &st) != 0)
        return kInvalidAttributes;
    return AttributesOf(st, ReadStoredAttributes(*host));
}

bool DeviceFileSystem::SetAttributes(std::u16string_view path, std::uint32_t attributes) {
    auto host = ToHostPath(path);
    struct stat st {};
    if (!host || ::stat(host->c_str(), &st) != 0)
        return false;
    mode_t mode = st.st_mode & 07777;
    mode = (attributes & kAttrReadOnly) ? (mode & ~mode_t{S_IWUSR | S_IWGRP | S_IWOTH})
                                        : (mode | S_IWUSR);
    if (::chmod(host->c_str(), mode) != 0)
        return false;
    // Without anything else to keep, a plain file needs no stored word.
    std::uint32_t kept = attributes & ~kAttrDirectory;
    if (!ReadStoredAttributes(*host) && (kept & ~(kAttrArchive | kAttrNormal)) == 0)
        return true;
    return WriteStoredAttributes(*host, kept);
}

bool DeviceFileSystem::CreateDirectory(std::u16string_view path) {
    auto host = ToHostPath(path);
    return host && ::mkdir(host->c_str(), 0755) == 0;
}

bool DeviceFileSystem::RemoveDirectory(std::u16string_view path) {
    auto host = ToHostPath(path);
    return host && NormalizePath(path) != u"\\" && ::rmdir(host->c_str()) == 0;
}

bool DeviceFileSystem::DeleteFile(std::u16string_view path) {
    auto host = ToHostPath(path);
    struct stat st {};
    if (!host || ::lstat(host->c_str(), &st) != 0 || S_ISDIR(st.st_mode))
        return false;
    return ::unlink(host->c_str()) == 0;
}

bool DeviceFileSystem::MoveFile(std::u16string_view from, std::u16string_view to) {
    auto source = ToHostPath(from);
    auto target = ToHostPath(to);
    struct stat st {};
    if (!source || !target || ::lstat(source->c_str(), &st) != 0)
        return false;
    // The device's file system ignores case, so a target that differs only
    // in case is the source itself: renaming "a" to "A" is allowed, moving
    // onto another existing file is not.
    bool sameEntry = *source == *target ||
                     (EqualsIgnoreCase(NormalizePath(from), NormalizePath(to)));
    if (!sameEntry && ::lstat(target->c_str(), &st) == 0)
        return false;
    if (sameEntry)
        target = source->parent_path() / ToUtf8(DeviceNameOf(NormalizePath(to)));
    if (::rename(source->c_str(), target->c_str()) != 0)
        return false;
    KeepWordVisible(*target);
    return true;
}

std::optional<DiskSpace> DeviceFileSystem::GetDiskFreeSpace(std::u16string_view path) const {
    auto host = ToHostPath(path);
    struct statvfs vfs {};
    if (!host || ::statvfs(host->c_str(), &vfs) != 0)
        return std::nullopt;
    DiskSpace space;
    space.freeBytesAvailableToCaller = static_cast<std::uint64_t>(vfs.f_bavail) * vfs.f_frsize;
    space.totalBytes = static_cast<std::uint64_t>(vfs.f_blocks) * vfs.f_frsize;
    space.totalFreeBytes = static_cast<std::uint64_t>(vfs.f_bfree) * vfs.f_frsize;
    return space;
}

bool DeviceFileSystem::IsOwnMount(std::u16string_view path) const {
    auto host = ToHostPath(path);
    struct stat folder {};
    struct stat parent {};
    if (!host || ::stat(host->c_str(), &folder) != 0 ||
        ::stat((*host / "..").c_str(), &parent) != 0)
        return false;
    // A mount point lies on another device than its parent, or is "/".
    return folder.st_dev != parent.st_dev || folder.st_ino == parent.st_ino;
}

std::optional<std::uint64_t> DeviceFileSystem::TreeSignature(std::u16string_view path,
                                                             const FileNameFilter& counts) const {
    auto resolved = Resolve(path);
    if (!resolved)
        return std::nullopt;
    return HostTreeSignature(resolved->host, resolved->base, counts);
}

std::optional<FolderIdentity> DeviceFileSystem::Identity(std::u16string_view path) const {
    auto host = ToHostPath(path);
    struct stat st {};
    if (!host || ::stat(host->c_str(), &st) != 0)
        return std::nullopt;
    return FolderIdentity{static_cast<std::uint64_t>(st.st_dev), static_cast<std::uint64_t>(st.st_ino)};
}

std::unique_ptr<DeviceFile> DeviceFileSystem::OpenFile(std::u16string_view path, FileMode mode,
                                                       bool create) {
    int flags = mode == FileMode::Read ? O_RDONLY : O_RDWR;
    if (create)
        flags |= O_CREAT;
    auto opened = OpenHost(path, flags, false);
    if (!opened || opened->fd < 0)
        return nullptr;
    const int fd = opened->fd;
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        return nullptr;
    }
    std::optional<std::uint64_t> sizeAtOpen;
    if (mode == FileMode::Read)
        sizeAtOpen = static_cast<std::uint64_t>(st.st_size);
    return std::make_unique<PosixFile>(fd, sizeAtOpen);
}

std::optional<std::vector<std::byte>> DeviceFileSystem::ReadWholeFile(std::u16string_view path,
                                                                      std::uint64_t maxBytes) const {
    auto opened = OpenHost(path, O_RDONLY, false);
    if (!opened || opened->fd < 0)
        return std::nullopt;
    PosixFile file(opened->fd);
    std::uint64_t size = file.Size();
    if (size > maxBytes)
        return std::nullopt;
    std::vector<std::byte> bytes(static_cast<size_t>(size));
    if (file.ReadAt(0, bytes) != bytes.size())
        return std::nullopt;
    return bytes;
}

bool DeviceFileSystem::ReplaceFile(std::u16string_view path, std::span<const std::byte> data) {
    auto host = ToHostPath(path);
    if (!host)
        return false;
    std::optional<std::uint32_t> oldAttributes = ReadStoredAttributes(*host);
    if (!WriteFileDurably(*host, data))
        return false;
    if (oldAttributes)
        WriteStoredAttributes(*host, *oldAttributes);
    return true;
}


} // namespace zelvor
