#include "browser_art.h"

#include <QPainter>

#include "icons.h"
#include "sprite.h"
#include "ui/rules/layout/browser_layout.h"

namespace zelvor::skin {
namespace {

constexpr int kBrowserHeaderHeight = 44;
constexpr int kBrowserSidebarLeft = 272;
constexpr int kPanelHeaderHeight = 60;

// A white card behind a list control, one pixel larger than the list so
// that its hairline frames it.
void ListCard(QPainter& painter, const Palette& p, const PixelRect& list) {
    const QRectF card(list.left - 1.5, list.top - 1.5, list.Width() + 3, list.Height() + 3);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 16));
    painter.drawRoundedRect(card.translated(0, 1.5), 6, 6);
    painter.setPen(QPen(p.line, 1.0));
    painter.setBrush(p.surface);
    painter.drawRoundedRect(card, 6, 6);
}

void Emblem(QPainter& painter, const Palette& p, Icon icon, QPointF at, double size) {
    DrawIcon(painter, icon, QRectF(at.x(), at.y(), size, size), Mix(p.surface, p.chrome, 0.85));
}

QImage BrowserBackground(const Palette& p, ScreenOrientation orientation) {
    const BrowserLayout layout = BrowserLayoutFor(orientation);
    QImage image(layout.screen.width, layout.screen.height, QImage::Format_RGB32);
    image.fill(p.accentWash);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    if (orientation == ScreenOrientation::Portrait) {
        painter.fillRect(QRect(0, 0, layout.screen.width, kBrowserHeaderHeight), p.chrome);
        Emblem(painter, p, Icon::Library, {14, 10}, 24);
    } else {
        const int width = layout.screen.width - kBrowserSidebarLeft;
        painter.fillRect(QRect(kBrowserSidebarLeft, 0, width, layout.screen.height), p.chrome);
        Emblem(painter, p, Icon::Library, {284, 7}, 24);
    }
    ListCard(painter, p, layout.list);
    return image;
}

QImage PanelBackground(const Palette& p) {
    const PanelLayout& layout = PlayListPanelLayout();
    QImage image(layout.background.width, layout.background.height, QImage::Format_RGB32);
    image.fill(p.accentWash);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.fillRect(QRect(0, 0, layout.background.width, kPanelHeaderHeight), p.chrome);
    painter.fillRect(QRect(0, kPanelHeaderHeight, layout.background.width, 1), p.accentDeep);
    ListCard(painter, p, layout.list);
    return image;
}

// Image buttons are copied opaquely onto the bar they sit on, so they are
// drawn over the bar's colour: a light tile with a white pictogram, white
// with an accent pictogram while pressed.
QImage ImageButton(const Palette& p, Icon icon, bool pressed) {
    QImage canvas = Canvas(kImageButtonSize.width, kImageButtonSize.height);
    QPainter painter;
    BeginArt(painter, canvas);
    const QRectF tile(1.5, 2.5, kImageButtonSize.width - 3, kImageButtonSize.height - 5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(pressed ? p.surface : Mix(p.surface, p.chrome, 0.18));
    painter.drawRoundedRect(tile, 8, 8);
    const double size = 22;
    DrawIcon(painter, icon,
             QRectF(tile.center().x() - size / 2, tile.center().y() - size / 2, size, size),
             pressed ? p.chrome : p.surface);
    painter.end();
    return Flatten(canvas, p.chrome, false);
}

void AddButton(SkinImages& images, const Palette& p, BitmapId normal, BitmapId pressed,
               Icon icon) {
    images[normal] = ImageButton(p, icon, false);
    images[pressed] = ImageButton(p, icon, true);
}

} // namespace

void AddBrowserArt(SkinImages& images, const Palette& p) {
    images[kBmpBrowserPortraitBackground] = BrowserBackground(p, ScreenOrientation::Portrait);
    images[kBmpBrowserLandscapeBackground] = BrowserBackground(p, ScreenOrientation::Landscape);
    images[kBmpPanelBackground] = PanelBackground(p);
    AddButton(images, p, kBmpBrowserUp, kBmpBrowserUpPressed, Icon::Up);
    AddButton(images, p, kBmpBrowserUpdate, kBmpBrowserUpdatePressed, Icon::Refresh);
    AddButton(images, p, kBmpBrowserPlay, kBmpBrowserPlayPressed, Icon::Play);
    AddButton(images, p, kBmpDeleteSongs, kBmpDeleteSongsPressed, Icon::Trash);
    // One favourites image serves the browser's add button and the panel's
    // fourth button alike, as the two screens share its number.
    AddButton(images, p, kBmpFavourites, kBmpFavouritesPressed, Icon::StarPlus);
    AddButton(images, p, kBmpPanelHandOn, kBmpPanelHandOnPressed, Icon::PlayList);
    AddButton(images, p, kBmpPanelClear, kBmpPanelClearPressed, Icon::ClearList);
}

} // namespace zelvor::skin
