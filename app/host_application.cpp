#include "app/host_application.h"

#include <QCoreApplication>
#include <QTimer>

#include "res/window_messages.h"
#include "platform/debug_print.h"
#include "platform/text.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {

HostApplicationShell::HostApplicationShell(HostApplicationOptions options)
    : m_options(std::move(options)), m_outside(m_options.deviceRoot) {}

HostApplicationShell::~HostApplicationShell() {
    DestroyFrame();
}

void HostApplicationShell::SetRegistryKey(std::u16string_view company) {
    // The profile values' key is fixed where they are read and written
    // (config/settings.h); this records what start-up chose.
    m_registryKey = company;
}

void HostApplicationShell::SelectSkin(std::uint16_t colour) {
    SelectSkinModule(colour);
}

bool HostApplicationShell::LoadFrame() {
    m_frame = std::make_unique<CMainFrame>(m_options.screen, m_outside, m_options.builder,
                                           m_options.panes);
    if (!m_frame->Create())
        return false;
    // The frame's title is the single-instance lock: a second program that
    // got past the instance rules at the same moment fails here and ends.
    std::string error;
    if (!m_endpoint.Listen(m_options.deviceRoot, {EndpointKind::Title, kTitleZelvor}, &error)) {
        DebugPrint(u"Zelvor: " + FromUtf8(error));
        return false;
    }
    m_endpoint.SetHandler(
        [this](const WindowMessage& message, MessageKind kind) { return Receive(message, kind); });
    QObject::connect(m_frame.get(), &CMainFrame::Closed, [this] {
        m_endpoint.Close();
        if (m_options.quitWhenClosed)
            QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
    });
    return true;
}

void HostApplicationShell::ShowFrame() {
    // A host has no show state handed to a program at its start: the frame
    // is shown as it was placed, over the screen or as a window of its size.
    m_frame->show();
    m_frame->raise();
    m_frame->activateWindow();
}

void HostApplicationShell::DestroyFrame() {
    m_endpoint.Close();
    m_frame.reset();
}

void HostApplicationShell::ReleaseSkin() {
    ReleaseSkinModule();
}

std::int32_t HostApplicationShell::Receive(const WindowMessage& message, MessageKind kind) {
    if (!m_frame)
        return 0;
    if (kind == MessageKind::Send)
        return m_frame->SendFrameMessage(message);
    m_frame->PostFrameMessage(message);
    return 0;
}

} // namespace zelvor
