// The order of start-up and end, and what start-up reads and makes.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "app/application.h"
#include "config/application_values.h"
#include "config/settings.h"
#include "platform/text.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {

// Every call of start-up and of the shell, in one log.
struct Log {
    std::vector<std::string> calls;
};

class LoggingEnvironment : public InstanceEnvironment {
public:
    explicit LoggingEnvironment(Log& log) : m_log(log) {}
    bool WindowExists(const EndpointAddress& a) override {
        m_log.calls.push_back("find " + ToUtf8(a.name));
        return windows.count(ToUtf8(a.name)) > 0;
    }
    void SendMessageTo(const EndpointAddress& a, const WindowMessage&) override {
        m_log.calls.push_back("send " + ToUtf8(a.name));
        windows.erase(ToUtf8(a.name)); // the sibling goes at once
    }
    void Sleep(int) override { m_log.calls.push_back("sleep"); }
    void RaiseRunningInstance(int, int) override { m_log.calls.push_back("raise"); }
    int ScreenWidth() override { return width; }
    int ScreenHeight() override { return height; }

    std::set<std::string> windows;
    int width = 240, height = 320;

private:
    Log& m_log;
};

class LoggingShell : public ApplicationShell {
public:
    explicit LoggingShell(Log& log) : m_log(log) {}
    void SetRegistryKey(std::u16string_view company) override {
        m_log.calls.push_back("registry key " + ToUtf8(company));
    }
    void SelectSkin(std::uint16_t colour) override {
        m_log.calls.push_back("skin " + std::to_string(colour));
    }
    bool LoadFrame() override {
        m_log.calls.push_back("load frame, portrait " + std::to_string(AppValues().portrait));
        return frameLoads;
    }
    void ShowFrame() override { m_log.calls.push_back("show frame"); }
    void DestroyFrame() override { m_log.calls.push_back("destroy frame"); }
    void ReleaseSkin() override { m_log.calls.push_back("release skin"); }
    bool frameLoads = true;

private:
    Log& m_log;
};

class InitInstance : public ::testing::Test {
protected:
    InitInstance() { AppValues() = {}; }
    testing::TestDevice dev;
    Log log;
    LoggingEnvironment env{log};
    LoggingShell shell{log};
    CZelvorApp app{env, shell};
};

TEST_F(InitInstance, RunsItsStepsInOrderAndEndsByReleasingTheSkin) {
    env.windows = {"Pelrin"};
    dev.Registry().SetDword(RegistryRoot::LocalMachine, u"OMBREL", u"Language", 3);
    dev.Registry().SetDword(RegistryRoot::LocalMachine, u"OMBREL", u"GUI Color", 4);
    EXPECT_TRUE(app.InitInstance(u""));
    EXPECT_EQ(app.ExitInstance(), 0);
    EXPECT_EQ(log.calls, (std::vector<std::string>{
                             "registry key Quorrel Systems Inc.", "find Pelrin", "send Pelrin",
                             "sleep", "find Pelrin", "find Zelvor", "find Mobile Navigator 6",
                             "skin 4", "load frame, portrait 1", "show frame", "destroy frame",
                             "release skin"}));
    EXPECT_EQ(AppValues().language, 3);
    EXPECT_EQ(AppValues().guiColor, 4);
}

TEST_F(InitInstance, MakesTheProgramFoldersBeforeTheFrame) {
    EXPECT_TRUE(app.InitInstance(u""));
    for (std::u16string folder : {GetMusicFolder(), GetPlaylistFolder()})
        EXPECT_TRUE(PathExists(folder)) << ToUtf8(folder);
}

TEST_F(InitInstance, ALandscapeScreenClearsThePortraitFlag) {
    env.width = 320;
    env.height = 240;
    EXPECT_TRUE(app.InitInstance(u""));
    EXPECT_EQ(AppValues().portrait, 0);
}

TEST_F(InitInstance, ARunningInstanceEndsStartUpBeforeAnythingIsBuilt) {
    env.windows = {"Zelvor"};
    EXPECT_FALSE(app.InitInstance(u""));
    EXPECT_EQ(log.calls.back(), "raise");
    for (const auto& call : log.calls)
        EXPECT_EQ(call.find("skin"), std::string::npos) << call;
    std::u16string music = GetMusicFolder();
    EXPECT_FALSE(PathExists(music));
}

TEST_F(InitInstance, AFrameThatCannotBeMadeEndsStartUpWithoutShowingIt) {
    shell.frameLoads = false;
    EXPECT_FALSE(app.InitInstance(u""));
    EXPECT_EQ(log.calls.back(), "destroy frame");
    for (const auto& call : log.calls)
        EXPECT_NE(call, "show frame");
}

} // namespace
} // namespace zelvor
