#include "ui/main_frame/placeholder_player_pane.h"

#include <QMouseEvent>
#include <QPainter>

#include "app/application_values.h"
#include "app/window_messages.h"
#include "library/track_list.h"
#include "ui/layout/player_layout.h"
#include "ui/skin/skin_module.h"

namespace zelvor {

PlaceholderPlayerPane::PlaceholderPlayerPane(QWidget* parent, FrameMessages& frame)
    : QWidget(parent), m_frame(frame) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    RedoLayout();
}

void PlaceholderPlayerPane::RedoLayout() {
    const auto orientation =
        AppValues().portrait ? ScreenOrientation::Portrait : ScreenOrientation::Landscape;
    m_background = LoadSkinBitmap(SkinResourceHandle(), PlayerLayoutFor(orientation).background);
    update();
}

void PlaceholderPlayerPane::ReplaceQueue(const TrackList& list) {
    m_queueCount = list.Count();
    update();
}

void PlaceholderPlayerPane::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    painter.drawImage(0, 0, m_background);
    painter.setPen(QColor(0x20, 0x20, 0x20));
    painter.drawText(rect(), Qt::AlignCenter,
                     QStringLiteral("%1 songs in the queue").arg(m_queueCount));
    if (!m_painted) {
        m_painted = true;
        m_frame.PostToFrame({kMsgStartupCheck, 0, 0});
    }
}

void PlaceholderPlayerPane::mouseReleaseEvent(QMouseEvent* event) {
    // The Library and Menu buttons, where the real screen has them.
    const auto& layout =
        PlayerLayoutFor(AppValues().portrait ? ScreenOrientation::Portrait
                                             : ScreenOrientation::Landscape);
    const PixelRect library = ButtonRect(layout.buttons[kButtonLibrary]);
    const QPoint p = event->position().toPoint();
    if (p.x() >= library.left && p.x() < library.right && p.y() >= library.top &&
        p.y() < library.bottom)
        m_frame.ShowBrowser();
    else if (event->button() == Qt::RightButton)
        m_frame.ShowMenu();
}

} // namespace zelvor
