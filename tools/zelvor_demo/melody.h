#pragma once
// Synthesized sound for the demo device: ffmpeg filter graphs (for
// -filter_complex) whose output pad is "[label]"; a graph with inner pads
// names them after the label too, so that several graphs can share one
// -filter_complex.
// Every graph is a pure function of its arguments, so the same track sounds,
// and encodes, the same on every run.

#include <string>

namespace zelvor::demo {

struct MelodyParams {
    unsigned seed = 0; // picks key, scale, tune, tempo and timbre
    int seconds = 5;   // length of the result
    int sampleRate = 44100;
    // Adds quiet pink noise, like tape hiss. The AAC encoder is several times
    // quicker on it than on pure tones, and it keeps a 128 kbit/s stream full.
    bool hiss = false;
    // Samples per frame of the encoder (1152 for MPEG-1 Layer III ...). When
    // several outputs share one ffmpeg run, ffmpeg cannot cut the frames to
    // the encoder's size in time for all of them, so the graph does it.
    int frameSamples = 0;
};

// A little tune of eight notes over a held fifth, looped to the length, with
// a short fade at the end. One channel: the encoder copies it for stereo.
std::string MelodyGraph(const MelodyParams& params, const std::string& label);

// A soft chime of two overlapping sine notes (Hz), 16-bit mono material.
std::string ChimeGraph(double firstHz, double secondHz, int sampleRate, const std::string& label);

// A small flat picture with a darker band, for a folder's cover.jpg.
std::string CoverGraph(unsigned seed, const std::string& label);

} // namespace zelvor::demo
