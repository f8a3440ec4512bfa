#pragma once
// The host services the player screen uses, given when it is made. Each one
// left empty is made by the screen itself with the host's own stand-in
// (sounds through GStreamer, power from sysfs, xset for the idle timer and
// the display, the process clocks); tests pass fakes. Given services are
// borrowed and must outlive the screen.

#include <cstdint>
#include <functional>

#include "platform/clock.h"
#include "host/display_power.h"
#include "host/host_sounds.h"
#include "host/idle_timer.h"
#include "host/power_status.h"

namespace zelvor {

struct PlayerScreenHost {
    SoundPlayer* sounds = nullptr;
    IdleTimer* idle = nullptr;
    DisplayPower* display = nullptr;
    PowerSource* power = nullptr;
    std::function<std::uint32_t()> tickCount; // GetTickCount when empty
    std::function<LocalTime()> localTime;     // GetLocalTime when empty
};

} // namespace zelvor
