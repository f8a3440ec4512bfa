#pragma once
// PlaybackEngine: plays one audio file at a time through the graph slots,
// keeps the player's play state and turns the graph's end of stream into the
// play queue's advance.
//
// Paths are device paths (UTF-16, backslashes); the engine resolves them to
// host files through the current device. Every failed graph call that the
// engine reports writes one debug line "FAILED(hr=0x%x) in " and the call;
// failed user actions beep, they never show a message.
//
// Ownership: the engine borrows everything it is given; all of it, and the
// queue and position connected later, must outlive it. Single-threaded: the
// UI thread only (graph events arrive through the notify hook, which must
// post to this thread, then OnGraphNotify drains them).

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "playback/engine_queue.h"
#include "playback/graph_slots.h"
#include "playback/media_graph.h"
#include "playback/play_state.h"
#include "playback/player_buttons.h"
#include "playback/player_view.h"
#include "playback/player_volume.h"

namespace zelvor {

class PlayerPosition;

// Removes a file's leading ID3v2 tag in place (the repair OpenTrack tries on
// an MP3 file that no graph can be built for). Returns false on failure.
using TagStripper = std::function<bool(std::u16string_view devicePath)>;

class PlaybackEngine {
public:
    PlaybackEngine(MediaGraphFactory& factory, GraphSlots& slots, PlayerVolume& volume,
                   PlayerButtons& buttons, PlayerView& view);

    void Connect(EngineQueue& queue, PlayerPosition& position);
    // Given to every graph built (SetNotifyWindow of the player window).
    void SetNotifyHook(MediaGraph::NotifyHook hook) { m_notify = std::move(hook); }
    void SetTagStripper(TagStripper stripper) { m_stripTag = std::move(stripper); }

    std::int32_t State() const { return m_state; }
    bool SeekDisabled() const { return m_seekDisabled; }
    bool PositionTimerRunning() const { return m_positionTimer != 0; }

    // Builds the graph for a file and, when asked, runs it. kEPointer when
    // the file does not exist (nothing is created); otherwise the result of
    // the last graph call.
    HResult BuildGraph(std::u16string_view path, bool play);
    // Builds without running; an MP3 file that fails is stripped of its
    // leading ID3v2 tag and tried once more. False after releasing all.
    bool OpenTrack(std::u16string_view path);
    // Stops and tears the graph down; unless keepState, the state becomes
    // Stopped. Nothing happens without a graph.
    void StopAndRelease(bool keepState);
    void ReleaseGraph();
    // A playing or paused graph stops and goes back to its start.
    void RewindStop();

    // The user's Stop, Play and Play/Pause.
    void StopCommand();
    void PlayCommand(bool refreshButtons);
    void TogglePause();

    // The handler of kMsgGraphNotify: drains every queued event, including
    // those of a graph built while draining. The end of a track advances the
    // queue; a track that fails beeps, is released and, while playing,
    // advances the queue too. Returns 0.
    std::intptr_t OnGraphNotify();

    // Records the state and shows it: buttons, seek thumb, position timer.
    void SetPlayState(std::int32_t state);
    // Previous and Next are disabled while the queue has no entries.
    void RefreshStepButtons();
    // The screen is going away: its position timer stops with it.
    void StopPositionTimer();

private:
    HResult QuerySlots(MediaGraph& graph);
    void TrackFailed();
    bool FileExists(std::u16string_view path) const;

    MediaGraphFactory& m_factory;
    GraphSlots& m_slots;
    PlayerVolume& m_volume;
    PlayerButtons& m_buttons;
    PlayerView& m_view;
    EngineQueue* m_queue = nullptr;
    PlayerPosition* m_position = nullptr;
    MediaGraph::NotifyHook m_notify;
    TagStripper m_stripTag;

    std::int32_t m_state = kPlayStateEmpty;
    bool m_seekDisabled = true;
    int m_positionTimer = 0; // kTimerPosition while it runs
};

// Writes "FAILED(hr=0x%x) in " + call as one debug line.
void ReportFailedCall(HResult hr, std::u16string_view call);

} // namespace zelvor
