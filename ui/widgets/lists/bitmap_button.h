#pragma once
// CBitmapButton: a push button drawn from up to four skin bitmaps, one per
// state: pressed while held down, else focused while it has the focus, else
// disabled while disabled, else normal (a state whose bitmap was not given
// falls through to the next). The bitmap is copied opaquely at (0, 0): the
// images carry the background of the bar they sit on. A click emits
// QAbstractButton::clicked(); the screen connects it to Command().

#include <QAbstractButton>
#include <QImage>
#include <array>

#include "res/bitmap_ids.h"

namespace zelvor {

class CBitmapButton : public QAbstractButton {
    Q_OBJECT
public:
    CBitmapButton(int command, QWidget* parent);

    int Command() const { return m_command; }
    // Drops the bitmaps held, then loads each non-zero id from the skin
    // (SkinResourceHandle); the normal one is always loaded. Returns true.
    bool LoadBitmaps(BitmapId normal, BitmapId pressed, BitmapId focused = 0, BitmapId disabled = 0);
    // The same ids again, from the skin selected now (after a colour change).
    void ReloadBitmaps();
    void Enable() { setEnabled(true); }
    void Disable() { setEnabled(false); }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    enum Face : int { kNormal = 0, kPressed = 1, kFocused = 2, kDisabled = 3 };
    Face ChosenFace() const;

    int m_command;
    std::array<BitmapId, 4> m_ids{};
    std::array<QImage, 4> m_faces; // null where no bitmap is held
};

} // namespace zelvor
