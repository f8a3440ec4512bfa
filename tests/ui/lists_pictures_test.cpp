// The bitmap button's choice of bitmap by state, read back from its pixels;
// and the shared text fitting: cut texts end in "..." and are as long as fits.
#include <gtest/gtest.h>

#include <QFont>
#include <QFontMetrics>
#include <QTest>

#include "res/bitmap_ids.h"
#include "tests/ui/lists_sink.h"
#include "ui/widgets/drawing/text_fit.h"
#include "ui/widgets/lists/bitmap_button.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {
namespace {

struct FaceCase {
    const char* name;
    bool down, focused, disabled;
    BitmapId focusedBitmap, disabledBitmap;
    BitmapId shown;
    bool loadAgain = false; // then loaded again with Stop's two bitmaps only
};

class BitmapButtonFace : public ::testing::TestWithParam<FaceCase> {};

TEST_P(BitmapButtonFace, ShowsTheBitmapOfTheFirstStateThatHasOne) {
    const FaceCase& c = GetParam();
    testing::EnsureQtApplication();
    QWidget screen;
    auto* other = new QWidget(&screen);
    other->setFocusPolicy(Qt::StrongFocus);
    auto* button = new CBitmapButton(2005, &screen);
    button->LoadBitmaps(kBmpPortraitPlay, kBmpPortraitPlayPressed, c.focusedBitmap,
                        c.disabledBitmap);
    if (c.loadAgain)
        button->LoadBitmaps(kBmpPortraitStop, kBmpPortraitStopPressed);
    button->resize(button->sizeHint());
    screen.show();
    screen.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
    (c.focused ? static_cast<QWidget*>(button) : other)->setFocus();
    button->setDown(c.down);
    button->setEnabled(!c.disabled);
    const QImage expected = LoadSkinBitmap(SkinResourceHandle(), c.shown);
    ASSERT_FALSE(expected.isNull());
    EXPECT_EQ(button->Command(), 2005);
    EXPECT_EQ(button->grab().toImage().convertToFormat(QImage::Format_RGB32),
              expected.convertToFormat(QImage::Format_RGB32));
}

constexpr BitmapId kPause = kBmpPortraitPause, kGrey = kBmpPortraitPlayDisabled;
INSTANTIATE_TEST_SUITE_P(
    States, BitmapButtonFace,
    ::testing::Values(
        FaceCase{"Normal", false, false, false, kPause, kGrey, kBmpPortraitPlay},
        FaceCase{"PressedBeforeFocused", true, true, false, kPause, kGrey, kBmpPortraitPlayPressed},
        FaceCase{"Focused", false, true, false, kPause, kGrey, kPause},
        FaceCase{"FocusedWithoutBitmap", false, true, false, 0, kGrey, kBmpPortraitPlay},
        FaceCase{"Disabled", false, false, true, kPause, kGrey, kGrey},
        FaceCase{"DisabledWithoutBitmap", false, false, true, kPause, 0, kBmpPortraitPlay},
        FaceCase{"LoadingAgainDropsTheFocusedBitmap", false, true, false, kPause, kGrey,
                 kBmpPortraitStop, true}),
    [](const auto& test) { return std::string(test.param.name); });


TEST(FitTextToWidth, KeepsFittingTextsAndCutsOthersToTheLongestFittingBeginning) {
    testing::EnsureQtApplication();
    const QFontMetrics metrics{QFont()};
    const QString text = "A rather long title of a song that cannot fit";
    const int full = metrics.horizontalAdvance(text);
    EXPECT_EQ(FitTextToWidth(text, metrics, full), text);
    EXPECT_EQ(FitTextToWidth(text, metrics, 0), QString());
    EXPECT_EQ(FitTextToWidth(text, metrics, 1), "...");
    for (const int width : {full - 1, full / 2, metrics.horizontalAdvance("A...")}) {
        const QString cut = FitTextToWidth(text, metrics, width);
        ASSERT_TRUE(cut.endsWith("...")) << width;
        const QString kept = cut.chopped(3);
        EXPECT_TRUE(text.startsWith(kept));
        EXPECT_LE(metrics.horizontalAdvance(cut), width);
        EXPECT_GT(metrics.horizontalAdvance(text.left(kept.size() + 1) + "..."), width) << width;
    }
}

} // namespace
} // namespace zelvor
