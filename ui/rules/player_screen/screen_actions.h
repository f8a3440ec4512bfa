#pragma once
// What the player screen's rules ask of the world around them beyond the
// playback core: the frame (browser, hide, menu), the host (display, idle
// timer, battery, clocks) and the repaint of the screen's own status
// elements. The widget implements it; tests record the calls.

#include <cstdint>

#include "platform/clock.h"
#include "ui/rules/player_screen/screen_geometry.h"

namespace zelvor {

class ScreenActions {
public:
    virtual ~ScreenActions() = default;

    // The Library, Hide and Menu buttons.
    virtual void ShowBrowser() = 0;
    virtual void HideFrame() = 0;
    virtual void ShowMenu() = 0;
    // The display-off button; nothing where the host cannot.
    virtual void DisplayOff() = 0;

    // SystemIdleTimerReset.
    virtual void ResetIdleTimer() = 0;
    // GetTickCount, milliseconds; GetLocalTime.
    virtual std::uint32_t TickCount() = 0;
    virtual LocalTime Now() = 0;
    // The battery gauge's level for the current power status (0-5, 100).
    virtual int ReadBatteryLevel() = 0;

    // An element that is not the playback core's changed: repaint it.
    virtual void InvalidateElement(ScreenElement element) = 0;
};

} // namespace zelvor
