#pragma once
// A window message posted inside the program: the QEvent that carries
// (message, wParam, lParam) to the object that handles it, delivered by the
// event loop after the handler that posted it has returned.

#include <QEvent>

#include "platform/message_frame.h"

namespace zelvor {

class WindowMessageEvent final : public QEvent {
public:
    explicit WindowMessageEvent(const WindowMessage& message)
        : QEvent(EventType()), m_message(message) {}
    const WindowMessage& Message() const { return m_message; }
    std::int32_t Result() const { return m_result; }
    void SetResult(std::int32_t result) { m_result = result; }

    // Registered with Qt once per process.
    static QEvent::Type EventType();

private:
    WindowMessage m_message;
    std::int32_t m_result = 0;
};

} // namespace zelvor
