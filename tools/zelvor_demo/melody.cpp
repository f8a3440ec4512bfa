#include "tools/zelvor_demo/melody.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <span>

namespace zelvor::demo {
namespace {

// A splitmix64 sequence: the same tune for the same seed on every host, and
// well mixed even for neighbouring seeds (a plain LCG's low bits are not).
class Dice {
public:
    explicit Dice(unsigned seed) : m_state(seed) {}
    unsigned Roll(unsigned sides) {
        m_state += 0x9E3779B97F4A7C15ull;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        z ^= z >> 31;
        return static_cast<unsigned>((z >> 32) % sides);
    }

private:
    std::uint64_t m_state;
};

constexpr std::array<int, 7> kMajor{0, 2, 4, 5, 7, 9, 11};
constexpr std::array<int, 7> kMinor{0, 2, 3, 5, 7, 8, 10};
constexpr std::array<int, 7> kDorian{0, 2, 3, 5, 7, 9, 10};
constexpr std::array<int, 5> kPentatonic{0, 2, 4, 7, 9};

// Notes per second; each gives a phrase of eight notes that is a whole
// number of samples long at 22,050 and 44,100 Hz, so the loop never drifts.
constexpr std::array<double, 4> kTempos{2.0, 2.5, 4.0, 5.0};
constexpr int kNotesPerPhrase = 8;

std::string Num(double value) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.4f", value);
    return buffer;
}

double NoteHz(double midiNote) {
    return 440.0 * std::pow(2.0, (midiNote - 69.0) / 12.0);
}

std::span<const int> ScaleOf(unsigned pick) {
    switch (pick) {
    case 0:
        return kMajor;
    case 1:
        return kMinor;
    case 2:
        return kDorian;
    default:
        return kPentatonic;
    }
}

// The frequency of the note playing at t: a chain of if() over the note's
// index in the phrase, which the caller keeps in variable 1.
std::string FrequencyExpression(Dice& dice, int root, std::span<const int> scale) {
    std::string index = "ld(1)";
    std::string chain;
    std::string closing;
    for (int note = 0; note < kNotesPerPhrase; ++note) {
        unsigned degree = note == 0 ? 0 : dice.Roll(static_cast<unsigned>(scale.size() * 2));
        int semitone = scale[degree % scale.size()] + 12 * static_cast<int>(degree / scale.size());
        std::string hz = Num(NoteHz(root + semitone));
        if (note + 1 == kNotesPerPhrase) {
            chain += hz;
        } else {
            chain += "if(eq(" + index + "," + std::to_string(note) + ")," + hz + ",";
            closing += ")";
        }
    }
    return chain + closing;
}

} // namespace

std::string MelodyGraph(const MelodyParams& params, const std::string& label) {
    Dice dice(params.seed);
    int root = 55 + static_cast<int>(dice.Roll(12)); // G3 .. F#4
    std::span<const int> scale = ScaleOf(dice.Roll(4));
    double tempo = kTempos[dice.Roll(kTempos.size())];
    double decay = 2.0 + dice.Roll(5);
    double overtone = 0.1 * dice.Roll(4);
    std::string f = FrequencyExpression(dice, root, scale);

    // Within a note: x runs from 0 to the note's length; a fast attack and a
    // fast release around an exponential decay keep the note changes silent.
    double noteLength = 1.0 / tempo;
    std::string x = "mod(t," + Num(noteLength) + ")";
    std::string envelope = "min(1," + x + "*60)*min(1,(" + Num(noteLength) + "-" + x +
                           ")*60)*exp(-" + Num(decay) + "*" + x + ")";
    // Variable 1 holds the note's index in the phrase, variable 0 its
    // frequency: worked out once per sample, the chain of if() is the dearest
    // part of the expression.
    std::string setF = "st(1,mod(floor(t*" + Num(tempo) + ")," + std::to_string(kNotesPerPhrase) +
                       "));st(0," + f + ");";
    std::string lead =
        "0.45*(sin(2*PI*ld(0)*t)+" + Num(overtone) + "*sin(4*PI*ld(0)*t))*" + envelope;
    std::string pad = "0.13*sin(2*PI*" + Num(NoteHz(root - 12)) + "*t)+0.08*sin(2*PI*" +
                      Num(NoteHz(root - 5)) + "*t)";
    std::string exprs = setF + lead + "+" + pad;

    int phraseSamples =
        static_cast<int>(std::lround(kNotesPerPhrase * noteLength * params.sampleRate));
    std::string rate = std::to_string(params.sampleRate);
    std::string graph = "aevalsrc=exprs='" + exprs + "':s=" + rate +
                        ":d=" + Num(kNotesPerPhrase * noteLength) +
                        ",aloop=loop=-1:size=" + std::to_string(phraseSamples) +
                        ",atrim=duration=" + std::to_string(params.seconds);
    std::string fade = "afade=t=out:st=" + Num(params.seconds - 0.5) + ":d=0.5";
    if (params.frameSamples > 0)
        fade += ",asetnsamples=n=" + std::to_string(params.frameSamples) + ":p=0";
    if (!params.hiss)
        return graph + "," + fade + "[" + label + "]";
    std::string tune = "[" + label + "tune]", hiss = "[" + label + "hiss]";
    return graph + tune + ";anoisesrc=d=" + std::to_string(params.seconds) + ":c=pink:r=" + rate +
           ":a=0.03:seed=" + std::to_string(params.seed) + hiss + ";" + tune + hiss +
           "amix=inputs=2:normalize=0," + fade + "[" + label + "]";
}

std::string ChimeGraph(double firstHz, double secondHz, int sampleRate, const std::string& label) {
    // The second note starts while the first still rings, as on a bell.
    constexpr double kSecondStart = 0.12;
    constexpr double kLength = 0.40;
    std::string first = "0.25*sin(2*PI*" + Num(firstHz) + "*t)*exp(-14*t)*min(1,t*400)";
    std::string later = "(t-" + Num(kSecondStart) + ")";
    std::string second = "0.25*gte(t," + Num(kSecondStart) + ")*sin(2*PI*" + Num(secondHz) +
                         "*t)*exp(-10*" + later + ")*min(1," + later + "*400)";
    return "aevalsrc=exprs='" + first + "+" + second + "':s=" + std::to_string(sampleRate) +
           ":d=" + Num(kLength) + ",afade=t=out:st=" + Num(kLength - 0.06) + ":d=0.06[" + label +
           "]";
}

std::string CoverGraph(unsigned seed, const std::string& label) {
    Dice dice(seed);
    char colour[16];
    std::snprintf(colour, sizeof colour, "0x%02X%02X%02X", 40 + dice.Roll(160), 40 + dice.Roll(160),
                  40 + dice.Roll(160));
    return std::string("color=c=") + colour +
           ":s=96x96:d=1,drawbox=y=60:h=18:color=black@0.5:t=fill[" + label + "]";
}

} // namespace zelvor::demo
