#include "ui/widgets/skin/skin_module.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "skin_files.h"
#include "tests/support/test_device.h"
#include "ui/rules/layout/player_layout.h"
#include "ui/rules/layout/skin_catalogue.h"

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
    void InstallAll() {
        for (const char* name : kBundles)
            Install(name);
    }

    testing::TestDevice m_device;
};

TEST_F(SkinModuleTest, EveryBitmapLoadsInEveryColourAtItsSizeAndEachColourHasItsOwnLook) {
    InstallAll();
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
    InstallAll();
    const SkinHandle blue = SelectSkinModule(1);
    const QImage before = LoadSkinBitmap(blue, kBmpPortraitPlay);
    const SkinHandle green = SelectSkinModule(4);
    EXPECT_TRUE(LoadSkinBitmap(blue, kBmpPortraitPlay).isNull());
    EXPECT_EQ(before.width(), 48);
    EXPECT_EQ(SkinResourceHandle(), green);
    EXPECT_EQ(SelectSkinModule(0), ProgramResourceHandle()); // colour zero releases it too
    EXPECT_TRUE(LoadSkinBitmap(green, kBmpPortraitPlay).isNull());
}

} // namespace
} // namespace zelvor
