#include "ui/widgets/main_frame/window_message_event.h"

namespace zelvor {

QEvent::Type WindowMessageEvent::EventType() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

} // namespace zelvor
