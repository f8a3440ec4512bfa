#pragma once
// The player screen's taps: which button a press lands on, the seek bar's
// press and drag, the time area's toggle, Next and Previous held down, and
// what a release does.
//
//   press    the time area toggles elapsed and remaining time; a visible
//            button under the point shows pressed; Next and Previous start
//            the press-and-hold timer; on the seek bar a press on the thumb
//            starts a drag, a press elsewhere on the bar moves the thumb
//            there and holds the mouse, without dragging or seeking;
//   move     drags the thumb (only a drag started on it);
//   release  every pressed button returns to normal, and the one under the
//            point acts (Repeat, Random and display off at once, during the
//            walk; the others after it); outside every button nothing acts.
//
// Holding Next or Previous: each tick of the press-and-hold timer plays
// from stopped, resumes from paused or seeks ten seconds while playing;
// once it has ticked, the release does not step to another track.
//
// Borrows the player, view and actions, which outlive it. UI thread only.

#include "playback/player.h"
#include "ui/rules/player_screen/screen_actions.h"
#include "ui/rules/player_screen/screen_geometry.h"

namespace zelvor {

// The press-and-hold direction: none yet, or the button held.
constexpr int kHoldNone = -1;
constexpr int kHoldNext = 0;
constexpr int kHoldPrevious = 1;

class PlayerPointer {
public:
    PlayerPointer(Player& player, PlayerView& view, ScreenActions& actions)
        : m_player(player), m_view(view), m_actions(actions) {}

    // The geometry must outlive its use; set again when the layout changes.
    void SetGeometry(const ScreenGeometry& geometry) { m_geometry = &geometry; }

    void Press(PixelPoint point);
    void Move(PixelPoint point);
    void Release(PixelPoint point);
    // A tick of the press-and-hold timer.
    void PressHoldTick();

    int HoldDirection() const { return m_holdDirection; }

private:
    void PressSeekBar(PixelPoint point);
    // Returns the button released at the point (-1 for none).
    int WalkPressedButtons(PixelPoint point, bool& changed);
    void ActOnRelease(int button);

    Player& m_player;
    PlayerView& m_view;
    ScreenActions& m_actions;
    const ScreenGeometry* m_geometry = nullptr;
    int m_holdDirection = kHoldNone;
};

} // namespace zelvor
