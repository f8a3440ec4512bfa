// Where the player and browser put their parts, in both
// orientations: on screen, apart from each other, large enough to touch.

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "ui/rules/layout/player_layout.h"
#include "ui/rules/layout/skin_catalogue.h"
#include "ui/rules/layout/browser_layout.h"

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
        all.push_back({"button " + std::to_string(i),
                       ButtonRect(layout.buttons[static_cast<std::size_t>(i)]),
                       PlaceGroupOf(static_cast<PlayerButton>(i))});
    }
    int group = 100;
    for (auto [name, rect] : std::initializer_list<std::pair<const char*, PixelRect>>{
             {"time", TimeRect(layout)},
             {"volume gauge", VolumeGaugeRect(layout)},
             {"clock", layout.clock},
             {"battery", BatteryRect(layout)},
             {"indicator", IndicatorRect(layout)},
             {"emblem", TitleEmblemRect(layout)},
             {"title", layout.title},
             {"counter", layout.counter}})
        all.push_back({name, rect, group++});
    return all;
}

class LayoutTest : public ::testing::TestWithParam<ScreenOrientation> {
protected:
    const PlayerLayout& Player() const { return PlayerLayoutFor(GetParam()); }
};

TEST_P(LayoutTest, PlayerPartsAreOnScreenApartAndButtonsThatTakeTurnsShareTheirPlace) {
    const auto elements = VisibleElements(Player());
    const PixelRect screen{0, 0, Player().screen.width, Player().screen.height};
    for (std::size_t a = 0; a < elements.size(); ++a) {
        EXPECT_FALSE(elements[a].rect.IsEmpty()) << elements[a].name;
        EXPECT_TRUE(screen.Contains(elements[a].rect)) << elements[a].name;
        for (std::size_t b = a + 1; b < elements.size(); ++b) {
            if (elements[a].group == elements[b].group) {
                EXPECT_EQ(elements[a].rect, elements[b].rect) << elements[a].name;
            } else {
                EXPECT_FALSE(elements[a].rect.Intersects(elements[b].rect))
                    << elements[a].name << " overlaps " << elements[b].name;
            }
        }
    }
}

TEST_P(LayoutTest, PlayerButtonsAreLargeEnoughToTouchAndOnlyTheTransportHasAThirdImage) {
    for (int i = 0; i < kPlayerButtonCount; ++i) {
        const PlayerButtonPlace& place = Player().buttons[static_cast<std::size_t>(i)];
        const PixelRect r = ButtonRect(place);
        EXPECT_GE(r.Width(), 32) << "button " << i;
        if (i != kButtonSeekBar) {
            EXPECT_GE(r.Height(), 32) << "button " << i;
        }
        const bool transport = i == kButtonNext || i == kButtonPrevious || i == kButtonStop ||
                               i == kButtonPlay;
        EXPECT_EQ(place.third != 0, transport) << "button " << i;
    }
    // The seek bar is as tall as the volume gauge below it allows, and
    // leaves the thumb room: the position arithmetic subtracts 4 pixels.
    const PlayerButtonPlace& place = Player().buttons[kButtonSeekBar];
    const PixelRect bar = ButtonRect(place);
    const PixelRect gauge = VolumeGaugeRect(Player());
    const bool gaugeBelow = gauge.left < bar.right && bar.left < gauge.right;
    EXPECT_TRUE(bar.Height() >= 32 || (gaugeBelow && bar.bottom == gauge.top));
    EXPECT_GT(place.size.width - kSeekThumbSize.width, 4);
    EXPECT_LE(kSeekThumbSize.height, place.size.height);
}

INSTANTIATE_TEST_SUITE_P(BothOrientations, LayoutTest,
                         ::testing::Values(ScreenOrientation::Portrait,
                                           ScreenOrientation::Landscape));

TEST(PlayerLayout, OrientationFollowsTheLongerSide) {
    EXPECT_EQ(OrientationOf(240, 320), ScreenOrientation::Portrait);
    EXPECT_EQ(OrientationOf(320, 240), ScreenOrientation::Landscape);
    EXPECT_EQ(OrientationOf(480, 480), ScreenOrientation::Landscape);
}

// Every number a layout asks for is in the catalogue with the layout's size:
// an image shared by two screens must fit both.
void ExpectListed(BitmapId id, PixelSize size, const char* where) {
    const SkinBitmapInfo* info = FindSkinBitmap(id);
    ASSERT_NE(info, nullptr) << where << " asks for " << id;
    EXPECT_TRUE(info->size.width == size.width && info->size.height == size.height)
        << where << " " << id << ": " << info->size.width << "x" << info->size.height;
}

TEST(SkinCatalogue, HoldsEveryBitmapTheLayoutsLoad) {
    for (ScreenOrientation o : {ScreenOrientation::Portrait, ScreenOrientation::Landscape}) {
        const PlayerLayout& player = PlayerLayoutFor(o);
        ExpectListed(player.background, player.screen, "player");
        for (const PlayerButtonPlace& b : player.buttons) {
            for (BitmapId id : {b.normal, b.pressed, b.third})
                if (id != 0)
                    ExpectListed(id, b.size, "player button");
        }
        const BrowserLayout browser = BrowserLayoutFor(o);
        ExpectListed(browser.background, browser.screen, "browser");
        for (const ImageButtonPlace& b : browser.buttons)
            for (BitmapId id : {b.normal, b.pressed})
                ExpectListed(id, kImageButtonSize, "browser button");
    }
    for (const ImageButtonPlace& b : PlayListPanelLayout().buttons)
        for (BitmapId id : {b.normal, b.pressed})
            ExpectListed(id, kImageButtonSize, "panel button");
    ExpectListed(kBmpPanelBackground, PlayListPanelLayout().background, "panel");
}

} // namespace
} // namespace zelvor
