#include "preview_screens.h"

#include <QFont>
#include <QPainter>
#include <QStringList>
#include <array>

#include "ui/widgets/drawing/blit.h"
#include "ui/rules/drawing/element_math.h"
#include "ui/widgets/drawing/player_elements.h"
#include "ui/rules/layout/browser_layout.h"

namespace zelvor::skin {
namespace {

QImage Get(const SkinImages& images, BitmapId id) {
    const auto it = images.find(id);
    return it == images.end() ? QImage() : it->second;
}

// DejaVu Sans Bold at 13 pixels stands in for the device's UI font.
QFont UiFont(int pixels = 13, bool bold = true) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

QRect ToQRect(const PixelRect& r) {
    return QRect(r.left, r.top, r.Width(), r.Height());
}


void DrawButton(QPainter& painter, const SkinImages& images, const PlayerButtonPlace& place,
                int look) {
    const BitmapId id = look == 1 ? place.pressed : look == 2 ? place.third : place.normal;
    DrawBitmapTransparent(painter, Get(images, id), place.position.x, place.position.y);
}

// How each button is shown: -1 hidden, 0 normal, 1 pressed, 2 third image.
std::array<int, kPlayerButtonCount> ButtonLooks(bool busy) {
    std::array<int, kPlayerButtonCount> look{};
    look[kButtonPause] = look[kButtonRepeatOne] = look[kButtonRepeatAll] = -1;
    look[kButtonRandomOn] = -1;
    if (busy) {
        look[kButtonPlay] = -1;
        look[kButtonPause] = 1;
        look[kButtonNext] = 2;
        look[kButtonPrevious] = 1;
        look[kButtonSeekBar] = 1;
        look[kButtonVolumeUp] = 1;
        look[kButtonRepeatOff] = -1;
        look[kButtonRepeatOne] = 0;
        look[kButtonRandomOff] = -1;
        look[kButtonRandomOn] = 1;
        look[kButtonLibrary] = 1;
        look[kButtonHide] = 1;
    }
    return look;
}

} // namespace

QImage PlayerMockup(const SkinImages& images, ScreenOrientation orientation, bool busy) {
    const PlayerLayout& layout = PlayerLayoutFor(orientation);
    const QImage background = Get(images, layout.background);
    QImage screen = background.convertToFormat(QImage::Format_RGB32);
    QPainter painter(&screen);

    const auto looks = ButtonLooks(busy);
    for (int i = 0; i < kPlayerButtonCount; ++i) {
        const int look = looks[static_cast<std::size_t>(i)];
        if (look >= 0) {
            DrawButton(painter, images, layout.buttons[static_cast<std::size_t>(i)], look);
        }
    }

    // The thumb a third of the way along its travel.
    const PlayerButtonPlace& bar = layout.buttons[kButtonSeekBar];
    const int travel = bar.size.width - kSeekThumbSize.width;
    const int thumbX = bar.position.x + static_cast<int>((travel - 4) * (busy ? 0.62 : 0.35));
    DrawBitmapTransparent(painter, Get(images, busy ? kBmpSeekThumbPressed : kBmpSeekThumb),
                          thumbX, bar.position.y);

    DigitImages digits;
    for (int d = 0; d < kDigitImageCount; ++d) {
        digits[static_cast<std::size_t>(d)] = Get(images, static_cast<BitmapId>(kBmpDigit0 + d));
    }
    const TimeDigits time = busy ? TimeDigits{0, 58, 57, true} : TimeDigits{1, 2, 3, false};
    DrawTimeDigits(painter, background, layout.timeArea, time, digits,
                   Get(images, kBmpRemainingTimeMarker));
    DrawVolumeGauge(painter, background, layout.volumeGauge, 5, busy,
                    {Get(images, kBmpVolumeGaugeFull), Get(images, kBmpVolumeGaugeEmpty),
                     Get(images, kBmpVolumeGaugeMute)});
    DrawClockText(painter, background, layout.clock, QStringLiteral("09:41"), UiFont());
    DrawBatteryGauge(painter, background, layout.battery,
                     Get(images, BatteryBitmapId(busy ? 100 : 3)));
    DrawIndicator(painter, background, layout.indicator, busy, Get(images, kBmpIndicator));

    DrawBitmapTransparent(painter, Get(images, kBmpTitleEmblem), layout.titleEmblem.x,
                          layout.titleEmblem.y);
    painter.setFont(UiFont());
    painter.setPen(QColor(0x1D, 0x22, 0x2B));
    painter.drawText(ToQRect(layout.title), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     busy ? QStringLiteral("Salt and Cedar \u2013 The Lowland Choir")
                          : QStringLiteral("Morning Light"));
    painter.setFont(UiFont(11, false));
    painter.setPen(QColor(0x5F, 0x68, 0x76));
    painter.drawText(ToQRect(layout.counter), Qt::AlignRight | Qt::AlignVCenter,
                     busy ? QStringLiteral("12/40") : QStringLiteral("3/12"));
    return screen;
}

namespace {

// Rows as the list control paints them: white and pale yellow in turn.
void MockList(QPainter& painter, const PixelRect& list, const QStringList& rows, int selected) {
    const int rowHeight = 20;
    painter.save();
    painter.setClipRect(ToQRect(list));
    painter.setFont(UiFont());
    for (int i = 0; i * rowHeight < list.Height(); ++i) {
        const QRect row(list.left, list.top + i * rowHeight, list.Width(), rowHeight);
        const bool isSelected = i == selected && i < rows.size();
        painter.fillRect(row, isSelected ? QColor(0x31, 0x6A, 0xC5)
                              : i % 2 == 0 ? QColor(0xFF, 0xFF, 0xFF)
                                           : QColor(0xFF, 0xFF, 0xB4));
        if (i < rows.size()) {
            painter.setPen(isSelected ? Qt::white : Qt::black);
            painter.drawText(row.adjusted(6, 0, -4, 0), Qt::AlignLeft | Qt::AlignVCenter,
                             rows[i]);
        }
    }
    painter.restore();
}

} // namespace

QImage BrowserMockup(const SkinImages& images, ScreenOrientation orientation) {
    const BrowserLayout layout = BrowserLayoutFor(orientation);
    QImage screen = Get(images, layout.background).convertToFormat(QImage::Format_RGB32);
    QPainter painter(&screen);
    MockList(painter, layout.list,
             {QStringLiteral("All Music"), QStringLiteral("Artists"), QStringLiteral("Albums"),
              QStringLiteral("Genres"), QStringLiteral("My Favourites 1"),
              QStringLiteral("My Favourites 2"), QStringLiteral("My Favourites 3"),
              QStringLiteral("My Favourites 4"), QStringLiteral("My Favourites 5")},
             1);
    for (int i = 0; i < kBrowserButtonCount; ++i) {
        if (i == kBrowserDeleteFavourite) {
            continue; // shares its place with the add button
        }
        const ImageButtonPlace& b = layout.buttons[static_cast<std::size_t>(i)];
        DrawBitmap(painter, Get(images, i == kBrowserUpdate ? b.pressed : b.normal),
                   b.rect.left, b.rect.top);
    }
    painter.setFont(UiFont());
    painter.setPen(QColor(0x20, 0x20, 0x20));
    painter.drawText(ToQRect(layout.status), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     QStringLiteral("Total :  128  songs"));
    return screen;
}

QImage PanelMockup(const SkinImages& images) {
    const PanelLayout& layout = PlayListPanelLayout();
    QImage screen = Get(images, kBmpPanelBackground).copy(0, 0, 320, 240);
    screen = screen.convertToFormat(QImage::Format_RGB32);
    QPainter painter(&screen);
    PixelRect header = layout.list;
    header.bottom = header.top + 20;
    painter.fillRect(ToQRect(header), QColor(0xE4, 0xE6, 0xEA));
    painter.setFont(UiFont());
    painter.setPen(Qt::black);
    painter.drawText(ToQRect(header).adjusted(6, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("File Name"));
    PixelRect rows = layout.list;
    rows.top = header.bottom;
    MockList(painter, rows,
             {QStringLiteral("01 Morning Light.mp3"), QStringLiteral("02 Harbour Lane.mp3"),
              QStringLiteral("03 Salt and Cedar.wma"), QStringLiteral("04 Quiet Rooms.m4a"),
              QStringLiteral("05 Northbound.mp3"), QStringLiteral("06 Paper Kites.mp3")},
             2);
    for (std::size_t i = 0; i < layout.buttons.size(); ++i) {
        const ImageButtonPlace& b = layout.buttons[i];
        DrawBitmap(painter, Get(images, i == 2 ? b.pressed : b.normal), b.rect.left, b.rect.top);
    }
    return screen;
}

} // namespace zelvor::skin
