// The update dialog's progress and closing rules, and the dialogs' placement.
#include <gtest/gtest.h>

#include "library/update_progress.h"
#include "ui/dialogs/dialog_units.h"

namespace zelvor {
namespace {

struct StepCase {
    const char* name;
    ProgressRange range;
    int position;
    bool show;
    int value;
    bool finished;
};

class ProgressStepRule : public ::testing::TestWithParam<StepCase> {};

TEST_P(ProgressStepRule, BarValueAndFinished) {
    const StepCase& c = GetParam();
    const ProgressStep step = ComputeProgressStep(c.range, c.position);
    EXPECT_EQ(std::pair(step.show, step.finished), std::pair(c.show, c.finished));
    if (c.show)
        EXPECT_EQ(step.value, c.value);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ProgressStepRule,
    ::testing::Values(
        StepCase{"direct_as_given", {10, 40, false}, 25, true, 25, false},
        StepCase{"direct_upper_finishes", {10, 40, false}, 40, true, 40, true},
        StepCase{"percent_of_span", {100, 300, true}, 150, true, 25, false},
        StepCase{"percent_truncates", {0, 3, true}, 1, true, 33, false},
        StepCase{"percent_exact_100", {0, 50, true}, 50, true, 100, true},
        StepCase{"percent_150_wraps_to_50", {0, 50, true}, 75, true, 50, false},
        StepCase{"percent_200_wraps_to_0", {0, 50, true}, 100, true, 0, false},
        StepCase{"percent_below_lower_is_0", {20, 70, true}, 5, true, 0, false},
        StepCase{"percent_zero_span_untouched", {7, 7, true}, 3, false, 0, false},
        StepCase{"zero_span_at_upper_finishes", {7, 7, true}, 7, false, 0, true},
        StepCase{"huge_position_no_overflow", {-1, 0, true}, 2147483647, true, 0, false}),
    [](const auto& tp) { return std::string(tp.param.name); });

TEST(UpdateProgress, BarRangeAndClosingByPhase) {
    const BarRange percent = BarRangeOf({3, 9, true}), direct = BarRangeOf({3, 9, false});
    EXPECT_EQ(std::pair(percent.minimum, percent.maximum), std::pair(0, 100));
    EXPECT_EQ(std::pair(direct.minimum, direct.maximum), std::pair(3, 9));
    const DialogEnd okEnds[] = {DialogEnd::StayOpen, DialogEnd::StayOpen, DialogEnd::StayOpen,
                                DialogEnd::Ok};
    const DialogEnd cancelEnds[] = {DialogEnd::Cancel, DialogEnd::StayOpen, DialogEnd::StayOpen,
                                    DialogEnd::Cancel};
    for (int phase = 0; phase <= 3; ++phase) {
        EXPECT_EQ(EndOnOk(phase), okEnds[phase]) << phase;
        EXPECT_EQ(EndOnCancel(phase), cancelEnds[phase]) << phase;
    }
}

TEST(DialogUnits, TahomaEightToPixelsAndButtonsBecomeTouchTargets) {
    EXPECT_EQ(DialogUnitsToPixelsX(175), 219); // the widest template fits 240
    EXPECT_EQ(DialogUnitsToPixelsX(2), 3);     // 2.5 rounds up
    EXPECT_EQ(DialogUnitsToPixelsY(71), 115);
    EXPECT_EQ(DialogUnitsToPixelsY(3), 5);     // 4.875
    EXPECT_EQ(DialogRectToPixels({9, 11, 130, 31}), (PixelRect{11, 18, 174, 68}));
    EXPECT_EQ(TouchRect({54, 51, 42, 14}), (PixelRect{68, 83, 120, 115}));
    EXPECT_EQ(TouchRect({0, 0, 10, 40}).Height(), 65); // a tall one stays as it is
    const PixelSize message = DialogPixelSize(150, 71, 14); // 115 + the 9 pixels the buttons grew
    EXPECT_EQ(std::pair(message.width, message.height), std::pair(188, 124));
    EXPECT_EQ(DialogPixelSize(150, 71, 40).height, 115);
}

TEST(MessageText, CutAt127Units) {
    const std::u16string longText(200, u'x');
    EXPECT_EQ(CutMessageText(longText).size(), 127u);
    EXPECT_EQ(CutMessageText(longText.substr(0, 127)).size(), 127u);
    EXPECT_EQ(CutMessageText(u"short"), u"short");
    // A pair split by the cut loses its high half as well.
    for (char16_t high : {u'\xD800', u'\xDBFF'}) {
        std::u16string pairAtCut(126, u'x');
        pairAtCut += {high, u'\xDC00', u'y'};
        EXPECT_EQ(CutMessageText(pairAtCut), std::u16string(126, u'x'));
    }
    std::u16string pairBefore(125, u'x');
    pairBefore += u"\U0001F3B5y";
    EXPECT_EQ(CutMessageText(pairBefore), pairBefore.substr(0, 127));
}

} // namespace
} // namespace zelvor
