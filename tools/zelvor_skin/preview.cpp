#include "preview.h"

#include <QDir>
#include <QFont>
#include <QPainter>
#include <vector>

#include "preview_screens.h"
#include "ui/rules/layout/skin_catalogue.h"

namespace zelvor::skin {
namespace {

constexpr int kSheetWidth = 1180;
constexpr int kLabelHeight = 26;
constexpr int kGap = 12;

QFont LabelFont(int pixels, bool bold = false) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

// Small images are shown twice as large so that their pixels can be seen.
int ScaleOf(const QImage& image) {
    return image.width() <= 60 && image.height() <= 60 ? 2 : 1;
}

QImage ContactSheet(const SkinImages& images, const QString& skinName) {
    struct Cell {
        BitmapId id;
        QRect rect;
    };
    std::vector<Cell> cells;
    int x = kGap;
    int y = 56;
    int rowHeight = 0;
    for (const auto& [id, image] : images) {
        const int scale = ScaleOf(image);
        const int width = std::max(image.width() * scale, 76);
        const int height = image.height() * scale + kLabelHeight;
        if (x + width > kSheetWidth - kGap) {
            x = kGap;
            y += rowHeight + kGap;
            rowHeight = 0;
        }
        cells.push_back({id, QRect(x, y, width, height)});
        x += width + kGap;
        rowHeight = std::max(rowHeight, height);
    }
    QImage sheet(kSheetWidth, y + rowHeight + kGap, QImage::Format_RGB32);
    sheet.fill(QColor(0xEC, 0xEE, 0xF1));
    QPainter painter(&sheet);
    painter.setFont(LabelFont(20, true));
    painter.setPen(QColor(0x1D, 0x22, 0x2B));
    painter.drawText(QRect(kGap, 10, kSheetWidth, 36), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("Zelvor skin \u2014 %1 \u2014 %2 bitmaps (magenta = transparent)")
                         .arg(skinName)
                         .arg(images.size()));
    painter.setFont(LabelFont(10));
    for (const Cell& cell : cells) {
        const QImage& image = images.at(cell.id);
        const int scale = ScaleOf(image);
        const QRect target(cell.rect.left(), cell.rect.top(), image.width() * scale,
                           image.height() * scale);
        painter.drawImage(target, image);
        const SkinBitmapInfo* info = FindSkinBitmap(cell.id);
        const QString label = QString::number(cell.id) + QLatin1Char(' ') +
                              (info ? QString::fromUtf8(info->name.data(),
                                                        static_cast<int>(info->name.size()))
                                    : QString()) +
                              QStringLiteral("\n%1\u00D7%2").arg(image.width()).arg(image.height());
        painter.drawText(QRect(cell.rect.left(), target.bottom() + 2, cell.rect.width() + 8,
                               kLabelHeight),
                         Qt::AlignLeft | Qt::AlignTop, label);
    }
    return sheet;
}

// Every mock-up side by side, doubled, for a quick look at the whole skin.
QImage Overview(const std::vector<QImage>& screens) {
    int width = kGap;
    int height = 0;
    for (const QImage& s : screens) {
        width += s.width() * 2 + kGap;
        height = std::max(height, s.height() * 2);
    }
    QImage out(width, height + 2 * kGap, QImage::Format_RGB32);
    out.fill(QColor(0x2A, 0x2E, 0x35));
    QPainter painter(&out);
    int x = kGap;
    for (const QImage& s : screens) {
        painter.drawImage(QRect(x, kGap, s.width() * 2, s.height() * 2), s);
        x += s.width() * 2 + kGap;
    }
    return out;
}

} // namespace

bool WritePreview(const SkinImages& images, const QString& skinName, const QString& folder,
                  QString* error) {
    QDir dir(folder);
    if (!dir.mkpath(QStringLiteral("."))) {
        *error = QStringLiteral("cannot create ") + folder;
        return false;
    }
    const std::vector<std::pair<QString, QImage>> files = {
        {QStringLiteral("contact-sheet.png"), ContactSheet(images, skinName)},
        {QStringLiteral("player-portrait.png"), PlayerMockup(images, ScreenOrientation::Portrait, false)},
        {QStringLiteral("player-portrait-pressed.png"),
         PlayerMockup(images, ScreenOrientation::Portrait, true)},
        {QStringLiteral("player-landscape.png"),
         PlayerMockup(images, ScreenOrientation::Landscape, false)},
        {QStringLiteral("player-landscape-pressed.png"),
         PlayerMockup(images, ScreenOrientation::Landscape, true)},
        {QStringLiteral("browser-portrait.png"), BrowserMockup(images, ScreenOrientation::Portrait)},
        {QStringLiteral("browser-landscape.png"),
         BrowserMockup(images, ScreenOrientation::Landscape)},
        {QStringLiteral("playlist-panel.png"), PanelMockup(images)},
    };
    std::vector<QImage> screens;
    for (const auto& [name, image] : files) {
        if (!image.save(dir.filePath(name), "PNG")) {
            *error = QStringLiteral("cannot write ") + dir.filePath(name);
            return false;
        }
        if (name != QStringLiteral("contact-sheet.png")) {
            screens.push_back(image);
        }
    }
    if (!Overview(screens).save(dir.filePath(QStringLiteral("overview.png")), "PNG")) {
        *error = QStringLiteral("cannot write overview.png");
        return false;
    }
    return true;
}

} // namespace zelvor::skin
