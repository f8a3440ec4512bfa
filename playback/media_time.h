#pragma once
// Conversions between media times (signed 64-bit counts of 100-ns units) and
// the seconds the player shows and seeks to.

#include <cstdint>

namespace zelvor {

constexpr std::int64_t kMediaTimePerSecond = 10'000'000;

// Whole seconds, truncated toward zero in integer arithmetic, as a double.
constexpr double WholeSecondsOf(std::int64_t mediaTime) {
    return static_cast<double>(mediaTime / kMediaTimePerSecond);
}

// The media time of a seek target: whole seconds and the fraction converted
// separately, each truncated toward zero, so 2.5 s is exactly 25,000,000.
// Targets beyond the 64-bit range are clamped rather than overflowing.
std::int64_t MediaTimeOf(double seconds);

} // namespace zelvor
