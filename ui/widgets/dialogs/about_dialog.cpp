#include "ui/widgets/dialogs/about_dialog.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "ui/rules/dialogs/dialog_results.h"
#include "ui/widgets/drawing/program_icon.h"

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
    icon->setPixmap(QPixmap::fromImage(PaintProgramIcon(kIconSide, Colours().tint)));
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


} // namespace zelvor
