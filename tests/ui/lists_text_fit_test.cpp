// The shared text fitting: cut texts end in "..." and are as long as fits.
#include <gtest/gtest.h>

#include <QFont>
#include <QFontMetrics>

#include "tests/ui/main_frame_app.h"
#include "ui/widgets/drawing/text_fit.h"

namespace zelvor {
namespace {

TEST(FitTextToWidth, KeepsFittingTextsAndCutsOthersToTheLongestFittingBeginning) {
    testing::EnsureWidgetApplication();
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
