// The list controls' arithmetic: widths, the heading-click rule, the rows a
// drag looks at and the scroll steps of a drag outside the list.
#include <gtest/gtest.h>

#include "ui/lists/list_rules.h"

namespace zelvor {
namespace {

TEST(ListColumns, FiveColumnsShareTheClientLessTheScrollBarTruncatingTowardZero) {
    EXPECT_EQ(FiveColumnWidth(240, 13), 45);
    EXPECT_EQ(FiveColumnWidth(244, 13), 46);
    EXPECT_EQ(FiveColumnWidth(10, 13), 0);  // -3 / 5 is 0, not -1
    EXPECT_EQ(FiveColumnWidth(0, 13), -2);  // as the division gives it
}

TEST(ListColumns, OneColumnLosesTheBordersAndTheScrollBarOnlyWhenRowsOverflow) {
    EXPECT_EQ(OneColumnWidth(247, 10, 10, 13), 245);
    EXPECT_EQ(OneColumnWidth(247, 11, 10, 13), 232);
    EXPECT_EQ(OneColumnWidth(1, 11, 10, 13), 0);
}

TEST(ListColumns, APartRowCountsOnlyFromSixPixelsAndOnlyWhenAsked) {
    EXPECT_EQ(RowsPerPage(105, 20, true), 5);  // 5 pixels left over
    EXPECT_EQ(RowsPerPage(106, 20, true), 6);
    EXPECT_EQ(RowsPerPage(106, 20, false), 5);
    EXPECT_EQ(RowsPerPage(100, 0, true), 0);
    EXPECT_EQ(RowsPerPage(1, 1, false), 1); // the smallest sizes that hold a row
}

TEST(HeadingClick, AnotherColumnStartsAtAToZAndTheSameColumnFlips) {
    const TrackSortChoice first = HeadingClickSort(2, {-1, 0});
    EXPECT_EQ(first, (TrackSortChoice{2, 1}));
    const TrackSortChoice second = HeadingClickSort(2, first);
    EXPECT_EQ(second, (TrackSortChoice{2, 0}));
    EXPECT_EQ(HeadingClickSort(2, second), (TrackSortChoice{2, 1}));
    EXPECT_EQ(HeadingClickSort(3, second), (TrackSortChoice{3, 1}));
}

TEST(DragRows, FromTheTopRowToTopPlusAPageCutToTheList) {
    EXPECT_EQ(DragPageRows(4, 10, 100), (RowRange{4, 14}));
    EXPECT_EQ(DragPageRows(4, 10, 12), (RowRange{4, 11}));
    EXPECT_EQ(DragPageRows(0, 10, 100), (RowRange{0, 10}));
    EXPECT_EQ(DragPageRows(0, 10, 0).last, -1);
}

struct ScrollCase {
    const char* name;
    int x, y;
    bool vertical, horizontal;
    std::vector<ScrollStep> steps;
};

class AutoScroll : public ::testing::TestWithParam<ScrollCase> {};

TEST_P(AutoScroll, StepsFollowWhereTheStylusLeftTheList) {
    const ScrollCase& c = GetParam();
    EXPECT_EQ(AutoScrollSteps(c.x, c.y, 200, 100, c.vertical, c.horizontal), c.steps);
}

using enum ScrollStep;
INSTANTIATE_TEST_SUITE_P(
    Cases, AutoScroll,
    ::testing::Values(
        ScrollCase{"Inside", 199, 99, true, true, {}},
        ScrollCase{"InsideAtTheOrigin", 0, 0, true, true, {}},
        ScrollCase{"TopEdgeIsNotAbove", 250, 0, true, true, {LineDown}},
        ScrollCase{"LeftEdgeIsNotLeft", 0, 120, true, true, {LineDown, LineDown}},
        ScrollCase{"Below", 10, 100, true, false, {LineDown}},
        ScrollCase{"Above", 10, -1, true, false, {LineUp}},
        ScrollCase{"BelowWithoutBar", 10, 150, false, false, {}},
        ScrollCase{"RightScrollsDown", 200, 50, false, true, {LineDown}},
        ScrollCase{"LeftScrollsUp", -1, 50, false, true, {LineUp}},
        ScrollCase{"BelowWithBothBarsTwice", 10, 120, true, true, {LineDown, LineDown}},
        ScrollCase{"AboveAndRight", 250, -5, true, true, {LineUp, LineDown}},
        ScrollCase{"BelowAndLeft", -5, 120, true, true, {LineDown, LineUp}},
        ScrollCase{"RightOnlyVerticalBar", 250, 50, true, false, {}}),
    [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace zelvor
