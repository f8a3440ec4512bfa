#include "ui/rules/layout/browser_layout.h"

namespace zelvor {
namespace {

constexpr int kCommandUp = 2004;
constexpr int kCommandUpdate = 2007;
constexpr int kCommandDeleteFavourite = 1004;
constexpr int kCommandAddFavourite = 1005;
constexpr int kCommandPlay = 2005;

PixelRect ButtonAt(int left, int top) {
    return PixelRect::At({left, top}, kImageButtonSize);
}

} // namespace

BrowserLayout BrowserLayoutFor(ScreenOrientation orientation) {
    BrowserLayout layout;
    const bool portrait = orientation == ScreenOrientation::Portrait;
    layout.screen = portrait ? PixelSize{240, 320} : PixelSize{320, 240};
    layout.background = portrait ? kBmpBrowserPortraitBackground : kBmpBrowserLandscapeBackground;
    layout.list = portrait ? PixelRect{8, 50, 232, 294} : PixelRect{8, 12, 266, 212};
    // Portrait: a row along the top, each button 40 pixels left of the one
    // before; landscape: a column on the right, each 45 pixels lower.
    const auto place = [&](int step) {
        return portrait ? ButtonAt(198 - 40 * step, 2) : ButtonAt(279, 36 + 45 * step);
    };
    layout.buttons[kBrowserUp] = {kCommandUp, kBmpBrowserUp, kBmpBrowserUpPressed, place(0)};
    layout.buttons[kBrowserUpdate] = {kCommandUpdate, kBmpBrowserUpdate, kBmpBrowserUpdatePressed,
                                      place(1)};
    layout.buttons[kBrowserFavourites] = {kCommandAddFavourite, kBmpFavourites,
                                          kBmpFavouritesPressed, place(2)};
    layout.buttons[kBrowserDeleteFavourite] = {kCommandDeleteFavourite, kBmpDeleteSongs,
                                               kBmpDeleteSongsPressed, place(2)};
    layout.buttons[kBrowserPlay] = {kCommandPlay, kBmpBrowserPlay, kBmpBrowserPlayPressed, place(3)};
    layout.status = {layout.list.left, layout.list.bottom + 1, layout.list.right,
                     layout.screen.height};
    return layout;
}

const PanelLayout& PlayListPanelLayout() {
    static const PanelLayout layout{
        {320, 320},
        {13, 68, 260, 230},
        {{
            {1002, kBmpPanelHandOn, kBmpPanelHandOnPressed, ButtonAt(13, 14)},
            {1003, kBmpPanelClear, kBmpPanelClearPressed, ButtonAt(56, 14)},
            {1004, kBmpDeleteSongs, kBmpDeleteSongsPressed, ButtonAt(99, 14)},
            {1005, kBmpFavourites, kBmpFavouritesPressed, ButtonAt(142, 14)},
        }},
    };
    return layout;
}

} // namespace zelvor
