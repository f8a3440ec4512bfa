// The player's status elements drawn over a background: the time digits and
// the volume gauge, pixel by pixel, which also checks the blits under them
// (the background restored and the magenta key left transparent, nothing
// touched outside); a null bitmap draws nothing.
#include "ui/widgets/drawing/player_elements.h"

#include <gtest/gtest.h>

#include "tests/support/qt_app.h"
#include "ui/rules/drawing/element_math.h"
#include "ui/rules/layout/player_layout.h"
#include "ui/widgets/drawing/blit.h"

namespace zelvor {
namespace {
using testing::Painted;

constexpr QRgb kMagenta = 0xFFFF00FF;
constexpr QRgb kDirty = 0xFF101010;

// A background whose every pixel says where it is.
QImage Background() {
    QImage image(240, 160, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x, y, 200));
    return image;
}

// An image of `size` filled with `colour`, its first row (and, for digits,
// its first column) the magenta key so the background must show there.
QImage Keyed(PixelSize size, QRgb colour) {
    QImage image(size.width, size.height, QImage::Format_RGB32);
    image.fill(colour);
    for (int x = 0; x < image.width(); ++x)
        image.setPixel(x, 0, kMagenta);
    for (int y = 0; y < image.height(); ++y)
        image.setPixel(0, y, kMagenta);
    return image;
}

DigitImages AllDigits() {
    DigitImages digits;
    for (int d = 0; d < kDigitImageCount; ++d)
        digits[static_cast<std::size_t>(d)] = Keyed(kDigitCellSize, qRgb(d, 0, 50));
    return digits;
}

QImage Dirty() {
    QImage image(240, 160, QImage::Format_RGB32);
    image.fill(kDirty);
    return image;
}

// Hours of 100 and more wrap (never a ninth cell), values below zero show
// zeros; the volume fill stays within the gauge; a level no gauge has has
// no image.
TEST(ElementMath, DigitCellsVolumeFillAndBatteryImage) {
    constexpr int S = kDigitSeparatorIndex;
    EXPECT_EQ(TimeDigitCells(123, 59, 8), (std::array<int, 8>{2, 3, S, 5, 9, S, 0, 8}));
    EXPECT_EQ(TimeDigitCells(-1, 0, -7), (std::array<int, 8>{0, 0, S, 0, 0, S, 0, 0}));
    for (auto [index, filled] : {std::pair{11, 38}, {-3, 0}, {1, 3}})
        EXPECT_EQ(VolumeFilledWidth(index, 38), filled) << index;
    EXPECT_EQ(VolumeFilledWidth(7, 0), 0);
    EXPECT_EQ(BatteryBitmapId(0), kBmpBatteryLevel0);
    EXPECT_EQ(BatteryBitmapId(5), kBmpBatteryLevel0 + 5);
    EXPECT_EQ(BatteryBitmapId(100), kBmpBatteryCharging);
    EXPECT_EQ(BatteryBitmapId(-1), kBmpBatteryNone);
    for (int level : {6, 99, 101, -2})
        EXPECT_EQ(BatteryBitmapId(level), 0) << level;
}

constexpr PixelPoint kTime{40, 20};

// Elapsed: eight cells over the restored background, the marker cell only
// restored; remaining: the marker drawn over what shows.
TEST(DrawTimeDigits, CellsAndMarker) {
    const QImage background = Background();
    const DigitImages digits = AllDigits();
    const QImage marker = Keyed(kDigitCellSize, qRgb(77, 0, 50));
    for (bool remaining : {false, true}) {
        const QImage screen = Painted(Dirty(), [&](QPainter& p) {
            DrawTimeDigits(p, background, kTime, {1, 2, 3, remaining}, digits, marker);
        });
        const int expected[9] = {remaining ? 77 : -1, 0, 1, 10, 0, 2, 10, 0, 3};
        for (int cell = 0; cell < 9; ++cell) {
            const int left = kTime.x + (cell - 1) * 18;
            const QRgb inside = screen.pixel(left + 8, kTime.y + 16);
            EXPECT_EQ(inside, expected[cell] < 0 ? background.pixel(left + 8, kTime.y + 16)
                                                 : qRgb(expected[cell], 0, 50))
                << cell;
            if (cell > 0 || !remaining) { // the marker is drawn over what shows
                EXPECT_EQ(screen.pixel(left + 8, kTime.y), background.pixel(left + 8, kTime.y));
            }
        }
        EXPECT_EQ(screen.pixel(kTime.x + 8 * 18, kTime.y + 16), kDirty);
        EXPECT_EQ(screen.pixel(kTime.x - 19, kTime.y + 16), kDirty);
    }
}

constexpr QRgb kFull = 0xFFFF0000;
constexpr QRgb kEmpty = 0xFF00FF00;
constexpr QRgb kMute = 0xFF0000FF;
constexpr PixelPoint kGauge{48, 84};

struct GaugeCase {
    const char* name;
    int index;
    bool muted;
    int fullColumns; // -1: the mute image
};

class VolumeGaugeTest : public ::testing::TestWithParam<GaugeCase> {};

TEST_P(VolumeGaugeTest, ShowsFullThenEmptyColumnsOrMute) {
    const GaugeCase c = GetParam();
    const QImage background = Background();
    const QImage screen = Painted(Dirty(), [&](QPainter& p) {
        DrawVolumeGauge(p, background, kGauge, c.index, c.muted,
                        {Keyed(kVolumeGaugeSize, kFull), Keyed(kVolumeGaugeSize, kEmpty),
                         Keyed(kVolumeGaugeSize, kMute)});
    });
    for (int x = 1; x < kVolumeGaugeSize.width; ++x) {
        const QRgb expected = c.fullColumns < 0 ? kMute : x < c.fullColumns ? kFull : kEmpty;
        EXPECT_EQ(screen.pixel(kGauge.x + x, kGauge.y + 5), expected) << "column " << x;
        EXPECT_EQ(screen.pixel(kGauge.x + x, kGauge.y), background.pixel(kGauge.x + x, kGauge.y));
    }
    EXPECT_EQ(screen.pixel(kGauge.x + 38, kGauge.y + 5), kDirty);
    EXPECT_EQ(screen.pixel(kGauge.x, kGauge.y + 10), kDirty);
}

INSTANTIATE_TEST_SUITE_P(Volumes, VolumeGaugeTest,
                         ::testing::Values(GaugeCase{"Zero", 0, false, 0},
                                           GaugeCase{"Three", 3, false, 11},
                                           GaugeCase{"Muted", 5, true, -1}),
                         [](const auto& param) { return std::string(param.param.name); });

TEST(Blits, ANullBitmapDrawsNothing) {
    const QImage target = Painted(Dirty(), [](QPainter& p) {
        DrawBitmap(p, QImage(), 0, 0);
        DrawBitmapTransparent(p, QImage(), 0, 0);
        RestoreBackground(p, QImage(), 0, 0, 4, 4);
    });
    EXPECT_EQ(target, Dirty());
}

} // namespace
} // namespace zelvor
