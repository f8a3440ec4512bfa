#include "player_art.h"

#include <QLinearGradient>
#include <functional>

#include "icons.h"
#include "player_sprites.h"
#include "sprite.h"
#include "ui/rules/layout/player_layout.h"

namespace zelvor::skin {
namespace {

// The white "now playing" area ends here; the deck with the buttons below
// it is tinted. Small images shared by both orientations all sit on white.
constexpr int kPortraitDeckTop = 190;
constexpr int kLandscapeDeckTop = 128;
constexpr int kPortraitStatusBottom = 44;
constexpr int kLandscapeStatusBottom = 24;

QImage PlayerBackground(const Palette& p, ScreenOrientation orientation) {
    const PlayerLayout& layout = PlayerLayoutFor(orientation);
    const int width = layout.screen.width;
    const int height = layout.screen.height;
    const bool portrait = orientation == ScreenOrientation::Portrait;
    const int deckTop = portrait ? kPortraitDeckTop : kLandscapeDeckTop;
    const int statusBottom = portrait ? kPortraitStatusBottom : kLandscapeStatusBottom;

    QImage image(width, height, QImage::Format_RGB32);
    image.fill(p.surface);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);

    // Deck: a soft tint darkening a little towards the bottom, with a faint
    // shadow line under the white area.
    QLinearGradient deck(0, deckTop, 0, height);
    deck.setColorAt(0, p.accentWash);
    deck.setColorAt(1, Mix(p.accent, p.accentWash, 0.06));
    painter.fillRect(QRect(0, deckTop, width, height - deckTop), deck);
    painter.fillRect(QRect(0, deckTop, width, 1), p.line);
    painter.fillRect(QRect(0, deckTop + 1, width, 1), Mix(p.line, p.accentWash, 0.35));

    // Status bar divider and an accent rule at the very top.
    painter.fillRect(QRect(0, statusBottom, width, 1), Mix(p.line, p.surface, 0.6));
    painter.fillRect(QRect(0, 0, width, 2), p.accent);

    // A small speaker before the volume gauge, in the gauge's height.
    const PixelPoint gauge = layout.volumeGauge;
    DrawIcon(painter, Icon::Speaker, QRectF(gauge.x - 17, gauge.y - 2, 14, 14), p.inkSoft);

    // A hairline between the digits and the title.
    const PixelRect title = layout.title;
    const int ruleY = layout.timeArea.y + kDigitCellSize.height + (title.top - layout.timeArea.y -
                                                                   kDigitCellSize.height) / 2;
    if (portrait) {
        painter.fillRect(QRect(24, ruleY, width - 48, 1), Mix(p.line, p.surface, 0.7));
    }
    return image;
}

// A button image drawn over its place on the background.
QImage ButtonImage(const QImage& background, const PlayerButtonPlace& place,
                   const std::function<void(QPainter&, const QRectF&)>& art) {
    QImage canvas = Canvas(place.size.width, place.size.height);
    QPainter painter;
    BeginArt(painter, canvas);
    art(painter, QRectF(0, 0, place.size.width, place.size.height));
    painter.end();
    return Flatten(canvas, Crop(background, place.position.x, place.position.y, place.size.width,
                                place.size.height));
}

QRectF IconBox(const QRectF& area, double size) {
    return QRectF(area.center().x() - size / 2, area.center().y() - size / 2, size, size);
}

enum class Look { Normal, Pressed, Disabled };

// Round transport buttons: Play (and Pause) filled with the accent, the
// others white with a hairline.
auto Transport(const Palette& p, Icon icon, bool primary, Look look) {
    return [=](QPainter& painter, const QRectF& area) {
        const QRectF disc = area.adjusted(1, 1, -1, -1);
        QColor fill = primary ? p.accent : p.surface;
        QColor iconColour = primary ? p.surface : p.ink;
        QColor border = primary ? fill : p.line;
        if (look == Look::Pressed) {
            fill = primary ? p.accentDeep : p.accentSoft;
            iconColour = primary ? p.surface : p.accent;
            border = primary ? fill : Mix(p.accent, p.surface, 0.35);
        } else if (look == Look::Disabled) {
            fill = primary ? p.disabled : p.surface;
            iconColour = primary ? p.surface : p.disabled;
            border = primary ? fill : p.line;
        }
        if (look != Look::Pressed) {
            // A soft drop shadow lifts the button off the deck.
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(0, 0, 0, 22));
            painter.drawEllipse(disc.translated(0, 1.2));
        }
        painter.setPen(QPen(border, 1.0));
        painter.setBrush(fill);
        painter.drawEllipse(disc.adjusted(0.5, 0.5, -0.5, -1.0));
        DrawIcon(painter, icon, IconBox(area, primary ? 28 : 24), iconColour);
    };
}

enum class Mode { Off, On };

// Rounded tiles of the mode row: white when off, tinted when on, filled
// with the accent while pressed.
auto Tile(const Palette& p, Icon icon, Mode mode, bool pressed) {
    return [=](QPainter& painter, const QRectF& area) {
        const QRectF tile = area.adjusted(1.5, 1.5, -1.5, -2.0);
        QColor fill = mode == Mode::On ? p.accentSoft : p.surface;
        QColor border = mode == Mode::On ? Mix(p.accent, p.surface, 0.45) : p.line;
        QColor iconColour = mode == Mode::On ? p.accent : p.inkSoft;
        if (pressed) {
            fill = p.accent;
            border = p.accent;
            iconColour = p.surface;
        }
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0, 0, 0, pressed ? 0 : 18));
        painter.drawRoundedRect(tile.translated(0, 1.0), 10, 10);
        painter.setPen(QPen(border, 1.0));
        painter.setBrush(fill);
        painter.drawRoundedRect(tile, 10, 10);
        DrawIcon(painter, icon, IconBox(tile, 24), iconColour);
    };
}

