#pragma once
// PlayQueue: the current playlist as the player holds it. It decides what
// plays next on Next, Previous and at the end of a track, reorders entries
// for Random, skips entries that cannot be opened, and makes the title and
// counter texts of the player screen.
//
// Three numbers of an entry, kept apart:
//   - its index: where it stands in the queue now (the play order);
//   - its order number (record field 7): where it stands in the playlist's
//     own order, 0-based, given when the queue is filled; the counter shows
//     it, and sorting by it undoes a shuffle;
//   - its shuffle key (record field 12): a draw of the program's random
//     generator, meaningful only while Random is on.
// The current entry is the one selected last (SelectEntry).
//
// The queue is kept between runs in the current-playlist file, written when
// the queue is destroyed, only when its content changed, and always in the
// playlist's own order.
//
// Borrows the engine, buttons, view and generator, which outlive it.
// UI thread only.

#include <cstdint>
#include <string>

#include "library/track_list.h"
#include "playback/engine_queue.h"
#include "playback/player_buttons.h"
#include "playback/player_view.h"
#include "playback/shuffle_random.h"

namespace zelvor {

class PlaybackEngine;

constexpr int kRepeatOff = 0;
constexpr int kRepeatOne = 1;
constexpr int kRepeatAll = 2;
// Spaces after a title too wide for its area, so that the scrolling text
// leaves a gap before it starts again.
constexpr int kTitleScrollGap = 20;

class PlayQueue final : public EngineQueue {
public:
    PlayQueue(PlaybackEngine& engine, PlayerButtons& buttons, PlayerView& view,
              ShuffleRandom& random);
    // Writes the current-playlist file when the queue changed.
    ~PlayQueue() override;
    PlayQueue(const PlayQueue&) = delete;
    PlayQueue& operator=(const PlayQueue&) = delete;

    // The settings read at start (the modes' buttons are shown).
    void Restore(bool random, int repeatMode);
    bool Random() const { return m_random; }
    int RepeatMode() const { return m_repeatMode; }
    bool Dirty() const { return m_dirty; }

    // EngineQueue.
    int EntryCount() const override { return m_list.Count(); }
    std::u16string CurrentPath() const override;
    int StepTrack(bool forward, bool automatic) override;
    void AdvanceAtEnd() override;

    int CurrentIndex() const { return m_current; }
    const TrackRecord* Entry(int index) const { return m_list.TrackAt(index); }

    // New shuffle keys for every entry, and the queue sorted by them. Unless
    // keepOrder, the entry that was last is never first afterwards.
    void Shuffle(bool keepOrder);
    // Makes an entry current and rebuilds the title and counter texts.
    void SelectEntry(int index);
    void ToggleRandom();
    void CycleRepeat();

    // Fills the queue from the current-playlist file (player start).
    void LoadQueue();
    // Plays a new list: each record is copied, numbered in the list's order.
    void ReplaceQueue(const TrackList& source);
    // Each entry cloned into `into`, in the playlist's own order (order
    // numbers kept) whatever the play order: what the play list panel shows.
    void CopyEntries(TrackList& into) const;
    // A list edited from CopyEntries becomes the queue, numbered in its own
    // order, and the current-playlist file is written at once (a power loss
    // keeps it). The current entry plays on undisturbed when the list still
    // holds it: a row with its path and its order number, that very entry
    // and not another copy of the same file. Otherwise the first row that
    // came after it becomes current (without Random; the list's first when
    // none did) and plays if the old one was playing.
    void ReplaceQueueKeepingCurrent(const TrackList& source);

    // The user's Next and Previous.
    void NextCommand();
    void PreviousCommand();

    const std::u16string& TitleText() const { return m_title; }
    const std::u16string& CounterText() const { return m_counter; }
    bool TitleScrolls() const { return m_titleScrolls; }
    int TitleScrollOffset() const { return m_titleOffset; }
    void SetTitleScrollOffset(int offset) { m_titleOffset = offset; }

private:
    void StepCommand(bool forward);
    // The queue becomes copies of the records, numbered 0, 1, ... in order.
    void FillFrom(const TrackList& source);
    // Puts the entry of this order number first in the play order and makes
    // it current (Random: the track that plays on heads the new order).
    void PutFirstAndSelect(std::uint32_t orderNumber);
    void SaveNow();
    void SortByOrderNumber();
    void SortByShuffleKey();
    // Takes the record at index out and puts it back at newIndex.
    void MoveEntry(int index, int newIndex);
    int IndexOf(const TrackRecord* record) const;

    PlaybackEngine& m_engine;
    PlayerButtons& m_buttons;
    PlayerView& m_view;
    ShuffleRandom& m_randomGenerator;

    TrackList m_list;
    int m_current = -1;
    bool m_random = false;
    std::int16_t m_repeatMode = kRepeatOff;
    bool m_dirty = false;

    std::u16string m_title = u" ";
    std::u16string m_counter = u" ";
    bool m_titleScrolls = false;
    int m_titleOffset = 0;
};

} // namespace zelvor
