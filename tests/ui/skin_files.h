#pragma once
// The colour bundles the build made (ZELVOR_SKIN_DIR/<name>, e.g.
// "ZelvorBlue.rcc"), for tests that load real skins.

#include <cstddef>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace zelvor::testing {

inline std::vector<std::byte> ReadBuiltSkin(const std::string& name) {
    std::ifstream in(std::string(ZELVOR_SKIN_DIR) + "/" + name, std::ios::binary);
    std::vector<std::byte> bytes;
    for (std::istreambuf_iterator<char> it(in), end; it != end; ++it)
        bytes.push_back(static_cast<std::byte>(*it));
    return bytes;
}

} // namespace zelvor::testing
