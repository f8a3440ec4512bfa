#include "skin_files.h"

#include <fstream>
#include <iterator>

namespace zelvor::testing {

std::string BuiltSkinPath(const std::string& name) {
    return std::string(ZELVOR_SKIN_DIR) + "/" + name;
}

std::vector<std::byte> ReadBuiltSkin(const std::string& name) {
    std::ifstream in(BuiltSkinPath(name), std::ios::binary);
    const std::vector<char> chars((std::istreambuf_iterator<char>(in)),
                                  std::istreambuf_iterator<char>());
    std::vector<std::byte> bytes(chars.size());
    for (std::size_t i = 0; i < chars.size(); ++i) {
        bytes[i] = static_cast<std::byte>(chars[i]);
    }
    return bytes;
}

} // namespace zelvor::testing
