#pragma once
// The device's clocks: a millisecond tick count and the local wall time.

#include <cstdint>

namespace zelvor {

// Milliseconds since an arbitrary start, monotonic; wraps after 49.7 days as
// the device's GetTickCount does, so callers compare differences.
std::uint32_t GetTickCount();

// The device's SYSTEMTIME, in local time. dayOfWeek: 0 = Sunday.
struct LocalTime {
    std::uint16_t year = 0;
    std::uint16_t month = 0; // 1-12
    std::uint16_t dayOfWeek = 0;
    std::uint16_t day = 0; // 1-31
    std::uint16_t hour = 0;
    std::uint16_t minute = 0;
    std::uint16_t second = 0;
    std::uint16_t milliseconds = 0;
};

LocalTime GetLocalTime();

} // namespace zelvor
