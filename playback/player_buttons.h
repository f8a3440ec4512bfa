#pragma once
// The display states of the player screen's seventeen buttons and of the
// seek thumb. The playback core sets them; the screen draws them and sets
// the pressed state while a button is held. A change of state repaints that
// button's rectangle, without erasing; setting the state a button already
// has repaints nothing.

#include "playback/player_button_ids.h"
#include <array>

#include "playback/play_state.h"
#include "playback/player_view.h"

namespace zelvor {

class PlayerButtons {
public:
    explicit PlayerButtons(PlayerView& view) : m_view(view) {}

    int State(int button) const { return Valid(button) ? m_states[button] : kDisplayHidden; }
    int ThumbState() const { return m_thumb; }

    // Records the state and repaints the button when it changed.
    void Set(int button, int state) {
        if (!Valid(button) || m_states[button] == state)
            return;
        m_states[button] = state;
        m_view.InvalidateButton(button);
    }
    void SetThumb(int state) {
        if (m_thumb == state)
            return;
        m_thumb = state;
        m_view.InvalidateSeekThumb();
    }

    // Shows the one image of each group that stands for the mode.
    void ShowRepeatMode(int mode) {
        Set(kButtonRepeatOff, mode == 0 ? kDisplayNormal : kDisplayHidden);
        Set(kButtonRepeatOne, mode == 1 ? kDisplayNormal : kDisplayHidden);
        Set(kButtonRepeatAll, mode == 2 ? kDisplayNormal : kDisplayHidden);
    }
    void ShowRandom(bool on) {
        Set(kButtonRandomOff, on ? kDisplayHidden : kDisplayNormal);
        Set(kButtonRandomOn, on ? kDisplayNormal : kDisplayHidden);
    }

private:
    static bool Valid(int button) { return button >= 0 && button < kButtonCount; }

    PlayerView& m_view;
    std::array<int, kButtonCount> m_states{};
    int m_thumb = kDisplayNormal;
};

} // namespace zelvor
