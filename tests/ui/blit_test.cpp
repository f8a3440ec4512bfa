#include "ui/widgets/drawing/blit.h"

#include <gtest/gtest.h>

#include "tests/support/qt_app.h"

namespace zelvor {
namespace {
using testing::Painted;

constexpr QRgb kMagenta = 0xFFFF00FF;

QImage Filled(int w, int h, QRgb colour) {
    QImage image(w, h, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

// An image whose every pixel says where it is.
QImage Gradient(int w, int h) {
    QImage image(w, h, QImage::Format_RGB32);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            image.setPixel(x, y, qRgb(x * 20, y * 20, 7));
    return image;
}

// A bitmap with a magenta frame one pixel wide around a red inside.
QImage FramedSprite() {
    QImage sprite = Filled(4, 3, kMagenta);
    sprite.setPixel(1, 1, 0xFFFF0000);
    sprite.setPixel(2, 1, 0xFFFF0000);
    return sprite;
}

// Every pixel of the target: the source's where it was drawn, else the old.
TEST(Blits, RestoreBackgroundAndTransparentBlitsTouchOnlyTheirPixels) {
    const QImage background = Gradient(10, 10);
    const QImage sprite = FramedSprite();
    const QImage restored = Painted(Filled(10, 10, 0xFFFFFFFF), [&](QPainter& p) {
        RestoreBackground(p, background, 3, 2, 4, 5);
    });
    const QImage keyed = Painted(background, [&](QPainter& p) {
        DrawBitmapTransparent(p, sprite, 2, 3);
    });
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 10; ++x) {
            const bool inside = x >= 3 && x < 7 && y >= 2 && y < 7;
            EXPECT_EQ(restored.pixel(x, y), inside ? background.pixel(x, y) : 0xFFFFFFFFu)
                << x << "," << y;
            const QPoint s(x - 2, y - 3);
            const bool onSprite = sprite.rect().contains(s) && sprite.pixel(s) != kMagenta;
            EXPECT_EQ(keyed.pixel(x, y), onSprite ? sprite.pixel(s) : background.pixel(x, y))
                << x << "," << y;
        }
    }
}

TEST(Blits, ANullBitmapDrawsNothing) {
    const QImage target = Painted(Filled(4, 4, 0xFF123456), [](QPainter& p) {
        DrawBitmap(p, QImage(), 0, 0);
        DrawBitmapTransparent(p, QImage(), 0, 0);
        RestoreBackground(p, QImage(), 0, 0, 4, 4);
    });
    EXPECT_EQ(target, Filled(4, 4, 0xFF123456));
}

} // namespace
} // namespace zelvor
