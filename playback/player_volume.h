#pragma once
// The player's volume: an index 0-10 into the volume table and a separate
// mute flag. Values given to the graph are hundredths of a decibel.
//
// The steps are 4 dB apart except the first, which jumps from silence
// straight to -40 dB. Changes made with no graph are kept and applied when
// the next graph is built or started.

#include <array>
#include <cstdint>

#include "playback/graph_slots.h"
#include "playback/player_view.h"

namespace zelvor {

constexpr int kVolumeSteps = 11;
constexpr int kDefaultVolumeIndex = 5;
constexpr std::int32_t kSilence = -10000;
constexpr std::array<std::int32_t, kVolumeSteps> kVolumeTable = {
    -10000, -4000, -3600, -3200, -2800, -2400, -2000, -1600, -1200, -800, 0,
};

class PlayerVolume {
public:
    // The slots and view outlive this object.
    PlayerVolume(GraphSlots& graphSlots, PlayerView& view) : m_slots(graphSlots), m_view(view) {}

    int Index() const { return m_index; }
    bool Muted() const { return m_muted; }
    // Settings read at start; an index outside 0-10 becomes the default.
    void Restore(int index, bool muted);

    // What the graph is given: silence when muted, else the table's value.
    std::int32_t Value() const { return m_muted ? kSilence : kVolumeTable[m_index]; }
    // The table's value for the index, mute or not.
    std::int32_t TableValue() const { return kVolumeTable[m_index]; }

    // One step up (at most 10) or down (at least 0); a step while muted
    // unmutes first. The basic-audio slot, when set, gets the new value.
    void VolumeStep(bool up);
    // Flips mute and sends -10000 or the table's value to the graph.
    void ToggleMute();

private:
    GraphSlots& m_slots;
    PlayerView& m_view;
    int m_index = kDefaultVolumeIndex;
    bool m_muted = false;
};

} // namespace zelvor
