#pragma once
// The program's random numbers: the C runtime's rand() of the device, never
// seeded. Every run draws the same sequence, on every host, so each run of
// the player produces the same sequence of shuffled orders; that is kept on
// purpose.
//
// The generator is the classic linear congruential one of that runtime:
// state = state x 214013 + 2531011 (mod 2^32), starting from 1, and each
// draw is bits 16-30 of the new state (0 to 32767). The first draws are
// 41, 18467, 6334, 26500, 19169.

#include <cstdint>

namespace zelvor {

constexpr int kRandMax = 0x7FFF;

class ShuffleRandom {
public:
    int Next() {
        m_state = m_state * 214013u + 2531011u;
        return static_cast<int>((m_state >> 16) & kRandMax);
    }

private:
    std::uint32_t m_state = 1;
};

// The process's one generator (rand() is process-wide). UI thread only.
ShuffleRandom& ProgramRandom();

} // namespace zelvor
