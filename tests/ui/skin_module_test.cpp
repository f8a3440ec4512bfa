#include "ui/widgets/skin/skin_module.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "skin_files.h"
#include "tests/support/test_device.h"
#include "ui/rules/layout/player_layout.h"
#include "ui/rules/layout/skin_catalogue.h"
#include "ui/rules/skin/resource_bundle_check.h"
#include <cstdint>

namespace zelvor {
namespace {

using testing::ReadBuiltSkin;

const char* const kBundles[] = {"ZelvorBlue.rcc", "ZelvorRed.rcc", "ZelvorOrange.rcc",
                                "ZelvorGreen.rcc"};

// The Play button's centre is drawn in the accent, which differs per colour.
QRgb PlayCentre(const SkinHandle& handle) {
    const QImage play = LoadSkinBitmap(handle, kBmpPortraitPlay);
    return play.isNull() ? 0 : play.pixel(play.width() / 2 - 8, play.height() / 2 - 12);
}

class SkinModuleTest : public ::testing::Test {
protected:
    void TearDown() override { ReleaseSkinModule(); }

    std::u16string InProgramDirectory(const std::string& name) {
        return m_device.Get().ProgramDirectory() + u"\\" +
               std::u16string(name.begin(), name.end());
    }
    void Install(const std::string& name) {
        m_device.WriteFile(InProgramDirectory(name), ReadBuiltSkin(name));
    }

    testing::TestDevice m_device;
};

TEST_F(SkinModuleTest, EveryBitmapLoadsInEveryColourAtItsSizeAndEachColourHasItsOwnLook) {
    for (const char* name : kBundles)
        Install(name);
    std::vector<QRgb> accents;
    for (std::uint16_t colour = 0; colour <= 4; ++colour) {
        SCOPED_TRACE(colour);
        const SkinHandle handle = SelectSkinModule(colour);
        ASSERT_FALSE(handle.IsEmpty());
        EXPECT_EQ(handle.Source(), colour == 0 ? SkinSource::Program : SkinSource::Module);
        for (const SkinBitmapInfo& info : SkinBitmapCatalogue()) {
            const QImage image = LoadSkinBitmap(handle, info.id);
            ASSERT_FALSE(image.isNull()) << "lacks " << info.id;
            EXPECT_EQ(image.size(), QSize(info.size.width, info.size.height)) << info.id;
        }
        const QRgb accent = PlayCentre(handle);
        EXPECT_EQ(std::count(accents.begin(), accents.end(), accent), 0);
        accents.push_back(accent);
    }
}

// A bundle missing, broken or for a colour above four: the program's own images.
TEST_F(SkinModuleTest, WithoutAUsableBundleTheProgramsImagesAreUsed) {
    Install("ZelvorBlue.rcc");
    const QRgb own = PlayCentre(ProgramResourceHandle());
    auto truncated = ReadBuiltSkin("ZelvorRed.rcc");
    truncated.resize(truncated.size() / 3);
    const std::vector<std::byte> broken[] = {testing::Bytes("not a resource bundle at all"),
                                             truncated, {}};
    for (int i = -1; i < 3; ++i) { // missing first
        SCOPED_TRACE(i);
        if (i >= 0)
            m_device.WriteFile(InProgramDirectory("ZelvorRed.rcc"), broken[i]);
        EXPECT_TRUE(SelectSkinModule(2).IsEmpty());
        EXPECT_EQ(SkinResourceHandle(), ProgramResourceHandle());
        EXPECT_EQ(PlayCentre(SkinResourceHandle()), own);
    }
    for (std::uint16_t colour : {5, 200, 0xFFFF}) {
        EXPECT_TRUE(SelectSkinModule(colour).IsEmpty()) << colour;
        EXPECT_EQ(SkinResourceHandle(), ProgramResourceHandle()) << colour;
    }
}

// The bundle's images are gone once it is released; those loaded before stay valid.
TEST_F(SkinModuleTest, ANewColourReleasesTheOldBundle) {
    for (const char* name : kBundles)
        Install(name);
    const SkinHandle blue = SelectSkinModule(1);
    const QImage before = LoadSkinBitmap(blue, kBmpPortraitPlay);
    const SkinHandle green = SelectSkinModule(4);
    EXPECT_TRUE(LoadSkinBitmap(blue, kBmpPortraitPlay).isNull());
    EXPECT_EQ(before.width(), 48);
    EXPECT_EQ(SkinResourceHandle(), green);
    EXPECT_EQ(SelectSkinModule(0), ProgramResourceHandle()); // colour zero releases it too
    EXPECT_TRUE(LoadSkinBitmap(green, kBmpPortraitPlay).isNull());
}

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
