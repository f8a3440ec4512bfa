#include "playback/player_settings.h"

#include "config/settings.h"
#include "res/string_table.h"

namespace zelvor {
namespace {

constexpr std::u16string_view kVolumeSection = u"MP3";
constexpr std::u16string_view kVolumeEntry = u"Volume";

} // namespace

PlayerSettings LoadPlayerSettings() {
    PlayerSettings defaults;
    PlayerSettings settings;
    std::uint32_t random = GetProfileNumber(kTextSectionMain, kTextEntryRandom, 0);
    std::uint32_t repeat = GetProfileNumber(kTextSectionMain, kTextEntryRepeat, 0);
    std::uint32_t mute = GetProfileNumber(kTextSectionMain, kTextEntryMute, 0);
    std::uint32_t volume = GetProfileNumber(kVolumeSection, kVolumeEntry, 5);
    // Flags are "not zero"; the repeat mode and volume index select images
    // and table rows, so anything out of range becomes the default.
    settings.random = random != 0;
    settings.muted = mute != 0;
    settings.repeatMode = repeat <= 2 ? static_cast<int>(repeat) : defaults.repeatMode;
    settings.volumeIndex = volume <= 10 ? static_cast<int>(volume) : defaults.volumeIndex;
    return settings;
}

void SavePlayerSettings(const PlayerSettings& settings) {
    SetProfileNumber(kVolumeSection, kVolumeEntry, static_cast<std::uint32_t>(settings.volumeIndex));
    SetProfileNumber(kTextSectionMain, kTextEntryRandom, settings.random ? 1 : 0);
    SetProfileNumber(kTextSectionMain, kTextEntryRepeat,
                     static_cast<std::uint32_t>(settings.repeatMode));
    SetProfileNumber(kTextSectionMain, kTextEntryMute, settings.muted ? 1 : 0);
}

} // namespace zelvor
