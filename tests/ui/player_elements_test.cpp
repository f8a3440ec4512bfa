#include "ui/widgets/drawing/player_elements.h"

#include <gtest/gtest.h>

#include "gui_app.h"
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

// Digit image d: a solid block of colour (d, 0, 50) with a magenta border.
QImage DigitImage(int d) {
    QImage image(kDigitCellSize.width, kDigitCellSize.height, QImage::Format_RGB32);
    image.fill(kMagenta);
    for (int y = 4; y < 28; ++y)
        for (int x = 3; x < 15; ++x)
            image.setPixel(x, y, qRgb(d, 0, 50));
    return image;
}

DigitImages AllDigits() {
    DigitImages digits;
    for (int d = 0; d < kDigitImageCount; ++d)
        digits[static_cast<std::size_t>(d)] = DigitImage(d);
    return digits;
}

QImage Dirty(const QImage& like) {
    QImage image(like.size(), QImage::Format_RGB32);
    image.fill(kDirty);
    return image;
}

// The arithmetic of the elements: digit cells, the volume gauge's fill and
// the battery image.
TEST(ElementMath, TimeDigitCellsReadHoursMinutesSecondsWithSeparators) {
    constexpr int S = kDigitSeparatorIndex;
    const std::pair<std::array<int, 3>, std::array<int, 8>> cases[] = {
        {{0, 0, 0}, {0, 0, S, 0, 0, S, 0, 0}},
        {{1, 2, 3}, {0, 1, S, 0, 2, S, 0, 3}},
        {{23, 59, 58}, {2, 3, S, 5, 9, S, 5, 8}},
        {{123, 4, 5}, {2, 3, S, 0, 4, S, 0, 5}}, // 100 hours and more wrap, never a 10th digit
        {{-1, 0, -7}, {0, 0, S, 0, 0, S, 0, 0}},
    };
    for (const auto& [hms, cells] : cases)
        EXPECT_EQ(TimeDigitCells(hms[0], hms[1], hms[2]), cells) << hms[0];
    EXPECT_EQ(DigitCellLeft(60, 0), 60);
    EXPECT_EQ(DigitCellLeft(60, 7), 60 + 7 * 18);
}

TEST(ElementMath, VolumeFilledWidthIsIndexTimesWidthOverTenInWholePixels) {
    const std::array<int, 3> cases[] = {{0, 38, 0},  {1, 38, 3},   {5, 38, 19}, {9, 38, 34},
                                        {10, 38, 38}, {11, 38, 38}, {-3, 38, 0}, {7, 0, 0}};
    for (auto [index, width, filled] : cases)
        EXPECT_EQ(VolumeFilledWidth(index, width), filled) << index << " of " << width;
}

TEST(ElementMath, BatteryBitmapIdPicksTheImageByLevel) {
    EXPECT_EQ(BatteryBitmapId(0), 1566);
    EXPECT_EQ(BatteryBitmapId(5), 1571);
    EXPECT_EQ(BatteryBitmapId(100), 1572);
    EXPECT_EQ(BatteryBitmapId(-1), 2030);
    for (int level : {6, 50, 99, 101, -2})
        EXPECT_EQ(BatteryBitmapId(level), 0) << level;
}

constexpr PixelPoint kTime{40, 20};

TEST(DrawTimeDigits, EachCellShowsItsDigitOverTheBackground) {
    const QImage background = Background();
    const QImage screen = Painted(Dirty(background), [&](QPainter& p) {
        DrawTimeDigits(p, background, kTime, {1, 2, 3, false}, AllDigits(), DigitImage(77));
    });
    const int expected[8] = {0, 1, 10, 0, 2, 10, 0, 3};
    for (int cell = 0; cell < 8; ++cell) {
        const int left = kTime.x + cell * 18;
        EXPECT_EQ(screen.pixel(left + 8, kTime.y + 16), qRgb(expected[cell], 0, 50)) << cell;
        // The digit's magenta border shows the restored background.
        EXPECT_EQ(screen.pixel(left + 1, kTime.y + 1), background.pixel(left + 1, kTime.y + 1))
            << cell;
    }
    // Elapsed time: the marker cell is background, and nothing else changed.
    EXPECT_EQ(screen.pixel(kTime.x - 10, kTime.y + 16), background.pixel(kTime.x - 10, kTime.y + 16));
    EXPECT_EQ(screen.pixel(kTime.x + 8 * 18, kTime.y + 16), kDirty);
    EXPECT_EQ(screen.pixel(kTime.x - 19, kTime.y + 16), kDirty);
}

TEST(DrawTimeDigits, RemainingTimeDrawsTheMarkerLeftOfTheDigits) {
    const QImage background = Background();
    const QImage screen = Painted(background.copy(), [&](QPainter& p) {
        DrawTimeDigits(p, background, kTime, {0, 0, 29, true}, AllDigits(), DigitImage(77));
    });
    EXPECT_EQ(screen.pixel(kTime.x - 18 + 8, kTime.y + 16), qRgb(77, 0, 50));
    EXPECT_EQ(screen.pixel(kTime.x - 18 + 1, kTime.y + 1), background.pixel(kTime.x - 17, kTime.y + 1));
    EXPECT_EQ(screen.pixel(kTime.x + 7 * 18 + 8, kTime.y + 16), qRgb(9, 0, 50));
}

