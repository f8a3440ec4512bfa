#pragma once
// Makes a demo device: a device root with the standard layout, a small music
// collection synthesized with ffmpeg, the shell's text file and registry
// values, the two sounds of "\Windows", the skins when they have been built,
// and a manifest of the files written (see manifest.h).

#include <filesystem>
#include <optional>
#include <string>

namespace zelvor::demo {

struct DemoOptions {
    std::filesystem::path root;                 // the device root to make
    std::optional<std::filesystem::path> skins; // folder with Zelvor*.rcc, if any
    bool force = false;                         // remove an existing device root first
    int parallelJobs = 0; // ffmpeg processes at once; 0: one per core, at most four
};

// True when the device was made. Otherwise *error holds one line saying why.
// An existing root is refused without force; with force it is removed only
// once every file has been encoded, and only when it looks like a device
// root (or is empty). A root this call began to make is removed on failure.
[[nodiscard]] bool MakeDemoDevice(const DemoOptions& options, std::string* error);

} // namespace zelvor::demo
