#include "ui/layout/browser_layout.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

class BrowserLayoutTest : public ::testing::TestWithParam<ScreenOrientation> {};

TEST_P(BrowserLayoutTest, ButtonsStayOffTheListAndOffEachOther) {
    const BrowserLayout layout = BrowserLayoutFor(GetParam());
    const PixelRect screen{0, 0, layout.screen.width, layout.screen.height};
    EXPECT_TRUE(screen.Contains(layout.list));
    for (int a = 0; a < kBrowserButtonCount; ++a) {
        const PixelRect ra = layout.buttons[static_cast<std::size_t>(a)].rect;
        EXPECT_TRUE(screen.Contains(ra)) << a;
        EXPECT_FALSE(ra.Intersects(layout.list)) << a;
        EXPECT_EQ(ra.Width(), kImageButtonSize.width);
        EXPECT_EQ(ra.Height(), kImageButtonSize.height);
        for (int b = a + 1; b < kBrowserButtonCount; ++b) {
            const bool sharedPlace = a == kBrowserFavourites && b == kBrowserDeleteFavourite;
            EXPECT_EQ(ra.Intersects(layout.buttons[static_cast<std::size_t>(b)].rect),
                      sharedPlace)
                << a << " and " << b;
        }
    }
}

TEST_P(BrowserLayoutTest, StatusLineRunsFromBelowTheListToTheBottom) {
    const BrowserLayout layout = BrowserLayoutFor(GetParam());
    EXPECT_EQ(layout.status.top, layout.list.bottom + 1);
    EXPECT_EQ(layout.status.bottom, layout.screen.height);
    EXPECT_EQ(layout.status.left, layout.list.left);
    EXPECT_EQ(layout.status.right, layout.list.right);
}

INSTANTIATE_TEST_SUITE_P(BothOrientations, BrowserLayoutTest,
                         ::testing::Values(ScreenOrientation::Portrait,
                                           ScreenOrientation::Landscape));

TEST(BrowserLayout, ButtonsStepFromTheUpButton) {
    const BrowserLayout portrait = BrowserLayoutFor(ScreenOrientation::Portrait);
    EXPECT_EQ(portrait.buttons[kBrowserUp].rect, (PixelRect{198, 2, 231, 39}));
    EXPECT_EQ(portrait.buttons[kBrowserUpdate].rect, (PixelRect{158, 2, 191, 39}));
    EXPECT_EQ(portrait.buttons[kBrowserPlay].rect, (PixelRect{78, 2, 111, 39}));
    const BrowserLayout landscape = BrowserLayoutFor(ScreenOrientation::Landscape);
    EXPECT_EQ(landscape.buttons[kBrowserUpdate].rect, (PixelRect{279, 81, 312, 118}));
    EXPECT_EQ(landscape.buttons[kBrowserFavourites].rect, (PixelRect{279, 126, 312, 163}));
    EXPECT_EQ(landscape.buttons[kBrowserPlay].rect, (PixelRect{279, 171, 312, 208}));
}

TEST(PlayListPanelLayout, ButtonsAreVisibleInAPortraitPaneAndClearOfTheList) {
    const PanelLayout& panel = PlayListPanelLayout();
    const PixelRect portraitPane{0, 0, 240, 320};
    for (std::size_t a = 0; a < panel.buttons.size(); ++a) {
        const PixelRect ra = panel.buttons[a].rect;
        EXPECT_TRUE(portraitPane.Contains(ra)) << a;
        EXPECT_FALSE(ra.Intersects(panel.list)) << a;
        EXPECT_EQ(panel.buttons[a].command, 1002 + static_cast<int>(a));
        for (std::size_t b = a + 1; b < panel.buttons.size(); ++b) {
            EXPECT_FALSE(ra.Intersects(panel.buttons[b].rect)) << a << " and " << b;
        }
    }
    // The background covers a pane of either orientation.
    EXPECT_GE(panel.background.width, 320);
    EXPECT_GE(panel.background.height, 320);
}

} // namespace
} // namespace zelvor
