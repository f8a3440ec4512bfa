#pragma once
// The windows of other programs on the host: the endpoints of the device's
// programs (host/endpoint.h), for the frame's rules and for the
// start-up's instance rules.

#include <QSize>
#include <filesystem>

#include "app/startup.h"
#include "ui/rules/main_frame/frame_window.h"

namespace zelvor {

class EndpointWindows final : public OutsideWindows {
public:
    explicit EndpointWindows(std::filesystem::path deviceRoot) : m_root(std::move(deviceRoot)) {}
    bool Exists(const EndpointAddress& address) override;
    std::optional<std::int32_t> Send(const EndpointAddress& address,
                                     const WindowMessage& message) override;

private:
    std::filesystem::path m_root;
};

// Start-up's view of the outside: windows are endpoints, a running instance
// is raised by the host-only raise message (it places itself over the whole
// screen and comes to the front), and the screen is the device screen.
class EndpointInstanceEnvironment final : public InstanceEnvironment {
public:
    EndpointInstanceEnvironment(std::filesystem::path deviceRoot, QSize screen)
        : m_windows(deviceRoot), m_root(std::move(deviceRoot)), m_screen(screen) {}
    bool WindowExists(const EndpointAddress& address) override;
    void SendMessageTo(const EndpointAddress& address, const WindowMessage& message) override;
    void Sleep(int milliseconds) override;
    void RaiseRunningInstance(int width, int height) override;
    int ScreenWidth() override { return m_screen.width(); }
    int ScreenHeight() override { return m_screen.height(); }

private:
    EndpointWindows m_windows;
    std::filesystem::path m_root;
    QSize m_screen;
};

} // namespace zelvor
