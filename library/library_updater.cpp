#include "library/library_updater.h"

#include <algorithm>
#include <new>

#include "config/local_text.h"
#include "config/settings.h"
#include "platform/device.h"
#include "platform/text.h"
#include "res/string_table.h"
#include "tags/audio_file_type.h"

namespace zelvor {
namespace {

constexpr std::size_t kMaxStorageFolderChars = 256;
constexpr std::size_t kMaxRootChars = 260;

bool EndsWithBackslash(std::u16string_view folder) {
    return !folder.empty() && folder.back() == u'\\';
}

// "folder\*.*", or "folder*.*" when the folder already ends with "\", so
// that no doubled backslash is formed; likewise for a child's path.
std::u16string PatternOf(std::u16string_view folder) {
    return std::u16string(folder) + (EndsWithBackslash(folder) ? u"*.*" : u"\\*.*");
}

std::u16string ChildOf(std::u16string_view folder, std::u16string_view name) {
    std::u16string child(folder);
    if (!EndsWithBackslash(folder))
        child += u'\\';
    child += name;
    return child;
}

bool IsDirectory(const FindData& data) {
    return (data.attributes & kAttrDirectory) != 0;
}

bool IsDotName(std::u16string_view name) {
    return !name.empty() && name.front() == u'.';
}

DeviceFileSystem& Fs() {
    return CurrentDevice().FileSystem();
}

// A folder reached through a symbolic link (a music folder linked into the
// card folder is usual on a host) is entered like any other, unless it is
// one of the folders on its own path: entering it would go round until the
// tenth level, which leaves only the root's files. A link that leads out of
// its root or binding is refused by the file system itself, so it lists
// nothing and is left out as an empty folder.
bool LeadsBackToItsPath(std::u16string_view child) {
    auto target = Fs().Identity(child);
    if (!target)
        return true;
    std::u16string_view folder = child;
    do {
        folder = DeviceFolderOf(folder);
        if (Fs().Identity(folder.empty() ? std::u16string_view(u"\\") : folder) == target)
            return true;
    } while (!folder.empty());
    return false;
}

// Folders the search never enters: dot-folders, and links back to their path.
bool IsSkippedFolder(const FindData& data, std::u16string_view child) {
    return IsDotName(data.name) ||
           ((data.attributes & kAttrReparsePoint) != 0 && LeadsBackToItsPath(child));
}

// Calls visit(name, index) for each NUL-ended name packed in `names`.
template <typename Visit> void ForEachName(std::u16string_view names, Visit visit) {
    for (size_t index = 0; !names.empty(); ++index) {
        size_t end = names.find(u'\0');
        visit(names.substr(0, end), index);
        if (end == std::u16string_view::npos)
            break;
        names.remove_prefix(end + 1);
    }
}

// Every entry of a folder with its attribute bits; empty when it cannot be
// opened or holds nothing (then FindFirst finds nothing either).
std::vector<FindData> ListFolder(std::u16string_view folder) {
    std::vector<FindData> entries;
    entries.reserve(16); // an album's folder, without growing
    FindData data;
    auto find = Fs().FindFirst(PatternOf(folder), data, FindDetail::Attributes);
    if (!find)
        return entries;
    do
        entries.push_back(std::move(data));
    while (find->Next(data));
    return entries;
}

// Empty: every entry is a sub-folder whose name begins with ".".
bool IsListingEmpty(const std::vector<FindData>& entries) {
    return std::all_of(entries.begin(), entries.end(), [](const FindData& data) {
        return IsDirectory(data) && IsDotName(data.name);
    });
}

} // namespace

LibraryUpdater::LibraryUpdater(RecordBuilder builder) : m_builder(std::move(builder)) {}

void LibraryUpdater::SetRoot(std::u16string_view path) {
    std::u16string root(path.substr(0, kMaxRootChars));
    std::u16string probe = root;
    m_root = PathExists(probe) ? root : std::u16string(u"\\");
}

void LibraryUpdater::SetStorageFolders(std::u16string_view first, std::u16string_view second) {
    m_storage[0] = first.substr(0, kMaxStorageFolderChars);
    m_storage[1] = second.substr(0, kMaxStorageFolderChars);
}

void LibraryUpdater::RequestCancel() {
    m_cancelAsked = true;
    m_stopped = true;
}

bool LibraryUpdater::CanAllocate(std::size_t) {
    return true;
}

// The interactive form's pump: afterwards the cancel-asked flag is read and
// cleared; a set flag ends the current loop. The silent form only sees a
// cancel that came from elsewhere.
bool LibraryUpdater::PumpCancelled() {
    if (m_view && m_view->Pump())
        RequestCancel();
    return m_cancelAsked.exchange(false);
}

void LibraryUpdater::ShowPosition(int position) {
    if (!m_view || m_cancelAsked)
        return;
    m_view->SetPosition(position);
    PumpCancelled();
}

void LibraryUpdater::ShowCount(std::uint16_t textId, int count) {
    if (m_view)
        m_view->SetCountLine(FormatText(LoadLocalText(kLocalTextFileName, m_language, textId), count));
}

int LibraryUpdater::AddFoundFile(std::u16string path, const FindData& findData, int typeCode) {
    if (findData.attributes & (kAttrHidden | kAttrSystem)) {
        ++m_stats.skipped;
        return 0;
    }
    m_found.push_back({std::move(path), typeCode});
    return 1;
}

int LibraryUpdater::ScanFolderTree() {
    if (!CanAllocate(kNameAreaBytes))
        return 0;
    std::array<Level, kMaxScanLevels> levels;
    int deepest = 0;
    ShowCount(kTextFilesFound, 0);
    m_rootListing.reset();
    const bool completed = SearchLevels(levels, deepest);

    if (m_view)
        m_view->SetRange(0, std::max(deepest, 1), false);
    ShowPosition(0);
    m_found.clear();
    m_stats = {};
    if (completed && !m_stopped)
        SweepFiles(levels, deepest);
    m_rootListing.reset();
    return 1;
}

// Steps through depths 0 to 9, collecting each depth's sub-folders. Returns
// false when stopped (Cancel or a level copy that could not be had).
bool LibraryUpdater::SearchLevels(std::array<Level, kMaxScanLevels>& levels, int& deepest) {
    std::u16string area; // the name area; never grown beyond kNameAreaBytes
    std::vector<std::optional<Listing>> areaListings;
    for (int depth = 0; depth < kMaxScanLevels && !m_stopped; ++depth) {
        int taken = 0;
        bool areaFull = false;
        auto searchFolder = [&](std::u16string_view folder, std::optional<Listing>& listing) {
            if (!listing)
                listing = ListFolder(folder);
            if (listing->empty())
                return;
            for (size_t i = 0; i < listing->size(); ++i) {
                // After a cancel a folder is left after its first entry.
                if (i > 0 && m_stopped)
                    break;
                const FindData& data = (*listing)[i];
                if (!IsDirectory(data))
                    continue;
                std::u16string child = ChildOf(folder, data.name);
                if (IsSkippedFolder(data, child))
                    continue;
                const bool restricted = depth == 0 && RestrictedTopLevel();
                if (restricted ? CompareTextIgnoreCase(child, m_storage[0]) != 0 &&
                                     CompareTextIgnoreCase(child, m_storage[1]) != 0
                               : areaFull)
                    continue;
                // The area is not grown: once a name would not fit, this level
                // takes no more folders (nor lists them to test them).
                std::optional<Listing> childListing;
                if (!restricted && IsListingEmpty(*(childListing = ListFolder(child))))
                    continue;
                if (areaFull ||
                    (area.size() + child.size() + 1) * sizeof(char16_t) > kNameAreaBytes) {
                    areaFull = true;
                    continue;
                }
                area += child;
                area += u'\0';
                areaListings.push_back(std::move(childListing));
                ++taken;
            }
            if (m_view)
                PumpCancelled(); // the remaining folders then see their first entry only
        };
        if (depth == 0)
            searchFolder(m_root, m_rootListing);
        else
            ForEachName(levels[depth - 1].names, [&](std::u16string_view folder, size_t index) {
                searchFolder(folder, levels[depth - 1].listings[index]);
            });

        if (taken == 0) {
            deepest = depth;
            return !m_stopped;
        }
        if (!CanAllocate(area.size() * sizeof(char16_t))) {
            m_stopped = true;
            return false;
        }
        levels[depth].names = area; // the exact-size copy of this level
        levels[depth].count = taken;
        levels[depth].listings = std::move(areaListings);
        area.clear();
        areaListings.clear();
    }
    // Stopped, or the tenth depth still had sub-folders: the deepest depth
    // stays 0 and only the root's own files are swept.
    return !m_stopped;
}

void LibraryUpdater::SweepFiles(std::array<Level, kMaxScanLevels>& levels, int deepest) {
    int progress = 0;
    for (int depth = deepest; depth >= 0 && !m_stopped; --depth) {
        auto sweepFolder = [&](std::u16string_view folder, std::optional<Listing>& listing) {
            // Once stopped, the found list is thrown away by the caller, so
            // the remaining folders need not be looked at.
            if (m_stopped)
                return;
            if (!listing)
                listing = ListFolder(folder);
            int entry = 0;
            for (const FindData& data : *listing) {
                if (!IsDirectory(data)) {
                    int type = GetAudioFileType(data.name);
                    if (type != kNotMusic && AddFoundFile(ChildOf(folder, data.name), data, type)) {
                        ++m_stats.found;
                        ShowCount(kTextFilesFound, m_stats.found);
                    }
                }
                if (entry++ >= 1 && m_view) {
                    PumpCancelled();
                    if (m_stopped)
                        break;
                }
            }
            listing.reset(); // swept: its names are in the found list now
        };
        if (depth == 0)
            sweepFolder(m_root, m_rootListing);
        else
            ForEachName(levels[depth - 1].names, [&](std::u16string_view folder, size_t index) {
                sweepFolder(folder, levels[depth - 1].listings[index]);
            });
        ++m_stats.levels;
        ShowPosition(++progress);
    }
}

int LibraryUpdater::AddFoundFilesToLibrary() {
    if (m_view)
        m_view->SetCountLine(u"");
    const int count = static_cast<int>(m_found.size());
    if (count == 0)
        return 1;
    if (m_view) {
        m_view->SetMessageLine(LoadLocalText(kLocalTextFileName, m_language, kTextAddingFiles));
        m_view->SetRange(0, count, false);
    }
    ShowPosition(0);
    for (int i = 0; i < count && !m_stopped; ++i) {
        const FoundFile& found = m_found[static_cast<std::size_t>(i)];
        auto record = m_builder(found.path, found.typeCode);
        ShowPosition(i + 1);
        if (!record) {
            ++m_stats.failed;
            continue;
        }
        m_results.AddTrack(std::move(record));
        ++m_stats.added;
        ShowCount(kTextFilesAdded, m_stats.added);
    }
    return 1;
}

int IsFolderEmpty(std::u16string_view path) {
    FindData data;
    auto find = Fs().FindFirst(PatternOf(path), data, FindDetail::TypeOnly);
    if (!find)
        return 1;
    do {
        if (!IsDirectory(data) || !IsDotName(data.name))
            return 0;
    } while (find->Next(data));
    return 1;
}

int RunUpdatePhase(LibraryUpdater& updater, int phase) {
    updater.SetPhase(phase);
    UpdateView* view = updater.View();
    switch (phase) {
    case 1: {
        if (view)
            view->BeginWaitCursor();
        int result = updater.ScanFolderTree();
        if (view)
            view->EndWaitCursor();
        return result;
    }
    case 2:
        updater.AddFoundFilesToLibrary();
        return 1;
    case 3:
        if (view) {
            view->SetMessageLine(
                LoadLocalText(kLocalTextFileName, updater.Language(), kTextLibraryUpdated));
            view->Pause(1000);
        }
        return 1;
    default:
        return 0;
    }
}

bool RunInteractiveUpdate(LibraryUpdater& updater) {
    for (int phase = 1; phase <= 3; ++phase) {
        if (!RunUpdatePhase(updater, phase) || updater.Stopped())
            return false;
    }
    return true;
}

int UpdateLibrarySilently(LibraryUpdater& updater, int mode, std::u16string_view rootPath,
                          const std::atomic<bool>* globalStop) {
    updater.SetView(nullptr);
    // A storage that is not there holds no tracks: its rescan finds nothing,
    // so that the caller removes its records. Searching the file-system root
    // in its place would bring the other storage's tracks in a second time.
    std::u16string probe(rootPath);
    if (mode != 1 && !PathExists(probe)) {
        updater.FoundFiles().clear();
        return 1;
    }
    if (mode == 1)
        updater.SetStorageFolders(GetStorageCardRoot(), GetFlashDiskRoot());
    else
        updater.SetStorageFolders(u"", u"");
    updater.SetRoot(rootPath);
    updater.SetPhase(1);
    int result = updater.ScanFolderTree();
    const bool stopped = updater.Stopped() || (globalStop && globalStop->load());
    if (result == 1 && !stopped) {
        updater.SetPhase(2);
        updater.AddFoundFilesToLibrary();
    }
    return result;
}

} // namespace zelvor
