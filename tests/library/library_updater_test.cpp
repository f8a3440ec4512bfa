#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

#include "config/settings.h"
#include "library/library_file.h"
#include "library/library_replacement.h"
#include "library/library_updater.h"
#include "platform/text.h"
#include "res/string_table.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {
namespace fs = std::filesystem;
using testing::TestDevice;

// Stands in for the tag readers: a record for every file that can still be
// read, none for a file whose name holds "bad" or that has gone.
std::unique_ptr<TrackRecord> FakeBuild(std::u16string_view path, int) {
    if (path.find(u"bad") != std::u16string_view::npos ||
        !CurrentDevice().FileSystem().ReadWholeFile(path))
        return nullptr;
    auto record = std::make_unique<TrackRecord>();
    record->SetField(kFieldPath, path);
    record->SetField(kFieldTitle, FileNameOfPath(path, true));
    return record;
}

// Records what the interactive form shows; Cancel comes in at a chosen pump
// of a chosen phase.
class RecordingView : public UpdateView {
public:
    explicit RecordingView(LibraryUpdater& u) : updater(u) {}
    void SetRange(int lower, int upper, bool percent) override {
        ranges.push_back({lower, upper});
        EXPECT_FALSE(percent);
    }
    void SetPosition(int p) override { positions.push_back(p); }
    void SetCountLine(std::u16string_view t) override { countLines.emplace_back(t); }
    void SetMessageLine(std::u16string_view t) override { messageLines.emplace_back(t); }
    bool Pump() override {
        ++pumps;
        return updater.Phase() == cancelPhase && ++phasePumps == cancelAtPump;
    }
    LibraryUpdater& updater;
    int cancelPhase = 0, cancelAtPump = 0, phasePumps = 0, pumps = 0;
    std::vector<std::pair<int, int>> ranges;
    std::vector<int> positions;
    std::vector<std::u16string> countLines, messageLines;
};

class LibraryScan : public ::testing::Test {
protected:
    LibraryScan() : updater(FakeBuild) {}
    void Files(std::initializer_list<std::u16string_view> paths) {
        for (auto path : paths)
            dev.WriteFile(path, "audio");
    }
    std::set<std::u16string> Found() {
        std::set<std::u16string> paths;
        for (const auto& entry : updater.FoundFiles())
            paths.insert(entry.path);
        return paths;
    }
    std::set<std::u16string> ScanStorage() {
        updater.SetRoot(u"\\");
        updater.SetStorageFolders(u"\\Storage Card", u"\\Flash Disk");
        EXPECT_EQ(updater.ScanFolderTree(), 1);
        return Found();
    }
    TestDevice dev;
    LibraryUpdater updater;
};

TEST_F(LibraryScan, FindsMusicByNameInBothStorageFoldersAndTheRootOnly) {
    // 255 characters, the most a name can have (Linux counts bytes, so ASCII).
    const std::u16string longName = u"\\Storage Card\\Łódź\\日本\\" +
                                    std::u16string(251, u'a') + u".mp3";
    Files({u"\\Storage Card\\Music\\Artist\\01 One.mp3", u"\\Storage Card\\Music\\Artist\\2.WMA",
           u"\\Storage Card\\Music\\cover.jpg", u"\\Storage Card\\clip.m4a", longName,
           u"\\Flash Disk\\Zelvor\\My Music\\three.aac", u"\\Windows\\elsewhere.mp3",
           u"\\root.mp3", u"\\Storage Card\\.cache\\x.mp3", u"\\Storage Card\\Music\\hidden.mp3",
           u"\\Storage Card\\Music\\system.mp3"});
    bool attrs = dev.Fs().SetAttributes(u"\\Storage Card\\Music\\hidden.mp3", kAttrHidden) &&
                 dev.Fs().SetAttributes(u"\\Storage Card\\Music\\system.mp3", kAttrSystem);
    // A link back to an ancestor cannot trap the walk or deepen the tree.
    fs::create_directory_symlink(dev.Host(u"\\Storage Card"),
                                 dev.Host(u"\\Storage Card\\Music\\loop"));
    std::set<std::u16string> expected{u"\\Storage Card\\Music\\Artist\\01 One.mp3",
                                      u"\\Storage Card\\Music\\Artist\\2.WMA", longName,
                                      u"\\Flash Disk\\Zelvor\\My Music\\three.aac", u"\\root.mp3"};
    if (!attrs)
        expected.insert({u"\\Storage Card\\Music\\hidden.mp3", u"\\Storage Card\\Music\\system.mp3"});
    EXPECT_EQ(ScanStorage(), expected);
    EXPECT_EQ(updater.Stats().skipped, attrs ? 2 : 0);
    // Deepest folders are swept first, the root last; each entry carries
    // its type code.
    for (int i = 0; i < 3; ++i) {
        const std::u16string& path = updater.FoundFiles()[static_cast<std::size_t>(i)].path;
        EXPECT_EQ(std::count(path.begin(), path.end(), u'\\'), 4) << ToUtf8(path);
    }
    EXPECT_EQ(updater.FoundFiles().back().path, u"\\root.mp3");
    EXPECT_EQ(updater.FoundFiles().back().typeCode, 0);
}

