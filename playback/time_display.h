#pragma once
// The elapsed or remaining time the player shows: hours, minutes and
// seconds, each a 16-bit number, split from whole seconds.

#include <cstdint>

namespace zelvor {

struct TimeDisplay {
    std::int16_t hours = 0;
    std::int16_t minutes = 0;
    std::int16_t seconds = 0;

    bool operator==(const TimeDisplay&) const = default;
};

// Minutes and seconds by integer division (truncating toward zero); hours
// only once the minutes reach 60. 3725 gives 1:02:05.
TimeDisplay SplitSeconds(std::int64_t value);

} // namespace zelvor
