#pragma once
// How each demo file is made: the ffmpeg command that encodes its sound (or
// draws its picture) into a work file, and the hand-built tags added around
// what the encoder wrote.
//
// Every command asks for bit-exact output and drops all metadata before
// adding the file's own, so a run gives the same bytes as the last one.

#include "tools/zelvor_demo/demo_catalog.h"
#include "tools/zelvor_demo/id3_builder.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace zelvor::demo {

// False for files written without an encoder (notes.txt).
bool NeedsEncoder(FileKind kind);

// One output of an ffmpeg run: the filter graph that makes its sound or
// picture (ending in the pad "[label]") and the options of its output file.
struct EncodeTarget {
    std::string graph;
    std::string label;
    std::vector<std::string> options; // everything between -map and the file name
    std::filesystem::path output;
};

// label must be unique within one run ("o0", "o1", ...).
EncodeTarget TargetFor(const DemoFile& file, const std::filesystem::path& output,
                       const std::string& label);

// A 16-bit PCM wave file with a two-note chime (Hz), shorter than half a second.
EncodeTarget ChimeTarget(double firstHz, double secondHz, const std::filesystem::path& output,
                         const std::string& label);

// One ffmpeg command that makes every target. Starting ffmpeg costs more
// than encoding a short track, so the files of a folder share one run.
std::vector<std::string> EncodeCommand(const std::filesystem::path& ffmpeg,
                                       const std::vector<EncodeTarget>& targets);

// The file's final bytes from what the encoder wrote: ID3v2.2 put in front of
// an untagged MP3 stream, an ID3v1.1 tag where ffmpeg's own would hold UTF-8,
// ID3v2.3 and ID3v1.1 around a tagged ADTS stream. nullopt when a tag value
// does not fit its field.
std::optional<Bytes> FinishFile(const DemoFile& file, Bytes encoded);

// The text of notes.txt (UTF-8).
Bytes NotesText();

} // namespace zelvor::demo
