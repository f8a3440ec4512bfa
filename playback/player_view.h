#pragma once
// PlayerView: what the playback core asks of the player screen. The core
// decides; the screen paints what the core holds (button display states, the
// time display, the seek thumb, the title and counter texts) and reports
// back only what needs a window: text widths, timers, the mouse capture.
//
// Every call is made on the UI thread. Invalidate* requests a repaint of an
// area later; UpdateNow paints pending areas at once.

#include <cstdint>
#include <string_view>

namespace zelvor {

// Timer ids of the player screen.
constexpr int kTimerSeekHold = 11;      // a seek key held down, 500 ms
constexpr int kTimerPressHold = 12;     // Next or Previous held down, 500 ms
constexpr int kTimerPosition = 123;     // position and elapsed time while playing, 500 ms
constexpr int kTimerPeriodMs = 500;

class PlayerView {
public:
    virtual ~PlayerView() = default;

    // Repaints, without erasing unless said.
    virtual void InvalidateButton(int button) = 0;
    virtual void InvalidateSeekThumb() = 0;
    // The elapsed-time digits and the track texts beside them.
    virtual void InvalidateTimeDisplay() = 0;
    // The 18-pixel strip left of the time digits (the remaining-time marker).
    virtual void InvalidateRemainingMarker() = 0;
    // The volume gauge, erased first.
    virtual void InvalidateVolume() = 0;
    virtual void InvalidateAll(bool erase) = 0;
    virtual void UpdateNow() = 0;

    // The title or counter text changed (a new entry was selected).
    virtual void TrackTextsChanged() = 0;
    // The play state was recorded (after the buttons were updated).
    virtual void PlayStateChanged(std::int32_t state) = 0;

    // MessageBeep(0xFFFFFFFF): a failed playback action.
    virtual void Beep() = 0;
    virtual void FocusPlayer() = 0;
    virtual void SetWaitCursor(bool on) = 0;

    // The width in pixels of a text in the screen's text font, and the
    // width of the area the title scrolls in.
    virtual int MeasureTitleText(std::u16string_view text) = 0;
    virtual int TitleAreaWidth() = 0;

    // Screen timers by id (periods in milliseconds).
    virtual void StartTimer(int id, int periodMs) = 0;
    virtual void StopTimer(int id) = 0;
    virtual bool TimerRunning(int id) = 0;

    // The seek bar's mouse capture.
    virtual void SetMouseCapture(bool captured) = 0;
};

} // namespace zelvor
