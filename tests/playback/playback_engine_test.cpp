#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/debug_print.h"
#include "tests/playback/engine_rig.h"

namespace zelvor {
namespace {
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::EngineRig;

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

const std::vector<std::string> kQueries = {
    "query Control",     "query Events",     "query Seeking",
    "query VideoWindow", "query BasicVideo", "query BasicAudio",
};

std::vector<std::string> Concat(std::vector<std::string> a, const std::vector<std::string>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

TEST(BuildGraph, AMissingFileCreatesNothing) {
    EngineRig rig;
    DebugLines debug;
    EXPECT_EQ(rig.engine.BuildGraph(u"\\Storage Card\\gone.mp3", true), kEPointer);
    EXPECT_THAT(rig.factory.log, IsEmpty());
    EXPECT_TRUE(rig.slots.Empty());
    EXPECT_THAT(debug.lines, IsEmpty());
    EXPECT_EQ(rig.engine.State(), kPlayStateEmpty);
}

TEST(BuildGraph, PlayingBuildMakesEveryCallInOrderAndShowsPlaying) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    EXPECT_EQ(rig.engine.BuildGraph(rig.Path(0), true), kOk);
    EXPECT_EQ(rig.factory.log,
              Concat(Concat({"create", "render a.mp3"}, kQueries), {"notify", "volume -2400", "run"}));
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
    EXPECT_TRUE(rig.view.TimerRunning(kTimerPosition));
    EXPECT_EQ(rig.buttons.State(kButtonNext), kDisplayNormal);
    EXPECT_EQ(rig.view.focusRequests, 1);
}

TEST(BuildGraph, MutedAtOpenSendsSilenceWhateverTheIndex) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    rig.volume.Restore(10, true);
    rig.engine.BuildGraph(rig.Path(0), false);
    EXPECT_EQ(rig.factory.current->volume, kSilence);
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
    EXPECT_FALSE(rig.view.TimerRunning(kTimerPosition));
}

TEST(BuildGraph, ARenderFailureReleasesTheBuilderWithoutADebugLine) {
    EngineRig rig;
    rig.AddTracks({u"bad.wma"});
    rig.factory.script.unrenderable = {"bad.wma"};
    DebugLines debug;
    EXPECT_EQ(rig.engine.BuildGraph(rig.Path(0), true), kVfwEUnsupportedStream);
    EXPECT_TRUE(rig.slots.Empty());
    EXPECT_EQ(rig.factory.liveGraphs, 0);
    EXPECT_THAT(debug.lines, IsEmpty());
}

TEST(BuildGraph, ACreateFailureIsReportedWordForWord) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    rig.factory.script.createResult = static_cast<HResult>(0x80040154);
    DebugLines debug;
    EXPECT_EQ(rig.engine.BuildGraph(rig.Path(0), true), static_cast<HResult>(0x80040154));
    EXPECT_THAT(debug.lines,
                ElementsAre(u"FAILED(hr=0x80040154) in CoCreateInstance(CLSID_FilterGraph, NULL, "
                            u"CLSCTX_INPROC_SERVER, IID_IGraphBuilder, (void **)&pGB)"));
}

struct SlotFailureCase {
    GraphSlot slot;
    const char16_t* line;
    int slotsKept; // slots obtained before the failure, the builder included
};

class SlotFailure : public ::testing::TestWithParam<SlotFailureCase> {};

TEST_P(SlotFailure, IsReportedByNameAndKeepsEarlierSlotsUntilRelease) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    rig.factory.script.slotFailures[GetParam().slot] = kEFail;
    DebugLines debug;
    EXPECT_EQ(rig.engine.BuildGraph(rig.Path(0), true), kEFail);
    EXPECT_THAT(debug.lines, ElementsAre(GetParam().line));
    int kept = 0;
    for (int slot = 0; slot < kGraphSlotCount; ++slot)
        kept += rig.slots.Has(static_cast<GraphSlot>(slot)) ? 1 : 0;
    EXPECT_EQ(kept, GetParam().slotsKept);
    EXPECT_EQ(rig.engine.State(), kPlayStateEmpty);
    rig.engine.ReleaseGraph();
    EXPECT_TRUE(rig.slots.Empty());
    EXPECT_EQ(rig.factory.liveGraphs, 0);
}

