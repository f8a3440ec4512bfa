#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/playback/engine_rig.h"

namespace zelvor {
namespace {
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::EngineRig;

// The volume is set before the graph runs: a track never starts loud.
TEST(BuildGraph, SetsTheVolumeBeforeRunningAndShowsPlaying) {
    EngineRig rig({u"a.mp3"});
    EXPECT_EQ(rig.engine.BuildGraph(u"\\Storage Card\\gone.mp3", true), kEPointer);
    EXPECT_THAT(rig.factory.log, IsEmpty()); // a missing file creates nothing
    EXPECT_EQ(rig.engine.BuildGraph(rig.Path(0), true), kOk);
    EXPECT_THAT(rig.factory.LogSince(rig.factory.log.size() - 2),
                ElementsAre("volume -2400", "run"));
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
    EXPECT_EQ(rig.buttons.State(kButtonNext), kDisplayNormal);
    EXPECT_EQ(rig.view.focusRequests, 1);
    rig.volume.ToggleMute();
    rig.engine.StopAndRelease(false);
    rig.engine.BuildGraph(rig.Path(0), false);
    EXPECT_EQ(rig.factory.current->volume, kSilence);
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
}

// An mp3 that will not render is stripped of its tag and tried once more;
// other types are not retried, and a failure releases everything. A track
// that opens starts the display at zero.
TEST(OpenTrack, OnlyAnMp3IsStrippedAndRetriedOnce) {
    for (std::u16string name : {u"tagged.mp3", u"hopeless.mp3", u"song.wma", u"song.aac"}) {
        EngineRig rig({name});
        const std::string file = ToUtf8(name);
        SCOPED_TRACE(file);
        const bool recovers = file == "tagged.mp3", mp3 = file.ends_with(".mp3");
        (recovers ? rig.factory.script.renderableAfterStrip : rig.factory.script.unrenderable) = {
            file};
        rig.position.Bar().thumbX = 100;
        EXPECT_EQ(rig.engine.OpenTrack(rig.Path(0)), recovers);
        EXPECT_EQ(rig.slots.Empty(), !recovers);
        EXPECT_EQ(rig.engine.State(), recovers ? kPlayStateStopped : kPlayStateEmpty);
        EXPECT_EQ(rig.factory.stripped.count(file), mp3 ? 1u : 0u);
        EXPECT_EQ(std::count(rig.factory.log.begin(), rig.factory.log.end(), "render " + file),
                  mp3 ? 2 : 1);
        EXPECT_EQ(rig.position.Bar().thumbX, recovers ? 0 : 100);
        EXPECT_EQ(rig.view.markerRepaints, recovers ? 1 : 0);
    }
}

TEST(Transport, StopRewindsAndKeepsTheGraphReleaseDropsIt) {
    EngineRig rig({u"a.mp3"});
    rig.engine.BuildGraph(rig.Path(0), true);
    rig.factory.current->position = 50'000'000;
    rig.engine.StopCommand();
    EXPECT_EQ(rig.factory.current->position, 0);
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
    EXPECT_THAT(rig.CallsOf([&] { rig.engine.StopCommand(); }), IsEmpty()); // already stopped
    rig.factory.script.runResult = kEFail; // Play/Pause follows the request anyway
    rig.engine.TogglePause();
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
    rig.engine.StopAndRelease(true); // the state is kept
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
    EXPECT_EQ(rig.factory.liveGraphs, 0);
    rig.engine.BuildGraph(rig.Path(0), false);
    rig.engine.StopAndRelease(false);
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
    EXPECT_THAT(rig.CallsOf([&] { rig.engine.StopAndRelease(false); }), IsEmpty());
}

TEST(Transport, PlayBeepsWithoutAGraphOrWhenRunFailsAndSendsTheVolumeFirst) {
    EngineRig rig({u"a.mp3"});
    rig.engine.PlayCommand(true);
    EXPECT_EQ(rig.view.beeps, 1);
    rig.volume.Restore(8, true);
    rig.engine.OpenTrack(rig.Path(0));
    rig.engine.PlayCommand(true);
    EXPECT_EQ(rig.factory.current->volume, kSilence); // muted: the table value is not sent
    rig.engine.StopCommand();
    rig.volume.ToggleMute();
    EXPECT_THAT(rig.CallsOf([&] { rig.engine.PlayCommand(true); }),
                ElementsAre("volume -1200", "run"));
    rig.engine.StopCommand();
    rig.factory.script.runResult = kEFail;
    rig.engine.PlayCommand(true);
    EXPECT_EQ(rig.view.beeps, 2);
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
}

// Play on a vanished file steps on to a playable entry, trying as many
// entries as the queue holds; a single entry is never stepped.
TEST(Transport, PlayOnAVanishedFileLooksForAPlayableEntryOrBeeps) {
    for (int tracks : {3, 2, 1}) {
        SCOPED_TRACE(tracks);
        EngineRig rig({u"a.mp3", u"b.mp3", u"c.mp3"});
        rig.queue.paths.resize(static_cast<size_t>(tracks));
        std::filesystem::remove(rig.device.Host(rig.Path(0)));
        rig.factory.script.unrenderable = {"b.mp3"};
        rig.engine.PlayCommand(true);
        EXPECT_EQ(rig.queue.steps, std::vector<std::string>(tracks == 1 ? 0 : 2, "next"));
        EXPECT_EQ(rig.view.beeps, tracks == 3 ? 0 : 1);
        EXPECT_EQ(rig.engine.State(), tracks == 3 ? kPlayStatePlaying : kPlayStateEmpty);
    }
}

// A complete event rewinds, stops and advances; when the rewind fails the
// same track restarts, and a restart whose stop fails leaves the loop with
// the second event still queued.
TEST(GraphNotify, CompleteRewindsStopsAndAdvancesOrRestarts) {
    using States = std::vector<std::int32_t>;
    for (const auto& c : {std::tuple{kOk, kOk, 1, States{kPlayStateStopped}},
                          {kEFail, kOk, 1, States{kPlayStateStopped, kPlayStatePlaying}},
                          {kEFail, kEFail, 2, States{}}}) {
        const auto& [seek, stop, completes, states] = c;
        SCOPED_TRACE(completes + states.size());
        EngineRig rig({u"a.mp3"});
        rig.engine.BuildGraph(rig.Path(0), true);
        rig.factory.current->position = 50'000'000;
        rig.factory.script.seekResult = seek;
        rig.factory.script.stopResult = stop;
        for (int i = 0; i < completes; ++i)
            rig.factory.current->QueueEvent(kEcComplete);
        rig.view.states.clear();
        EXPECT_EQ(rig.engine.OnGraphNotify(), 0);
        EXPECT_EQ(rig.view.states, states);
        EXPECT_EQ(rig.queue.advances, seek == kOk ? 1 : 0);
        EXPECT_EQ(rig.factory.current->position, seek == kOk ? 0 : 50'000'000);
        int left = 0;
        std::intptr_t p1 = 0, p2 = 0;
        EXPECT_EQ(Failed(rig.factory.current->GetEvent(&left, &p1, &p2, 0)), completes == 1);
    }
}

// A track that fails beeps and is released at once; only one that was
// playing hands over to the queue, whose next track then plays.
TEST(GraphNotify, AFailedTrackBeepsIsReleasedAndAdvancesOnlyWhilePlaying) {
    for (bool paused : {false, true}) {
        SCOPED_TRACE(paused);
        EngineRig rig({u"a.mp3", u"b.mp3"});
        rig.queue.playOnAdvance = true;
        rig.engine.BuildGraph(rig.Path(0), true);
        if (paused)
            rig.engine.TogglePause();
        rig.factory.current->QueueEvent(kEcErrorAbort);
        rig.engine.OnGraphNotify();
        EXPECT_EQ(rig.view.beeps, 1);
        EXPECT_EQ(rig.queue.advances, paused ? 0 : 1);
        EXPECT_EQ(rig.engine.State(), paused ? kPlayStateStopped : kPlayStatePlaying);
        EXPECT_EQ(rig.factory.current ? rig.factory.current->File() : "", paused ? "" : "b.mp3");
    }
}

// Every graph gets the hook; other events are ignored, and the events of a
// graph built while draining are handled in the same loop.
TEST(GraphNotify, EventsOfAGraphBuiltWhileDrainingAreHandledInTheSameLoop) {
    EngineRig rig({u"a.mp3", u"b.mp3", u"c.mp3"});
    int notifications = 0;
    rig.engine.SetNotifyHook([&] { ++notifications; });
    rig.queue.playOnAdvance = true;
    rig.factory.script.eventsOnRun["b.mp3"] = {kEcComplete}; // b ends as soon as it runs
    rig.engine.BuildGraph(rig.Path(0), true);
    for (std::int32_t code : {kEcUserAbort, 99, kEcComplete})
        rig.factory.current->QueueEvent(code);
    rig.engine.OnGraphNotify();
    EXPECT_EQ(notifications, 4);
    EXPECT_EQ(rig.queue.advances, 2);
    EXPECT_EQ(rig.factory.current->File(), "c.mp3");
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
}

} // namespace
} // namespace zelvor
