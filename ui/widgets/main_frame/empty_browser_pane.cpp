#include "ui/widgets/main_frame/empty_browser_pane.h"

#include <QPainter>

#include "config/application_values.h"
#include "ui/rules/layout/browser_layout.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {

EmptyBrowserPane::EmptyBrowserPane(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    RedoLayout();
}

void EmptyBrowserPane::RedoLayout() {
    const auto orientation =
        AppValues().portrait ? ScreenOrientation::Portrait : ScreenOrientation::Landscape;
    m_background = LoadSkinBitmap(SkinResourceHandle(), BrowserLayoutFor(orientation).background);
    update();
}

void EmptyBrowserPane::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (!m_background.isNull())
        painter.drawImage(0, 0, m_background);
}

} // namespace zelvor
