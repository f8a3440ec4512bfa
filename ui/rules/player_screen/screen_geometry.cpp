#include "ui/rules/player_screen/screen_geometry.h"

#include <algorithm>

namespace zelvor {

ScreenGeometry MakeScreenGeometry(const PlayerLayout& layout,
                                  const std::array<PixelSize, kPlayerButtonCount>& normalImages,
                                  PixelSize thumbImage) {
    ScreenGeometry geometry;
    geometry.layout = &layout;
    for (int i = 0; i < kPlayerButtonCount; ++i) {
        const auto index = static_cast<std::size_t>(i);
        geometry.buttons[index] =
            PixelRect::At(layout.buttons[index].position, normalImages[index]);
    }
    geometry.thumb = thumbImage;
    return geometry;
}

std::optional<int> ButtonAt(const ScreenGeometry& geometry, const PlayerButtons& buttons,
                            PixelPoint point) {
    for (int i = 0; i < kPlayerButtonCount; ++i) {
        if (buttons.State(i) != kDisplayHidden &&
            geometry.buttons[static_cast<std::size_t>(i)].Contains(point))
            return i;
    }
    return std::nullopt;
}

PixelRect ThumbRect(const ScreenGeometry& geometry, const SeekBar& bar) {
    const PixelRect& seekBar = geometry.buttons[kButtonSeekBar];
    return PixelRect::At({bar.thumbX, seekBar.top}, geometry.thumb);
}

PixelRect Union(const PixelRect& a, const PixelRect& b) {
    if (a.IsEmpty())
        return b;
    if (b.IsEmpty())
        return a;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

PixelRect ButtonArea(const ScreenGeometry& geometry, int button) {
    if (button < 0 || button >= kPlayerButtonCount || !geometry.layout)
        return {};
    const auto index = static_cast<std::size_t>(button);
    return Union(ButtonRect(geometry.layout->buttons[index]), geometry.buttons[index]);
}

PixelRect ElementArea(const ScreenGeometry& geometry, ScreenElement element) {
    if (!geometry.layout)
        return {};
    const PlayerLayout& layout = *geometry.layout;
    switch (element) {
    case ScreenElement::SeekBar: {
        // The thumb travels the bar's width less its own, so the bar and
        // one thumb height from the bar's top hold every place it can be.
        const PixelRect bar = ButtonArea(geometry, kButtonSeekBar);
        return Union(bar, {bar.left, bar.top, bar.right, bar.top + geometry.thumb.height});
    }
    case ScreenElement::TimeDigits: {
        PixelRect time = TimeRect(layout);
        time.left = layout.timeArea.x;
        return time;
    }
    case ScreenElement::RemainingMarker:
        return PixelRect::At({layout.timeArea.x - kDigitCellSize.width, layout.timeArea.y},
                             kDigitCellSize);
    case ScreenElement::Volume:
        return VolumeGaugeRect(layout);
    case ScreenElement::Clock:
        return layout.clock;
    case ScreenElement::Battery:
        return BatteryRect(layout);
    case ScreenElement::Indicator:
        return IndicatorRect(layout);
    case ScreenElement::Title:
        return layout.title;
    case ScreenElement::Counter:
        return layout.counter;
    }
    return {};
}

} // namespace zelvor
