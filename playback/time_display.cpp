#include "playback/time_display.h"

namespace zelvor {

TimeDisplay SplitSeconds(std::int64_t value) {
    TimeDisplay time;
    if (value == 0)
        return time;
    std::int64_t minutes = value / 60;
    time.seconds = static_cast<std::int16_t>(value % 60);
    if (minutes >= 60) {
        time.hours = static_cast<std::int16_t>(minutes / 60);
        minutes %= 60;
    }
    time.minutes = static_cast<std::int16_t>(minutes);
    return time;
}

} // namespace zelvor