TEST(DrawTimeDigits, ACellWithoutItsImageIsLeftAlone) {
    const QImage background = Background();
    DigitImages digits = AllDigits();
    digits[2] = QImage();
    const QImage screen = Painted(Dirty(background), [&](QPainter& p) {
        DrawTimeDigits(p, background, kTime, {0, 2, 2, false}, digits, QImage());
    });
    // Cells 4 and 7 ask for the missing 2; cell 3 shows a 0.
    EXPECT_EQ(screen.pixel(kTime.x + 4 * 18 + 8, kTime.y + 16), kDirty);
    EXPECT_EQ(screen.pixel(kTime.x + 7 * 18 + 8, kTime.y + 16), kDirty);
    EXPECT_EQ(screen.pixel(kTime.x + 3 * 18 + 8, kTime.y + 16), qRgb(0, 0, 50));
}

// Gauge images: full is red, empty green, mute blue, each with a magenta
// top row so that the background must show there.
QImage GaugeImage(QRgb colour) {
    QImage image(kVolumeGaugeSize.width, kVolumeGaugeSize.height, QImage::Format_RGB32);
    image.fill(colour);
    for (int x = 0; x < image.width(); ++x)
        image.setPixel(x, 0, kMagenta);
    return image;
}

constexpr QRgb kFull = 0xFFFF0000;
constexpr QRgb kEmpty = 0xFF00FF00;
constexpr QRgb kMute = 0xFF0000FF;
constexpr PixelPoint kGauge{48, 84};

struct GaugeCase {
    int index;
    bool muted;
    int fullColumns; // -1: the mute image
};

class VolumeGaugeTest : public ::testing::TestWithParam<GaugeCase> {};

TEST_P(VolumeGaugeTest, ShowsFullThenEmptyColumnsOrMute) {
    const GaugeCase c = GetParam();
    const QImage background = Background();
    const QImage screen = Painted(Dirty(background), [&](QPainter& p) {
        DrawVolumeGauge(p, background, kGauge, c.index, c.muted,
                    {GaugeImage(kFull), GaugeImage(kEmpty), GaugeImage(kMute)});
    });
    for (int x = 0; x < kVolumeGaugeSize.width; ++x) {
        const QRgb expected = c.fullColumns < 0 ? kMute : x < c.fullColumns ? kFull : kEmpty;
        EXPECT_EQ(screen.pixel(kGauge.x + x, kGauge.y + 5), expected) << "column " << x;
        EXPECT_EQ(screen.pixel(kGauge.x + x, kGauge.y), background.pixel(kGauge.x + x, kGauge.y))
            << "column " << x;
    }
    EXPECT_EQ(screen.pixel(kGauge.x + 38, kGauge.y + 5), kDirty);
    EXPECT_EQ(screen.pixel(kGauge.x, kGauge.y + 10), kDirty);
}

INSTANTIATE_TEST_SUITE_P(Volumes, VolumeGaugeTest,
                         ::testing::Values(GaugeCase{0, false, 0}, GaugeCase{5, false, 19},
                                           GaugeCase{10, false, 38}, GaugeCase{3, false, 11},
                                           GaugeCase{5, true, -1}, GaugeCase{0, true, -1}));

TEST(DrawIndicator, RestoresItsPatchAndDrawsOnlyWhenShown) {
    const QImage background = Background();
    QImage icon(20, 20, QImage::Format_RGB32);
    icon.fill(kMagenta);
    icon.setPixel(10, 10, 0xFF00FFFF);
    for (bool shown : {false, true}) {
        const QImage screen = Painted(Dirty(background), [&](QPainter& p) {
            DrawIndicator(p, background, {100, 30}, shown, icon);
        });
        EXPECT_EQ(screen.pixel(110, 40), shown ? 0xFF00FFFFu : background.pixel(110, 40));
        EXPECT_EQ(screen.pixel(119, 49), background.pixel(119, 49));
        EXPECT_EQ(screen.pixel(120, 50), kDirty);
    }
}

TEST(DrawBatteryGauge, RestoresItsPatchEvenWithoutAnImage) {
    const QImage background = Background();
    const QImage screen = Painted(Dirty(background), [&](QPainter& p) {
        DrawBatteryGauge(p, background, {150, 10}, QImage());
    });
    EXPECT_EQ(screen.pixel(150, 10), background.pixel(150, 10));
    EXPECT_EQ(screen.pixel(177, 23), background.pixel(177, 23));
    EXPECT_EQ(screen.pixel(178, 23), kDirty);
}

TEST(DrawClockText, DrawsBlackTextInsideItsRestoredRectangle) {
    testing::EnsureGuiApplication();
    const QImage background = Background();
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(13);
    font.setBold(true);
    const QImage screen = Painted(Dirty(background), [&](QPainter& p) {
        DrawClockText(p, background, {44, 6, 100, 38}, QStringLiteral("12:34"), font);
    });
    int black = 0;
    for (int y = 0; y < screen.height(); ++y)
        for (int x = 0; x < screen.width(); ++x)
            if (!QRect(QPoint(44, 6), QPoint(99, 37)).contains(x, y)) {
                ASSERT_EQ(screen.pixel(x, y), kDirty) << x << "," << y;
            } else {
                black += screen.pixel(x, y) == 0xFF000000u;
            }
    EXPECT_GT(black, 20);
}

} // namespace
} // namespace zelvor
