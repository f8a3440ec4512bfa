#pragma once
// A root or binding folder of the device, kept open, so that a path below it
// is opened with one openat2 call instead of a lookup component by component.
//
// The call takes the path only as it is spelled (FAT's case-blind lookup is
// the caller's slower way) and refuses every symbolic link and every way out
// of the folder, so what it opens needs no check that it stayed inside.
// Before each use the kept descriptor is compared with what the folder's path
// names now: a folder renamed, replaced or mounted over since is opened anew
// for that call, so the answer is always that of the path.

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace zelvor {

class KeptFolder {
public:
    // Opens the folder (O_PATH); Valid() is false when it cannot be opened.
    explicit KeptFolder(std::filesystem::path host);
    ~KeptFolder();
    KeptFolder(const KeptFolder&) = delete;
    KeptFolder& operator=(const KeptFolder&) = delete;

    bool Valid() const { return m_fd >= 0; }
    const std::filesystem::path& Host() const { return m_host; }

    // A new descriptor, owned by the caller, for `relative` ("a/b.mp3"; empty
    // for the folder itself) opened with the open(2) flags, O_CLOEXEC added.
    // -1 when a component is missing as spelled, is a symbolic link, or the
    // open fails for any other reason; O_CREAT is never passed here.
    int OpenExact(std::string_view relative, int flags) const;

private:
    std::filesystem::path m_host;
    int m_fd = -1;
    std::uint64_t m_device = 0;
    std::uint64_t m_inode = 0;
};

// The UTF-8, "/"-separated form of the device path below a root or binding
// ("\a\b" or "a\b" gives "a/b").
std::string HostRelativeOf(std::u16string_view deviceRest);

} // namespace zelvor
