#pragma once
// A device root made on a desktop starts without the colour bundles the
// device would carry in its program directory. The installed program ships
// them in share/zelvor/skins (the build tree in skins/); each start fills in
// the ones the program directory lacks, so every colour of the settings
// works without set-up. A bundle already there, perhaps the user's own, is
// never replaced.

#include <filesystem>
#include <vector>

namespace zelvor {

// Where the bundles can be for a program in `programFolder` (a host folder),
// first match first: <prefix>/share/zelvor/skins for an installed program,
// then <build>/skins for one run from its build tree's bin/.
std::vector<std::filesystem::path> InstalledSkinFolders(const std::filesystem::path& programFolder);

// Copies every colour bundle missing from `target` from the first of
// `sources` that holds it. A copy is written beside its final name and
// renamed, so an interrupted start never leaves half a bundle. Returns how
// many were copied; a missing target folder gets none.
int ProvideSkinBundles(const std::filesystem::path& target,
                       const std::vector<std::filesystem::path>& sources);

} // namespace zelvor
