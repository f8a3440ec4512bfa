#include "ui/layout/player_layout.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace zelvor {
namespace {

struct Element {
    std::string name;
    PixelRect rect;
    int group; // elements of one group take turns at one place
};

std::vector<Element> VisibleElements(const PlayerLayout& layout) {
    std::vector<Element> all;
    for (int i = 0; i < kPlayerButtonCount; ++i) {
        const auto button = static_cast<PlayerButton>(i);
        all.push_back({"button " + std::to_string(i),
                       ButtonRect(layout.buttons[static_cast<std::size_t>(i)]),
                       PlaceGroupOf(button)});
    }
    int group = 100;
    all.push_back({"time", TimeRect(layout), group++});
    all.push_back({"volume gauge", VolumeGaugeRect(layout), group++});
    all.push_back({"clock", layout.clock, group++});
    all.push_back({"battery", BatteryRect(layout), group++});
    all.push_back({"indicator", IndicatorRect(layout), group++});
    all.push_back({"emblem", TitleEmblemRect(layout), group++});
    all.push_back({"title", layout.title, group++});
    all.push_back({"counter", layout.counter, group++});
    return all;
}

class PlayerLayoutTest : public ::testing::TestWithParam<ScreenOrientation> {
protected:
    const PlayerLayout& Layout() const { return PlayerLayoutFor(GetParam()); }
};

TEST_P(PlayerLayoutTest, NothingOverlapsAndEverythingIsOnScreen) {
    const auto elements = VisibleElements(Layout());
    const PixelRect screen{0, 0, Layout().screen.width, Layout().screen.height};
    for (std::size_t a = 0; a < elements.size(); ++a) {
        EXPECT_FALSE(elements[a].rect.IsEmpty()) << elements[a].name;
        EXPECT_TRUE(screen.Contains(elements[a].rect)) << elements[a].name;
        for (std::size_t b = a + 1; b < elements.size(); ++b) {
            if (elements[a].group == elements[b].group) {
                continue;
            }
            EXPECT_FALSE(elements[a].rect.Intersects(elements[b].rect))
                << elements[a].name << " overlaps " << elements[b].name;
        }
    }
}

TEST_P(PlayerLayoutTest, ButtonsThatTakeTurnsShareTheirPlaceExactly) {
    for (int i = 0; i < kPlayerButtonCount; ++i) {
        const auto first = PlaceGroupOf(static_cast<PlayerButton>(i));
        EXPECT_EQ(ButtonRect(Layout().buttons[static_cast<std::size_t>(i)]),
                  ButtonRect(Layout().buttons[static_cast<std::size_t>(first)]))
            << "button " << i;
    }
    EXPECT_EQ(PlaceGroupOf(kButtonPause), kButtonPlay);
    EXPECT_EQ(PlaceGroupOf(kButtonRepeatAll), kButtonRepeatOff);
    EXPECT_EQ(PlaceGroupOf(kButtonRepeatOne), kButtonRepeatOff);
    EXPECT_EQ(PlaceGroupOf(kButtonRandomOn), kButtonRandomOff);
    EXPECT_EQ(PlaceGroupOf(kButtonStop), kButtonStop);
}

TEST_P(PlayerLayoutTest, TouchTargetsAreAtLeast32Pixels) {
    const PlayerLayout& layout = Layout();
    for (int i = 0; i < kPlayerButtonCount; ++i) {
        const PixelRect r = ButtonRect(layout.buttons[static_cast<std::size_t>(i)]);
        EXPECT_GE(r.Width(), 32) << "button " << i;
        if (i != kButtonSeekBar) {
            EXPECT_GE(r.Height(), 32) << "button " << i;
        }
    }
    // The seek bar is as tall as the volume gauge below it allows.
    const PixelRect bar = ButtonRect(layout.buttons[kButtonSeekBar]);
    const PixelRect gauge = VolumeGaugeRect(layout);
    const bool gaugeBelow = gauge.left < bar.right && bar.left < gauge.right;
    EXPECT_TRUE(bar.Height() >= 32 || (gaugeBelow && bar.bottom == gauge.top));
}

TEST_P(PlayerLayoutTest, SeekBarLeavesTheThumbRoomToTravel) {
    const PlayerButtonPlace& bar = Layout().buttons[kButtonSeekBar];
    // The position arithmetic subtracts 4 pixels from the travel.
    EXPECT_GT(bar.size.width - kSeekThumbSize.width, 4);
    EXPECT_LE(kSeekThumbSize.height, bar.size.height);
}

TEST_P(PlayerLayoutTest, OnlyTransportButtonsHaveAThirdImage) {
    for (int i = 0; i < kPlayerButtonCount; ++i) {
        const bool transport = i == kButtonNext || i == kButtonPrevious || i == kButtonStop ||
                               i == kButtonPlay;
        EXPECT_EQ(Layout().buttons[static_cast<std::size_t>(i)].third != 0, transport)
            << "button " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(BothOrientations, PlayerLayoutTest,
                         ::testing::Values(ScreenOrientation::Portrait,
                                           ScreenOrientation::Landscape));

TEST(PlayerLayout, FixedPlacesOfTheScreen) {
    const PlayerLayout& portrait = PlayerLayoutFor(ScreenOrientation::Portrait);
    const PlayerLayout& landscape = PlayerLayoutFor(ScreenOrientation::Landscape);
    EXPECT_EQ(portrait.background, kBmpPortraitBackground);
    EXPECT_EQ(landscape.background, kBmpLandscapeBackground);
    EXPECT_EQ(portrait.timeArea.x, 60);
    EXPECT_EQ(portrait.timeArea.y, 112);
    EXPECT_EQ(landscape.timeArea.x, 98);
    EXPECT_EQ(landscape.timeArea.y, 72);
    EXPECT_EQ(portrait.volumeGauge.x, 48);
    EXPECT_EQ(landscape.volumeGauge.y, 58);
    EXPECT_EQ(portrait.buttons[kButtonHide].position.x, 160);
    EXPECT_EQ(landscape.buttons[kButtonHide].position.x, 250);
    EXPECT_EQ(portrait.buttons[kButtonNext].normal, kBmpPortraitNext);
    EXPECT_EQ(landscape.buttons[kButtonRepeatOne].normal, kBmpLandscapeRepeatOne);
}

TEST(PlayerLayout, OrientationFollowsTheLongerSide) {
    EXPECT_EQ(OrientationOf(240, 320), ScreenOrientation::Portrait);
    EXPECT_EQ(OrientationOf(320, 240), ScreenOrientation::Landscape);
    EXPECT_EQ(OrientationOf(480, 480), ScreenOrientation::Landscape);
}

} // namespace
} // namespace zelvor
