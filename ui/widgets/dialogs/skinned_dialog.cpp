#include "ui/widgets/dialogs/skinned_dialog.h"

#include <QPainter>
#include <QPushButton>

#include "ui/widgets/skin/skin_module.h"

namespace zelvor {
namespace {

constexpr int kCaptionHeight = 24;    // pixels; a title, not a touch target
constexpr int kTopRuleHeight = 3;     // the tinted rule of a dialog without a caption
constexpr int kCaptionTextPixels = 12;
constexpr int kBodyTextPixels = 11;   // Tahoma 8 at 96 dpi
constexpr QRgb kFallbackTint = 0x4A55C9;

QColor Mix(const QColor& a, const QColor& b, double amount) {
    const auto channel = [amount](int x, int y) {
        return static_cast<int>(x * amount + y * (1.0 - amount) + 0.5);
    };
    return QColor(channel(a.red(), b.red()), channel(a.green(), b.green()),
                  channel(a.blue(), b.blue()));
}

QFont DialogFont(int pixels, bool bold) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

QString StyleSheetFor(const DialogColours& c) {
    return QStringLiteral(
               "QLabel { color: %1; }"
               "QPushButton { background: white; color: %1; border: 1px solid %2;"
               " border-radius: 6px; font-weight: bold; }"
               "QPushButton:pressed { background: %5; }"
               "QPushButton[filled=\"true\"] { background: %3; color: white; border: none; }"
               "QPushButton[filled=\"true\"]:pressed { background: %4; }"
               "QProgressBar { background: %5; border: 1px solid %2; border-radius: 4px;"
               " color: transparent; }"
               "QProgressBar::chunk { background: %3; border-radius: 3px; }")
        .arg(c.ink.name(), c.line.name(), c.tint.name(), c.tintDeep.name(), c.wash.name());
}

} // namespace

// The skin's tint is the colour of the play list panel's header; the other
// colours are mixed from it as the skin's own images are.
DialogColours DialogColoursFromSkin() {
    const QImage panel = LoadSkinBitmap(SkinResourceHandle(), kBmpPanelBackground);
    const QColor tint = panel.isNull() ? QColor(kFallbackTint) : QColor(panel.pixel(0, 0));
    const QColor ink(0x1D, 0x22, 0x2B);
    return {tint, Mix(tint, ink, 0.72), Mix(tint, QColor(0xF3, 0xF4, 0xF6), 0.07), ink,
            QColor(0xDC, 0xE0, 0xE6)};
}

CSkinnedDialog::CSkinnedDialog(QWidget* parent, const QString& caption, PixelSize client)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), m_caption(caption),
      m_colours(DialogColoursFromSkin()) {
    setWindowTitle(caption);
    setFont(DialogFont(kBodyTextPixels, false));
    setStyleSheet(StyleSheetFor(m_colours));
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(client.width, client.height + CaptionHeight());
}

int CSkinnedDialog::CaptionHeight() const {
    return m_caption.isEmpty() ? 0 : kCaptionHeight;
}

QWidget* CSkinnedDialog::Item(int id) const {
    return findChild<QWidget*>(QString::number(id), Qt::FindDirectChildrenOnly);
}

void CSkinnedDialog::Place(QWidget* control, int id, const PixelRect& place) {
    control->setParent(this);
    control->setObjectName(QString::number(id));
    control->setGeometry(place.left, place.top + CaptionHeight(), place.Width(), place.Height());
}

QPushButton* CSkinnedDialog::AddButton(int id, const QString& text, const DialogRect& place,
                                       bool filled) {
    auto* button = new QPushButton(text, this);
    button->setProperty("filled", filled);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAutoDefault(false);
    Place(button, id, TouchRect(place));
    return button;
}

void CSkinnedDialog::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    if (m_caption.isEmpty()) {
        painter.fillRect(QRect(0, 0, width(), kTopRuleHeight), m_colours.tint);
    } else {
        painter.fillRect(QRect(0, 0, width(), kCaptionHeight), m_colours.tint);
        painter.setPen(Qt::white);
        painter.setFont(DialogFont(kCaptionTextPixels, true));
        painter.drawText(QRect(8, 0, width() - 16, kCaptionHeight),
                         Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, m_caption);
    }
    painter.setPen(m_colours.tint);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace zelvor
