// The main frame's rules, driven with a fake window, fake panes and a fake
// outside world on a fresh device whose free space the test controls.
#include <gtest/gtest.h>

#include "tests/ui/main_frame_rules_fixture.h"
#include <algorithm>
#include "library/library_file.h"

namespace zelvor {
namespace {
using namespace zelvor::testing;

TEST_F(FrameRules, BackKeyClosesThePanelFirstThenLeavesTheBrowserThenEnds) {
    window.panelVisible = true;
    window.browserVisible = true;
    window.playerVisible = false;
    Handle(kMsgBackKey);
    EXPECT_FALSE(window.panelVisible);
    EXPECT_TRUE(window.browserVisible);
    Handle(kMsgBackKey);
    EXPECT_TRUE(window.playerVisible);
    Handle(kMsgBackKey); // only now is the end asked for
    EXPECT_EQ(window.posted, (std::vector<WindowMessage>{{kMsgClose, 0, 0}}));
}

// What a sender gets back: 0 for every message but a shell status a visible
// player took.
TEST_F(FrameRules, SendersGetZeroForTheOtherMessages) {
    for (std::uint32_t message :
         {kMsgBackKey, kMsgStorageCard, kMsgLanguageChanged, kMsgColourChanged, kMsgStartupCheck,
          kMsgUpdateLibrary, kMsgUpdateFinished, kMsgShellToPlayer, kMsgSize, kMsgActivate,
          kMsgSetFocus, kMsgHostRaise, 0xFFFFu})
        EXPECT_EQ(Handle(message), 0) << message;
}

TEST_F(FrameRules, CloseRequestsOfPelrinAndOfTheShellBothPostClose) {
    for (std::uint32_t message : {kMsgRequestClose, kMsgShellClose}) {
        EXPECT_EQ(Handle(message), 0);
        EXPECT_EQ(window.TakePosted(), (std::vector<WindowMessage>{{kMsgClose, 0, 0}}));
    }
}

TEST_F(FrameRules, ShellStatusReachesOnlyAVisiblePlayer) {
    EXPECT_EQ(Handle(kMsgShellStatus, 0, 42), 1);
    EXPECT_EQ(player.status, 42);
    window.playerVisible = false;
    window.browserVisible = true;
    EXPECT_EQ(Handle(kMsgShellStatus, 0, 7), 0);
    EXPECT_EQ(player.status, 42);
    Handle(kMsgShellToPlayer); // the shell's message for the player is handed on
    EXPECT_EQ(player.calls, (std::vector<std::string>{"SetShellStatus", "OnShellPlayerMessage"}));
}

struct LanguageCase {
    const char* name;
    std::int16_t before;
    std::uint32_t after;
    bool textLayout;
};

class LanguageChange : public FrameRules, public ::testing::WithParamInterface<LanguageCase> {};

TEST_P(LanguageChange, RedoesThePlayersTextLayoutOnlyToOrFromSeven) {
    AppValues().language = GetParam().before;
    dev.Registry().SetDword(RegistryRoot::LocalMachine, u"OMBREL", u"Language", GetParam().after);
    Handle(kMsgLanguageChanged);
    EXPECT_EQ(AppValues().language, static_cast<std::int16_t>(GetParam().after));
    EXPECT_EQ(player.Called("RedoTextLayout"), GetParam().textLayout);
    EXPECT_EQ(browser.calls, (std::vector<std::string>{"ReloadTexts"}));
}

INSTANTIATE_TEST_SUITE_P(Cases, LanguageChange,
                         ::testing::Values(LanguageCase{"ThreeToFive", 3, 5, false},
                                           LanguageCase{"SevenToOne", 7, 1, true},
                                           LanguageCase{"OneToSeven", 1, 7, true},
                                           LanguageCase{"SevenToSeven", 7, 7, true}),
                         [](const auto& testInfo) { return std::string(testInfo.param.name); });

TEST_F(FrameRules, ColourChangeReloadsTheSkinBeforeBothScreensRedoTheirLayout) {
    dev.Registry().SetDword(RegistryRoot::LocalMachine, u"OMBREL", u"GUI Color", 0x10002);
    Handle(kMsgColourChanged);
    EXPECT_EQ(AppValues().guiColor, 2); // only the low 16 bits count
    EXPECT_EQ(window.calls, (std::vector<std::string>{"ReloadSkin 2", "RedoPanelLayout"}));
    EXPECT_EQ(player.calls, (std::vector<std::string>{"RedoLayout"}));
    EXPECT_EQ(browser.calls, (std::vector<std::string>{"RedoLayout"}));
}

TEST_F(FrameRules, CardRemovalReleasesUnderTheWaitCursorAndTellsTheLockOnlyOverTheBrowser) {
    outside.answers["DeviceLockOSD"] = 0;
    Handle(kMsgStorageCard, 0);
    EXPECT_EQ(window.calls, (std::vector<std::string>{"wait on", "wait off"}));
    EXPECT_EQ(player.calls, (std::vector<std::string>{"ReleaseCurrentTrack"}));
    EXPECT_EQ(browser.calls, (std::vector<std::string>{"DropContents"}));
    EXPECT_TRUE(outside.sent.empty());
    EXPECT_TRUE(window.posted.empty());

    window.browserVisible = true;
    Handle(kMsgStorageCard, 0);
    ASSERT_EQ(outside.sent.size(), 1u);
    EXPECT_EQ(outside.sent[0].first, "DeviceLockOSD");
    EXPECT_EQ(outside.sent[0].second, (WindowMessage{kMsgShellStatus, 0, 255}));
}

// A card that never appears is taken as inserted after ten polls.
TEST_F(FrameRules, CardInsertionPollsUntilTheRootAppearsThenResumesAndAsksForAnUpdate) {
    for (int appearsAt : {0, 3}) { // 0: never
        window.sleeps.clear();
        player.calls.clear();
        window.onSleep = [this, appearsAt](int polls) {
            if (polls == appearsAt)
                InsertCard();
        };
        Handle(kMsgStorageCard, 1);
        EXPECT_EQ(window.sleeps, std::vector<int>(appearsAt ? 3 : 10, 100));
        EXPECT_EQ(player.calls, (std::vector<std::string>{"Resume"}));
        EXPECT_EQ(window.TakePosted(), (std::vector<WindowMessage>{{kMsgUpdateLibrary, 4, 0}}));
    }
}

TEST_F(FrameRules, ShellQueryPassesANonZeroAnswerToTheLockAndTheVisiblePlayer) {
    rules.ShellQuery(); // no shell: nothing is sent
    EXPECT_TRUE(outside.sent.empty());

    outside.answers["Ombrel_Main"] = 0;
    outside.answers["DeviceLockOSD"] = 0;
    rules.ShellQuery();
    ASSERT_EQ(outside.sent.size(), 1u); // a zero answer ends the query
    EXPECT_EQ(outside.sent[0].second, (WindowMessage{kMsgQueryShellStatus, 0, 0}));

    outside.sent.clear();
    outside.answers["Ombrel_Main"] = 3;
    rules.ShellQuery();
    ASSERT_EQ(outside.sent.size(), 2u);
    EXPECT_EQ(outside.sent[1].first, "DeviceLockOSD");
    EXPECT_EQ(outside.sent[1].second, (WindowMessage{kMsgShellStatus, 0, 9999}));
    EXPECT_EQ(player.status, 3);

    window.playerVisible = false;
    outside.answers["Ombrel_Main"] = 5;
    rules.ShellQuery();
    EXPECT_EQ(player.status, 3);
}

TEST_F(FrameRules, ActivationFocusesAndQueriesTheShellUnlessMinimised) {
    outside.answers["Ombrel_Main"] = 0;
    Handle(kMsgActivate, kActivateActive | kActivateMinimisedFlag);
    Handle(kMsgActivate, 0);
    EXPECT_TRUE(window.calls.empty());
    EXPECT_TRUE(outside.sent.empty());
    window.browserVisible = true;
    Handle(kMsgActivate, kActivateActive);
    EXPECT_EQ(window.calls, (std::vector<std::string>{"FocusBrowser"}));
    EXPECT_EQ(outside.sent.size(), 1u);
}

TEST_F(FrameRules, TurningTheScreenRedoesBothLayoutsOnlyWhenTheShapeChanges) {
    AppValues().portrait = 1;
    Handle(kMsgSize, 0, PackSize(240, 320));
    EXPECT_TRUE(player.calls.empty());
    EXPECT_TRUE(window.calls.empty());
    window.width = 320;
    window.height = 240;
    Handle(kMsgSize, 0, PackSize(320, 240));
    EXPECT_EQ(AppValues().portrait, 0);
    EXPECT_EQ(window.calls, (std::vector<std::string>{"RedoPanelLayout"}));
    EXPECT_EQ(player.calls, (std::vector<std::string>{"RedoLayout"}));
    EXPECT_EQ(browser.calls, (std::vector<std::string>{"RedoLayout"}));
}

// The frame's library rules: the start-up check, the silent update and its
// end, on a fresh device with controlled free space.

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
