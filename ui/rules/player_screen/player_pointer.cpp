#include "ui/rules/player_screen/player_pointer.h"

namespace zelvor {

void PlayerPointer::Press(PixelPoint point) {
    if (!m_geometry || !m_geometry->layout)
        return;
    if (TimeRect(*m_geometry->layout).Contains(point))
        m_player.Position().ToggleRemainingTime();
    PlayerButtons& buttons = m_player.Buttons();
    auto button = ButtonAt(*m_geometry, buttons, point);
    if (!button)
        return;
    buttons.Set(*button, kDisplayPressed);
    if ((*button == kButtonNext || *button == kButtonPrevious) &&
        !m_view.TimerRunning(kTimerPressHold))
        m_view.StartTimer(kTimerPressHold, kTimerPeriodMs);
    if (*button == kButtonSeekBar)
        PressSeekBar(point);
}

void PlayerPointer::PressSeekBar(PixelPoint point) {
    // A hidden thumb (nothing loaded) cannot be moved.
    if (m_player.Buttons().ThumbState() == kDisplayHidden)
        return;
    // Only the thumb is dragged, and only a drag seeks. A press elsewhere on
    // the bar moves the thumb there and holds the mouse, so the position
    // timer leaves it there until the release; then it goes back to where
    // the track is.
    PlayerPosition& position = m_player.Position();
    if (ThumbRect(*m_geometry, position.Bar()).Contains(point))
        position.PressThumb();
    else
        position.PressBar(point.x);
}

void PlayerPointer::Move(PixelPoint point) {
    m_player.Position().DragTo(point.x);
}

void PlayerPointer::Release(PixelPoint point) {
    m_view.StopTimer(kTimerPressHold);
    bool changed = false;
    int released = m_geometry ? WalkPressedButtons(point, changed) : -1;
    // Gives the mouse back and, when the thumb was dragged, seeks.
    m_player.Position().Release(point.x);
    if (changed) {
        m_view.InvalidateAll(true);
        m_view.UpdateNow();
    }
    ActOnRelease(released);
    m_holdDirection = kHoldNone;
}

int PlayerPointer::WalkPressedButtons(PixelPoint point, bool& changed) {
    PlayerButtons& buttons = m_player.Buttons();
    int released = -1;
    for (int i = 0; i < kPlayerButtonCount; ++i) {
        if (buttons.State(i) != kDisplayPressed)
            continue;
        buttons.Set(i, kDisplayNormal);
        changed = true;
        if (!m_geometry->buttons[static_cast<std::size_t>(i)].Contains(point))
            continue;
        released = i;
        // These act at once: the mode buttons show the next image of their
        // group, which the rest of the walk then finds not pressed.
        if (i >= kButtonRepeatOff && i <= kButtonRepeatAll)
            m_player.Queue().CycleRepeat();
        else if (i == kButtonRandomOff || i == kButtonRandomOn)
            m_player.Queue().ToggleRandom();
        else if (i == kButtonDisplayOff)
            m_actions.DisplayOff();
    }
    return released;
}

void PlayerPointer::ActOnRelease(int button) {
    PlaybackEngine& engine = m_player.Engine();
    switch (button) {
    case kButtonNext:
        if (m_holdDirection == kHoldNone)
            m_player.Queue().NextCommand();
        break;
    case kButtonPrevious:
        if (m_holdDirection == kHoldNone)
            m_player.Queue().PreviousCommand();
        break;
    case kButtonStop:
        if (engine.State() != kPlayStateDisplay)
            engine.StopCommand();
        break;
    case kButtonPlay:
        engine.PlayCommand(true);
        break;
    case kButtonPause:
        engine.TogglePause();
        break;
    case kButtonVolumeUp:
        m_player.Volume().VolumeStep(true);
        break;
    case kButtonVolumeDown:
        m_player.Volume().VolumeStep(false);
        break;
    case kButtonLibrary:
        m_view.StopTimer(kTimerSeekHold);
        m_view.StopTimer(kTimerPressHold);
        m_actions.ShowBrowser();
        break;
    case kButtonHide:
        m_actions.HideFrame();
        break;
    case kButtonMenu:
        m_actions.ShowMenu();
        break;
    default:
        break; // the seek bar and the buttons that acted during the walk
    }
}

void PlayerPointer::PressHoldTick() {
    if (m_holdDirection == kHoldNone)
        m_holdDirection =
            m_player.Buttons().State(kButtonNext) == kDisplayPressed ? kHoldNext : kHoldPrevious;
    PlaybackEngine& engine = m_player.Engine();
    switch (engine.State()) {
    case kPlayStateStopped:
        engine.PlayCommand(false);
        break;
    case kPlayStatePaused:
        engine.TogglePause();
        break;
    case kPlayStatePlaying:
        m_player.Position().SeekStep(m_holdDirection == kHoldNext);
        break;
    default:
        break;
    }
}

} // namespace zelvor
