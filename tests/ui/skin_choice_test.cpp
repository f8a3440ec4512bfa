#include "ui/skin/skin_choice.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

TEST(SkinModuleFileName, NamesTheFourColourBundles) {
    EXPECT_EQ(SkinModuleFileName(0), u"");
    EXPECT_EQ(SkinModuleFileName(1), u"ZelvorBlue.rcc");
    EXPECT_EQ(SkinModuleFileName(2), u"ZelvorRed.rcc");
    EXPECT_EQ(SkinModuleFileName(3), u"ZelvorOrange.rcc");
    EXPECT_EQ(SkinModuleFileName(4), u"ZelvorGreen.rcc");
    EXPECT_EQ(SkinModuleFileName(5), u"");
    EXPECT_EQ(SkinModuleFileName(0xFFFF), u"");
}

TEST(SkinModulePath, JoinsTheProgramDirectory) {
    EXPECT_FALSE(SkinModulePath(u"\\Flash Disk\\Zelvor", 0).has_value());
    EXPECT_EQ(SkinModulePath(u"\\Flash Disk\\Zelvor", 3), u"\\Flash Disk\\Zelvor\\ZelvorOrange.rcc");
    // A colour without a bundle keeps the bare separator: the folder, which
    // cannot be loaded, so the program's own images take over.
    EXPECT_EQ(SkinModulePath(u"\\Flash Disk\\Zelvor", 9), u"\\Flash Disk\\Zelvor\\");
}

TEST(PlanSkinSelection, ReleasesOnlyABundle) {
    EXPECT_TRUE(PlanSkinSelection(SkinSource::Module, u"\\P", 0).releaseHeld);
    EXPECT_TRUE(PlanSkinSelection(SkinSource::Module, u"\\P", 2).releaseHeld);
    EXPECT_FALSE(PlanSkinSelection(SkinSource::Program, u"\\P", 2).releaseHeld);
    EXPECT_FALSE(PlanSkinSelection(SkinSource::None, u"\\P", 2).releaseHeld);
}

TEST(PlanSkinSelection, LoadsABundleForEveryColourButZero) {
    EXPECT_FALSE(PlanSkinSelection(SkinSource::Module, u"\\P", 0).loadPath.has_value());
    EXPECT_EQ(PlanSkinSelection(SkinSource::Program, u"\\P", 1).loadPath, u"\\P\\ZelvorBlue.rcc");
    EXPECT_EQ(PlanSkinSelection(SkinSource::None, u"\\P", 5).loadPath, u"\\P\\");
}

TEST(EffectiveSkinSource, AnEmptyHandleFallsBackToTheProgram) {
    EXPECT_EQ(EffectiveSkinSource(SkinSource::None), SkinSource::Program);
    EXPECT_EQ(EffectiveSkinSource(SkinSource::Program), SkinSource::Program);
    EXPECT_EQ(EffectiveSkinSource(SkinSource::Module), SkinSource::Module);
}

} // namespace
} // namespace zelvor
