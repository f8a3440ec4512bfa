#include "playback/media_time.h"

#include <cmath>

namespace zelvor {

std::int64_t MediaTimeOf(double seconds) {
    // The largest whole-second count whose media time fits in 64 bits.
    constexpr double kLimit = 9.2e11;
    if (std::isnan(seconds))
        return 0;
    if (seconds > kLimit)
        seconds = kLimit;
    if (seconds < -kLimit)
        seconds = -kLimit;
    auto whole = static_cast<std::int64_t>(seconds);
    auto fraction = static_cast<std::int64_t>((seconds - static_cast<double>(whole)) *
                                              static_cast<double>(kMediaTimePerSecond));
    return whole * kMediaTimePerSecond + fraction;
}

} // namespace zelvor
