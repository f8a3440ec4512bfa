#pragma once
// The benchmark's corpus: a few hundred files per format, made from a
// handful of ffmpeg encodings (different lengths, rates and tag layouts)
// copied under distinct names. Made once in the build tree and kept.

#include <filesystem>
#include <string>
#include <vector>

namespace zelvor::bench {

struct Corpus {
    std::filesystem::path folder; // holds mp3/, wma/ and aac/
    std::vector<std::string> mp3; // names relative to folder, "mp3/0001.mp3"
    std::vector<std::string> wma;
    std::vector<std::string> aac;
};

// Makes what is missing; false when ffmpeg failed.
bool PrepareCorpus(Corpus& corpus, int filesPerFormat);

} // namespace zelvor::bench
