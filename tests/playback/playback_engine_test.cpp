#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "platform/debug_print.h"
#include "tests/playback/engine_rig.h"

namespace zelvor {
namespace {
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::EngineRig;
using testing::FakeGraphScript;

// Collects the debug lines written while it lives.
class DebugLines {
public:
    DebugLines() {
        m_previous = SetDebugSink([this](std::u16string_view line) { lines.emplace_back(line); });
    }
    ~DebugLines() { SetDebugSink(std::move(m_previous)); }
    std::vector<std::u16string> lines;

private:
    DebugSink m_previous;
};

int RenderCount(const EngineRig& rig, const std::string& file) {
    return static_cast<int>(
        std::count(rig.factory.log.begin(), rig.factory.log.end(), "render " + file));
}

TEST(BuildGraph, AMissingFileCreatesNothing) {
    EngineRig rig;
    DebugLines debug;
    EXPECT_EQ(rig.engine.BuildGraph(u"\\Storage Card\\gone.mp3", true), kEPointer);
    EXPECT_THAT(rig.factory.log, IsEmpty());
    EXPECT_THAT(debug.lines, IsEmpty());
    EXPECT_EQ(rig.engine.State(), kPlayStateEmpty);
}

TEST(BuildGraph, PlayingBuildMakesEveryCallInOrderAndShowsPlaying) {
    EngineRig rig({u"a.mp3"});
    EXPECT_EQ(rig.engine.BuildGraph(rig.Path(0), true), kOk);
    EXPECT_THAT(rig.factory.log,
                ElementsAre("create", "render a.mp3", "query Control", "query Events",
                            "query Seeking", "query VideoWindow", "query BasicVideo",
                            "query BasicAudio", "notify", "volume -2400", "run"));
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
    EXPECT_TRUE(rig.view.TimerRunning(kTimerPosition));
    EXPECT_EQ(rig.buttons.State(kButtonNext), kDisplayNormal);
    EXPECT_EQ(rig.view.focusRequests, 1);
}

TEST(BuildGraph, MutedAtOpenSendsSilenceWhateverTheIndex) {
    EngineRig rig({u"a.mp3"});
    rig.volume.Restore(10, true);
    rig.engine.BuildGraph(rig.Path(0), false);
    EXPECT_EQ(rig.factory.current->volume, kSilence);
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
    EXPECT_FALSE(rig.view.TimerRunning(kTimerPosition));
}

TEST(BuildGraph, ARenderFailureReleasesTheBuilderWithoutADebugLine) {
    EngineRig rig({u"bad.wma"});
    rig.factory.script.unrenderable = {"bad.wma"};
    DebugLines debug;
    EXPECT_EQ(rig.engine.BuildGraph(rig.Path(0), true), kVfwEUnsupportedStream);
    EXPECT_TRUE(rig.slots.Empty());
    EXPECT_EQ(rig.factory.liveGraphs, 0);
    EXPECT_THAT(debug.lines, IsEmpty());
}

// Every failing call is reported word for word; the slots obtained before it
// stay until the next release, and the state is left alone.
TEST(BuildGraph, EachFailingCallIsReportedAndKeepsEarlierSlotsUntilRelease) {
    auto slotFails = [](GraphSlot slot) {
        return [slot](FakeGraphScript& s) { s.slotFailures[slot] = kEFail; };
    };
    auto query = [](const char* iid, const char* var) {
        return u"FAILED(hr=0x80004005) in pGB->QueryInterface(IID_" + FromUtf8(iid) +
               u", (void **)&" + FromUtf8(var) + u")";
    };
    struct Case {
        std::function<void(FakeGraphScript&)> fail;
        HResult hr;
        std::u16string line;
        int slotsKept; // the builder included
    };
    const Case cases[] = {
        {[](FakeGraphScript& s) { s.createResult = static_cast<HResult>(0x80040154); },
         static_cast<HResult>(0x80040154),
         u"FAILED(hr=0x80040154) in CoCreateInstance(CLSID_FilterGraph, NULL, "
         u"CLSCTX_INPROC_SERVER, "
         u"IID_IGraphBuilder, (void **)&pGB)",
         0},
        {slotFails(GraphSlot::Control), kEFail, query("IMediaControl", "pMC"), 1},
        {slotFails(GraphSlot::Events), kEFail, query("IMediaEventEx", "pME"), 2},
        {slotFails(GraphSlot::Seeking), kEFail, query("IMediaSeeking", "pMS"), 3},
        {slotFails(GraphSlot::VideoWindow), kEFail, query("IVideoWindow", "pVW"), 4},
        {slotFails(GraphSlot::BasicVideo), kEFail, query("IBasicVideo", "pBV"), 5},
        {slotFails(GraphSlot::BasicAudio), kEFail, query("IBasicAudio", "pBA"), 6},
        {[](FakeGraphScript& s) { s.notifyResult = kEOutOfMemory; }, kEOutOfMemory,
         u"FAILED(hr=0x8007000e) in pME->SetNotifyWindow((OAHWND) m_hWnd, WM_GRAPHNOTIFY, 0)", 7},
        {[](FakeGraphScript& s) { s.runResult = kVfwEWrongState; }, kVfwEWrongState,
         u"FAILED(hr=0x80040227) in pMC->Run()", 7},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(ToUtf8(c.line));
        EngineRig rig({u"a.mp3"});
        c.fail(rig.factory.script);
        DebugLines debug;
        EXPECT_EQ(rig.engine.BuildGraph(rig.Path(0), true), c.hr);
        EXPECT_THAT(debug.lines, ElementsAre(c.line));
        int kept = 0;
        for (int slot = 0; slot < kGraphSlotCount; ++slot)
            kept += rig.slots.Has(static_cast<GraphSlot>(slot)) ? 1 : 0;
        EXPECT_EQ(kept, c.slotsKept);
        EXPECT_EQ(rig.engine.State(), kPlayStateEmpty);
        rig.engine.ReleaseGraph();
        EXPECT_EQ(rig.factory.liveGraphs, 0);
    }
}

// An mp3 that will not render is stripped of its tag and tried once more;
// other types are not retried, and a failure releases everything.
TEST(OpenTrack, OnlyAnMp3IsStrippedAndRetriedOnce) {
    const struct {
        const char16_t* name;
        bool recovers;
    } cases[] = {{u"tagged.mp3", true},
                 {u"hopeless.mp3", false},
                 {u"song.wma", false},
                 {u"song.aac", false}};
    for (const auto& c : cases) {
        EngineRig rig({c.name});
        std::string file = ToUtf8(c.name);
        SCOPED_TRACE(file);
        (c.recovers ? rig.factory.script.renderableAfterStrip
                    : rig.factory.script.unrenderable) = {file};
        bool mp3 = file.ends_with(".mp3");
        EXPECT_EQ(rig.engine.OpenTrack(rig.Path(0)), c.recovers);
        EXPECT_EQ(rig.slots.Empty(), !c.recovers);
        EXPECT_EQ(rig.engine.State(), c.recovers ? kPlayStateStopped : kPlayStateEmpty);
        EXPECT_EQ(rig.factory.stripped.count(file), mp3 ? 1u : 0u);
        EXPECT_EQ(RenderCount(rig, file), mp3 ? 2 : 1);
    }
}

TEST(OpenTrack, AStoppedTrackStartsTheDisplayAtZero) {
    EngineRig rig({u"a.mp3"});
    rig.position.Bar().SetGeometry(26, 190, 20, 0);
    rig.position.Bar().thumbX = 100;
    rig.engine.OpenTrack(rig.Path(0));
    EXPECT_EQ(rig.position.Bar().thumbX, 26);
    EXPECT_EQ(rig.position.Time(), TimeDisplay{});
    EXPECT_EQ(rig.view.markerRepaints, 1);
}

TEST(StopAndRelease, StopsWaitsAndReleasesAndStopsUnlessTheStateIsKept) {
    EngineRig rig({u"a.mp3"});
    rig.engine.BuildGraph(rig.Path(0), true);
    EXPECT_THAT(rig.CallsOf([&] { rig.engine.StopAndRelease(true); }),
                ElementsAre("stop", "wait", "destroy a.mp3"));
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);

