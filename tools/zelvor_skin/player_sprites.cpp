#include "player_sprites.h"

#include <QFont>
#include <QPainterPath>

#include "icons.h"
#include "sprite.h"
#include "ui/rules/layout/player_layout.h"

namespace zelvor::skin {
namespace {

QImage MatteAt(const QImage& background, PixelPoint at, PixelSize size) {
    return Crop(background, at.x, at.y, size.width, size.height);
}

// A digit as a filled outline: DejaVu Sans Bold, narrowed to fit the cell
// with a little air on each side, its figures 24 pixels high.
QImage Digit(const Palette& p, QChar digit, const QImage& matte) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setBold(true);
    font.setPixelSize(100);
    QPainterPath glyph;
    glyph.addText(0, 0, font, QString(digit));
    const QRectF box = glyph.boundingRect();
    const double height = 24.0;
    const double scaleY = height / box.height();
    const double scaleX = std::min(scaleY, 14.5 / box.width());
    QImage canvas = Canvas(kDigitCellSize.width, kDigitCellSize.height);
    QPainter painter;
    BeginArt(painter, canvas);
    painter.translate(kDigitCellSize.width / 2.0, 4.0);
    painter.scale(scaleX, scaleY);
    painter.translate(-box.center().x(), -box.top());
    painter.setPen(Qt::NoPen);
    painter.setBrush(p.ink);
    painter.drawPath(glyph);
    painter.end();
    return Flatten(canvas, matte);
}

QImage Separator(const Palette& p, const QImage& matte) {
    QImage canvas = Canvas(kDigitCellSize.width, kDigitCellSize.height);
    QPainter painter;
    BeginArt(painter, canvas);
    painter.setPen(Qt::NoPen);
    painter.setBrush(p.accent);
    painter.drawRoundedRect(QRectF(6.5, 9.5, 5, 5), 1.5, 1.5);
    painter.drawRoundedRect(QRectF(6.5, 19.5, 5, 5), 1.5, 1.5);
    painter.end();
    return Flatten(canvas, matte);
}

QImage RemainingMarker(const Palette& p, const QImage& matte) {
    QImage canvas = Canvas(kDigitCellSize.width, kDigitCellSize.height);
    QPainter painter;
    BeginArt(painter, canvas);
    painter.setPen(Qt::NoPen);
    painter.setBrush(p.accent);
    painter.drawRoundedRect(QRectF(3, 14.5, 12, 4), 2, 2);
    painter.end();
    return Flatten(canvas, matte);
}

// Ten rising bars, 3 pixels wide, the i-th starting at ceil(i * 3.8): with
// filled = index * 38 / 10 every volume step shows exactly that many whole bars.
enum class Gauge { Full, Empty, Mute };

QImage VolumeGauge(const Palette& p, Gauge kind, const QImage& matte) {
    QImage canvas = Canvas(kVolumeGaugeSize.width, kVolumeGaugeSize.height);
    QPainter painter(&canvas); // crisp bars, no antialiasing
    const QColor colour = kind == Gauge::Full    ? p.accent
                          : kind == Gauge::Empty ? p.line
                                                 : Mix(p.line, p.surface, 0.6);
    for (int i = 0; i < 10; ++i) {
        const int left = (i * kVolumeGaugeSize.width + 9) / 10;
        const int height = 3 + (i * 7 + 4) / 9;
        painter.fillRect(QRect(left, kVolumeGaugeSize.height - height, 3, height), colour);
    }
    if (kind == Gauge::Mute) {
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(QPen(QColor(0xD6, 0x3B, 0x3B), 1.8, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(12, 9), QPointF(26, 1));
        painter.drawLine(QPointF(12, 1), QPointF(26, 9));
    }
    painter.end();
    return Flatten(canvas, matte);
}

// Battery: an outlined cell with a nub; five segments of charge, orange at
// one and red when empty; a green cell with a bolt while charging; a grey
// struck-through cell when there is no battery.
QImage Battery(const Palette& p, int level, const QImage& matte) {
    QImage canvas = Canvas(kBatterySize.width, kBatterySize.height);
    QPainter painter;
    BeginArt(painter, canvas);
    const bool none = level < 0;
    const bool charging = level > 5;
    const QColor red(0xD6, 0x3B, 0x3B);
    const QColor orange(0xE8, 0x8A, 0x1A);
    const QColor green(0x25, 0xA0, 0x5A);
    QColor body = none ? p.disabled : p.ink;
    if (level == 0) {
        body = red;
    }
    painter.setPen(QPen(body, 1.4));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(1.2, 1.7, 22.6, 10.6), 2.4, 2.4);
    painter.setPen(Qt::NoPen);
    painter.setBrush(body);
    painter.drawRoundedRect(QRectF(24.6, 4.8, 2.4, 4.4), 1, 1);
    if (charging) {
        painter.setBrush(green);
        painter.drawRoundedRect(QRectF(3, 3.5, 19, 7), 1.2, 1.2);
        QPainterPath bolt;
        bolt.moveTo(13.8, 2.2);
        bolt.lineTo(9.2, 7.6);
        bolt.lineTo(12.4, 7.6);
        bolt.lineTo(11.2, 11.8);
        bolt.lineTo(15.8, 6.4);
        bolt.lineTo(12.6, 6.4);
        bolt.closeSubpath();
        painter.setBrush(p.surface);
        painter.drawPath(bolt);
    } else if (none) {
        painter.setPen(QPen(p.disabled, 1.4, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(8, 11), QPointF(17, 3));
    } else {
        painter.setBrush(level == 1 ? orange : p.ink);
        for (int segment = 0; segment < level; ++segment) {
            painter.drawRect(QRectF(3 + segment * 4, 3.5, 3, 7));
        }
    }
    painter.end();
    return Flatten(canvas, matte);
}

QImage IconSprite(Icon icon, PixelSize size, const QColor& colour, const QImage& matte) {
    QImage canvas = Canvas(size.width, size.height);
    QPainter painter;
    BeginArt(painter, canvas);
    DrawIcon(painter, icon, QRectF(0, 0, size.width, size.height), colour);
    painter.end();
    return Flatten(canvas, matte);
}

QImage Thumb(const Palette& p, bool pressed, const QImage& matte) {
    QImage canvas = Canvas(kSeekThumbSize.width, kSeekThumbSize.height);
    QPainter painter;
    BeginArt(painter, canvas);
    const QPointF centre(kSeekThumbSize.width / 2.0, kSeekThumbSize.height / 2.0);
    const double radius = pressed ? 10.5 : 9.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 30));
    painter.drawEllipse(centre + QPointF(0, 1.0), radius, radius);
    painter.setBrush(pressed ? p.accentDeep : p.accent);
    painter.drawEllipse(centre, radius, radius);
    painter.setBrush(p.surface);
    painter.drawEllipse(centre, 3.2, 3.2);
    painter.end();
    return Flatten(canvas, matte);
}

} // namespace

