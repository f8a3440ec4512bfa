#include "ui/widgets/player_screen/player_screen_images.h"

#include "ui/rules/drawing/element_math.h"

namespace zelvor {
namespace {

constexpr int kBatteryCharging = 100;
constexpr int kBatteryNone = -1;
constexpr std::array<int, kBatteryImageCount> kBatteryLevels = {
    0, 1, 2, 3, 4, 5, kBatteryCharging, kBatteryNone};

QImage Load(const SkinHandle& skin, BitmapId id) {
    return id == 0 ? QImage() : LoadSkinBitmap(skin, id);
}

PixelSize SizeOf(const QImage& image) {
    return image.isNull() ? PixelSize{} : PixelSize{image.width(), image.height()};
}

} // namespace

const QImage& PlayerScreenImages::BatteryImage(int level) const {
    static const QImage kNone;
    for (std::size_t i = 0; i < kBatteryLevels.size(); ++i) {
        if (kBatteryLevels[i] == level)
            return battery[i];
    }
    return kNone;
}

PlayerScreenImages LoadPlayerScreenImages(const SkinHandle& skin, const PlayerLayout& layout) {
    PlayerScreenImages images;
    images.background = Load(skin, layout.background);
    for (std::size_t i = 0; i < images.buttons.size(); ++i) {
        const PlayerButtonPlace& place = layout.buttons[i];
        images.buttons[i] = {Load(skin, place.normal), Load(skin, place.pressed),
                             Load(skin, place.third)};
    }
    images.thumb = Load(skin, kBmpSeekThumb);
    images.thumbPressed = Load(skin, kBmpSeekThumbPressed);
    for (int d = 0; d < kDigitImageCount; ++d)
        images.digits[static_cast<std::size_t>(d)] =
            Load(skin, static_cast<BitmapId>(kBmpDigit0 + d));
    images.gauge = {Load(skin, kBmpVolumeGaugeFull), Load(skin, kBmpVolumeGaugeEmpty),
                    Load(skin, kBmpVolumeGaugeMute)};
    images.remainingMarker = Load(skin, kBmpRemainingTimeMarker);
    images.titleEmblem = Load(skin, kBmpTitleEmblem);
    images.indicator = Load(skin, kBmpIndicator);
    // The gauge is the program's own whatever the skin: its colours tell the
    // charge and must read the same in every skin.
    const SkinHandle own = ProgramResourceHandle();
    for (std::size_t i = 0; i < kBatteryLevels.size(); ++i)
        images.battery[i] = Load(own, BatteryBitmapId(kBatteryLevels[i]));
    return images;
}

ScreenGeometry GeometryOf(const PlayerLayout& layout, const PlayerScreenImages& images) {
    std::array<PixelSize, kPlayerButtonCount> sizes{};
    for (std::size_t i = 0; i < sizes.size(); ++i)
        sizes[i] = SizeOf(images.buttons[i].normal);
    return MakeScreenGeometry(layout, sizes, SizeOf(images.thumb));
}

} // namespace zelvor
