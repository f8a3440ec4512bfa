#include "ui/rules/player_screen/player_screen_control.h"

#include <cstdio>

#include "platform/text.h"
#include "ui/rules/player_screen/player_keys.h"
#include "ui/rules/player_screen/title_scroll.h"

namespace zelvor {

std::u16string ClockText(const LocalTime& time) {
    char text[8];
    std::snprintf(text, sizeof text, "%02d:%02d", time.hour % 100, time.minute % 100);
    return FromUtf8(text);
}

PlayerScreenControl::PlayerScreenControl(Player& player, PlayerView& view, ScreenActions& actions)
    : m_player(player), m_view(view), m_actions(actions), m_pointer(player, view, actions) {
    m_clock = ClockText(m_actions.Now());
}

void PlayerScreenControl::SetGeometry(const ScreenGeometry& geometry) {
    m_pointer.SetGeometry(geometry);
}

void PlayerScreenControl::Start() {
    m_player.Queue().LoadQueue();
    m_player.Engine().RefreshStepButtons();
    RefreshClock();
    m_view.StartTimer(kTimerClock, kClockPeriodMs);
}

bool PlayerScreenControl::KeyDown(int deviceKey) {
    return PlayerKeyDown(m_player, deviceKey);
}

void PlayerScreenControl::KeyUp() {
    PlayerKeyUp(m_player);
}

void PlayerScreenControl::OnTimer(int id) {
    if (m_player.Engine().State() == kPlayStatePlaying && m_idleGate.Due(m_actions.TickCount()))
        m_actions.ResetIdleTimer();
    switch (id) {
    case kTimerPosition:
        OnPositionTick();
        break;
    case kTimerSeekHold:
        m_player.Position().SeekHoldTick();
        break;
    case kTimerPressHold:
        m_pointer.PressHoldTick();
        break;
    case kTimerClock:
        RefreshClock();
        break;
    default:
        break;
    }
}

void PlayerScreenControl::OnPositionTick() {
    m_player.Position().UpdatePosition();
    PlayQueue& queue = m_player.Queue();
    if (queue.TitleScrolls()) {
        queue.SetTitleScrollOffset(NextTitleOffset(queue.TitleText(), queue.TitleScrollOffset()));
        m_actions.InvalidateElement(ScreenElement::Title);
    }
}

void PlayerScreenControl::CancelHoldTimers() {
    m_view.StopTimer(kTimerSeekHold);
    m_view.StopTimer(kTimerPressHold);
}

void PlayerScreenControl::RefreshClock() {
    m_clock = ClockText(m_actions.Now());
    m_actions.InvalidateElement(ScreenElement::Clock);
    m_batteryLevel = m_actions.ReadBatteryLevel();
    m_actions.InvalidateElement(ScreenElement::Battery);
}

void PlayerScreenControl::SetShellStatus(std::int32_t value) {
    m_indicator = value != 0;
    m_actions.InvalidateElement(ScreenElement::Indicator);
}

void PlayerScreenControl::OnShellPlayerMessage() {
    if (m_player.Engine().State() == kPlayStatePlaying)
        m_player.Engine().TogglePause();
}

void PlayerScreenControl::ReleaseCurrentTrack() {
    std::int32_t state = m_player.Engine().State();
    if (m_player.Slots().Empty())
        return;
    m_resumePlaying = state == kPlayStatePlaying;
    m_released = true;
    m_player.Engine().StopAndRelease(false);
    m_player.Position().ResetToStart(true);
}

void PlayerScreenControl::Resume() {
    if (!m_released)
        return;
    m_released = false;
    PlayQueue& queue = m_player.Queue();
    PlaybackEngine& engine = m_player.Engine();
    if (queue.EntryCount() == 0 || !m_player.Slots().Empty())
        return;
    if (engine.OpenTrack(queue.CurrentPath()) && m_resumePlaying)
        engine.PlayCommand(true);
    m_resumePlaying = false;
}

} // namespace zelvor
