#include "playback/player_position.h"

#include <cmath>

#include "playback/media_time.h"
#include "playback/playback_engine.h"

namespace zelvor {

PlayerPosition::PlayerPosition(GraphSlots& slots, PlaybackEngine& engine, PlayerView& view)
    : m_slots(slots), m_engine(engine), m_view(view) {}

bool PlayerPosition::GetDurationSeconds(double& seconds) const {
    seconds = 0;
    MediaGraph* seeking = m_slots.Seeking();
    if (!seeking)
        return false;
    std::int64_t duration = 0;
    seeking->GetDuration(&duration);
    seconds = WholeSecondsOf(duration);
    return true;
}

bool PlayerPosition::GetPositionSeconds(double& seconds) const {
    seconds = 0;
    MediaGraph* seeking = m_slots.Seeking();
    if (!seeking || m_engine.State() == kPlayStateStopped)
        return false;
    std::int64_t position = 0;
    seeking->GetCurrentPosition(&position);
    seconds = WholeSecondsOf(position);
    return true;
}

bool PlayerPosition::SeekToSeconds(double seconds) {
    MediaGraph* seeking = m_slots.Seeking();
    if (!seeking)
        return false;
    seeking->SetPositions(MediaTimeOf(seconds)); // result ignored
    return true;
}

void PlayerPosition::SeekStep(bool forward) {
    if (m_engine.State() != kPlayStatePlaying)
        return;
    double duration = 0;
    double position = 0;
    GetDurationSeconds(duration);
    GetPositionSeconds(position);
    double target = 0;
    if (forward) {
        if (duration - position <= 1.0)
            return;
        target = std::min(position + kSeekStepSeconds, duration);
    } else {
        if (position <= 1.0)
            return;
        target = std::max(position - kSeekStepSeconds, 0.0);
    }
    SeekToSeconds(target);
}

void PlayerPosition::UpdatePosition() {
    if (m_bar.captured || !m_slots.Seeking())
        return;
    double position = 0;
    double duration = 0;
    GetPositionSeconds(position);
    GetDurationSeconds(duration);
    double fraction = duration != 0 ? position / duration : 0.0;
    if (m_bar.drag != SeekDrag::kActive) {
        m_bar.thumbX = m_bar.ThumbForFraction(fraction);
        m_view.InvalidateSeekThumb();
    }
    SetTimeDisplay(static_cast<std::int64_t>(position), true);
}

void PlayerPosition::SetTimeDisplay(std::int64_t seconds, bool repaint) {
    if (seconds < 0) {
        double position = 0;
        GetPositionSeconds(position);
        seconds = static_cast<std::int64_t>(position);
    }
    if (m_remaining) {
        double duration = 0;
        GetDurationSeconds(duration);
        seconds = static_cast<std::int64_t>(duration) - seconds;
    }
    m_time = SplitSeconds(seconds);
    if (repaint)
        m_view.InvalidateTimeDisplay();
}

void PlayerPosition::ResetToStart(bool repaintMarker) {
    SetTimeDisplay(0, true);
    if (repaintMarker)
        m_view.InvalidateRemainingMarker();
    m_bar.thumbX = m_bar.left;
    m_view.InvalidateSeekThumb();
}

void PlayerPosition::ToggleRemainingTime() {
    m_remaining = !m_remaining;
    SetTimeDisplay(-1, true);
    m_view.InvalidateRemainingMarker();
}

void PlayerPosition::PressThumb() {
    if (m_bar.drag != SeekDrag::kBlocked)
        m_bar.drag = SeekDrag::kActive;
}

void PlayerPosition::PressBar(int mouseX) {
    m_bar.thumbX = m_bar.ThumbForMouse(mouseX);
    m_view.InvalidateSeekThumb();
    m_view.SetMouseCapture(true);
    m_bar.captured = true;
}

void PlayerPosition::DragTo(int mouseX) {
    if (m_bar.drag != SeekDrag::kActive)
        return;
    int x = m_bar.ThumbForMouse(mouseX);
    if (x == m_bar.thumbX)
        return;
    m_bar.thumbX = x;
    m_view.InvalidateSeekThumb();
}

void PlayerPosition::Release(int mouseX) {
    if (m_bar.captured) {
        m_view.SetMouseCapture(false);
        m_bar.captured = false;
    }
    if (m_bar.drag != SeekDrag::kActive)
        return;
    m_bar.drag = SeekDrag::kIdle;
    m_bar.thumbX = m_bar.ThumbForMouse(mouseX);
    double duration = 0;
    GetDurationSeconds(duration);
    double target = duration * m_bar.FractionForThumb(m_bar.thumbX);
    if (m_engine.State() != kPlayStatePlaying)
        SetTimeDisplay(static_cast<std::int64_t>(target), false);
    SeekToSeconds(target);
    m_view.InvalidateAll(true);
    m_view.UpdateNow();
}

void PlayerPosition::SeekKeyDown(int key) {
    m_heldKey = key;
    if (m_engine.State() == kPlayStateStopped)
        m_engine.PlayCommand(true);
    else if (m_engine.State() == kPlayStatePaused)
        m_engine.TogglePause();
    if (m_engine.State() != kPlayStatePlaying)
        return;
    SeekStep(key == kKeySeekForward);
    if (!m_view.TimerRunning(kTimerPressHold))
        m_view.StartTimer(kTimerSeekHold, kTimerPeriodMs);
}

void PlayerPosition::SeekHoldTick() {
    if (m_engine.State() != kPlayStatePlaying)
        return;
    if (m_heldKey == kKeySeekForward)
        SeekStep(true);
    else if (m_heldKey == kKeySeekBack)
        SeekStep(false);
}

void PlayerPosition::SeekKeyUp() {
    m_view.StopTimer(kTimerSeekHold);
    m_heldKey = 0;
}

} // namespace zelvor
