#pragma once
// Player: everything below the player screen, put together. It owns the
// graph slots, the button states, the volume, the engine, the position and
// the play queue, wires them to each other and to the screen's view, and
// keeps the player's settings for the time it lives:
//
//   construction   reads Random, Repeat, Mute and Volume, fixes the buffering
//                  time and sets the state to Empty;
//   LoadQueue      (the screen's creation) fills the queue from its file;
//   destruction    stops and releases the graph, writes the settings, and
//                  writes the queue's file when it changed.
//
// The factory, view and generator are borrowed and must outlive the player;
// the view must not call back into the player while it is being destroyed.
// UI thread only; graph notifications reach it through the hook given to
// SetNotifyHook, which must post to this thread (then call OnGraphNotify).

#include "playback/graph_slots.h"
#include "playback/play_queue.h"
#include "playback/playback_engine.h"
#include "playback/player_buttons.h"
#include "playback/player_position.h"
#include "playback/player_volume.h"
#include "playback/shuffle_random.h"

namespace zelvor {

class Player {
public:
    Player(MediaGraphFactory& factory, PlayerView& view, ShuffleRandom& random = ProgramRandom());
    ~Player();
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    PlaybackEngine& Engine() { return m_engine; }
    PlayQueue& Queue() { return m_queue; }
    PlayerPosition& Position() { return m_position; }
    PlayerVolume& Volume() { return m_volume; }
    PlayerButtons& Buttons() { return m_buttons; }
    const GraphSlots& Slots() const { return m_slots; }

    void SetNotifyHook(MediaGraph::NotifyHook hook) { m_engine.SetNotifyHook(std::move(hook)); }
    void SetTagStripper(TagStripper stripper) { m_engine.SetTagStripper(std::move(stripper)); }

private:
    GraphSlots m_slots;
    PlayerButtons m_buttons;
    PlayerVolume m_volume;
    PlaybackEngine m_engine;
    PlayerPosition m_position;
    PlayQueue m_queue;
};

} // namespace zelvor