INSTANTIATE_TEST_SUITE_P(
    EachSlot, SlotFailure,
    ::testing::Values(
        SlotFailureCase{GraphSlot::Control,
                        u"FAILED(hr=0x80004005) in pGB->QueryInterface(IID_IMediaControl, (void **)&pMC)", 1},
        SlotFailureCase{GraphSlot::Events,
                        u"FAILED(hr=0x80004005) in pGB->QueryInterface(IID_IMediaEventEx, (void **)&pME)", 2},
        SlotFailureCase{GraphSlot::Seeking,
                        u"FAILED(hr=0x80004005) in pGB->QueryInterface(IID_IMediaSeeking, (void **)&pMS)", 3},
        SlotFailureCase{GraphSlot::VideoWindow,
                        u"FAILED(hr=0x80004005) in pGB->QueryInterface(IID_IVideoWindow, (void **)&pVW)", 4},
        SlotFailureCase{GraphSlot::BasicVideo,
                        u"FAILED(hr=0x80004005) in pGB->QueryInterface(IID_IBasicVideo, (void **)&pBV)", 5},
        SlotFailureCase{GraphSlot::BasicAudio,
                        u"FAILED(hr=0x80004005) in pGB->QueryInterface(IID_IBasicAudio, (void **)&pBA)", 6}));

TEST(BuildGraph, NotifyAndRunFailuresAreReportedAndLeaveTheStateAlone) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    DebugLines debug;
    rig.factory.script.notifyResult = kEOutOfMemory;
    EXPECT_EQ(rig.engine.BuildGraph(rig.Path(0), true), kEOutOfMemory);
    rig.engine.ReleaseGraph();
    rig.factory.script.notifyResult = kOk;
    rig.factory.script.runResult = kVfwEWrongState;
    EXPECT_EQ(rig.engine.BuildGraph(rig.Path(0), true), kVfwEWrongState);
    EXPECT_THAT(debug.lines,
                ElementsAre(u"FAILED(hr=0x8007000e) in pME->SetNotifyWindow((OAHWND) m_hWnd, WM_GRAPHNOTIFY, 0)",
                            u"FAILED(hr=0x80040227) in pMC->Run()"));
    EXPECT_EQ(rig.engine.State(), kPlayStateEmpty);
}

TEST(OpenTrack, AnMp3ThatWillNotRenderIsStrippedAndTriedOnce) {
    EngineRig rig;
    rig.AddTracks({u"tagged.mp3"});
    rig.factory.script.renderableAfterStrip = {"tagged.mp3"};
    EXPECT_TRUE(rig.engine.OpenTrack(rig.Path(0)));
    EXPECT_EQ(rig.factory.stripped.count("tagged.mp3"), 1u);
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
    EXPECT_EQ(std::count(rig.factory.log.begin(), rig.factory.log.end(), "render tagged.mp3"), 2);
}

TEST(OpenTrack, OtherTypesAreNotRetriedAndAFailureReleasesEverything) {
    for (std::u16string_view name : {u"song.wma", u"song.aac", u"hopeless.mp3"}) {
        EngineRig rig;
        rig.AddTracks({name});
        std::string file = ToUtf8(name);
        rig.factory.script.unrenderable = {file};
        EXPECT_FALSE(rig.engine.OpenTrack(rig.Path(0)));
        EXPECT_TRUE(rig.slots.Empty());
        bool mp3 = file.ends_with(".mp3");
        EXPECT_EQ(rig.factory.stripped.count(file), mp3 ? 1u : 0u) << file;
        EXPECT_EQ(std::count(rig.factory.log.begin(), rig.factory.log.end(), "render " + file),
                  mp3 ? 2 : 1);
    }
}

