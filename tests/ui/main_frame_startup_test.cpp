// Start-up and end of the program on the host: the sibling player asked to
// end through its endpoint, second starts, the single-instance lock, and
// the settings and library that one run leaves for the next.
#include <gtest/gtest.h>

#include <QProcess>

#include "app/application.h"
#include "library/library_file.h"
#include "host/endpoint.h"
#include "playback/player.h"
#include "tests/support/fake_media_graph.h"
#include "tests/playback/recording_player_view.h"
#include "tests/support/qt_app.h"
#include "tests/ui/main_frame_rules_fixture.h"
#include "app/host_application.h"

namespace zelvor {
namespace {
using namespace zelvor::testing;

// A pane around the real player core on a fake graph: it reads the
// player's settings when made and writes them when destroyed.
class PlayerCorePane final : public QWidget, public RecordingPlayer {
public:
    explicit PlayerCorePane(QWidget* parent) : QWidget(parent), player(graphs, view) {
        player.Queue().LoadQueue();
    }
    QWidget* Widget() override { return this; }
    int QueueCount() override { return player.Queue().EntryCount(); }
    void ReplaceQueue(const TrackList& list) override { player.Queue().ReplaceQueue(list); }

    FakeMediaGraphFactory graphs;
    RecordingPlayerView view;
    Player player;
};

class Startup : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureQtApplication();
        AppValues() = {};
    }
    HostApplicationOptions Options() {
        HostApplicationOptions options;
        options.deviceRoot = dev.Root();
        options.builder = PathOnlyRecord;
        options.quitWhenClosed = false;
        options.panes.player = [this](QWidget* parent, FrameMessages& messages) {
            auto pane = std::make_unique<PlayerCorePane>(parent);
            core = pane.get();
            frameMessages = &messages;
            return pane;
        };
        return options;
    }
    EndpointInstanceEnvironment Environment() { return {dev.Root(), QSize(240, 320)}; }

    TestDevice dev;
    PlayerCorePane* core = nullptr;
    FrameMessages* frameMessages = nullptr;
};

TEST_F(Startup, PelrinGetsOneCloseRequestAndTheProgramStartsOnceItHasGone) {
    QProcess pelrin;
    pelrin.start(ZELVOR_SEND_PATH, {"--root", QString::fromStdString(dev.Root().string()),
                                    "--listen", "--title", "Pelrin", "--exit-on", "0x592"});
    ASSERT_TRUE(pelrin.waitForStarted());
    const EndpointAddress pelrinAddress{EndpointKind::Title, u"Pelrin"};
    ASSERT_TRUE(SpinUntil([&] { return EndpointExists(dev.Root(), pelrinAddress); }));

    auto environment = Environment();
    HostApplicationShell shell(Options());
    CZelvorApp app(environment, shell);
    EXPECT_TRUE(app.InitInstance(u""));
    ASSERT_TRUE(pelrin.waitForFinished(5000));
    const QList<QByteArray> lines = pelrin.readAllStandardOutput().trimmed().split('\n');
    ASSERT_EQ(lines.size(), 1);
    EXPECT_EQ(lines[0], R"({"message":1426,"wParam":0,"lParam":0,"kind":"send"})");
    EXPECT_EQ(shell.RegistryKey(), u"Quorrel Systems Inc.");
    ASSERT_NE(shell.Frame(), nullptr);
    EXPECT_TRUE(shell.Frame()->isVisible());
    app.ExitInstance();
}

struct SecondStartCase {
    const char* name;
    bool navigator;
    const char16_t* commandLine;
    bool raised;
};

class SecondStart : public Startup, public ::testing::WithParamInterface<SecondStartCase> {};

TEST_P(SecondStart, EndsAndRaisesTheFirstUnlessTheNavigatorIsInFront) {
    auto environment = Environment();
    HostApplicationShell first(Options());
    CZelvorApp firstApp(environment, first);
    ASSERT_TRUE(firstApp.InitInstance(u""));
    first.Frame()->HideFrame();
    EndpointServer navigator;
    if (GetParam().navigator) {
        ASSERT_TRUE(navigator.Listen(dev.Root(), {EndpointKind::Class, u"Mobile Navigator 6"}));
    }

    HostApplicationShell second(Options());
    CZelvorApp secondApp(environment, second);
    EXPECT_FALSE(secondApp.InitInstance(GetParam().commandLine));
    EXPECT_EQ(second.Frame(), nullptr);
    SpinEvents(200);
    EXPECT_EQ(first.Frame()->isVisible(), GetParam().raised);
    if (GetParam().raised) {
        EXPECT_EQ(first.Frame()->size(), QSize(240, 320));
    }
    // A program that got past the instance rules at the same moment: the
    // frame's title is taken.
    HostApplicationShell third(Options());
    EXPECT_FALSE(third.LoadFrame());
    firstApp.ExitInstance();
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SecondStart,
    ::testing::Values(SecondStartCase{"NoNavigator", false, u"", true},
                      SecondStartCase{"NavigatorInFront", true, u"", false},
                      SecondStartCase{"StartedByTheNavigator", true, u"NAVIGON", true}),
    [](const auto& testInfo) { return std::string(testInfo.param.name); });

TEST_F(Startup, WhatOneRunLeavesTheNextReadsBack) {
    dev.WriteFile(u"\\Storage Card\\b.mp3", "x");
    dev.WriteFile(u"\\Storage Card\\a.mp3", "x");
    {
        auto environment = Environment();
        HostApplicationShell shell(Options());
        CZelvorApp app(environment, shell);
        ASSERT_TRUE(app.InitInstance(u""));
        frameMessages->PostToFrame({kMsgStartupCheck, 0, 0});
        ASSERT_TRUE(SpinUntil([&] { return core->QueueCount() == 2; }));
        core->player.Volume().VolumeStep(false);
        core->player.Queue().ToggleRandom();
        // The shell asks the program to end.
        ASSERT_TRUE(PostToEndpoint(dev.Root(), {EndpointKind::Title, u"Zelvor"},
                                   {kMsgShellClose, 0, 0}));
        ASSERT_TRUE(SpinUntil([&] { return shell.Frame()->IsDestroyed(); }));
        app.ExitInstance();
    }
    const int savedVolume = static_cast<int>(
        GetProfileNumber(u"MP3", u"Volume", 0xFFFF));
    auto environment = Environment();
    HostApplicationShell shell(Options());
    CZelvorApp app(environment, shell);
    ASSERT_TRUE(app.InitInstance(u""));
    EXPECT_EQ(core->player.Volume().Index(), savedVolume);
    EXPECT_TRUE(core->player.Queue().Random());
    EXPECT_EQ(core->QueueCount(), 2); // the queue file
    TrackList library;
    EXPECT_EQ(LoadTrackList(GetLibraryPath(), library), 1);
    EXPECT_EQ(library.Count(), 2);
    app.ExitInstance();
}

} // namespace
} // namespace zelvor