// Bare pictograms of the status bar; a grey disc shows the press.
auto SystemButton(const Palette& p, Icon icon, bool pressed) {
    return [=](QPainter& painter, const QRectF& area) {
        if (pressed) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(Mix(p.accent, p.line, 0.18));
            painter.drawEllipse(area.adjusted(1, 1, -1, -1));
        }
        DrawIcon(painter, icon, IconBox(area, 22), pressed ? p.accent : p.inkSoft);
    };
}

// The seek bar: a rounded track through the thumb's centre line, which is
// 13 pixels below the top in both orientations since the thumb is shared.
auto SeekBar(const Palette& p, bool pressed) {
    return [=](QPainter& painter, const QRectF& area) {
        const double half = kSeekThumbSize.width / 2.0;
        const double thickness = pressed ? 6 : 4;
        const double centre = kSeekThumbSize.height / 2.0;
        painter.setPen(Qt::NoPen);
        painter.setBrush(pressed ? Mix(p.accent, p.surface, 0.35) : p.line);
        painter.drawRoundedRect(QRectF(half - 2, centre - thickness / 2,
                                       area.width() - 2 * half + 4, thickness),
                                thickness / 2, thickness / 2);
    };
}

struct ButtonArt {
    std::function<void(QPainter&, const QRectF&)> normal, pressed, third;
};

ButtonArt ArtOf(const Palette& p, int button) {
    const auto transport = [&](Icon icon, bool primary) {
        return ButtonArt{Transport(p, icon, primary, Look::Normal),
                         Transport(p, icon, primary, Look::Pressed),
                         Transport(p, icon, primary, Look::Disabled)};
    };
    const auto tile = [&](Icon icon, Mode mode) {
        return ButtonArt{Tile(p, icon, mode, false), Tile(p, icon, mode, true), {}};
    };
    const auto system = [&](Icon icon) {
        return ButtonArt{SystemButton(p, icon, false), SystemButton(p, icon, true), {}};
    };
    switch (button) {
    case kButtonNext:
        return transport(Icon::Next, false);
    case kButtonPrevious:
        return transport(Icon::Previous, false);
    case kButtonStop:
        return transport(Icon::Stop, false);
    case kButtonPlay:
        return transport(Icon::Play, true);
    case kButtonPause:
        return transport(Icon::Pause, true);
    case kButtonSeekBar:
        return {SeekBar(p, false), SeekBar(p, true), {}};
    case kButtonVolumeUp:
        return tile(Icon::VolumeUp, Mode::Off);
    case kButtonVolumeDown:
        return tile(Icon::VolumeDown, Mode::Off);
    case kButtonRepeatOff:
        return tile(Icon::Repeat, Mode::Off);
    case kButtonRepeatOne:
        return tile(Icon::RepeatOne, Mode::On);
    case kButtonRepeatAll:
        return tile(Icon::Repeat, Mode::On);
    case kButtonRandomOff:
        return tile(Icon::Shuffle, Mode::Off);
    case kButtonRandomOn:
        return tile(Icon::Shuffle, Mode::On);
    case kButtonLibrary:
        return tile(Icon::Library, Mode::Off);
    case kButtonHide:
        return system(Icon::Hide);
    case kButtonDisplayOff:
        return system(Icon::DisplayOff);
    default:
        return system(Icon::Menu);
    }
}

void AddOrientation(SkinImages& images, const Palette& p, ScreenOrientation orientation) {
    const PlayerLayout& layout = PlayerLayoutFor(orientation);
    const QImage background = PlayerBackground(p, orientation);
    images[layout.background] = background;
    for (int i = 0; i < kPlayerButtonCount; ++i) {
        const PlayerButtonPlace& place = layout.buttons[static_cast<std::size_t>(i)];
        const ButtonArt art = ArtOf(p, i);
        images[place.normal] = ButtonImage(background, place, art.normal);
        images[place.pressed] = ButtonImage(background, place, art.pressed);
        if (place.third != 0) {
            images[place.third] = ButtonImage(background, place, art.third);
        }
    }
}

} // namespace

void AddPlayerArt(SkinImages& images, const Palette& palette) {
    AddOrientation(images, palette, ScreenOrientation::Landscape);
    // Portrait last: the small shared images take their matte from it.
    AddOrientation(images, palette, ScreenOrientation::Portrait);
    const PlayerLayout& portrait = PlayerLayoutFor(ScreenOrientation::Portrait);
    const PlayerButtonPlace& bar = portrait.buttons[kButtonSeekBar];
    const QImage& background = images[portrait.background];
    const QImage barOnScreen = ShowOver(
        images[bar.normal],
        Crop(background, bar.position.x, bar.position.y, bar.size.width, bar.size.height));
    AddPlayerSprites(images, palette, background, barOnScreen);
}

} // namespace zelvor::skin
