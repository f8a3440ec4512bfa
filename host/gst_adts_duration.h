#pragma once
// The playing time of an ADTS (raw AAC) file, for the graph to report at
// once: GStreamer's parser only estimates it after playing a while, and a
// track whose duration reads as 0 cannot be sought or paused on the player.
// Counts every frame (1024 samples per raw block) from the first ADTS header
// after any leading ID3v2 tag; the decoded length, not an estimate.

#include <cstdint>
#include <filesystem>
#include <optional>

namespace zelvor {

// 100-ns units; nullopt when the file does not start (after an ID3v2 tag)
// with an ADTS frame or cannot be read.
std::optional<std::int64_t> AdtsDuration(const std::filesystem::path& file);

} // namespace zelvor
