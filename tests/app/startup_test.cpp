#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "config/settings.h"
#include "app/startup.h"
#include "config/application_values.h"
#include "res/window_messages.h"
#include "platform/text.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {

// A scripted outside world: which windows exist, and when Pelrin goes away.
class FakeEnvironment : public InstanceEnvironment {
public:
    bool WindowExists(const EndpointAddress& a) override {
        if (a.name == kTitlePelrin && pelrinLeavesAfterPolls >= 0 && polls >= pelrinLeavesAfterPolls &&
            asked)
            return false;
        return windows.count(EndpointFileName(a)) > 0;
    }
    void SendMessageTo(const EndpointAddress& a, const WindowMessage& m) override {
        sent.push_back({EndpointFileName(a), m});
        if (a.name == kTitlePelrin && m.message == kMsgRequestClose)
            asked = true;
    }
    void Sleep(int ms) override {
        slept += ms;
        ++polls;
    }
    void RaiseRunningInstance(int w, int h) override { raised.push_back({w, h}); }
    int ScreenWidth() override { return 240; }
    int ScreenHeight() override { return 320; }

    std::set<std::string> windows;
    int pelrinLeavesAfterPolls = -1; // never
    bool asked = false;
    int polls = 0;
    int slept = 0;
    std::vector<std::pair<std::string, WindowMessage>> sent;
    std::vector<std::pair<int, int>> raised;
};

TEST(SiblingPlayer, GetsExactlyOneCloseRequestAndAtMostTwoSecondsOfWaiting) {
    FakeEnvironment env;
    env.windows = {"title-Pelrin"};
    EXPECT_TRUE(ApplyInstanceRules(env, u""));
    ASSERT_EQ(env.sent.size(), 1u);
    EXPECT_EQ(env.sent[0].first, "title-Pelrin");
    EXPECT_EQ(env.sent[0].second, (WindowMessage{0x592, 0, 0}));
    EXPECT_EQ(env.polls, 10);
    EXPECT_EQ(env.slept, 2000);
}

TEST(SiblingPlayer, WaitingEndsAsSoonAsItIsGone) {
    FakeEnvironment env;
    env.windows = {"title-Pelrin"};
    env.pelrinLeavesAfterPolls = 3;
    EXPECT_TRUE(ApplyInstanceRules(env, u""));
    EXPECT_EQ(env.polls, 3);
    FakeEnvironment none;
    EXPECT_TRUE(ApplyInstanceRules(none, u""));
    EXPECT_TRUE(none.sent.empty());
    EXPECT_EQ(none.polls, 0);
}

struct InstanceCase {
    const char* name;
    bool navigator;
    std::u16string_view commandLine;
    bool raised;
};

class SecondStart : public ::testing::TestWithParam<InstanceCase> {};

TEST_P(SecondStart, AlwaysEndsAndRaisesTheFirstUnlessTheNavigatorIsInFront) {
    FakeEnvironment env;
    env.windows = {"title-Zelvor"};
    if (GetParam().navigator)
        env.windows.insert("class-Mobile%20Navigator%206");
    EXPECT_FALSE(ApplyInstanceRules(env, GetParam().commandLine));
    if (GetParam().raised) {
        ASSERT_EQ(env.raised.size(), 1u);
        EXPECT_EQ(env.raised[0], std::make_pair(240, 320));
    } else {
        EXPECT_TRUE(env.raised.empty());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SecondStart,
    ::testing::Values(InstanceCase{"NavigatorEmptyCommandLine", true, u"", false},
                      InstanceCase{"NavigatorStartedUsInCapitals", true, u"NAVIGON", true},
                      InstanceCase{"NavigatorStartedUs", true, u"navigon", true},
                      InstanceCase{"NavigatorOtherWords", true, u"navigon now", false},
                      InstanceCase{"NoNavigator", false, u"", true},
                      InstanceCase{"NoNavigatorAnyCommandLine", false, u"whatever", true}),
    [](const auto& testInfo) { return std::string(testInfo.param.name); });

TEST(FirstStart, RunsWhenNoInstanceIsThereWhateverTheNavigatorDoes) {
    FakeEnvironment env;
    env.windows = {"class-Mobile%20Navigator%206"};
    EXPECT_TRUE(ApplyInstanceRules(env, u""));
    EXPECT_TRUE(env.raised.empty());
}

TEST(ScreenShape, PortraitOnlyWhenTallerThanWide) {
    EXPECT_EQ(PortraitFlag(240, 320), 1);
    EXPECT_EQ(PortraitFlag(320, 240), 0);
    EXPECT_EQ(PortraitFlag(240, 240), 0);
}

TEST(ProgramFolders, AreCreatedWhenMissingAndLeftAloneWhenPresent) {
    testing::TestDevice dev;
    dev.WriteFile(u"\\Flash Disk\\Zelvor\\My Playlists\\keep.mpl", "x");
    CreateProgramFolders();
    std::u16string music = GetMusicFolder();
    EXPECT_TRUE(PathExists(music));
    EXPECT_EQ(dev.ReadFile(u"\\Flash Disk\\Zelvor\\My Playlists\\keep.mpl"), "x");
}

} // namespace
} // namespace zelvor
