#pragma once
// Everything the program reads from or writes to the registry, and the fixed
// places of the file system it works in: the program directory, the two
// storage roots, "My Music", "My Playlists", and the free-space fingerprint by
// which the library update tells that a storage's contents may have changed.
// All of it goes through the current device (platform/device.h).

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/device_fs.h"

namespace zelvor {

// The application's registry key: profile values live in one subkey per
// section below it, in HKEY_CURRENT_USER.
constexpr std::u16string_view kCompanyKey = u"Quorrel Systems Inc.";
constexpr std::u16string_view kApplicationKey = u"Software\\Quorrel Systems Inc.\\Zelvor";

// Storage kinds of ClassifyStoragePath.
enum StorageKind : int { kStorageOther = 0, kStorageFlash = 3, kStorageCard = 4 };

// The shell's "Language" and "GUI Color" under HKLM "OMBREL", used as 16-bit
// values; 0 when the key or the value is missing.
std::int16_t ReadLanguage();
std::uint16_t ReadGuiColor();

// Profile numbers by string-table ids of section and entry (the names are
// loaded from the built-in table, never translated). A write is flushed at
// once so that the value survives a sudden loss of power.
std::uint32_t GetProfileNumber(std::uint16_t sectionId, std::uint16_t entryId,
                               std::uint32_t defaultValue);
void SetProfileNumber(std::uint16_t sectionId, std::uint16_t entryId, std::uint32_t value);
// The same by names, for the few values whose names are not in the table
// ("MP3" / "Volume").
std::uint32_t GetProfileNumber(std::u16string_view section, std::u16string_view entry,
                               std::uint32_t defaultValue);
void SetProfileNumber(std::u16string_view section, std::u16string_view entry, std::uint32_t value);

// Fixed places, as device paths without a trailing backslash.
std::u16string GetStorageCardRoot();
std::u16string GetFlashDiskRoot();
const std::u16string& GetProgramDirectory();
std::u16string GetMusicFolder();
std::u16string GetPlaylistFolder();

// True when the path names an existing file or folder. A trailing backslash
// is removed from the caller's text itself. The root "\" exists without a
// search. When record is given it receives the entry's find data.
bool PathExists(std::u16string& path, FindData* record = nullptr);

// 4 for a path on the storage card, 3 on the flash disk, 0 elsewhere.
int ClassifyStoragePath(std::u16string_view path);

// The free-space fingerprint of a storage root, per storage kind (4 = card,
// anything else = flash disk): whether it differs from the one recorded at
// the last scan, and recording it after a scan. It is the free bytes of a
// card that is a mount point of its own, otherwise a signature of the music
// files below the root (see settings.cpp); 0 for a root that is not there.
bool StorageChanged(int storageKind, std::u16string_view rootPath);
void RecordFreeSpace(int storageKind, std::u16string_view rootPath);

} // namespace zelvor