TEST(OpenTrack, AStoppedTrackStartsTheDisplayAtZero) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    rig.position.Bar().SetGeometry(26, 190, 20, 0);
    rig.position.Bar().thumbX = 100;
    rig.engine.OpenTrack(rig.Path(0));
    EXPECT_EQ(rig.position.Bar().thumbX, 26);
    EXPECT_EQ(rig.position.Time(), TimeDisplay{});
    EXPECT_EQ(rig.view.markerRepaints, 1);
}

TEST(StopAndRelease, StopsWaitsAndReleasesAndStopsUnlessTheStateIsKept) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    rig.engine.BuildGraph(rig.Path(0), true);
    auto mark = rig.factory.log.size();
    rig.engine.StopAndRelease(true);
    EXPECT_THAT(rig.factory.LogSince(mark), ElementsAre("stop", "wait", "destroy a.mp3"));
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);

    rig.engine.BuildGraph(rig.Path(0), true);
    rig.engine.StopAndRelease(false);
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
    EXPECT_TRUE(rig.slots.Empty());

    mark = rig.factory.log.size();
    rig.engine.StopAndRelease(false); // no graph: nothing at all
    EXPECT_THAT(rig.factory.LogSince(mark), IsEmpty());
}

TEST(Transport, StopRewindsAPlayingTrackAndKeepsItsGraph) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    rig.engine.BuildGraph(rig.Path(0), true);
    rig.factory.current->position = 50'000'000;
    auto mark = rig.factory.log.size();
    rig.engine.StopCommand();
    EXPECT_THAT(rig.factory.LogSince(mark), ElementsAre("stop", "wait", "seek 0"));
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
    EXPECT_FALSE(rig.slots.Empty());

    mark = rig.factory.log.size();
    rig.engine.StopCommand(); // already stopped: no graph call
    EXPECT_THAT(rig.factory.LogSince(mark), IsEmpty());
    rig.engine.PlayCommand(true);
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
}

TEST(Transport, TogglePauseRunsFromStoppedOrPausedAndPausesOtherwise) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
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
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    rig.engine.PlayCommand(true);
    EXPECT_EQ(rig.view.beeps, 1);
    rig.engine.OpenTrack(rig.Path(0));
    rig.factory.script.runResult = kEFail;
    rig.engine.PlayCommand(true);
    EXPECT_EQ(rig.view.beeps, 2);
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
}

TEST(Transport, PlaySendsTheTableVolumeUnlessMuted) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    rig.volume.Restore(8, false);
    rig.engine.OpenTrack(rig.Path(0));
    auto mark = rig.factory.log.size();
    rig.engine.PlayCommand(true);
    EXPECT_THAT(rig.factory.LogSince(mark), ElementsAre("volume -1200", "run"));
    rig.engine.StopCommand();
    rig.volume.ToggleMute();
    mark = rig.factory.log.size();
    rig.engine.PlayCommand(true);
    EXPECT_THAT(rig.factory.LogSince(mark), ElementsAre("run"));
}

TEST(Transport, PlayOnAVanishedFileLooksForAPlayableEntry) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3", u"b.mp3", u"c.mp3"});
    std::filesystem::remove(rig.device.Host(rig.Path(0)));
    rig.factory.script.unrenderable = {"b.mp3"};
    rig.engine.PlayCommand(true);
    EXPECT_THAT(rig.queue.steps, ElementsAre("next", "next"));
    EXPECT_EQ(rig.queue.current, 2);
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
    EXPECT_EQ(rig.view.beeps, 0);
}

