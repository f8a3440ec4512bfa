#include "ui/dialogs/about_dialog.h"

#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>

#include "ui/dialogs/dialog_results.h"

namespace zelvor {
namespace {

// Template 100, in dialog units.
constexpr int kWidth = 175, kHeight = 65, kButtonHeight = 14;
constexpr int kIconSide = 32; // pixels, as the device's icons
constexpr DialogRect kIconPlace{8, 8, 0, 0};
constexpr DialogRect kNamePlace{36, 10, 131, 10};
constexpr DialogRect kMakerPlace{36, 25, 131, 10};
constexpr DialogRect kOkPlace{60, 43, 50, kButtonHeight};
constexpr int kIdStatic = -1;

QLabel* TextLine(QWidget* parent, const QString& text, bool bold) {
    auto* label = new QLabel(text, parent);
    QFont font = label->font();
    font.setBold(bold);
    label->setFont(font);
    return label;
}

} // namespace

CAboutDialog::CAboutDialog(QWidget* parent)
    : CSkinnedDialog(parent, QStringLiteral("About MP3 Player"),
                     DialogPixelSize(kWidth, kHeight, kButtonHeight)) {
    auto* icon = new QLabel(this);
    icon->setPixmap(QPixmap::fromImage(ProgramIcon(kIconSide, Colours().tint)));
    PixelRect iconPlace = DialogRectToPixels(kIconPlace);
    iconPlace.right = iconPlace.left + kIconSide;
    iconPlace.bottom = iconPlace.top + kIconSide;
    Place(icon, kIdStatic, iconPlace);
    Place(TextLine(this, QStringLiteral("MP3 Player Version 2.0"), true), kIdStatic,
          DialogRectToPixels(kNamePlace));
    // The maker: the company the program's settings are kept under.
    Place(TextLine(this, QStringLiteral("Made by Quorrel Systems Inc."), false), kIdStatic,
          DialogRectToPixels(kMakerPlace));
    QPushButton* ok = AddButton(kIdOk, QStringLiteral("OK"), kOkPlace, true);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
}

int CAboutDialog::DoModal() {
    return exec() == QDialog::Accepted ? kIdOk : kIdCancel;
}

QImage ProgramIcon(int side, const QColor& tint) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.scale(side / 32.0, side / 32.0); // drawn on a 32-unit grid
    painter.setPen(Qt::NoPen);
    painter.setBrush(tint);
    painter.drawRoundedRect(QRectF(0.5, 0.5, 31, 31), 7, 7);

    painter.setBrush(Qt::white);
    // Two note heads, tilted, their stems rising on the right, and the beam.
    for (const QPointF head : {QPointF(11, 23), QPointF(22, 20.5)}) {
        painter.save();
        painter.translate(head);
        painter.rotate(-20);
        painter.drawEllipse(QRectF(-4, -2.8, 8, 5.6));
        painter.restore();
    }
    painter.drawRect(QRectF(13.6, 9.5, 1.8, 13));
    painter.drawRect(QRectF(24.6, 7, 1.8, 13));
    QPainterPath beam;
    beam.moveTo(13.6, 9.5);
    beam.lineTo(26.4, 7);
    beam.lineTo(26.4, 10.5);
    beam.lineTo(13.6, 13);
    beam.closeSubpath();
    painter.drawPath(beam);
    return image;
}

} // namespace zelvor