    rig.engine.BuildGraph(rig.Path(0), true);
    rig.engine.StopAndRelease(false);
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
    EXPECT_TRUE(rig.slots.Empty());
    // No graph: nothing at all.
    EXPECT_THAT(rig.CallsOf([&] { rig.engine.StopAndRelease(false); }), IsEmpty());
}

TEST(Transport, StopRewindsAPlayingTrackAndKeepsItsGraph) {
    EngineRig rig({u"a.mp3"});
    rig.engine.BuildGraph(rig.Path(0), true);
    rig.factory.current->position = 50'000'000;
    EXPECT_THAT(rig.CallsOf([&] { rig.engine.StopCommand(); }),
                ElementsAre("stop", "wait", "seek 0"));
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
    EXPECT_FALSE(rig.slots.Empty());
    // Already stopped: no graph call.
    EXPECT_THAT(rig.CallsOf([&] { rig.engine.StopCommand(); }), IsEmpty());
    rig.engine.PlayCommand(true);
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
}

TEST(Transport, TogglePauseRunsFromStoppedOrPausedAndPausesOtherwise) {
    EngineRig rig({u"a.mp3"});
    rig.engine.TogglePause(); // no graph: nothing
    EXPECT_EQ(rig.engine.State(), kPlayStateEmpty);
    rig.engine.OpenTrack(rig.Path(0));
    rig.engine.TogglePause();
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
    rig.engine.TogglePause();
    EXPECT_EQ(rig.engine.State(), kPlayStatePaused);
    rig.factory.script.runResult = kEFail; // the state follows the request anyway
    rig.engine.TogglePause();
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
    EXPECT_EQ(rig.view.beeps, 0);
}

TEST(Transport, PlayBeepsWithoutAGraphOrWhenRunFails) {
    EngineRig rig({u"a.mp3"});
    rig.engine.PlayCommand(true);
    EXPECT_EQ(rig.view.beeps, 1);
    rig.engine.OpenTrack(rig.Path(0));
    rig.factory.script.runResult = kEFail;
    rig.engine.PlayCommand(true);
    EXPECT_EQ(rig.view.beeps, 2);
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
}

TEST(Transport, PlaySendsTheTableVolumeUnlessMuted) {
    EngineRig rig({u"a.mp3"});
    rig.volume.Restore(8, false);
    rig.engine.OpenTrack(rig.Path(0));
    EXPECT_THAT(rig.CallsOf([&] { rig.engine.PlayCommand(true); }),
                ElementsAre("volume -1200", "run"));
    rig.engine.StopCommand();
    rig.volume.ToggleMute();
    EXPECT_THAT(rig.CallsOf([&] { rig.engine.PlayCommand(true); }), ElementsAre("run"));
}

// Play on a vanished file steps on to a playable entry, trying as many
// entries as the queue holds; a single entry is never stepped.
TEST(Transport, PlayOnAVanishedFileLooksForAPlayableEntryOrBeeps) {
    const struct {
        int tracks;
        std::vector<std::string> steps;
        int beeps;
    } cases[] = {{3, {"next", "next"}, 0}, {2, {"next", "next"}, 1}, {1, {}, 1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.tracks);
        EngineRig rig;
        for (std::u16string_view name : {u"a.mp3", u"b.mp3", u"c.mp3"})
            if (rig.queue.paths.size() < static_cast<std::size_t>(c.tracks))
                rig.AddTracks({name});
        std::filesystem::remove(rig.device.Host(rig.Path(0)));
        rig.factory.script.unrenderable = {"b.mp3"};
        rig.engine.PlayCommand(true);
        EXPECT_EQ(rig.queue.steps, c.steps);
        EXPECT_EQ(rig.view.beeps, c.beeps);
        if (c.beeps == 0) {
            EXPECT_EQ(rig.queue.current, 2);
            EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
        }
    }
}

// A complete event rewinds, stops and advances; when the rewind fails the
// same track restarts, and a restart whose stop fails leaves the loop with
// the second event still queued.
TEST(GraphNotify, CompleteRewindsStopsAndAdvancesOrRestarts) {
    const struct {
        HResult seek, stop;
        int completes;
        std::vector<std::string> calls;
        std::vector<std::int32_t> states;
        int advances;
    } cases[] = {
        {kOk,
         kOk,
         1,
         {"event 1", "free 1", "seek 0", "stop", "wait", "seek 0"},
         {kPlayStateStopped},
         1},
        {kEFail,
         kOk,
         1,
         {"event 1", "free 1", "seek 0", "stop", "run"},
         {kPlayStateStopped, kPlayStatePlaying},
         0},
        {kEFail, kEFail, 2, {"event 1", "free 1", "seek 0", "stop"}, {}, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.calls.size());
        EngineRig rig({u"a.mp3"});
        rig.engine.BuildGraph(rig.Path(0), true);
        rig.factory.script.seekResult = c.seek;
        rig.factory.script.stopResult = c.stop;
        for (int i = 0; i < c.completes; ++i)
            rig.factory.current->QueueEvent(kEcComplete);
        rig.view.states.clear();
        int result = -1;
        EXPECT_EQ(rig.CallsOf([&] { result = rig.engine.OnGraphNotify(); }), c.calls);
        EXPECT_EQ(result, 0);
        EXPECT_EQ(rig.view.states, c.states);
        EXPECT_EQ(rig.queue.advances, c.advances);
        EXPECT_EQ(rig.engine.State(), c.states.empty() ? kPlayStatePlaying : c.states.back());
    }
}

TEST(GraphNotify, SeveralEventsDrainInOneNotificationAndOthersAreIgnored) {
    EngineRig rig({u"a.mp3"});
    int notifications = 0;
    rig.engine.SetNotifyHook([&] { ++notifications; }); // reaches every graph
    rig.engine.BuildGraph(rig.Path(0), true);
    for (std::int32_t code : {kEcUserAbort, 99, kEcComplete})
        rig.factory.current->QueueEvent(code);
    EXPECT_EQ(notifications, 3);
    rig.engine.OnGraphNotify();
    EXPECT_EQ(rig.queue.advances, 1);
    int left = 0;
    std::intptr_t p1 = 0, p2 = 0;
    EXPECT_TRUE(Failed(rig.factory.current->GetEvent(&left, &p1, &p2, 0)));
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
        const auto calls = rig.CallsOf([&] { rig.engine.OnGraphNotify(); });
        EXPECT_EQ(std::vector<std::string>(calls.begin(), calls.begin() + 4),
                  (std::vector<std::string>{"event 3", "free 3", "stop", "wait"}));
        EXPECT_EQ(rig.view.beeps, 1);
        EXPECT_EQ(rig.queue.advances, paused ? 0 : 1);
        EXPECT_EQ(rig.engine.State(), paused ? kPlayStateStopped : kPlayStatePlaying);
        EXPECT_EQ(rig.slots.Control() != nullptr, !paused);
    }
}

TEST(GraphNotify, EventsOfAGraphBuiltWhileDrainingAreHandledInTheSameLoop) {
    EngineRig rig({u"a.mp3", u"b.mp3", u"c.mp3"});
    rig.queue.playOnAdvance = true;
    // b ends as soon as it runs; c plays on.
    rig.factory.script.eventsOnRun["b.mp3"] = {kEcComplete};
    rig.engine.BuildGraph(rig.Path(0), true);
    rig.factory.current->QueueEvent(kEcComplete);
    rig.engine.OnGraphNotify();
    EXPECT_EQ(rig.queue.advances, 2);
    EXPECT_EQ(rig.queue.current, 2);
    EXPECT_EQ(rig.factory.current->File(), "c.mp3");
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
}

} // namespace
} // namespace zelvor
