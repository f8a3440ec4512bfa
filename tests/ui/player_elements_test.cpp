#include "ui/widgets/drawing/player_elements.h"

#include <gtest/gtest.h>

#include "tests/support/qt_app.h"
#include "ui/rules/drawing/element_math.h"
#include "ui/rules/layout/player_layout.h"

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

TEST(ElementMath, DigitCellsVolumeFillAndBatteryImage) {
    constexpr int S = kDigitSeparatorIndex;
    const std::pair<std::array<int, 3>, std::array<int, 8>> cells[] = {
        {{1, 2, 3}, {0, 1, S, 0, 2, S, 0, 3}},
        {{23, 59, 58}, {2, 3, S, 5, 9, S, 5, 8}},
        {{123, 4, 5}, {2, 3, S, 0, 4, S, 0, 5}}, // 100 hours and more wrap, never a 10th digit
        {{-1, 0, -7}, {0, 0, S, 0, 0, S, 0, 0}},
    };
    for (const auto& [hms, expected] : cells)
        EXPECT_EQ(TimeDigitCells(hms[0], hms[1], hms[2]), expected) << hms[0];
    EXPECT_EQ(DigitCellLeft(60, 7), 60 + 7 * 18);
    const std::array<int, 3> fills[] = {{0, 38, 0},   {1, 38, 3},   {5, 38, 19}, {9, 38, 34},
                                        {10, 38, 38}, {11, 38, 38}, {-3, 38, 0}, {7, 0, 0}};
    for (auto [index, width, filled] : fills)
        EXPECT_EQ(VolumeFilledWidth(index, width), filled) << index << " of " << width;
    const std::pair<int, int> battery[] = {{0, 1566},  {5, 1571}, {100, 1572}, {-1, 2030},
                                           {6, 0},     {99, 0},   {101, 0},    {-2, 0}};
    for (auto [level, id] : battery)
        EXPECT_EQ(BatteryBitmapId(level), id) << level;
}

constexpr PixelPoint kTime{40, 20};

// Elapsed: eight cells over the restored background, the marker cell only
// restored; remaining: the marker drawn over what shows; a cell whose image
// is missing is left alone.
TEST(DrawTimeDigits, CellsMarkerAndMissingImages) {
    const QImage background = Background();
    DigitImages digits = AllDigits();
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
    digits[2] = QImage();
    const QImage screen = Painted(Dirty(), [&](QPainter& p) {
        DrawTimeDigits(p, background, kTime, {0, 2, 2, false}, digits, QImage());
    });
    EXPECT_EQ(screen.pixel(kTime.x + 4 * 18 + 8, kTime.y + 16), kDirty);
    EXPECT_EQ(screen.pixel(kTime.x + 7 * 18 + 8, kTime.y + 16), kDirty);
    EXPECT_EQ(screen.pixel(kTime.x + 3 * 18 + 8, kTime.y + 16), qRgb(0, 0, 50));
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
                                           GaugeCase{"Five", 5, false, 19},
                                           GaugeCase{"Ten", 10, false, 38},
                                           GaugeCase{"Muted", 5, true, -1}),
                         [](const auto& param) { return std::string(param.param.name); });

// The indicator and the battery restore their patch and draw only what shows.
TEST(DrawIndicatorAndBattery, RestoreTheirPatch) {
    const QImage background = Background();
    QImage icon(20, 20, QImage::Format_RGB32);
    icon.fill(kMagenta);
    icon.setPixel(10, 10, 0xFF00FFFF);
    for (bool shown : {false, true}) {
        const QImage screen = Painted(Dirty(), [&](QPainter& p) {
            DrawIndicator(p, background, {100, 30}, shown, icon);
            DrawBatteryGauge(p, background, {150, 10}, QImage());
        });
        EXPECT_EQ(screen.pixel(110, 40), shown ? 0xFF00FFFFu : background.pixel(110, 40));
        for (QPoint in : {QPoint(119, 49), QPoint(150, 10), QPoint(177, 23)})
            EXPECT_EQ(screen.pixel(in), background.pixel(in));
        for (QPoint out : {QPoint(120, 50), QPoint(178, 23)})
            EXPECT_EQ(screen.pixel(out), kDirty);
    }
}

TEST(DrawClockText, DrawsBlackTextInsideItsRestoredRectangle) {
    testing::EnsureQtApplication();
    const QImage background = Background();
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(13);
    font.setBold(true);
    const QImage screen = Painted(Dirty(), [&](QPainter& p) {
        DrawClockText(p, background, {44, 6, 100, 38}, QStringLiteral("12:34"), font);
    });
    int black = 0;
    for (int y = 0; y < screen.height(); ++y)
        for (int x = 0; x < screen.width(); ++x)
            if (!QRect(QPoint(44, 6), QPoint(99, 37)).contains(x, y))
                ASSERT_EQ(screen.pixel(x, y), kDirty) << x << "," << y;
            else
                black += screen.pixel(x, y) == 0xFF000000u;
    EXPECT_GT(black, 20);
}

} // namespace
} // namespace zelvor
