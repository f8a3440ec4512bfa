// The rules that decide whether the program starts, and the order of
// start-up and end with the windows faked.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "app/application.h"
#include "config/application_values.h"
#include "config/settings.h"
#include "app/startup.h"
#include "res/window_messages.h"
#include "platform/text.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {

bool Exists(std::u16string path) {
    return PathExists(path);
}

// A scripted outside world: which windows exist, and when Pelrin goes away.
// Every call lands in `log`, shared with the shell below.
class FakeEnvironment : public InstanceEnvironment {
public:
    bool WindowExists(const EndpointAddress& a) override {
        log.push_back("find " + ToUtf8(a.name));
        if (a.name == kTitlePelrin && asked && polls >= pelrinLeavesAfterPolls)
            return false;
        return windows.count(EndpointFileName(a)) > 0;
    }
    void SendMessageTo(const EndpointAddress& a, const WindowMessage& m) override {
        log.push_back("send " + ToUtf8(a.name));
        sent.push_back({EndpointFileName(a), m});
        asked = asked || (a.name == kTitlePelrin && m.message == kMsgRequestClose);
    }
    void Sleep(int ms) override {
        slept += ms;
        ++polls;
    }
    void RaiseRunningInstance(int w, int h) override {
        log.push_back("raise");
        raised.push_back({w, h});
    }
    int ScreenWidth() override { return width; }
    int ScreenHeight() override { return height; }

    std::vector<std::string> log;
    std::set<std::string> windows;
    int pelrinLeavesAfterPolls = 1000; // never
    bool asked = false;
    int polls = 0, slept = 0;
    int width = 240, height = 320;
    std::vector<std::pair<std::string, WindowMessage>> sent;
    std::vector<std::pair<int, int>> raised;
};

// The sibling player gets one close request and at most ten polls two
// seconds apart in all; the wait ends as soon as it is gone.
TEST(SiblingPlayer, GetsOneCloseRequestAndAtMostTwoSecondsOfWaiting) {
    for (int leavesAfter : {1000, 3}) {
        FakeEnvironment env;
        env.windows = {"title-Pelrin", "class-Mobile%20Navigator%206"}; // no instance: no matter
        env.pelrinLeavesAfterPolls = leavesAfter;
        EXPECT_TRUE(ApplyInstanceRules(env, u""));
        ASSERT_EQ(env.sent.size(), 1u);
        EXPECT_EQ(env.sent[0], std::pair(std::string("title-Pelrin"), WindowMessage{0x592, 0, 0}));
        EXPECT_EQ(env.polls, std::min(leavesAfter, 10));
        EXPECT_EQ(env.slept, 200 * env.polls);
        EXPECT_TRUE(env.raised.empty());
    }
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
    EXPECT_TRUE(env.sent.empty()); // no sibling player to ask
    using Raised = std::vector<std::pair<int, int>>;
    EXPECT_EQ(env.raised, (GetParam().raised ? Raised{{240, 320}} : Raised{}));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SecondStart,
    ::testing::Values(InstanceCase{"NavigatorEmptyCommandLine", true, u"", false},
                      InstanceCase{"NavigatorStartedUsInCapitals", true, u"NAVIGON", true},
                      InstanceCase{"NavigatorOtherWords", true, u"navigon now", false},
                      InstanceCase{"NoNavigatorAnyCommandLine", false, u"whatever", true}),
    [](const auto& testInfo) { return std::string(testInfo.param.name); });

TEST(ScreenShape, PortraitOnlyWhenTallerThanWide) {
    EXPECT_EQ(std::tuple(PortraitFlag(240, 320), PortraitFlag(320, 240), PortraitFlag(240, 240)),
              std::tuple(1, 0, 0));
}

class LoggingShell : public ApplicationShell {
public:
    explicit LoggingShell(std::vector<std::string>& log) : m_log(log) {}
    void SetRegistryKey(std::u16string_view company) override {
        m_log.push_back("registry key " + ToUtf8(company));
    }
    void SelectSkin(std::uint16_t colour) override { m_log.push_back("skin " + std::to_string(colour)); }
    bool LoadFrame() override {
        m_log.push_back("load frame, portrait " + std::to_string(AppValues().portrait));
        m_log.push_back(Exists(GetMusicFolder()) && Exists(GetPlaylistFolder())
                            ? "folders made"
                            : "no folders");
        return frameLoads;
    }
    void ShowFrame() override { m_log.push_back("show frame"); }
    void DestroyFrame() override { m_log.push_back("destroy frame"); }
    void ReleaseSkin() override { m_log.push_back("release skin"); }
    bool frameLoads = true;

private:
    std::vector<std::string>& m_log;
};

class InitInstance : public ::testing::Test {
protected:
    InitInstance() { AppValues() = {}; }
    testing::TestDevice dev;
    FakeEnvironment env;
    LoggingShell shell{env.log};
    CZelvorApp app{env, shell};
};

TEST_F(InitInstance, RunsItsStepsInOrderAndEndsByReleasingTheSkin) {
    env.windows = {"title-Pelrin"};
    env.pelrinLeavesAfterPolls = 1;
    dev.Registry().SetDword(RegistryRoot::LocalMachine, u"OMBREL", u"Language", 3);
    dev.Registry().SetDword(RegistryRoot::LocalMachine, u"OMBREL", u"GUI Color", 4);
    dev.WriteFile(u"\\Flash Disk\\Zelvor\\My Playlists\\keep.mpl", "x");
    EXPECT_TRUE(app.InitInstance(u""));
    EXPECT_EQ(app.ExitInstance(), 0);
    EXPECT_EQ(env.log, (std::vector<std::string>{
                           "registry key Quorrel Systems Inc.", "find Pelrin", "send Pelrin",
                           "find Pelrin", "find Zelvor", "find Mobile Navigator 6", "skin 4",
                           "load frame, portrait 1", "folders made", "show frame",
                           "destroy frame", "release skin"}));
    EXPECT_EQ(AppValues().language, 3);
    EXPECT_EQ(AppValues().guiColor, 4);
    EXPECT_EQ(dev.ReadFile(u"\\Flash Disk\\Zelvor\\My Playlists\\keep.mpl"), "x");
}

TEST_F(InitInstance, ARunningInstanceEndsStartUpBeforeAnythingIsBuilt) {
    env.windows = {"title-Zelvor"};
    EXPECT_FALSE(app.InitInstance(u""));
    EXPECT_EQ(env.log.back(), "raise");
    EXPECT_FALSE(Exists(GetMusicFolder()));
}

TEST_F(InitInstance, AFrameThatCannotBeMadeEndsStartUpWithoutShowingIt) {
    shell.frameLoads = false;
    EXPECT_FALSE(app.InitInstance(u""));
    EXPECT_EQ(env.log.back(), "destroy frame");
    EXPECT_EQ(std::count(env.log.begin(), env.log.end(), "show frame"), 0);
}

} // namespace
} // namespace zelvor
