#include "ui/rules/skin/resource_bundle_check.h"

#include <gtest/gtest.h>
#include <cstdint>

#include "skin_files.h"

namespace zelvor {
namespace {

using testing::ReadBuiltSkin;

std::uint32_t Get32(const std::vector<std::byte>& b, std::size_t at) {
    std::uint32_t v = 0;
    for (std::size_t i = 0; i < 4; ++i)
        v = (v << 8) | std::to_integer<std::uint32_t>(b[at + i]);
    return v;
}

void Put32(std::vector<std::byte>& b, std::size_t at, std::uint32_t v) {
    for (std::size_t i = 0; i < 4; ++i)
        b[at + i] = static_cast<std::byte>(v >> (24 - 8 * i));
}

// A real bundle made by rcc, and the places in it the faults go to.
class ResourceBundleCheckTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_bundle = ReadBuiltSkin("ZelvorRed.rcc");
        ASSERT_GT(m_bundle.size(), 1000u);
        ASSERT_GE(Get32(m_bundle, 4), 2u); // nodes of 22 bytes
        m_tree = Get32(m_bundle, 8);
        // The bitmaps lie directly under the root: its first child is a file.
        m_firstFile = m_tree + 22 * Get32(m_bundle, m_tree + 10);
    }
    std::vector<std::byte> m_bundle;
    std::size_t m_tree = 0;
    std::size_t m_firstFile = 0;
};

TEST_F(ResourceBundleCheckTest, AcceptsEveryBundleTheBuildMade) {
    for (const char* name :
         {"ZelvorBlue.rcc", "ZelvorRed.rcc", "ZelvorOrange.rcc", "ZelvorGreen.rcc"})
        EXPECT_TRUE(IsValidResourceBundle(ReadBuiltSkin(name))) << name;
}

TEST_F(ResourceBundleCheckTest, RefusesATruncatedBundle) {
    for (std::size_t length : {std::size_t{0}, std::size_t{3}, std::size_t{19}, std::size_t{23},
                               m_tree, m_bundle.size() / 2, m_bundle.size() - 1}) {
        const std::vector<std::byte> cut(m_bundle.begin(),
                                         m_bundle.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_FALSE(IsValidResourceBundle(cut)) << "cut at " << length;
    }
}

// One 32-bit word changed in each: the header, the tree's nodes, and the
// lengths stored before a file's data and before its name.
TEST_F(ResourceBundleCheckTest, RefusesForgedWords) {
    const std::size_t blob = Get32(m_bundle, 12) + Get32(m_bundle, m_firstFile + 10);
    const std::size_t name = Get32(m_bundle, 16) + Get32(m_bundle, m_firstFile);
    struct Fault {
        const char* what;
        std::size_t at;
        std::uint32_t value;
    };
    for (const Fault& f : {
             Fault{"magic", 0, 0x71726574},
             Fault{"version 0", 4, 0},
             Fault{"version 4", 4, 4},
             Fault{"tree past the end", 8, 0xFFFFFFF0},
             Fault{"data past the end", 12, 0x7FFFFFFF},
             Fault{"names past the end", 16, 0x7FFFFFFF},
             Fault{"unknown flags", 20, 0x80},
             Fault{"root's children start at the root", m_tree + 10, 0},
             Fault{"more children than nodes", m_tree + 6, 0x7FFFFFFF},
             Fault{"children run past the tree", m_tree + 10, 0x00FFFFFF},
             Fault{"name offset past the names", m_firstFile, 0x7FFFFF00},
             Fault{"data offset past the data", m_firstFile + 10, 0x7FFFFF00},
             Fault{"data length overruns the file", blob, std::uint32_t(m_bundle.size())},
             // The name's 16-bit length, its hash kept.
             Fault{"name length overruns the file", name, 0xFFFF0000 | (Get32(m_bundle, name) & 0xFFFF)},
         }) {
        auto forged = m_bundle;
        Put32(forged, f.at, f.value);
        EXPECT_FALSE(IsValidResourceBundle(forged)) << f.what;
    }
}

} // namespace
} // namespace zelvor
