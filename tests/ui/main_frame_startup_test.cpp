// Start-up and end of the program on the host, wired through real endpoints.
#include <gtest/gtest.h>

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

// A run started on the host, filled from the library the start-up check
// built, and ended by the shell: it leaves its settings and library behind.
TEST(Startup, WhatOneRunLeavesTheNextReadsBack) {
    EnsureQtApplication();
    AppValues() = {};
    TestDevice dev;
    PlayerCorePane* core = nullptr;
    FrameMessages* frameMessages = nullptr;
    HostApplicationOptions options;
    options.deviceRoot = dev.Root();
    options.builder = PathOnlyRecord;
    options.quitWhenClosed = false;
    options.panes.player = [&](QWidget* parent, FrameMessages& messages) {
        auto pane = std::make_unique<PlayerCorePane>(parent);
        core = pane.get();
        frameMessages = &messages;
        return pane;
    };
    EndpointInstanceEnvironment environment{dev.Root(), QSize(240, 320)};
    dev.WriteFile(u"\\Storage Card\\b.mp3", "x");
    dev.WriteFile(u"\\Storage Card\\a.mp3", "x");
    HostApplicationShell shell(options);
    CZelvorApp app(environment, shell);
    ASSERT_TRUE(app.InitInstance(u""));
    frameMessages->PostToFrame({kMsgStartupCheck, 0, 0});
    ASSERT_TRUE(SpinUntil([&] { return core->QueueCount() == 2; }));
    core->player.Volume().VolumeStep(false);
    // The shell asks the program to end through its endpoint.
    ASSERT_TRUE(PostToEndpoint(dev.Root(), {EndpointKind::Title, u"Zelvor"},
                               {kMsgShellClose, 0, 0}));
    ASSERT_TRUE(SpinUntil([&] { return shell.Frame()->IsDestroyed(); }));
    // The player wrote its settings on the way out.
    EXPECT_EQ(GetProfileNumber(u"MP3", u"Volume", 0xFFFF), std::uint32_t(kDefaultVolumeIndex - 1));
    TrackList library;
    EXPECT_EQ(LoadTrackList(GetLibraryPath(), library), 1);
    EXPECT_EQ(library.Count(), 2);
    app.ExitInstance();
}

} // namespace
} // namespace zelvor
