#include "ui/rules/layout/skin_catalogue.h"

#include <algorithm>
#include <array>
#include <vector>

#include "ui/rules/layout/browser_layout.h"
#include "ui/rules/layout/player_layout.h"

namespace zelvor {
namespace {

constexpr std::array<std::string_view, kPlayerButtonCount> kButtonNames = {
    "next",      "previous",   "stop",        "play",       "pause",  "seek bar",
    "volume up", "volume dn",  "repeat off",  "repeat one", "repeat all",
    "random off", "random on", "library",     "hide",       "display off", "menu"};

constexpr std::array<std::string_view, 11> kDigitNames = {"0", "1", "2", "3", "4", "5",
                                                          "6", "7", "8", "9", "sep"};
constexpr std::array<std::string_view, 8> kBatteryNames = {
    "batt 0", "batt 1", "batt 2", "batt 3", "batt 4", "batt 5", "charging", "no batt"};

void AddPlayer(std::vector<SkinBitmapInfo>& out, ScreenOrientation orientation) {
    const PlayerLayout& layout = PlayerLayoutFor(orientation);
    out.push_back({layout.background, layout.screen, false,
                   orientation == ScreenOrientation::Portrait ? "player 240x320"
                                                              : "player 320x240"});
    for (int i = 0; i < kPlayerButtonCount; ++i) {
        const PlayerButtonPlace& b = layout.buttons[static_cast<std::size_t>(i)];
        const std::string_view name = kButtonNames[static_cast<std::size_t>(i)];
        for (BitmapId id : {b.normal, b.pressed, b.third}) {
            if (id != 0) {
                out.push_back({id, b.size, true, name});
            }
        }
    }
}

void AddImageButtons(std::vector<SkinBitmapInfo>& out, std::span<const ImageButtonPlace> buttons,
                     std::string_view name) {
    for (const ImageButtonPlace& b : buttons) {
        out.push_back({b.normal, kImageButtonSize, false, name});
        out.push_back({b.pressed, kImageButtonSize, false, name});
    }
}

std::vector<SkinBitmapInfo> BuildCatalogue() {
    std::vector<SkinBitmapInfo> all;
    AddPlayer(all, ScreenOrientation::Portrait);
    AddPlayer(all, ScreenOrientation::Landscape);
    all.push_back({kBmpSeekThumb, kSeekThumbSize, true, "thumb"});
    all.push_back({kBmpSeekThumbPressed, kSeekThumbSize, true, "thumb"});
    all.push_back({kBmpVolumeGaugeFull, kVolumeGaugeSize, true, "vol full"});
    all.push_back({kBmpVolumeGaugeEmpty, kVolumeGaugeSize, true, "vol empty"});
    all.push_back({kBmpVolumeGaugeMute, kVolumeGaugeSize, true, "vol mute"});
    all.push_back({kBmpRemainingTimeMarker, kDigitCellSize, true, "remaining"});
    all.push_back({kBmpTitleEmblem, kTitleEmblemSize, true, "emblem"});
    all.push_back({kBmpIndicator, kIndicatorSize, true, "indicator"});
    for (int i = 0; i < kDigitImageCount; ++i) {
        all.push_back({static_cast<BitmapId>(kBmpDigit0 + i), kDigitCellSize, true,
                       kDigitNames[static_cast<std::size_t>(i)]});
    }
    for (int level = 0; level <= 6; ++level) {
        all.push_back({static_cast<BitmapId>(kBmpBatteryLevel0 + level), kBatterySize, true,
                       kBatteryNames[static_cast<std::size_t>(level)]});
    }
    all.push_back({kBmpBatteryNone, kBatterySize, true, kBatteryNames[7]});

    for (ScreenOrientation o : {ScreenOrientation::Portrait, ScreenOrientation::Landscape}) {
        const BrowserLayout browser = BrowserLayoutFor(o);
        all.push_back({browser.background, browser.screen, false,
                       o == ScreenOrientation::Portrait ? "browser 240x320" : "browser 320x240"});
        AddImageButtons(all, browser.buttons, "browser");
    }
    const PanelLayout& panel = PlayListPanelLayout();
    all.push_back({kBmpPanelBackground, panel.background, false, "panel"});
    AddImageButtons(all, panel.buttons, "panel");

    // Shared images appear once per screen that uses them.
    std::ranges::sort(all, {}, &SkinBitmapInfo::id);
    const auto [first, last] = std::ranges::unique(all, {}, &SkinBitmapInfo::id);
    all.erase(first, last);
    return all;
}

} // namespace

std::span<const SkinBitmapInfo> SkinBitmapCatalogue() {
    static const std::vector<SkinBitmapInfo> catalogue = BuildCatalogue();
    return catalogue;
}

const SkinBitmapInfo* FindSkinBitmap(BitmapId id) {
    const auto all = SkinBitmapCatalogue();
    const auto it = std::ranges::lower_bound(all, id, {}, &SkinBitmapInfo::id);
    return it != all.end() && it->id == id ? &*it : nullptr;
}

} // namespace zelvor
