#include "config/settings.h"

#include <optional>

#include "platform/device.h"
#include "platform/text.h"
#include "res/string_table.h"
#include "tags/audio_file_type.h"

namespace zelvor {
namespace {

constexpr std::u16string_view kShellKey = u"OMBREL";
constexpr std::u16string_view kFlashDiskRoot = u"\\Flash Disk";
// The device's path buffers hold 260 characters with the terminator.
constexpr size_t kMaxPathChars = 259;

RegistryStore& Registry() {
    return CurrentDevice().Registry();
}

std::u16string SectionKey(std::u16string_view section) {
    return std::u16string(kApplicationKey) + u"\\" + std::u16string(section);
}

std::u16string TableText(std::uint16_t id) {
    return std::u16string(FindBuiltInText(id).value_or(u""));
}

std::uint16_t ReadShellValue(std::u16string_view name) {
    // Only the low 16 bits of the 32-bit value are used.
    auto value = Registry().QueryDword(RegistryRoot::LocalMachine, kShellKey, name);
    return static_cast<std::uint16_t>(value.value_or(0));
}

std::uint16_t SectionForKind(int storageKind) {
    return storageKind == kStorageCard ? kTextSectionStorageCard : kTextSectionFlashDisk;
}

// What is stored as a storage's "free space": a number that changes when,
// and only when, the music on it may have changed. On a card that is a file
// system of its own, that is its free space, as on the device. A folder that
// shares its file system with the rest of the host (the usual card folder,
// the flash folder, the registry's) sees its free space move with every
// write anywhere on the machine, so its number is instead the signature of
// the music files below it, from one walk of its folders (no file opened).
std::optional<std::uint64_t> FingerprintOf(std::u16string_view rootPath) {
    std::u16string root(rootPath);
    if (!PathExists(root))
        return std::nullopt;
    DeviceFileSystem& fs = CurrentDevice().FileSystem();
    if (!fs.IsOwnMount(root))
        return fs.TreeSignature(root, [](std::u16string_view name) {
            return GetAudioFileType(name) != kNotMusic;
        });
    auto space = fs.GetDiskFreeSpace(root);
    if (!space)
        return std::nullopt;
    return space->freeBytesAvailableToCaller;
}

} // namespace

std::int16_t ReadLanguage() {
    return static_cast<std::int16_t>(ReadShellValue(u"Language"));
}

std::uint16_t ReadGuiColor() {
    return ReadShellValue(u"GUI Color");
}

std::uint32_t GetProfileNumber(std::u16string_view section, std::u16string_view entry,
                               std::uint32_t defaultValue) {
    return Registry()
        .QueryDword(RegistryRoot::CurrentUser, SectionKey(section), entry)
        .value_or(defaultValue);
}

void SetProfileNumber(std::u16string_view section, std::u16string_view entry,
                      std::uint32_t value) {
    // Write failures are not reported: the next start reads the default.
    Registry().SetDword(RegistryRoot::CurrentUser, SectionKey(section), entry, value);
    Registry().Flush(RegistryRoot::CurrentUser);
}

std::uint32_t GetProfileNumber(std::uint16_t sectionId, std::uint16_t entryId,
                               std::uint32_t defaultValue) {
    return GetProfileNumber(TableText(sectionId), TableText(entryId), defaultValue);
}

void SetProfileNumber(std::uint16_t sectionId, std::uint16_t entryId, std::uint32_t value) {
    SetProfileNumber(TableText(sectionId), TableText(entryId), value);
}

std::u16string GetStorageCardRoot() {
    return StorageCardRootFromRegistry(Registry()).substr(0, kMaxPathChars);
}

std::u16string GetFlashDiskRoot() {
    return std::u16string(kFlashDiskRoot);
}

const std::u16string& GetProgramDirectory() {
    return CurrentDevice().ProgramDirectory();
}

std::u16string GetMusicFolder() {
    return GetProgramDirectory() + u"\\My Music";
}

std::u16string GetPlaylistFolder() {
    return GetProgramDirectory() + u"\\My Playlists";
}

bool PathExists(std::u16string& path, FindData* record) {
    if (path.empty())
        return false;
    DeviceFileSystem& fs = CurrentDevice().FileSystem();
    if (path == u"\\") {
        if (record) {
            *record = FindData{};
            record->attributes = fs.GetAttributes(path);
            record->name = path;
        }
        return true;
    }
    if (path.back() == u'\\')
        path.pop_back();
    FindData found;
    if (!fs.FindFirst(path, found))
        return false;
    if (record)
        *record = std::move(found);
    return true;
}

int ClassifyStoragePath(std::u16string_view path) {
    if (StartsWithIgnoreCase(path, GetStorageCardRoot() + u"\\"))
        return kStorageCard;
    if (StartsWithIgnoreCase(path, GetFlashDiskRoot() + u"\\"))
        return kStorageFlash;
    return kStorageOther;
}

bool StorageChanged(int storageKind, std::u16string_view rootPath) {
    const std::uint16_t section = SectionForKind(storageKind);
    const std::uint32_t high = GetProfileNumber(section, kTextEntryFreeSpaceHigh, 0);
    const std::uint32_t low = GetProfileNumber(section, kTextEntryFreeSpaceLow, 0);
    auto free = FingerprintOf(rootPath);
    if (!free) // gone since the last scan when a value was recorded then
        return high != 0 || low != 0;
    return static_cast<std::uint32_t>(*free >> 32) != high ||
           static_cast<std::uint32_t>(*free) != low;
}

void RecordFreeSpace(int storageKind, std::u16string_view rootPath) {
    const std::uint16_t section = SectionForKind(storageKind);
    const std::uint64_t free = FingerprintOf(rootPath).value_or(0);
    SetProfileNumber(section, kTextEntryFreeSpaceHigh, static_cast<std::uint32_t>(free >> 32));
    SetProfileNumber(section, kTextEntryFreeSpaceLow, static_cast<std::uint32_t>(free));
}

} // namespace zelvor
