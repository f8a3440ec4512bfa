#pragma once
// Durable replacement of a host file: what every file the program writes
// (library, playlists, registry hives) goes through, so that a crash or a
// pulled card leaves either the old file or the new one, never a torn one.

#include <cstddef>
#include <filesystem>
#include <span>

namespace zelvor {

// Writes data to a temporary file beside target, fsyncs it, renames it over
// target and fsyncs the folder. On failure the temporary file is removed and
// target is left untouched. Temporary files of the same target that a killed
// writer left behind are removed first.
bool WriteFileDurably(const std::filesystem::path& target, std::span<const std::byte> data);

} // namespace zelvor
