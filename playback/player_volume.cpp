#include "playback/player_volume.h"

namespace zelvor {

void PlayerVolume::Restore(int index, bool muted) {
    // The index comes from the profile, which anyone can edit: it indexes a
    // table, so a value outside it falls back to the default.
    m_index = (index >= 0 && index < kVolumeSteps) ? index : kDefaultVolumeIndex;
    m_muted = muted;
}

void PlayerVolume::VolumeStep(bool up) {
    if (m_muted)
        ToggleMute();
    if (up && m_index < kVolumeSteps - 1)
        ++m_index;
    else if (!up && m_index > 0)
        --m_index;
    if (MediaGraph* audio = m_slots.BasicAudio())
        audio->PutVolume(kVolumeTable[m_index]); // result ignored
    m_view.InvalidateVolume();
}

void PlayerVolume::ToggleMute() {
    m_muted = !m_muted;
    m_view.InvalidateAll(false);
    if (MediaGraph* audio = m_slots.BasicAudio())
        audio->PutVolume(Value()); // result ignored
}

} // namespace zelvor
