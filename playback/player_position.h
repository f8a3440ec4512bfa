#pragma once
// PlayerPosition: the track's position and duration in whole seconds, seeking
// (seek bar, seek keys, ten-second steps) and the elapsed or remaining time
// the player shows.
//
// Position and duration come from the graph alone. The MP3 analysis keeps
// the stream values of the last file it read (size, header offset, frame
// length, frame count), but the graph knows the decoded stream exactly, so
// the player does not estimate a position from them.
//
// Borrows the slots, engine and view, which outlive it. UI thread only.

#include <cstdint>

#include "playback/graph_slots.h"
#include "playback/player_view.h"
#include "playback/seek_bar.h"
#include "playback/time_display.h"

namespace zelvor {

class PlaybackEngine;

// The device's two seek keys.
constexpr int kKeySeekForward = 234;
constexpr int kKeySeekBack = 235;
constexpr double kSeekStepSeconds = 10.0;

class PlayerPosition {
public:
    PlayerPosition(GraphSlots& slots, PlaybackEngine& engine, PlayerView& view);

    // Whole seconds. False, with 0, when there is no seeking slot (and, for
    // the position, while Stopped).
    bool GetDurationSeconds(double& seconds) const;
    bool GetPositionSeconds(double& seconds) const;
    // Seeks to a time that may carry a fraction; false only without a
    // seeking slot (the graph's answer is not looked at).
    bool SeekToSeconds(double seconds);
    // Ten seconds forward or back while Playing; nothing within a second of
    // the end (forward) or of the start (back).
    void SeekStep(bool forward);

    // The position timer's tick: moves the thumb and the time display.
    void UpdatePosition();
    // Sets the time display from whole seconds; a negative value reads the
    // current position. Shows the time left when the remaining flag is set.
    void SetTimeDisplay(std::int64_t seconds, bool repaint);
    // Time display at 0 and thumb at the bar's left end (a new or stopped
    // track); repaintMarker also repaints the remaining-time marker.
    void ResetToStart(bool repaintMarker);

    const TimeDisplay& Time() const { return m_time; }
    bool ShowsRemaining() const { return m_remaining; }
    // A press in the time display: elapsed <-> remaining time.
    void ToggleRemainingTime();

    // The seek bar. The screen sets the geometry from its skin images and
    // routes its mouse events here: a press on the thumb, a press elsewhere
    // on the bar, moves while pressed, and the release.
    SeekBar& Bar() { return m_bar; }
    const SeekBar& Bar() const { return m_bar; }
    void PressThumb();
    void PressBar(int mouseX);
    void DragTo(int mouseX);
    void Release(int mouseX);

    // The seek keys (kKeySeekForward, kKeySeekBack). A key held down seeks
    // again on each tick of the seek-hold timer until it is released.
    void SeekKeyDown(int key);
    void SeekHoldTick();
    void SeekKeyUp();
    int HeldKey() const { return m_heldKey; }
    // Other held keys the screen remembers (Enter), forgotten on key up.
    void SetHeldKey(int key) { m_heldKey = key; }

private:
    GraphSlots& m_slots;
    PlaybackEngine& m_engine;
    PlayerView& m_view;
    SeekBar m_bar;
    TimeDisplay m_time;
    bool m_remaining = false;
    int m_heldKey = 0;
};

} // namespace zelvor
