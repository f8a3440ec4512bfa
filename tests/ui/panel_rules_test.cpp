// The play list panel's delete rule and places, without a window.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ui/rules/layout/browser_layout.h"
#include "ui/rules/panel/panel_rules.h"

namespace zelvor {
namespace {

// Rows 0-7 named by their first index; a selection goes with the name.
struct FakeRows final : PanelRows {
    explicit FakeRows(std::vector<int> chosen) : selected(std::move(chosen)) {}
    bool Chosen(int name) const { return std::ranges::count(selected, name) > 0; }
    int SelectedCount() const override {
        return static_cast<int>(std::ranges::count_if(left, [&](int n) { return Chosen(n); }));
    }
    int NextSelected(int after) const override {
        EXPECT_GE(after, -1); // the first search starts before row 0
        for (int i = after + 1; i < static_cast<int>(left.size()); ++i)
            if (Chosen(left[static_cast<std::size_t>(i)]))
                return i;
        return -1;
    }
    void Remove(int index) override { left.erase(left.begin() + index); }

    std::vector<int> selected, left{0, 1, 2, 3, 4, 5, 6, 7};
};

struct DeleteCase {
    const char* name;
    std::vector<int> selected;
    std::vector<int> left; // of rows 0-7
};

class DeleteSelected : public ::testing::TestWithParam<DeleteCase> {};

TEST_P(DeleteSelected, SkipsTheSelectedRowThatMovesUpIntoTheEmptiedPlace) {
    FakeRows rows(GetParam().selected);
    EXPECT_EQ(DeleteSelectedRows(rows), 8 - static_cast<int>(GetParam().left.size()));
    EXPECT_EQ(rows.left, GetParam().left);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, DeleteSelected,
    ::testing::Values(
        DeleteCase{"AdjacentThreeAndFour", {3, 4}, {0, 1, 2, 4, 5, 6, 7}},
        DeleteCase{"NoneSelected", {}, {0, 1, 2, 3, 4, 5, 6, 7}},
        DeleteCase{"ThreeInARowTakeFirstAndLast", {3, 4, 5}, {0, 1, 2, 4, 6, 7}},
        // The third search finds nothing and the fourth starts from the top.
        DeleteCase{"FourInARowRestartAfterAMiss", {1, 2, 3, 4}, {0, 4, 5, 6, 7}},
        DeleteCase{"FirstTwoRows", {0, 1}, {1, 2, 3, 4, 5, 6, 7}},
        DeleteCase{"LastRowAlone", {7}, {0, 1, 2, 3, 4, 5, 6}}),
    [](const auto& test) { return std::string(test.param.name); });

struct PaneCase {
    const char* name;
    PixelSize pane;
    PixelRect list;
};

class PanelPlaces : public ::testing::TestWithParam<PaneCase> {};

TEST_P(PanelPlaces, ListIsCutToThePaneAndEveryTargetFitsApart) {
    const PixelSize pane = GetParam().pane;
    EXPECT_EQ(PanelListRect(pane), GetParam().list);
    const PixelRect whole{0, 0, pane.width, pane.height};
    const PixelRect about = PanelAboutRect(pane);
    EXPECT_TRUE(whole.Contains(about));
    EXPECT_GE(std::min(about.Width(), about.Height()), 32);
    for (const ImageButtonPlace& button : PlayListPanelLayout().buttons) {
        EXPECT_TRUE(whole.Contains(button.rect)) << button.command;
        EXPECT_GE(std::min(button.rect.Width(), button.rect.Height()), 32) << button.command;
        EXPECT_FALSE(about.Intersects(button.rect)) << button.command;
        EXPECT_FALSE(GetParam().list.Intersects(button.rect)) << button.command;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Orientations, PanelPlaces,
    ::testing::Values(PaneCase{"Portrait", {240, 320}, {13, 68, 240, 230}},
                      PaneCase{"Landscape", {320, 240}, {13, 68, 260, 230}},
                      PaneCase{"Short", {320, 200}, {13, 68, 260, 200}}),
    [](const auto& test) { return std::string(test.param.name); });

} // namespace
} // namespace zelvor
