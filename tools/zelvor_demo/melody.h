#pragma once
// Synthesized sound for the demo device: ffmpeg filter graphs (for
// -filter_complex) whose output pad is "[out]". Every graph is a pure
// function of its arguments, so the same track sounds, and encodes, the same
// on every run.

#include <string>

namespace zelvor::demo {

struct MelodySpec {
    unsigned seed = 0;   // picks key, scale, tune, tempo and timbre
    int seconds = 5;     // length of the result
    int sampleRate = 44100;
    bool hiss = false;   // adds quiet pink noise (a busier signal for the AAC encoder)
};

// A little tune of eight notes over a held fifth, looped to the length, with
// a short fade at the end. One channel: the encoder copies it for stereo.
std::string MelodyGraph(const MelodySpec& spec);

// A soft chime of two overlapping sine notes (Hz), 16-bit mono material.
std::string ChimeGraph(double firstHz, double secondHz, int sampleRate);

// A small flat picture with a darker band, for a folder's cover.jpg.
std::string CoverGraph(unsigned seed);

} // namespace zelvor::demo
