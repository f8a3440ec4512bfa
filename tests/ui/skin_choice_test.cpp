#include "ui/rules/skin/skin_choice.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

TEST(SkinModuleFileName, NamesTheFourColourBundlesAndNothingElse) {
    const std::u16string names[] = {u"", u"ZelvorBlue.rcc", u"ZelvorRed.rcc",
                                    u"ZelvorOrange.rcc", u"ZelvorGreen.rcc", u""};
    for (std::uint16_t colour = 0; colour < 6; ++colour)
        EXPECT_EQ(SkinModuleFileName(colour), names[colour]) << colour;
    EXPECT_EQ(SkinModuleFileName(0xFFFF), u"");
}

TEST(SkinModulePath, JoinsTheProgramDirectory) {
    EXPECT_FALSE(SkinModulePath(u"\\Flash Disk\\Zelvor", 0).has_value());
    EXPECT_EQ(SkinModulePath(u"\\Flash Disk\\Zelvor", 3), u"\\Flash Disk\\Zelvor\\ZelvorOrange.rcc");
    // A colour without a bundle keeps the bare separator: the folder, which
    // cannot be loaded, so the program's own images take over.
    EXPECT_EQ(SkinModulePath(u"\\Flash Disk\\Zelvor", 9), u"\\Flash Disk\\Zelvor\\");
}

// Only a held bundle is released; every colour but zero loads one.
TEST(PlanSkinSelection, ReleasesOnlyABundleAndLoadsOneForEveryColourButZero) {
    EXPECT_TRUE(PlanSkinSelection(SkinSource::Module, u"\\P", 2).releaseHeld);
    EXPECT_FALSE(PlanSkinSelection(SkinSource::Program, u"\\P", 2).releaseHeld);
    EXPECT_FALSE(PlanSkinSelection(SkinSource::None, u"\\P", 2).releaseHeld);
    const SkinSelectionPlan toZero = PlanSkinSelection(SkinSource::Module, u"\\P", 0);
    EXPECT_TRUE(toZero.releaseHeld);
    EXPECT_FALSE(toZero.loadPath.has_value());
    EXPECT_EQ(PlanSkinSelection(SkinSource::Program, u"\\P", 1).loadPath, u"\\P\\ZelvorBlue.rcc");
    EXPECT_EQ(PlanSkinSelection(SkinSource::None, u"\\P", 5).loadPath, u"\\P\\");
}

TEST(EffectiveSkinSource, AnEmptyHandleFallsBackToTheProgram) {
    for (auto [held, effective] : {std::pair{SkinSource::None, SkinSource::Program},
                                   {SkinSource::Program, SkinSource::Program},
                                   {SkinSource::Module, SkinSource::Module}})
        EXPECT_EQ(EffectiveSkinSource(held), effective);
}

} // namespace
} // namespace zelvor
