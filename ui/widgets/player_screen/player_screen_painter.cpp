#include "ui/widgets/player_screen/player_screen_painter.h"

#include "ui/widgets/drawing/blit.h"

namespace zelvor {
namespace {

const QColor kTitleColour(0x1D, 0x22, 0x2B);
const QColor kCounterColour(0x5F, 0x68, 0x76);

QRect ToQRect(const PixelRect& r) {
    return QRect(r.left, r.top, r.Width(), r.Height());
}

bool Meets(const QRect& dirty, const PixelRect& area) {
    return !area.IsEmpty() && dirty.intersects(ToQRect(area));
}

bool OtherOfPlaceShows(const PlayerButtons& buttons, int button) {
    const PlayerButton group = PlaceGroupOf(static_cast<PlayerButton>(button));
    for (int other = 0; other < kPlayerButtonCount; ++other) {
        if (other != button && PlaceGroupOf(static_cast<PlayerButton>(other)) == group &&
            buttons.State(other) != kDisplayHidden)
            return true;
    }
    return false;
}

void PaintText(QPainter& target, const PixelRect& area, const QString& text, const QFont& font,
               const QColor& colour, Qt::Alignment align) {
    target.save();
    target.setClipRect(ToQRect(area), Qt::IntersectClip);
    target.setFont(font);
    target.setPen(colour);
    target.drawText(ToQRect(area), align | Qt::AlignVCenter | Qt::TextSingleLine, text);
    target.restore();
}

void PaintButtons(QPainter& target, const PlayerScreenScene& scene, const QRect& dirty) {
    for (int i = 0; i < kPlayerButtonCount; ++i) {
        if (!Meets(dirty, ButtonArea(scene.geometry, i)))
            continue;
        if (const QImage* image = ButtonImageFor(scene, i)) {
            const PlayerButtonPlace& place =
                scene.geometry.layout->buttons[static_cast<std::size_t>(i)];
            DrawBitmapTransparent(target, *image, place.position.x, place.position.y);
        }
    }
}

void PaintThumb(QPainter& target, const PlayerScreenScene& scene) {
    if (scene.buttons.ThumbState() == kDisplayHidden)
        return;
    const bool pressed = scene.thumbDragged || scene.buttons.ThumbState() == kDisplayPressed;
    const QImage& image = pressed && !scene.images.thumbPressed.isNull() ? scene.images.thumbPressed
                                                                         : scene.images.thumb;
    DrawBitmapTransparent(target, image, scene.thumbX, scene.geometry.buttons[kButtonSeekBar].top);
}

void PaintStatus(QPainter& target, const PlayerScreenScene& scene, const QRect& dirty) {
    const PlayerLayout& layout = *scene.geometry.layout;
    const QImage& background = scene.images.background;
    if (Meets(dirty, ElementArea(scene.geometry, ScreenElement::TimeDigits)) ||
        Meets(dirty, ElementArea(scene.geometry, ScreenElement::RemainingMarker)))
        DrawTimeDigits(target, background, layout.timeArea, scene.time, scene.images.digits,
                       scene.images.remainingMarker);
    if (Meets(dirty, ElementArea(scene.geometry, ScreenElement::Volume)))
        DrawVolumeGauge(target, background, layout.volumeGauge, scene.volumeIndex, scene.muted,
                        scene.images.gauge);
    if (Meets(dirty, layout.clock))
        DrawClockText(target, background, layout.clock, scene.clock, scene.fonts.text);
    if (Meets(dirty, BatteryRect(layout)))
        DrawBatteryGauge(target, background, layout.battery,
                         scene.images.BatteryImage(scene.batteryLevel));
    if (Meets(dirty, IndicatorRect(layout)))
        DrawIndicator(target, background, layout.indicator, scene.indicator,
                      scene.images.indicator);
}

} // namespace

ScreenFonts DefaultScreenFonts() {
    ScreenFonts fonts;
    fonts.text = QFont(QStringLiteral("DejaVu Sans"));
    fonts.text.setPixelSize(13);
    fonts.text.setBold(true);
    fonts.counter = QFont(QStringLiteral("DejaVu Sans"));
    fonts.counter.setPixelSize(11);
    return fonts;
}

const QImage* ButtonImageFor(const PlayerScreenScene& scene, int button) {
    const ButtonImages& images = scene.images.buttons[static_cast<std::size_t>(button)];
    const QImage* image = nullptr;
    switch (scene.buttons.State(button)) {
    case kDisplayNormal:
        image = &images.normal;
        break;
    case kDisplayPressed:
        image = images.pressed.isNull() ? &images.normal : &images.pressed;
        break;
    default:
        if (!OtherOfPlaceShows(scene.buttons, button))
            image = &images.third;
        break;
    }
    return image && !image->isNull() ? image : nullptr;
}

void PaintPlayerScreen(QPainter& target, const PlayerScreenScene& scene, const QRect& dirty) {
    if (!scene.geometry.layout || dirty.isEmpty())
        return;
    const PlayerLayout& layout = *scene.geometry.layout;
    target.save();
    target.setClipRect(dirty);
    RestoreBackground(target, scene.images.background, dirty.x(), dirty.y(), dirty.width(),
                      dirty.height());
    if (Meets(dirty, TitleEmblemRect(layout)))
        DrawBitmapTransparent(target, scene.images.titleEmblem, layout.titleEmblem.x,
                              layout.titleEmblem.y);
    if (Meets(dirty, layout.title))
        PaintText(target, layout.title, scene.title, scene.fonts.text, kTitleColour, Qt::AlignLeft);
    if (Meets(dirty, layout.counter))
        PaintText(target, layout.counter, scene.counter, scene.fonts.counter, kCounterColour,
                  Qt::AlignRight);
    PaintButtons(target, scene, dirty);
    if (Meets(dirty, ElementArea(scene.geometry, ScreenElement::SeekBar)))
        PaintThumb(target, scene);
    PaintStatus(target, scene, dirty);
    target.restore();
}

} // namespace zelvor
