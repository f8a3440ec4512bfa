#pragma once
// PlayerScreenControl: every decision of the player screen that needs no
// window. The widget hands it taps, keys and timer ticks and paints what it
// and the player hold; tests drive it, or the widget, directly.
//
//   timers   whatever the timer, while playing, the idle timer is reset at
//            most every 50 s; position (123) moves the thumb, the time and
//            the scrolling title; seek-hold (11) repeats a held seek key;
//            press-and-hold (12) repeats a held Next or Previous; clock
//            (168, every 5 s) refreshes the clock text and the battery.
//   shell    the status value shows the indicator; the shell's player
//            message pauses a playing track; a removed storage card
//            releases the track, and its return opens it again.
//
// Borrows the player, view and actions, which outlive it. UI thread only.

#include <cstdint>
#include <string>

#include "playback/player.h"
#include "ui/rules/player_screen/idle_reset_gate.h"
#include "ui/rules/player_screen/player_pointer.h"
#include "ui/rules/player_screen/screen_actions.h"

namespace zelvor {

constexpr int kTimerClock = 168;
constexpr int kClockPeriodMs = 5000;

// "%02d:%02d" of the hour and minute.
std::u16string ClockText(const LocalTime& time);

class PlayerScreenControl {
public:
    PlayerScreenControl(Player& player, PlayerView& view, ScreenActions& actions);

    // The geometry must outlive its use; set again when the layout changes.
    void SetGeometry(const ScreenGeometry& geometry);

    // The screen was created: the queue is loaded, the clock starts.
    void Start();

    PlayerPointer& Pointer() { return m_pointer; }
    bool KeyDown(int deviceKey);
    void KeyUp();
    void OnTimer(int id);
    // Before the browser is shown.
    void CancelHoldTimers();

    // The clock text and the battery level, read again and repainted.
    void RefreshClock();
    const std::u16string& Clock() const { return m_clock; }
    int BatteryLevel() const { return m_batteryLevel; }

    // The shell's status value: a non-zero value shows the indicator.
    void SetShellStatus(std::int32_t value);
    bool IndicatorShown() const { return m_indicator; }
    // The shell asks the player to fall silent: a playing track pauses.
    void OnShellPlayerMessage();

    // The storage card went away: the track is let go (its file may be on
    // the card). When the card is back, the current entry is opened again
    // and, if it was playing, plays on from its start.
    void ReleaseCurrentTrack();
    void Resume();

private:
    void OnPositionTick();

    Player& m_player;
    PlayerView& m_view;
    ScreenActions& m_actions;
    PlayerPointer m_pointer;
    IdleResetGate m_idleGate;
    std::u16string m_clock;
    int m_batteryLevel = 100;
    bool m_indicator = false;
    bool m_resumePlaying = false;
    bool m_released = false;
};

} // namespace zelvor
