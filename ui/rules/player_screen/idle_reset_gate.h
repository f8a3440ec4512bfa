#pragma once
// The rhythm of the idle-timer resets: at most one every 50 seconds. The
// first check resets at once, as the device's tick count (counted from its
// boot) is always far past the first 50 seconds when the player starts.
// Tick counts wrap after 49.7 days, so only differences are compared.

#include <cstdint>
#include <optional>

namespace zelvor {

constexpr std::uint32_t kIdleResetIntervalMs = 50000;

class IdleResetGate {
public:
    // True when a reset is due at tick `now`; the reset is then noted.
    bool Due(std::uint32_t now) {
        if (m_last && now - *m_last < kIdleResetIntervalMs)
            return false;
        m_last = now;
        return true;
    }

private:
    std::optional<std::uint32_t> m_last;
};

} // namespace zelvor