TEST_F(LibraryScan, AddPhaseKeepsWhatTheReadersMakeAndCountsFailures) {
    Files({u"\\Storage Card\\A\\good.mp3", u"\\Storage Card\\bad.mp3", u"\\Flash Disk\\other.wma",
           u"\\Flash Disk\\bad.wma"});
    ScanStorage();
    // A card pulled between search and add leaves its files out.
    fs::remove(dev.Host(u"\\Storage Card\\A\\good.mp3"));
    updater.AddFoundFilesToLibrary();
    ASSERT_EQ(updater.Results().Count(), 1);
    EXPECT_EQ(updater.Results().TrackAt(0)->Text(kFieldPath), u"\\Flash Disk\\other.wma");
    EXPECT_EQ(updater.Stats().added, 1);
    EXPECT_EQ(updater.Stats().failed, 3);
}

class InteractiveUpdate : public LibraryScan {
protected:
    InteractiveUpdate() : view(updater) {
        for (int i = 0; i < 6; ++i)
            Files({u"\\Storage Card\\F" + FromUtf8(std::to_string(i)) + u"\\t.mp3"});
        updater.SetRoot(u"\\");
        updater.SetStorageFolders(GetStorageCardRoot(), GetFlashDiskRoot());
        updater.SetView(&view);
    }
    RecordingView view;
};

TEST_F(InteractiveUpdate, RunsThreePhasesWithTheirTexts) {
    EXPECT_TRUE(RunInteractiveUpdate(updater));
    EXPECT_EQ(updater.Results().Count(), 6);
    EXPECT_EQ(view.countLines.front(), u"0 file(s) found");
    EXPECT_NE(std::find(view.countLines.begin(), view.countLines.end(), u"6 file(s) found"),
              view.countLines.end());
    EXPECT_EQ(view.countLines.back(), u"6 file(s) added");
    EXPECT_EQ(view.messageLines,
              (std::vector<std::u16string>{u"Adding files...",
                                           u"The library has been updated successfully !"}));
    // Search: 0 to the deepest depth (2); add: 0 to the number of files.
    EXPECT_EQ(view.ranges, (std::vector<std::pair<int, int>>{{0, 2}, {0, 6}}));
    EXPECT_EQ(view.positions.back(), 6);
}

TEST_F(InteractiveUpdate, CancelKeepsOnlyTheRecordsAddedBeforeIt) {
    // Search: nothing is kept; add: pumps at position 0, then after records 1, 2, 3.
    for (auto [phase, pump, found, added] : {std::tuple{1, 2, 0, 0}, {2, 4, 6, 3}}) {
        LibraryUpdater fresh(FakeBuild);
        RecordingView v(fresh);
        fresh.SetRoot(u"\\");
        fresh.SetStorageFolders(GetStorageCardRoot(), GetFlashDiskRoot());
        fresh.SetView(&v);
        v.cancelPhase = phase;
        v.cancelAtPump = pump;
        EXPECT_FALSE(RunInteractiveUpdate(fresh));
        EXPECT_TRUE(fresh.Stopped());
        EXPECT_EQ(fresh.FoundFiles().size(), static_cast<std::size_t>(found)) << phase;
        EXPECT_EQ(fresh.Results().Count(), added) << phase;
    }
}

