#include "ui/rules/layout/skin_catalogue.h"

#include <gtest/gtest.h>

#include "ui/rules/layout/browser_layout.h"
#include "ui/rules/layout/player_layout.h"

namespace zelvor {
namespace {

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
