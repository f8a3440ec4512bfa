#include "ui/skin/skin_module.h"

#include <gtest/gtest.h>
#include <string>

#include "skin_files.h"
#include "tests/support/test_device.h"
#include "ui/layout/player_layout.h"
#include "ui/layout/skin_catalogue.h"

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
        for (const char* name : kBundles) {
            Install(name);
        }
    }

    testing::TestDevice m_device;
};

TEST_F(SkinModuleTest, EveryBitmapLoadsInEveryColourAtItsSize) {
    InstallAll();
    for (std::uint16_t colour = 0; colour <= 4; ++colour) {
        const SkinHandle handle = SelectSkinModule(colour);
        ASSERT_FALSE(handle.IsEmpty()) << "colour " << colour;
        EXPECT_EQ(handle.Source(), colour == 0 ? SkinSource::Program : SkinSource::Module);
        for (const SkinBitmapInfo& info : SkinBitmapCatalogue()) {
            const QImage image = LoadSkinBitmap(handle, info.id);
            ASSERT_FALSE(image.isNull()) << "colour " << colour << " lacks " << info.id;
            EXPECT_EQ(image.width(), info.size.width) << info.id;
            EXPECT_EQ(image.height(), info.size.height) << info.id;
        }
    }
}

TEST_F(SkinModuleTest, EachColourHasItsOwnLook) {
    InstallAll();
    std::vector<QRgb> seen{PlayCentre(SelectSkinModule(0))};
    for (std::uint16_t colour = 1; colour <= 4; ++colour) {
        const QRgb accent = PlayCentre(SelectSkinModule(colour));
        for (QRgb other : seen) {
            EXPECT_NE(accent, other) << "colour " << colour;
        }
        seen.push_back(accent);
    }
}

TEST_F(SkinModuleTest, TransparentImagesCarryTheMagentaKey) {
    const SkinHandle handle = SelectSkinModule(0);
    const QImage digit = LoadSkinBitmap(handle, kBmpDigit0);
    EXPECT_EQ(digit.pixel(0, 0), 0xFFFF00FFu);
    const QImage background = LoadSkinBitmap(handle, kBmpPortraitBackground);
    for (int y = 0; y < background.height(); y += 7) {
        for (int x = 0; x < background.width(); x += 7) {
            ASSERT_NE(background.pixel(x, y), 0xFFFF00FFu) << x << "," << y;
        }
    }
}

TEST_F(SkinModuleTest, AMissingBundleFallsBackToTheProgramsImages) {
    Install("ZelvorBlue.rcc");
    const QRgb own = PlayCentre(ProgramResourceHandle());
    EXPECT_TRUE(SelectSkinModule(2).IsEmpty());
    const SkinHandle handle = SkinResourceHandle();
    EXPECT_EQ(handle, ProgramResourceHandle());
    EXPECT_EQ(PlayCentre(handle), own);
    // The fallback is now held: asking again gives the same.
    EXPECT_EQ(SkinResourceHandle(), ProgramResourceHandle());
}

TEST_F(SkinModuleTest, ABrokenBundleFallsBackToTheProgramsImages) {
    auto truncated = ReadBuiltSkin("ZelvorRed.rcc");
    truncated.resize(truncated.size() / 3);
    for (const std::vector<std::byte>& bytes :
         {testing::Bytes("not a resource bundle at all"), truncated, std::vector<std::byte>{}}) {
        m_device.WriteFile(InProgramDirectory("ZelvorRed.rcc"), bytes);
        EXPECT_TRUE(SelectSkinModule(2).IsEmpty());
        EXPECT_EQ(SkinResourceHandle(), ProgramResourceHandle());
    }
}

TEST_F(SkinModuleTest, AColourAboveFourFallsBackToTheProgramsImages) {
    InstallAll();
    for (std::uint16_t colour : {5, 200, 0xFFFF}) {
        EXPECT_TRUE(SelectSkinModule(colour).IsEmpty()) << colour;
        EXPECT_EQ(SkinResourceHandle(), ProgramResourceHandle()) << colour;
    }
}

TEST_F(SkinModuleTest, SwitchingToColourZeroReleasesTheBundle) {
    InstallAll();
    const SkinHandle blue = SelectSkinModule(1);
    ASSERT_EQ(blue.Source(), SkinSource::Module);
    const QImage before = LoadSkinBitmap(blue, kBmpPortraitPlay);
    ASSERT_FALSE(before.isNull());
    EXPECT_EQ(SelectSkinModule(0), ProgramResourceHandle());
    // The bundle's images are gone; those loaded before stay valid.
    EXPECT_TRUE(LoadSkinBitmap(blue, kBmpPortraitPlay).isNull());
    EXPECT_EQ(before.width(), 48);
    EXPECT_EQ(SkinResourceHandle(), ProgramResourceHandle());
}

TEST_F(SkinModuleTest, ANewColourReplacesTheOldBundle) {
    InstallAll();
    const SkinHandle blue = SelectSkinModule(1);
    const QRgb blueAccent = PlayCentre(blue);
    const SkinHandle green = SelectSkinModule(4);
    ASSERT_EQ(green.Source(), SkinSource::Module);
    EXPECT_NE(PlayCentre(green), blueAccent);
    EXPECT_TRUE(LoadSkinBitmap(blue, kBmpPortraitPlay).isNull());
    EXPECT_EQ(SkinResourceHandle(), green);
    // And back: the same colour loads again after it was released.
    EXPECT_EQ(PlayCentre(SelectSkinModule(1)), blueAccent);
}

TEST_F(SkinModuleTest, BundleNamesAreMatchedIgnoringCase) {
    m_device.WriteFile(InProgramDirectory("zelvororange.RCC"), ReadBuiltSkin("ZelvorOrange.rcc"));
    EXPECT_EQ(SelectSkinModule(3).Source(), SkinSource::Module);
}

TEST_F(SkinModuleTest, AnEmptyHandleAndUnknownNumbersLoadNothing) {
    EXPECT_TRUE(LoadSkinBitmap(SkinHandle(), kBmpPortraitPlay).isNull());
    EXPECT_TRUE(LoadSkinBitmap(ProgramResourceHandle(), 1504).isNull());
}

} // namespace
} // namespace zelvor
