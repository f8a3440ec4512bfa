#include "playback/buffering_time.h"

#include "platform/device.h"

namespace zelvor {

std::uint32_t ReadBufferingTime() {
    constexpr std::uint32_t kUnreadable = 2;
    return CurrentDevice()
        .Registry()
        .QueryDword(RegistryRoot::LocalMachine, kBufferingTimeKey, kBufferingTimeValue)
        .value_or(kUnreadable);
}

void WriteBufferingTime(std::uint32_t value) {
    RegistryStore& registry = CurrentDevice().Registry();
    registry.SetDword(RegistryRoot::LocalMachine, kBufferingTimeKey, kBufferingTimeValue, value);
    registry.Flush(RegistryRoot::LocalMachine);
}

void FixBufferingTime() {
    if (ReadBufferingTime() != kBufferingTime)
        WriteBufferingTime(kBufferingTime);
}

} // namespace zelvor
