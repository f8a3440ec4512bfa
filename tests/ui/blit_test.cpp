#include "ui/drawing/blit.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

constexpr QRgb kMagenta = 0xFFFF00FF;

QImage Filled(int w, int h, QRgb colour) {
    QImage image(w, h, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

// A bitmap with a magenta frame one pixel wide around a red inside.
QImage FramedSprite() {
    QImage sprite = Filled(4, 3, kMagenta);
    sprite.setPixel(1, 1, 0xFFFF0000);
    sprite.setPixel(2, 1, 0xFFFF0000);
    return sprite;
}

TEST(DrawBitmap, CopiesEveryPixelMagentaIncluded) {
    QImage target = Filled(8, 8, 0xFF000000);
    QPainter painter(&target);
    DrawBitmap(painter, FramedSprite(), 2, 3);
    painter.end();
    EXPECT_EQ(target.pixel(2, 3), kMagenta);
    EXPECT_EQ(target.pixel(3, 4), 0xFFFF0000u);
    EXPECT_EQ(target.pixel(1, 3), 0xFF000000u);
    EXPECT_EQ(target.pixel(6, 3), 0xFF000000u);
}

TEST(DrawBitmap, ReplacesRatherThanBlendsAnImageWithAlpha) {
    QImage target = Filled(2, 2, 0xFF0000FF);
    QImage half(2, 2, QImage::Format_ARGB32);
    half.fill(0x80FF0000);
    QPainter painter(&target);
    DrawBitmap(painter, half, 0, 0);
    painter.end();
    EXPECT_EQ(qRed(target.pixel(0, 0)), 0xFF * 0x80 / 0xFF);
    EXPECT_EQ(qBlue(target.pixel(0, 0)), 0);
}

TEST(RestoreBackground, PutsThePatchBackAtTheSamePlace) {
    QImage background(10, 10, QImage::Format_RGB32);
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 10; ++x) {
            background.setPixel(x, y, qRgb(x * 20, y * 20, 7));
        }
    }
    QImage target = Filled(10, 10, 0xFFFFFFFF);
    QPainter painter(&target);
    RestoreBackground(painter, background, 3, 2, 4, 5);
    painter.end();
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 10; ++x) {
            const bool inside = x >= 3 && x < 7 && y >= 2 && y < 7;
            EXPECT_EQ(target.pixel(x, y), inside ? background.pixel(x, y) : 0xFFFFFFFFu)
                << x << "," << y;
        }
    }
}

TEST(DrawBitmapTransparent, MagentaLeavesTheBackgroundEverywhere) {
    QImage target(8, 8, QImage::Format_RGB32);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            target.setPixel(x, y, qRgb(x, y, 100));
        }
    }
    const QImage before = target;
    const QImage sprite = FramedSprite();
    QPainter painter(&target);
    DrawBitmapTransparent(painter, sprite, 2, 3);
    painter.end();
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            const int sx = x - 2;
            const int sy = y - 3;
            const bool onSprite = sx >= 0 && sx < 4 && sy >= 0 && sy < 3;
            const QRgb expected = onSprite && sprite.pixel(sx, sy) != kMagenta
                                      ? sprite.pixel(sx, sy)
                                      : before.pixel(x, y);
            EXPECT_EQ(target.pixel(x, y), expected) << x << "," << y;
        }
    }
}

TEST(DrawBitmapTransparent, DrawsOnlyTheSourcePartAtThePoint) {
    QImage sprite = Filled(6, 1, 0xFF00FF00);
    sprite.setPixel(4, 0, kMagenta);
    QImage target = Filled(10, 1, 0xFF000000);
    QPainter painter(&target);
    DrawBitmapTransparent(painter, sprite, 1, 0, QRect(3, 0, 3, 1));
    painter.end();
    EXPECT_EQ(target.pixel(0, 0), 0xFF000000u);
    EXPECT_EQ(target.pixel(1, 0), 0xFF00FF00u);
    EXPECT_EQ(target.pixel(2, 0), 0xFF000000u); // the magenta source pixel
    EXPECT_EQ(target.pixel(3, 0), 0xFF00FF00u);
    EXPECT_EQ(target.pixel(4, 0), 0xFF000000u);
}

TEST(Blits, ANullBitmapDrawsNothing) {
    QImage target = Filled(4, 4, 0xFF123456);
    QPainter painter(&target);
    DrawBitmap(painter, QImage(), 0, 0);
    DrawBitmapTransparent(painter, QImage(), 0, 0);
    RestoreBackground(painter, QImage(), 0, 0, 4, 4);
    painter.end();
    EXPECT_EQ(target, Filled(4, 4, 0xFF123456));
}

} // namespace
} // namespace zelvor
