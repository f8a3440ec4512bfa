#pragma once
// What start-up does with windows on the host: the skin module, the main
// frame and the "Zelvor" endpoint through which the frame receives the
// messages of other programs (sent ones answered with the handler's result,
// posted ones queued to the frame).
//
// The frame exists from LoadFrame to DestroyFrame. When it is closed the
// endpoint stops listening and the event loop is asked to end.

#include <QSize>
#include <filesystem>
#include <memory>

#include "app/application.h"
#include "host/endpoint.h"
#include "app/endpoint_windows.h"
#include "ui/widgets/main_frame/main_frame.h"

namespace zelvor {

struct HostApplicationOptions {
    std::filesystem::path deviceRoot; // the endpoints' device
    QSize screen{240, 320};           // the device screen, in pixels
    FramePaneMakers panes;
    RecordBuilder builder;
    // Whether closing the frame ends the Qt event loop (tests keep it).
    bool quitWhenClosed = true;
};

class HostApplicationShell final : public ApplicationShell {
public:
    explicit HostApplicationShell(HostApplicationOptions options);
    ~HostApplicationShell() override;

    void SetRegistryKey(std::u16string_view company) override;
    void SelectSkin(std::uint16_t colour) override;
    bool LoadFrame() override;
    void ShowFrame() override;
    void DestroyFrame() override;
    void ReleaseSkin() override;

    // The frame while it exists, else null.
    CMainFrame* Frame() { return m_frame.get(); }
    const std::u16string& RegistryKey() const { return m_registryKey; }

private:
    std::int32_t Receive(const WindowMessage& message, MessageKind kind);

    HostApplicationOptions m_options;
    EndpointWindows m_outside;
    std::u16string m_registryKey;
    std::unique_ptr<CMainFrame> m_frame;
    EndpointServer m_endpoint;
};

} // namespace zelvor
