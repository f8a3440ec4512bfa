#pragma once
// The library update: finds every music file under the storage folders
// (search phase) and turns each into a TrackRecord (add phase).
//
// The search walks the folder tree level by level, breadth first, never by
// recursion: the names of one level's folders are packed into one name area
// of 262,144 bytes, and each level's names are kept in an exact-size copy, at
// most ten levels deep. The files are then swept from the deepest level up.
// The deliberate limits of that walk are kept: a level whose names do not fit
// in the area is cut, and a tree that reaches a tenth level below the root
// yields only the root's own files. Folders reached through symbolic links
// are entered like the others, except one that leads back to a folder on its
// own path (compared by device and inode numbers).
//
// Each folder is listed once: the search lists a sub-folder when it tests
// whether it is empty and keeps the listing, walks that listing for the next
// level's folders, and the sweep takes the files from it too.
//
// Two forms share the rules: the interactive one reports to an UpdateView and
// pumps it after every folder and file, so Cancel can stop it; the silent one
// runs without a view. Cancel (from the view's pump, or RequestCancel from
// anywhere, a signal handler included) sets the cancel-asked and stopped
// flags that the loops test.

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "library/track_list.h"
#include "library/update_view.h"
#include "platform/device_fs.h"

namespace zelvor {

// A file the search phase found: its device path and the reader that reads
// it (AudioFileType's number). The add phase turns each into a record.
struct FoundFile {
    std::u16string path;
    int typeCode = 0;
};

// Reads one file with the reader for its type; null when the reader fails.
using RecordBuilder =
    std::function<std::unique_ptr<TrackRecord>(std::u16string_view path, int typeCode)>;

constexpr std::size_t kNameAreaBytes = 262144;
constexpr int kMaxScanLevels = 10;

// Figures of a run, for tools and the log.
struct UpdateStats {
    int found = 0;   // music files listed by the search
    int skipped = 0; // hidden or system music files left out
    int added = 0;   // records made
    int failed = 0;  // files whose reader made no record
    int levels = 0;  // folder levels swept for files
};

class LibraryUpdater {
public:
    explicit LibraryUpdater(RecordBuilder builder);
    virtual ~LibraryUpdater() = default;
    LibraryUpdater(const LibraryUpdater&) = delete;
    LibraryUpdater& operator=(const LibraryUpdater&) = delete;

    // The root of the search; a path that does not exist becomes "\".
    void SetRoot(std::u16string_view path);
    const std::u16string& Root() const { return m_root; }
    // The two storage folders that restrict the top level when either is
    // non-empty (at most 256 characters each; an empty text clears one).
    void SetStorageFolders(std::u16string_view first, std::u16string_view second);
    // The interactive form's view; nullptr (the default) is the silent form.
    void SetView(UpdateView* view) { m_view = view; }
    // The language the status texts are shown in.
    void SetLanguage(std::int16_t language) { m_language = language; }

    // Search phase: fills FoundFiles(). 1, or 0 when the name area cannot be
    // had (nothing is searched then).
    int ScanFolderTree();
    // Add phase: builds a record per found file, appended to Results(). 1.
    int AddFoundFilesToLibrary();
    // Lists one file the search found: 0 for a hidden or system file, which is
    // left out, else 1.
    int AddFoundFile(std::u16string path, const FindData& findData, int typeCode);

    // Cancel: ends the running loop at its next test; thread- and signal-safe.
    void RequestCancel();
    bool Stopped() const { return m_stopped; }
    bool CancelAsked() const { return m_cancelAsked; }
    // The interactive form's pump: the view's Pump, after which cancel-asked
    // is read and cleared. True when a cancel came in.
    bool PumpCancelled();
    int Phase() const { return m_phase; }
    void SetPhase(int phase) { m_phase = phase; }
    UpdateView* View() const { return m_view; }
    std::int16_t Language() const { return m_language; }

    std::vector<FoundFile>& FoundFiles() { return m_found; }
    TrackList& Results() { return m_results; }
    const UpdateStats& Stats() const { return m_stats; }

protected:
    // Whether a block of this many bytes can be had; tests make it fail.
    virtual bool CanAllocate(std::size_t bytes);

private:
    // One folder's entries (with their attribute bits) in listing order;
    // empty when the folder cannot be opened or holds nothing.
    using Listing = std::vector<FindData>;
    struct Level {
        std::u16string names; // folder paths, each ended by a NUL
        int count = 0;
        // Parallel to names: each folder's listing, nullopt until listed.
        std::vector<std::optional<Listing>> listings;
    };
    bool SearchLevels(std::array<Level, kMaxScanLevels>& levels, int& deepest);
    void SweepFiles(std::array<Level, kMaxScanLevels>& levels, int deepest);
    void ShowPosition(int position);
    void ShowCount(std::uint16_t textId, int count);
    bool RestrictedTopLevel() const { return !m_storage[0].empty() || !m_storage[1].empty(); }

    RecordBuilder m_builder;
    UpdateView* m_view = nullptr;
    std::int16_t m_language = 0;
    std::u16string m_root = u"\\";
    std::u16string m_storage[2];
    std::atomic<bool> m_cancelAsked{false};
    std::atomic<bool> m_stopped{false};
    int m_phase = 0;
    std::optional<Listing> m_rootListing; // during a scan
    std::vector<FoundFile> m_found;
    TrackList m_results;
    UpdateStats m_stats;
};

// 1 when every entry of the folder is a sub-folder whose name begins with "."
// (any file and any other sub-folder make it non-empty), and when the folder
// cannot be opened.
int IsFolderEmpty(std::u16string_view path);

// Runs one phase of the interactive form: 1 search (under the wait cursor),
// 2 add, 3 finish (the success text, then a one-second pause). Phases 2 and
// 3 always succeed; phase 1 reports what the search returned.
int RunUpdatePhase(LibraryUpdater& updater, int phase);

// The interactive form from start to end: each phase runs when the one
// before succeeded and the run is not stopped. True when it ended after
// phase 3 ("Done"), false when stopped or when the search failed.
bool RunInteractiveUpdate(LibraryUpdater& updater);

// Silent form, without a view. Mode 1 searches the root with both storage
// folders as the top level, 3 the flash folder and 4 the storage card, each
// given as rootPath. The add phase runs when the search succeeded and
// neither the run nor the caller (globalStop) has stopped. Returns what the
// search returned. In mode 3 or 4 a root that does not exist is a storage
// that is not there: nothing is searched and 1 is returned with no results.
int UpdateLibrarySilently(LibraryUpdater& updater, int mode, std::u16string_view rootPath,
                          const std::atomic<bool>* globalStop = nullptr);

} // namespace zelvor
