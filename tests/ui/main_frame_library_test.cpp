// The frame's library rules: the start-up check, the silent update and its
// end, on a fresh device with controlled free space.
#include <gtest/gtest.h>

#include <algorithm>

#include "library/library_file.h"
#include "tests/ui/main_frame_rules_fixture.h"

namespace zelvor {
namespace {
using namespace zelvor::testing;

class FrameLibraryRules : public FrameRules {
protected:
    void SaveLibrary(std::initializer_list<std::u16string_view> paths) {
        TrackList list;
        for (auto path : paths)
            list.AddTrack(PathOnlyRecord(path, 0));
        ASSERT_EQ(SaveTrackList(GetLibraryPath(), list, 0), 1);
    }
    std::vector<std::string> LibraryPaths() {
        std::vector<std::string> paths;
        for (const auto& record : rules.Library())
            paths.push_back(ToUtf8(record->Text(kFieldPath)));
        return paths;
    }
};

TEST_F(FrameLibraryRules, AMissingLibraryIsRebuiltFromBothStoragesAndFillsTheQueue) {
    InsertCard();
    Music(u"\\Storage Card\\rock\\zeta.mp3");
    Music(u"\\Storage Card\\bad.mp3");
    Music(u"\\Flash Disk\\alpha.wma");
    Music(u"\\Windows\\outside.mp3"); // not on a storage: never scanned
    RecordBothFingerprints();

    Handle(kMsgStartupCheck);
    EXPECT_EQ(window.posted, (std::vector<WindowMessage>{{kMsgUpdateLibrary, 1, 1}}));
    EXPECT_FALSE(player.Called("ReplaceQueue"));

    EXPECT_EQ(RunPosted(), (std::vector<std::uint32_t>{kMsgUpdateLibrary, kMsgUpdateFinished}));
    // Album order: the stand-in records' albums are their names.
    EXPECT_EQ(player.queue,
              (std::vector<std::string>{"\\Flash Disk\\alpha.wma", "\\Storage Card\\rock\\zeta.mp3"}));
    EXPECT_EQ(browser.calls, (std::vector<std::string>{"ShowStatusText Searching for files...",
                                                       "ShowStatusText ", "Reload"}));
    TrackList saved;
    ASSERT_EQ(LoadTrackList(GetLibraryPath(), saved), 1);
    EXPECT_EQ(saved.Count(), 2);
    EXPECT_FALSE(StorageChanged(kStorageCard, GetStorageCardRoot()));
    EXPECT_FALSE(StorageChanged(kStorageFlash, GetFlashDiskRoot()));
}

// A usable library on unchanged storage is loaded under the wait cursor and
// fills an empty queue; a queue that holds entries is left as it is.
TEST_F(FrameLibraryRules, AUsableLibraryOnUnchangedStorageIsLoadedWithoutAnUpdate) {
    SaveLibrary({u"\\Flash Disk\\b.mp3", u"\\Flash Disk\\a.mp3"});
    RecordBothFingerprints();
    Handle(kMsgStartupCheck);
    EXPECT_TRUE(window.posted.empty());
    EXPECT_EQ(player.queue, (std::vector<std::string>{"\\Flash Disk\\a.mp3", "\\Flash Disk\\b.mp3"}));
    EXPECT_EQ(rules.Library().Count(), 2);
    EXPECT_EQ(window.calls, (std::vector<std::string>{"wait on", "wait off"}));
    player.queue = {"mine.mp3"};
    Handle(kMsgStartupCheck);
    EXPECT_EQ(player.queue, (std::vector<std::string>{"mine.mp3"}));
}

TEST_F(FrameLibraryRules, AnInsertedCardIsRescannedAloneAndTheFlashRecordsStay) {
    SaveLibrary({u"\\Flash Disk\\keep.mp3", u"\\Storage Card\\old.mp3"});
    RecordBothFingerprints(); // no card: its fingerprint is 0
    player.queue = {"\\Flash Disk\\keep.mp3"};
    rules.Library().AddTrack(PathOnlyRecord(u"\\Flash Disk\\keep.mp3", 0));
    rules.Library().AddTrack(PathOnlyRecord(u"\\Storage Card\\old.mp3", 0));
    InsertCard();
    Music(u"\\Storage Card\\new.mp3");
    Music(u"\\Flash Disk\\unlisted.mp3"); // the flash disk is not looked at

    Handle(kMsgUpdateLibrary, 4, 0);
    EXPECT_EQ(window.TakePosted(), (std::vector<WindowMessage>{{kMsgUpdateFinished, 1, 0}}));
    EXPECT_EQ(LibraryPaths(),
              (std::vector<std::string>{"\\Flash Disk\\keep.mp3", "\\Storage Card\\new.mp3"}));
    Handle(kMsgUpdateFinished, 1, 0);
    EXPECT_FALSE(player.Called("ReplaceQueue")); // the queue had entries, no refill asked
    EXPECT_TRUE(std::count(browser.calls.begin(), browser.calls.end(), "Reload") == 1);
}

TEST_F(FrameLibraryRules, AStopRequestKeepsTheLibraryAsItWas) {
    rules.Library().AddTrack(PathOnlyRecord(u"\\Flash Disk\\keep.mp3", 0));
    Music(u"\\Flash Disk\\new.mp3");
    rules.LibraryRules().RequestStop();
    Handle(kMsgUpdateLibrary, 1, 1);
    EXPECT_EQ(window.TakePosted(), (std::vector<WindowMessage>{{kMsgUpdateFinished, 0, 0}}));
    Handle(kMsgUpdateFinished, 1, 1);
    EXPECT_EQ(LibraryPaths(), (std::vector<std::string>{"\\Flash Disk\\keep.mp3"}));
    EXPECT_FALSE(player.Called("ReplaceQueue"));
}

// An update asked to refill replaces even a queue that holds entries.
TEST_F(FrameLibraryRules, TheEndOfAnUpdateRefillsTheQueueOnRequest) {
    player.queue = {"\\Flash Disk\\old.mp3"};
    rules.Library().AddTrack(PathOnlyRecord(u"\\Flash Disk\\a.mp3", 0));
    Handle(kMsgUpdateFinished, 1, 1);
    EXPECT_EQ(player.queue, (std::vector<std::string>{"\\Flash Disk\\a.mp3"}));
}

struct ModeCase {
    const char* name;
    std::uint32_t trigger;
    std::int32_t forced;
    bool card, flash;
    int mode;
};

class UpdateMode : public ::testing::TestWithParam<ModeCase> {};

TEST_P(UpdateMode, FollowsWhatChangedAndWhatIsForced) {
    const ModeCase& c = GetParam();
    EXPECT_EQ(SilentUpdateMode(c.trigger, c.forced, c.card, c.flash), c.mode);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, UpdateMode,
    ::testing::Values(ModeCase{"NothingChanged", 1, 0, false, false, 0},
                      ModeCase{"CardChanged", 1, 0, true, false, 4},
                      ModeCase{"LibraryMissing", 1, 1, false, false, 1},
                      ModeCase{"ForcedFlashWithCardChange", 1, 3, true, false, 1},
                      ModeCase{"InsertionIgnoresTheFlash", 4, 0, false, true, 0},
                      ModeCase{"InsertionWithMissingLibrary", 4, 1, false, false, 4}),
    [](const auto& testInfo) { return std::string(testInfo.param.name); });

} // namespace
} // namespace zelvor
