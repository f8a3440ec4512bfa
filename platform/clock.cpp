#include "platform/clock.h"

#include <chrono>
#include <ctime>

namespace zelvor {

std::uint32_t GetTickCount() {
    using namespace std::chrono;
    auto ms = duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
    return static_cast<std::uint32_t>(ms);
}

LocalTime GetLocalTime() {
    using namespace std::chrono;
    auto now = system_clock::now();
    std::time_t seconds = system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&seconds, &local);
    LocalTime t;
    t.year = static_cast<std::uint16_t>(local.tm_year + 1900);
    t.month = static_cast<std::uint16_t>(local.tm_mon + 1);
    t.dayOfWeek = static_cast<std::uint16_t>(local.tm_wday);
    t.day = static_cast<std::uint16_t>(local.tm_mday);
    t.hour = static_cast<std::uint16_t>(local.tm_hour);
    t.minute = static_cast<std::uint16_t>(local.tm_min);
    t.second = static_cast<std::uint16_t>(local.tm_sec);
    t.milliseconds = static_cast<std::uint16_t>(
        duration_cast<milliseconds>(now.time_since_epoch()).count() % 1000);
    return t;
}

} // namespace zelvor
