#include "ui/widgets/lists/list_notify.h"

#include <QCoreApplication>

#include "ui/widgets/main_frame/window_message_event.h"

namespace zelvor {

void PostToParent(const QWidget& list, std::uint32_t message, std::uint32_t wParam,
                  std::int32_t lParam) {
    if (QWidget* parent = list.parentWidget())
        QCoreApplication::postEvent(parent, new WindowMessageEvent({message, wParam, lParam}));
}

std::int32_t SendToParent(const QWidget& list, std::uint32_t message, std::uint32_t wParam,
                          std::int32_t lParam) {
    QWidget* parent = list.parentWidget();
    if (parent == nullptr)
        return 0;
    WindowMessageEvent event({message, wParam, lParam});
    QCoreApplication::sendEvent(parent, &event);
    return event.Result();
}

std::int32_t PackPoint(int x, int y) {
    const auto low = static_cast<std::uint32_t>(static_cast<std::uint16_t>(x));
    const auto high = static_cast<std::uint32_t>(static_cast<std::uint16_t>(y));
    return static_cast<std::int32_t>(high << 16 | low);
}

} // namespace zelvor