TEST_F(InteractiveUpdate, ACancelFromOutsideStopsTheSilentFormToo) {
    std::atomic<bool> frameStop{true};
    EXPECT_EQ(UpdateLibrarySilently(updater, 1, u"\\", &frameStop), 1);
    EXPECT_EQ(updater.FoundFiles().size() * 10 + updater.Results().Count(), 60u); // no add phase
    updater.RequestCancel();
    EXPECT_TRUE(updater.CancelAsked());
    EXPECT_EQ(UpdateLibrarySilently(updater, 1, u"\\"), 1);
    EXPECT_EQ(updater.FoundFiles().size(), 0u);
}

class FailingAllocations : public LibraryUpdater {
public:
    FailingAllocations(std::size_t failAt) : LibraryUpdater(FakeBuild), m_failAt(failAt) {}

protected:
    bool CanAllocate(std::size_t bytes) override { return bytes != m_failAt && m_failAt != 0; }

private:
    std::size_t m_failAt;
};

TEST(LibraryScanMemory, ANameAreaThatCannotBeHadFindsNothingAndALevelCopyStopsTheRun) {
    TestDevice dev;
    dev.WriteFile(u"\\Storage Card\\A\\a.mp3", "x");
    FailingAllocations noArea(kNameAreaBytes);
    noArea.SetStorageFolders(u"\\Storage Card", u"");
    EXPECT_EQ(noArea.ScanFolderTree(), 0);
    EXPECT_FALSE(noArea.Stopped());
    // Depth 0 packs "\Storage Card" and its NUL: 28 bytes.
    FailingAllocations noCopy(28);
    noCopy.SetStorageFolders(u"\\Storage Card", u"");
    EXPECT_EQ(noCopy.ScanFolderTree(), 1);
    EXPECT_TRUE(noCopy.Stopped());
    EXPECT_EQ(noCopy.FoundFiles().size(), 0u);
}

TEST_F(LibraryScan, SilentModesRescanOneStorageAndReplaceOnlyItsRecords) {
    Files({u"\\Storage Card\\card.mp3", u"\\Flash Disk\\flash.mp3"});
    TrackList library;
    for (std::u16string path : {u"\\Storage Card\\old.mp3", u"\\Flash Disk\\kept.mp3"}) {
        auto r = std::make_unique<TrackRecord>();
        r->SetField(kFieldPath, path);
        library.AddTrack(std::move(r));
    }
    EXPECT_EQ(UpdateLibrarySilently(updater, 4, GetStorageCardRoot()), 1);
    ASSERT_EQ(ReplaceStorageAfterSilentUpdate(library, updater.Results(), 4), 1);
    std::set<std::u16string> paths;
    for (const auto& r : library)
        paths.insert(std::u16string(r->Text(kFieldPath)));
    EXPECT_EQ(paths, (std::set<std::u16string>{u"\\Flash Disk\\kept.mp3", u"\\Storage Card\\card.mp3"}));
    EXPECT_EQ(updater.Results().Count(), 0);
    // Only the rescanned storage's fingerprint is recorded.
    auto recorded = [](std::uint16_t section) {
        return GetProfileNumber(section, kTextEntryFreeSpaceHigh, 0) != 0 ||
               GetProfileNumber(section, kTextEntryFreeSpaceLow, 0) != 0;
    };
    EXPECT_TRUE(recorded(kTextSectionStorageCard));
    EXPECT_FALSE(recorded(kTextSectionFlashDisk));
    TrackList saved;
    EXPECT_EQ(LoadTrackList(GetLibraryPath(), saved), 1);
    EXPECT_EQ(saved.Count(), 2);

    // The card taken out: its records go, and nothing else is scanned.
    fs::remove_all(dev.Host(u"\\Storage Card"));
    LibraryUpdater again(FakeBuild);
    EXPECT_EQ(UpdateLibrarySilently(again, 4, GetStorageCardRoot()), 1);
    EXPECT_EQ(again.Results().Count(), 0);
    ReplaceStorageAfterSilentUpdate(library, again.Results(), 4);
    ASSERT_EQ(library.Count(), 1);
    EXPECT_EQ(library.TrackAt(0)->Text(kFieldPath), u"\\Flash Disk\\kept.mp3");
}

} // namespace
} // namespace zelvor
