#pragma once
// The media player's buffering time, a system-wide setting the player fixes
// at 3000 when its screen is created and never restores. GStreamer buffers
// only network streams, so local playback here does not depend on it; the
// value is kept for the device's other players, which read it.

#include <cstdint>
#include <string_view>

namespace zelvor {

constexpr std::u16string_view kBufferingTimeKey = u"SOFTWARE\\Microsoft\\Netshow\\Player\\General";
constexpr std::u16string_view kBufferingTimeValue = u"Buffering Time";
constexpr std::uint32_t kBufferingTime = 3000;

// HKEY_LOCAL_MACHINE's value; a missing key or value, or one that is not a
// DWORD, reads as 2.
std::uint32_t ReadBufferingTime();
// Writes the DWORD (creating the key) and flushes the hive.
void WriteBufferingTime(std::uint32_t value);
// Writes 3000 unless that is what is there already.
void FixBufferingTime();

} // namespace zelvor
