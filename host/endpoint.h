#pragma once
// Window messages between programs on the host, over local sockets in the
// device's private endpoint folder (platform/endpoint_directory.h).
//
// A program that "has a window" titled T listens with an EndpointServer on
// T's socket. Other programs find it (EndpointExists, the stand-in for
// FindWindowW), send it a message and wait for the result with a time-out
// (SendToEndpoint, for SendMessageW: a hung peer cannot hang the caller), or
// post one without waiting (PostToEndpoint, for PostMessageW).
//
// The server runs in the Qt event loop of its thread. It accepts one frame
// per connection from peers of the same user id only; anything else —
// another user, a malformed or oversized frame, a peer that stalls — is
// dropped without reaching the handler.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include <QObject>

#include "platform/endpoint_directory.h"
#include "platform/message_frame.h"

class QLocalServer;
class QLocalSocket;

namespace zelvor {

class EndpointServer : public QObject {
    Q_OBJECT
public:
    // Returns the result of a sent message; ignored for a posted one.
    using Handler = std::function<std::int32_t(const WindowMessage&, MessageKind)>;

    explicit EndpointServer(QObject* parent = nullptr);
    ~EndpointServer() override;

    // Starts listening. Fails when another live program already listens on
    // the address (a stale socket left by a crash is replaced).
    bool Listen(const std::filesystem::path& deviceRoot, const EndpointAddress& address,
                std::string* error = nullptr);
    void Close();
    bool IsListening() const;
    void SetHandler(Handler handler) { m_handler = std::move(handler); }

    // How long a connected peer may take to deliver its frame.
    static constexpr int kFrameTimeoutMs = 2000;

private:
    void OnNewConnection();
    void OnReadyRead(QLocalSocket* socket);

    QLocalServer* m_server = nullptr;
    Handler m_handler;
};

// Whether a program listens on the address now.
bool EndpointExists(const std::filesystem::path& deviceRoot, const EndpointAddress& address);

// Sends a message and waits for its result; nullopt when nobody listens, the
// peer refuses or does not answer within timeoutMs.
std::optional<std::int32_t> SendToEndpoint(const std::filesystem::path& deviceRoot,
                                           const EndpointAddress& address,
                                           const WindowMessage& message, int timeoutMs = 2000);

// Posts a message; true when it was handed to a listening peer.
bool PostToEndpoint(const std::filesystem::path& deviceRoot, const EndpointAddress& address,
                    const WindowMessage& message, int timeoutMs = 1000);

} // namespace zelvor
