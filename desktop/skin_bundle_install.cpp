#include "desktop/skin_bundle_install.h"

#include <system_error>

#include "platform/text.h"
#include "ui/rules/skin/skin_choice.h"

namespace zelvor {
namespace fs = std::filesystem;
namespace {

constexpr std::uint16_t kFirstBundleColour = 1;
constexpr std::uint16_t kLastBundleColour = 4;

bool CopyBundle(const fs::path& from, const fs::path& to) {
    fs::path part = to;
    part += ".part";
    std::error_code ec;
    if (!fs::copy_file(from, part, fs::copy_options::overwrite_existing, ec)) {
        fs::remove(part, ec);
        return false;
    }
    fs::rename(part, to, ec);
    if (ec)
        fs::remove(part, ec);
    return !ec;
}

} // namespace

std::vector<fs::path> InstalledSkinFolders(const fs::path& programFolder) {
    const fs::path parent = programFolder.parent_path();
    return {parent / "share" / "zelvor" / "skins", parent / "skins"};
}

int ProvideSkinBundles(const fs::path& target, const std::vector<fs::path>& sources) {
    std::error_code ec;
    if (!fs::is_directory(target, ec))
        return 0;
    int copied = 0;
    for (std::uint16_t colour = kFirstBundleColour; colour <= kLastBundleColour; ++colour) {
        const fs::path name = ToUtf8(SkinModuleFileName(colour));
        if (fs::exists(target / name, ec))
            continue;
        for (const fs::path& source : sources) {
            if (fs::is_regular_file(source / name, ec)) {
                copied += CopyBundle(source / name, target / name) ? 1 : 0;
                break;
            }
        }
    }
    return copied;
}

} // namespace zelvor
