#pragma once
// The device's hidden, system, read-only and archive bits on a host file:
// FAT attributes on a FAT folder, otherwise an extended attribute.
//
// A folder whose entries carry stored words is itself marked (an extended
// attribute of its own, set before any word in it). A listing asks the folder
// once and reads per entry only where the mark is, so a scan of a large
// collection costs one read per folder instead of one per file. The mark is
// never taken away: a folder whose words were all cleared is read per entry,
// which is slower but right.

#include <cstdint>
#include <filesystem>
#include <optional>

namespace zelvor {

// The attribute bits stored for a host file, without the directory bit;
// nullopt when none are stored (the caller picks the default).
std::optional<std::uint32_t> ReadStoredAttributes(const std::filesystem::path& host);

// Where the entries of an open folder keep their words.
enum class FolderWords {
    kNone,     // nowhere: every entry has the defaults
    kStored,   // in extended attributes, entry by entry
    kFat,      // in the FAT attribute bytes
};
// Asks the folder open as dirFd: one call on the usual file systems.
FolderWords ProbeFolderWords(int dirFd);

// The same as ReadStoredAttributes for the entry `name` of the folder open as
// dirFd, whose words are kept as `words` says: the lookup starts at the folder
// instead of walking its whole path again for every entry. `folder` is the
// folder's path, for kernels that read attributes by path only.
std::optional<std::uint32_t> ReadStoredAttributesAt(int dirFd, const char* name,
                                                    const std::filesystem::path& folder,
                                                    FolderWords words);
// Stores the bits; false when the host file system can keep none of them
// (then nothing was stored).
bool WriteStoredAttributes(const std::filesystem::path& host, std::uint32_t attributes);
// Marks the folder holding `host` when `host` carries a stored word, so that
// a word moved in with its file is still seen by listings.
void KeepWordVisible(const std::filesystem::path& host);

} // namespace zelvor
