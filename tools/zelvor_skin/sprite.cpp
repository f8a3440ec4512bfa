#include "sprite.h"

#include <algorithm>

namespace zelvor::skin {
namespace {

constexpr QRgb kMagenta = 0xFFFF00FF;

} // namespace

QImage Canvas(int width, int height) {
    QImage canvas(width, height, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    return canvas;
}

void BeginArt(QPainter& painter, QImage& canvas) {
    painter.begin(&canvas);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
}

QImage Flatten(const QImage& art, const QImage& matte, bool keyOut) {
    const QImage source = art.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage under = matte.convertToFormat(QImage::Format_RGB32);
    QImage out(source.size(), QImage::Format_RGB32);
    for (int y = 0; y < source.height(); ++y) {
        const auto* a = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        const auto* m = reinterpret_cast<const QRgb*>(under.constScanLine(y));
        auto* o = reinterpret_cast<QRgb*>(out.scanLine(y));
        for (int x = 0; x < source.width(); ++x) {
            const int alpha = qAlpha(a[x]);
            if (alpha == 0 && keyOut) {
                o[x] = kMagenta;
                continue;
            }
            const auto over = [&](int top, int back) { return top + back * (255 - alpha) / 255; };
            QRgb pixel = qRgb(over(qRed(a[x]), qRed(m[x])), over(qGreen(a[x]), qGreen(m[x])),
                              over(qBlue(a[x]), qBlue(m[x])));
            if (pixel == kMagenta) {
                pixel = qRgb(254, 0, 255); // art that happens to be the key colour stays visible
            }
            o[x] = pixel;
        }
    }
    return out;
}

QImage Flatten(const QImage& art, const QColor& matte, bool keyOut) {
    QImage flat(art.size(), QImage::Format_RGB32);
    flat.fill(matte);
    return Flatten(art, flat, keyOut);
}

QImage ShowOver(const QImage& keyed, const QImage& under) {
    QImage out = under.convertToFormat(QImage::Format_RGB32);
    const QImage top = keyed.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < std::min(out.height(), top.height()); ++y) {
        const auto* t = reinterpret_cast<const QRgb*>(top.constScanLine(y));
        auto* o = reinterpret_cast<QRgb*>(out.scanLine(y));
        for (int x = 0; x < std::min(out.width(), top.width()); ++x) {
            if (t[x] != kMagenta) {
                o[x] = t[x];
            }
        }
    }
    return out;
}

QImage Crop(const QImage& image, int x, int y, int width, int height) {
    return image.copy(x, y, width, height);
}

} // namespace zelvor::skin
