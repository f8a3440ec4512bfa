// The main frame's rules, driven with a fake window, fake panes and a fake
// outside world on a fresh device whose free space the test controls.
#include <gtest/gtest.h>

#include "tests/ui/main_frame_rules_fixture.h"

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

} // namespace
} // namespace zelvor