void AddPlayerSprites(SkinImages& images, const Palette& p, const QImage& background,
                      const QImage& seekBar) {
    const PlayerLayout& layout = PlayerLayoutFor(ScreenOrientation::Portrait);
    const QImage digitMatte = MatteAt(background, layout.timeArea, kDigitCellSize);
    for (int d = 0; d < 10; ++d) {
        images[static_cast<BitmapId>(kBmpDigit0 + d)] =
            Digit(p, QChar(u'0' + d), digitMatte);
    }
    images[kBmpDigitSeparator] = Separator(p, digitMatte);
    images[kBmpRemainingTimeMarker] = RemainingMarker(
        p, MatteAt(background, {layout.timeArea.x - kDigitCellSize.width, layout.timeArea.y},
                   kDigitCellSize));

    const QImage gaugeMatte = MatteAt(background, layout.volumeGauge, kVolumeGaugeSize);
    images[kBmpVolumeGaugeFull] = VolumeGauge(p, Gauge::Full, gaugeMatte);
    images[kBmpVolumeGaugeEmpty] = VolumeGauge(p, Gauge::Empty, gaugeMatte);
    images[kBmpVolumeGaugeMute] = VolumeGauge(p, Gauge::Mute, gaugeMatte);

    const QImage batteryMatte = MatteAt(background, layout.battery, kBatterySize);
    for (int level = 0; level <= 5; ++level) {
        images[static_cast<BitmapId>(kBmpBatteryLevel0 + level)] = Battery(p, level, batteryMatte);
    }
    images[kBmpBatteryCharging] = Battery(p, 100, batteryMatte);
    images[kBmpBatteryNone] = Battery(p, -1, batteryMatte);

    images[kBmpIndicator] = IconSprite(Icon::Lock, kIndicatorSize, p.accent,
                                       MatteAt(background, layout.indicator, kIndicatorSize));
    images[kBmpTitleEmblem] = IconSprite(Icon::Note, kTitleEmblemSize, p.accent,
                                         MatteAt(background, layout.titleEmblem, kTitleEmblemSize));

    // The thumb's matte is the middle of the bar: white with the track.
    const QImage thumbMatte = Crop(seekBar, (seekBar.width() - kSeekThumbSize.width) / 2, 0,
                                   kSeekThumbSize.width, kSeekThumbSize.height);
    images[kBmpSeekThumb] = Thumb(p, false, thumbMatte);
    images[kBmpSeekThumbPressed] = Thumb(p, true, thumbMatte);
}

} // namespace zelvor::skin