TEST(Transport, PlayOnAVanishedFileBeepsWhenNothingIsPlayable) {
    EngineRig single;
    single.AddTracks({u"a.mp3"});
    std::filesystem::remove(single.device.Host(single.Path(0)));
    single.engine.PlayCommand(true);
    EXPECT_EQ(single.view.beeps, 1);
    EXPECT_THAT(single.queue.steps, IsEmpty()); // one entry is never stepped

    EngineRig pair;
    pair.AddTracks({u"a.mp3", u"b.mp3"});
    std::filesystem::remove(pair.device.Host(pair.Path(0)));
    pair.factory.script.unrenderable = {"b.mp3"};
    pair.engine.PlayCommand(true);
    EXPECT_THAT(pair.queue.steps, ElementsAre("next", "next"));
    EXPECT_EQ(pair.view.beeps, 1);
}

TEST(GraphNotify, CompleteRewindsStopsAndAdvances) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    rig.engine.BuildGraph(rig.Path(0), true);
    rig.factory.current->QueueEvent(kEcComplete);
    auto mark = rig.factory.log.size();
    EXPECT_EQ(rig.engine.OnGraphNotify(), 0);
    EXPECT_THAT(rig.factory.LogSince(mark),
                ElementsAre("event 1", "free 1", "seek 0", "stop", "wait", "seek 0"));
    EXPECT_EQ(rig.queue.advances, 1);
    EXPECT_EQ(rig.engine.State(), kPlayStateStopped);
}

TEST(GraphNotify, CompleteWhoseRewindFailsRestartsTheSameTrack) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    rig.engine.BuildGraph(rig.Path(0), true);
    rig.factory.script.seekResult = kEFail;
    rig.factory.current->QueueEvent(kEcComplete);
    rig.view.states.clear();
    auto mark = rig.factory.log.size();
    rig.engine.OnGraphNotify();
    EXPECT_THAT(rig.factory.LogSince(mark),
                ElementsAre("event 1", "free 1", "seek 0", "stop", "run"));
    EXPECT_THAT(rig.view.states, ElementsAre(kPlayStateStopped, kPlayStatePlaying));
    EXPECT_EQ(rig.queue.advances, 0);
}

TEST(GraphNotify, ARestartWhoseStopFailsLeavesTheLoop) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    rig.engine.BuildGraph(rig.Path(0), true);
    rig.factory.script.seekResult = kEFail;
    rig.factory.script.stopResult = kEFail;
    rig.factory.current->QueueEvent(kEcComplete);
    rig.factory.current->QueueEvent(kEcComplete);
    auto mark = rig.factory.log.size();
    rig.engine.OnGraphNotify();
    EXPECT_THAT(rig.factory.LogSince(mark), ElementsAre("event 1", "free 1", "seek 0", "stop"));
    EXPECT_EQ(rig.engine.State(), kPlayStatePlaying);
}

TEST(GraphNotify, SeveralEventsDrainInOneNotificationAndOthersAreIgnored) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    rig.engine.BuildGraph(rig.Path(0), true);
    rig.factory.current->QueueEvent(kEcErrorAbort);
    rig.factory.current->QueueEvent(kEcUserAbort);
    rig.factory.current->QueueEvent(kEcComplete);
    rig.engine.OnGraphNotify();
    EXPECT_EQ(rig.queue.advances, 1);
    int left = 0;
    std::intptr_t p1 = 0, p2 = 0;
    EXPECT_TRUE(Failed(rig.factory.current->GetEvent(&left, &p1, &p2, 0)));
}

TEST(GraphNotify, EventsOfAGraphBuiltWhileDrainingAreHandledInTheSameLoop) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3", u"b.mp3", u"c.mp3"});
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

TEST(GraphNotify, TheHookGivenToTheEngineReachesEveryGraph) {
    EngineRig rig;
    rig.AddTracks({u"a.mp3"});
    int notifications = 0;
    rig.engine.SetNotifyHook([&] { ++notifications; });
    rig.engine.BuildGraph(rig.Path(0), true);
    rig.factory.current->QueueEvent(kEcComplete);
    EXPECT_EQ(notifications, 1);
}

} // namespace
} // namespace zelvor
