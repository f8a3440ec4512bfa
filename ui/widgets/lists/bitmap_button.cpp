#include "ui/widgets/lists/bitmap_button.h"

#include <QPainter>

#include "ui/widgets/drawing/blit.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {

CBitmapButton::CBitmapButton(int command, QWidget* parent)
    : QAbstractButton(parent), m_command(command) {}

bool CBitmapButton::LoadBitmaps(BitmapId normal, BitmapId pressed, BitmapId focused,
                                BitmapId disabled) {
    m_faces = {};
    m_ids = {normal, pressed, focused, disabled};
    const SkinHandle skin = SkinResourceHandle();
    for (size_t face = 0; face < m_ids.size(); ++face) {
        if (face == kNormal || m_ids[face] != 0)
            m_faces[face] = LoadSkinBitmap(skin, m_ids[face]);
    }
    updateGeometry();
    update();
    return true;
}

void CBitmapButton::ReloadBitmaps() { LoadBitmaps(m_ids[0], m_ids[1], m_ids[2], m_ids[3]); }

QSize CBitmapButton::sizeHint() const {
    return m_faces[kNormal].isNull() ? QSize() : m_faces[kNormal].size();
}

CBitmapButton::Face CBitmapButton::ChosenFace() const {
    if (isDown() && !m_faces[kPressed].isNull())
        return kPressed;
    if (hasFocus() && !m_faces[kFocused].isNull())
        return kFocused;
    if (!isEnabled() && !m_faces[kDisabled].isNull())
        return kDisabled;
    return kNormal;
}

void CBitmapButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    DrawBitmap(painter, m_faces[ChosenFace()], 0, 0);
}

} // namespace zelvor
