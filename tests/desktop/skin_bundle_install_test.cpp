#include "desktop/skin_bundle_install.h"

#include <fstream>
#include <gtest/gtest.h>

#include "tests/support/test_device.h"

namespace zelvor {
namespace {
namespace fs = std::filesystem;

void Write(const fs::path& file, const std::string& bytes) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
}

std::string Read(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST(ProvideSkinBundles, FillsInOnlyWhatIsMissingFromTheFirstSourceHoldingIt) {
    testing::TempDir dir;
    const fs::path target = dir.Path() / "program";
    const fs::path installed = dir.Path() / "installed";
    const fs::path build = dir.Path() / "build";
    fs::create_directories(target);
    Write(installed / "ZelvorBlue.rcc", "installed blue");
    Write(build / "ZelvorBlue.rcc", "build blue");
    Write(build / "ZelvorRed.rcc", "build red");
    Write(build / "ZelvorOrange.rcc", "build orange");
    Write(target / "ZelvorOrange.rcc", "the user's orange");

    EXPECT_EQ(ProvideSkinBundles(target, {installed, dir.Path() / "absent", build}), 2);
    EXPECT_EQ(Read(target / "ZelvorBlue.rcc"), "installed blue");
    EXPECT_EQ(Read(target / "ZelvorRed.rcc"), "build red");
    EXPECT_EQ(Read(target / "ZelvorOrange.rcc"), "the user's orange");
    EXPECT_FALSE(fs::exists(target / "ZelvorGreen.rcc"));
    EXPECT_FALSE(fs::exists(target / "ZelvorBlue.rcc.part"));

    // The next start finds nothing to do but what has turned up since.
    Write(installed / "ZelvorGreen.rcc", "installed green");
    EXPECT_EQ(ProvideSkinBundles(target, {installed, build}), 1);
    EXPECT_EQ(Read(target / "ZelvorGreen.rcc"), "installed green");
}

} // namespace
} // namespace zelvor
