#pragma once
// A PlayerView that records what the core asked of the screen. Text widths
// are 6 pixels a character, the title area 120 pixels.

#include <map>
#include <string>
#include <vector>

#include "playback/player_view.h"

namespace zelvor::testing {

class RecordingPlayerView : public PlayerView {
public:
    void InvalidateButton(int) override {}
    void InvalidateSeekThumb() override {}
    void InvalidateTimeDisplay() override { ++timeRepaints; }
    void InvalidateRemainingMarker() override { ++markerRepaints; }
    void InvalidateVolume() override { ++volumeRepaints; }
    void InvalidateAll(bool erase) override { erasedRepaints += erase ? 1 : 0; }
    void UpdateNow() override { ++updates; }
    void TrackTextsChanged() override {}
    void PlayStateChanged(std::int32_t state) override { states.push_back(state); }
    void Beep() override { ++beeps; }
    void FocusPlayer() override { ++focusRequests; }
    void SetWaitCursor(bool on) override { waitCursor.push_back(on); }
    int MeasureTitleText(std::u16string_view text) override {
        return static_cast<int>(text.size()) * 6;
    }
    int TitleAreaWidth() override { return 120; }
    void StartTimer(int id, int periodMs) override { timers[id] = periodMs; }
    void StopTimer(int id) override { timers.erase(id); }
    bool TimerRunning(int id) override { return timers.count(id) > 0; }
    void SetMouseCapture(bool captured) override { mouseCaptured = captured; }

    std::vector<std::int32_t> states;
    std::vector<bool> waitCursor;
    std::map<int, int> timers; // running timers: id -> period
    int timeRepaints = 0, markerRepaints = 0, volumeRepaints = 0, erasedRepaints = 0;
    int updates = 0, beeps = 0, focusRequests = 0;
    bool mouseCaptured = false;
};

} // namespace zelvor::testing
