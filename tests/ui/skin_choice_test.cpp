#include "ui/rules/skin/skin_choice.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

// Only a held bundle is released; every colour but zero loads one.
TEST(PlanSkinSelection, ReleasesOnlyABundleAndLoadsOneForEveryColourButZero) {
    EXPECT_TRUE(PlanSkinSelection(SkinSource::Module, u"\\P", 2).releaseHeld);
    EXPECT_FALSE(PlanSkinSelection(SkinSource::Program, u"\\P", 2).releaseHeld);
    EXPECT_FALSE(PlanSkinSelection(SkinSource::None, u"\\P", 2).releaseHeld);
    const SkinSelectionPlan toZero = PlanSkinSelection(SkinSource::Module, u"\\P", 0);
    EXPECT_TRUE(toZero.releaseHeld);
    EXPECT_FALSE(toZero.loadPath.has_value());
    EXPECT_EQ(PlanSkinSelection(SkinSource::Program, u"\\P", 1).loadPath, u"\\P\\ZelvorBlue.rcc");
    // A colour without a bundle names the bare folder, which cannot be
    // loaded, so the program's own images take over.
    EXPECT_EQ(PlanSkinSelection(SkinSource::None, u"\\P", 5).loadPath, u"\\P\\");
}

} // namespace
} // namespace zelvor
