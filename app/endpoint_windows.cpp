#include "app/endpoint_windows.h"

#include <QThread>

#include "res/window_messages.h"
#include "host/endpoint.h"

namespace zelvor {

bool EndpointWindows::Exists(const EndpointAddress& address) {
    return EndpointExists(m_root, address);
}

std::optional<std::int32_t> EndpointWindows::Send(const EndpointAddress& address,
                                                  const WindowMessage& message) {
    return SendToEndpoint(m_root, address, message);
}

bool EndpointInstanceEnvironment::WindowExists(const EndpointAddress& address) {
    return m_windows.Exists(address);
}

void EndpointInstanceEnvironment::SendMessageTo(const EndpointAddress& address,
                                                const WindowMessage& message) {
    m_windows.Send(address, message);
}

void EndpointInstanceEnvironment::Sleep(int milliseconds) {
    QThread::msleep(static_cast<unsigned long>(milliseconds));
}

void EndpointInstanceEnvironment::RaiseRunningInstance(int width, int height) {
    // Posted: bringing another program's window forward does not wait for
    // that program. The size travels along for tools that watch; the running
    // instance covers its own screen.
    PostToEndpoint(m_root, {EndpointKind::Title, kTitleZelvor},
                   {kMsgHostRaise, static_cast<std::uint32_t>(width), height});
}

} // namespace zelvor
