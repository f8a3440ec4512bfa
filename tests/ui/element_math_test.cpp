#include "ui/drawing/element_math.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

struct TimeCase {
    int h, m, s;
    std::array<int, 8> cells;
};

class TimeDigitCellsTest : public ::testing::TestWithParam<TimeCase> {};

TEST_P(TimeDigitCellsTest, CellsReadHoursMinutesSecondsWithSeparators) {
    const TimeCase& c = GetParam();
    EXPECT_EQ(TimeDigitCells(c.h, c.m, c.s), c.cells);
}

constexpr int S = kDigitSeparatorIndex;
INSTANTIATE_TEST_SUITE_P(Times, TimeDigitCellsTest,
                         ::testing::Values(TimeCase{0, 0, 0, {0, 0, S, 0, 0, S, 0, 0}},
                                           TimeCase{1, 2, 3, {0, 1, S, 0, 2, S, 0, 3}},
                                           TimeCase{23, 59, 58, {2, 3, S, 5, 9, S, 5, 8}},
                                           // 100 hours and more wrap, never a 10th digit
                                           TimeCase{123, 4, 5, {2, 3, S, 0, 4, S, 0, 5}},
                                           TimeCase{-1, 0, -7, {0, 0, S, 0, 0, S, 0, 0}}));

TEST(DigitCellLeft, CellsAreOneCellWidthApart) {
    EXPECT_EQ(DigitCellLeft(60, 0), 60);
    EXPECT_EQ(DigitCellLeft(60, 7), 60 + 7 * 18);
}

TEST(VolumeFilledWidth, IsIndexTimesWidthOverTenInWholePixels) {
    struct Case {
        int index, width, filled;
    };
    for (const Case c : {Case{0, 38, 0}, Case{1, 38, 3}, Case{5, 38, 19}, Case{9, 38, 34},
                         Case{10, 38, 38}, Case{11, 38, 38}, Case{-3, 38, 0}, Case{7, 0, 0}}) {
        EXPECT_EQ(VolumeFilledWidth(c.index, c.width), c.filled)
            << c.index << " of " << c.width;
    }
}

TEST(BatteryBitmapId, PicksTheImageByLevel) {
    EXPECT_EQ(BatteryBitmapId(0), 1566);
    EXPECT_EQ(BatteryBitmapId(5), 1571);
    EXPECT_EQ(BatteryBitmapId(100), 1572);
    EXPECT_EQ(BatteryBitmapId(-1), 2030);
    for (int level : {6, 50, 99, 101, -2}) {
        EXPECT_EQ(BatteryBitmapId(level), 0) << level;
    }
}

} // namespace
} // namespace zelvor
