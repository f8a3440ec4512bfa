#pragma once
// The colour bundles the build made, for tests that load real skins.

#include <cstddef>
#include <string>
#include <vector>

namespace zelvor::testing {

// ZELVOR_SKIN_DIR/<name>, e.g. "ZelvorBlue.rcc".
std::string BuiltSkinPath(const std::string& name);
std::vector<std::byte> ReadBuiltSkin(const std::string& name);

} // namespace zelvor::testing
