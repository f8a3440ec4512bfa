#include "playback/playback_engine.h"

#include <array>
#include <cstdio>
#include <utility>

#include "config/settings.h"
#include "platform/debug_print.h"
#include "platform/device.h"
#include "playback/media_time.h"
#include "playback/player_position.h"
#include "tags/audio_file_type.h"

namespace zelvor {
namespace {

struct SlotQuery {
    GraphSlot slot;
    std::u16string_view call;
};

// The slots obtained after rendering, in the order they are asked for; the
// first that fails is reported by name and ends the build.
constexpr std::array<SlotQuery, 6> kSlotQueries = {{
    {GraphSlot::Control, u"pGB->QueryInterface(IID_IMediaControl, (void **)&pMC)"},
    {GraphSlot::Events, u"pGB->QueryInterface(IID_IMediaEventEx, (void **)&pME)"},
    {GraphSlot::Seeking, u"pGB->QueryInterface(IID_IMediaSeeking, (void **)&pMS)"},
    {GraphSlot::VideoWindow, u"pGB->QueryInterface(IID_IVideoWindow, (void **)&pVW)"},
    {GraphSlot::BasicVideo, u"pGB->QueryInterface(IID_IBasicVideo, (void **)&pBV)"},
    {GraphSlot::BasicAudio, u"pGB->QueryInterface(IID_IBasicAudio, (void **)&pBA)"},
}};

// Released in this order; the graph goes with the builder, last.
constexpr std::array<GraphSlot, kGraphSlotCount> kReleaseOrder = {
    GraphSlot::Control,   GraphSlot::Events,      GraphSlot::Seeking, GraphSlot::BasicVideo,
    GraphSlot::BasicAudio, GraphSlot::VideoWindow, GraphSlot::Builder,
};

constexpr std::u16string_view kCreateCall =
    u"CoCreateInstance(CLSID_FilterGraph, NULL, CLSCTX_INPROC_SERVER, IID_IGraphBuilder, "
    u"(void **)&pGB)";
constexpr std::u16string_view kNotifyCall =
    u"pME->SetNotifyWindow((OAHWND) m_hWnd, WM_GRAPHNOTIFY, 0)";
constexpr std::u16string_view kRunCall = u"pMC->Run()";

} // namespace

void ReportFailedCall(HResult hr, std::u16string_view call) {
    char hex[16];
    std::snprintf(hex, sizeof hex, "%x", static_cast<unsigned>(hr));
    std::u16string line = u"FAILED(hr=0x";
    for (const char* c = hex; *c; ++c)
        line += static_cast<char16_t>(*c);
    line += u") in ";
    line += call;
    DebugPrint(line);
}

PlaybackEngine::PlaybackEngine(MediaGraphFactory& factory, GraphSlots& slots,
                               PlayerVolume& volume, PlayerButtons& buttons, PlayerView& view)
    : m_factory(factory), m_slots(slots), m_volume(volume), m_buttons(buttons), m_view(view) {}

void PlaybackEngine::Connect(EngineQueue& queue, PlayerPosition& position) {
    m_queue = &queue;
    m_position = &position;
}

bool PlaybackEngine::FileExists(std::u16string_view path) const {
    std::u16string copy(path);
    return !copy.empty() && PathExists(copy);
}

HResult PlaybackEngine::BuildGraph(std::u16string_view path, bool play) {
    if (!FileExists(path))
        return kEPointer;
    auto hostFile = CurrentDevice().FileSystem().ToHostPath(path);
    if (!hostFile)
        return kEPointer;

    std::unique_ptr<MediaGraph> graph;
    HResult hr = m_factory.CreateGraph(graph);
    if (Failed(hr) || !graph) {
        hr = Failed(hr) ? hr : kEFail;
        ReportFailedCall(hr, kCreateCall);
        return hr;
    }
    m_slots.SetBuilder(std::move(graph));

    hr = m_slots.Builder()->RenderFile(*hostFile);
    if (Failed(hr)) {
        m_slots.Release(GraphSlot::Builder);
        return hr;
    }
    hr = QuerySlots(*m_slots.Builder());
    if (Failed(hr))
        return hr; // the slots obtained so far go with the next release

    // The graph always works in 100-ns units and renders no video, so there
    // is no time format to set and no video window to hide.
    hr = m_slots.Events()->SetNotify(m_notify);
    if (Failed(hr)) {
        ReportFailedCall(hr, kNotifyCall);
        return hr;
    }
    if (MediaGraph* audio = m_slots.BasicAudio())
        audio->PutVolume(m_volume.Value()); // result ignored
    if (play) {
        hr = m_slots.Control()->Run();
        if (Failed(hr)) {
            ReportFailedCall(hr, kRunCall);
            return hr;
        }
    }
    SetPlayState(play ? kPlayStatePlaying : kPlayStateStopped);
    RefreshStepButtons();
    m_view.FocusPlayer();
    return hr;
}

HResult PlaybackEngine::QuerySlots(MediaGraph& graph) {
    for (const SlotQuery& query : kSlotQueries) {
        HResult hr = graph.QuerySlot(query.slot);
        if (Failed(hr)) {
            ReportFailedCall(hr, query.call);
            return hr;
        }
        m_slots.Fill(query.slot);
    }
    return kOk;
}

bool PlaybackEngine::OpenTrack(std::u16string_view path) {
    HResult hr = BuildGraph(path, false);
    if (Failed(hr) && GetAudioFileType(path) == kAudioMp3) {
        // A damaged leading tag can keep the decoder from taking the file;
        // without the tag it plays. The user's file is rewritten on purpose.
        ReleaseGraph();
        if (m_stripTag)
            m_stripTag(path);
        hr = BuildGraph(path, false);
    }
    if (Failed(hr)) {
        ReleaseGraph();
        return false;
    }
    if (m_state == kPlayStateStopped && m_position)
        m_position->ResetToStart(true);
    return true;
}

void PlaybackEngine::StopAndRelease(bool keepState) {
    MediaGraph* control = m_slots.Control();
    if (!control)
        return;
    control->Stop();
    if (MediaGraph* events = m_slots.Events()) {
        std::int32_t code = 0;
        events->WaitForCompletion(kInfinite, &code);
    }
    ReleaseGraph();
    if (!keepState) {
        SetPlayState(kPlayStateStopped);
        RefreshStepButtons();
    }
}

void PlaybackEngine::ReleaseGraph() {
    for (GraphSlot slot : kReleaseOrder)
        m_slots.Release(slot);
}

void PlaybackEngine::RewindStop() {
    MediaGraph* control = m_slots.Control();
    MediaGraph* seeking = m_slots.Seeking();
    if (!control || !seeking)
        return;
    if (m_state != kPlayStatePlaying && m_state != kPlayStatePaused)
        return;
    control->Stop();
    if (MediaGraph* events = m_slots.Events()) {
        std::int32_t code = 0;
        events->WaitForCompletion(kInfinite, &code);
    }
    seeking->SetPositions(0);
    SetPlayState(kPlayStateStopped);
}

void PlaybackEngine::StopCommand() {
    if (m_position) {
        double unused = 0;
        m_position->GetPositionSeconds(unused);
    }
    RewindStop();
    if (m_position)
        m_position->ResetToStart(false);
}

void PlaybackEngine::TogglePause() {
    MediaGraph* control = m_slots.Control();
    if (!control)
        return;
    // The state follows the request whatever the graph answered.
    if (m_state == kPlayStatePaused || m_state == kPlayStateStopped) {
        control->Run();
        SetPlayState(kPlayStatePlaying);
    } else {
        control->Pause();
        SetPlayState(kPlayStatePaused);
    }
}

void PlaybackEngine::PlayCommand(bool refreshButtons) {
    if (m_queue && !FileExists(m_queue->CurrentPath())) {
        int entries = m_queue->EntryCount();
        if (entries == 1) {
            m_view.Beep();
            return;
        }
        bool opened = false;
        for (int attempt = 0; attempt < entries && !opened; ++attempt)
            opened = m_queue->StepTrack(true, false) >= 0;
        if (!opened) {
            m_view.Beep();
            return;
        }
    }
    MediaGraph* control = m_slots.Control();
    if (!control) {
        m_view.Beep();
        return;
    }
    MediaGraph* audio = m_slots.BasicAudio();
    if (audio && !m_volume.Muted())
        audio->PutVolume(m_volume.TableValue());
    if (Failed(control->Run())) {
        m_view.Beep();
        return;
    }
    SetPlayState(kPlayStatePlaying);
    if (refreshButtons)
        RefreshStepButtons();
}

std::intptr_t PlaybackEngine::OnGraphNotify() {
    // The slot is read afresh for every event: the advance may have built a
    // new graph, whose events this same loop then drains.
    while (MediaGraph* events = m_slots.Events()) {
        std::int32_t code = 0;
        std::intptr_t param1 = 0;
        std::intptr_t param2 = 0;
        if (Failed(events->GetEvent(&code, &param1, &param2, 0)))
            break;
        events->FreeEventParams(code, param1, param2);
        if (code == kEcErrorAbort) {
            TrackFailed();
            continue;
        }
        if (code != kEcComplete)
            continue;

        MediaGraph* seeking = m_slots.Seeking();
        if (seeking && !Failed(seeking->SetPositions(0))) {
            StopCommand();
            if (m_queue)
                m_queue->AdvanceAtEnd();
            continue;
        }
        // The graph cannot go back to its start: restart the same track.
        MediaGraph* control = m_slots.Control();
        if (!control || Failed(control->Stop()))
            break;
        SetPlayState(kPlayStateStopped);
        if (Failed(control->Run()))
            break;
        SetPlayState(kPlayStatePlaying);
    }
    return 0;
}

// A track that fails while it plays (a damaged stream, a read error) gets
// what a track that cannot be opened gets: a beep, and the next entry. The
// graph that failed plays no more, so it is released at once and the screen
// shows Stopped rather than Playing over silence. The queue then advances as
// at the end of a track, so the end of the list and Repeat keep their
// meaning; with Repeat One the same entry has no graph left, so Play's own
// beep follows and playback stops there instead of failing over and over.
// A failure while paused or stopped only releases the graph: the user did
// not ask for anything to play.
void PlaybackEngine::TrackFailed() {
    const bool wasPlaying = m_state == kPlayStatePlaying;
    m_view.Beep();
    StopAndRelease(false);
    if (wasPlaying && m_queue)
        m_queue->AdvanceAtEnd();
}

void PlaybackEngine::SetPlayState(std::int32_t state) {
    m_state = state;
    PlayStateDisplay display = DisplayForPlayState(state);
    if (display.positionTimer) {
        if (m_positionTimer == 0) {
            m_view.StartTimer(kTimerPosition, kTimerPeriodMs);
            m_positionTimer = kTimerPosition;
        }
    } else if (m_positionTimer != 0) {
        m_view.StopTimer(m_positionTimer);
        m_positionTimer = 0;
    }

    m_seekDisabled = true;
    if (state == kPlayStatePlaying) {
        // A graph that cannot tell its duration cannot be sought either.
        std::int64_t duration = 0;
        MediaGraph* seeking = m_slots.Seeking();
        if (seeking)
            seeking->GetDuration(&duration);
        m_seekDisabled = seeking && WholeSecondsOf(duration) == 0;
    }

    m_buttons.Set(kButtonStop, display.stop);
    m_buttons.Set(kButtonPlay, display.play);
    m_buttons.Set(kButtonPause, m_seekDisabled ? display.pauseWhenSeekDisabled : display.pause);
    m_buttons.SetThumb(display.seekThumb);
    m_view.PlayStateChanged(state);
}

void PlaybackEngine::StopPositionTimer() {
    if (m_positionTimer != 0) {
        m_view.StopTimer(m_positionTimer);
        m_positionTimer = 0;
    }
}

void PlaybackEngine::RefreshStepButtons() {
    int state = (m_queue && m_queue->EntryCount() > 0) ? kDisplayNormal : kDisplayHidden;
    m_buttons.Set(kButtonPrevious, state);
    m_buttons.Set(kButtonNext, state);
}

} // namespace zelvor
