#pragma once
// What the program's own dialogs share: a frameless window painted in the
// skin's look (white body, a caption bar in the skin's tint or, without a
// caption, a tinted rule along the top, and a thin tinted border), DejaVu
// Sans for the device's Tahoma, and controls placed from their template's
// dialog units (ui/rules/dialogs/dialog_units.h). The dialogs draw their own
// caption so that they look the same on a device, where no window manager
// decorates them, and on a desktop.

#include <QColor>
#include <QDialog>
#include <QString>

#include "ui/rules/dialogs/dialog_units.h"

class QPushButton;

namespace zelvor {

// The dialogs' colours, taken from the skin in use when the dialog is made.
struct DialogColours {
    QColor tint;     // caption bar, border, filled buttons, the bar's fill
    QColor tintDeep; // pressed filled buttons
    QColor wash;     // the progress bar's trough
    QColor ink;      // texts
    QColor line;     // hairlines of the plain buttons
};
DialogColours DialogColoursFromSkin();

class CSkinnedDialog : public QDialog {
    Q_OBJECT
public:
    // caption: empty for a dialog without one. client: the template's size
    // in pixels, below the caption.
    CSkinnedDialog(QWidget* parent, const QString& caption, PixelSize client);

    // The control with this id (GetDlgItem), or null.
    QWidget* Item(int id) const;
    int CaptionHeight() const;

protected:
    // Puts a control at a template place (pixels in the client area) and
    // names it by its id; the dialog owns it.
    void Place(QWidget* control, int id, const PixelRect& place);
    // A push button at a template place, raised to a touch target. Filled
    // buttons are drawn in the tint (OK, Yes); plain ones white. Buttons take
    // no keyboard focus: Enter and Escape belong to the dialog.
    QPushButton* AddButton(int id, const QString& text, const DialogRect& place, bool filled);
    const DialogColours& Colours() const { return m_colours; }
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_caption;
    DialogColours m_colours;
};

} // namespace zelvor
