#include "host/endpoint.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QTimer>

#include <sys/socket.h>
#include <unistd.h>

namespace zelvor {
namespace {

constexpr int kConnectTimeoutMs = 300;

std::optional<QString> SocketPath(const std::filesystem::path& deviceRoot,
                                  const EndpointAddress& address, std::string* error = nullptr) {
    auto dir = PrepareEndpointDirectory(deviceRoot, error);
    if (!dir)
        return std::nullopt;
    std::string path = (*dir / EndpointFileName(address)).string();
    // sockaddr_un holds 108 bytes with the terminator.
    if (path.size() >= 108) {
        if (error)
            *error = path + ": socket path too long";
        return std::nullopt;
    }
    return QString::fromStdString(path);
}

bool PeerIsSameUser(const QLocalSocket& socket) {
    struct ucred cred {};
    socklen_t length = sizeof cred;
    int fd = static_cast<int>(socket.socketDescriptor());
    return fd >= 0 && ::getsockopt(fd, SOL_SOCKET, SO_PEERCRED, &cred, &length) == 0 &&
           cred.uid == ::getuid();
}

std::unique_ptr<QLocalSocket> Connect(const std::filesystem::path& deviceRoot,
                                      const EndpointAddress& address) {
    auto path = SocketPath(deviceRoot, address);
    if (!path)
        return nullptr;
    auto socket = std::make_unique<QLocalSocket>();
    socket->connectToServer(*path);
    if (!socket->waitForConnected(kConnectTimeoutMs))
        return nullptr;
    return socket;
}

bool WriteFrame(QLocalSocket& socket, const MessageRequest& request, int timeoutMs) {
    auto frame = EncodeRequest(request);
    if (socket.write(reinterpret_cast<const char*>(frame.data()), frame.size()) !=
        static_cast<qint64>(frame.size()))
        return false;
    while (socket.bytesToWrite() > 0) {
        if (!socket.waitForBytesWritten(timeoutMs))
            return false;
    }
    return true;
}

} // namespace

EndpointServer::EndpointServer(QObject* parent) : QObject(parent) {}

EndpointServer::~EndpointServer() {
    Close();
}

bool EndpointServer::Listen(const std::filesystem::path& deviceRoot, const EndpointAddress& address,
                            std::string* error) {
    Close();
    auto path = SocketPath(deviceRoot, address, error);
    if (!path)
        return false;
    if (EndpointExists(deviceRoot, address)) {
        if (error)
            *error = path->toStdString() + ": another program listens there";
        return false;
    }
    QLocalServer::removeServer(*path); // a stale socket of a program that died
    m_server = new QLocalServer(this);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    if (!m_server->listen(*path)) {
        if (error)
            *error = path->toStdString() + ": " + m_server->errorString().toStdString();
        delete m_server;
        m_server = nullptr;
        return false;
    }
    connect(m_server, &QLocalServer::newConnection, this, &EndpointServer::OnNewConnection);
    return true;
}

void EndpointServer::Close() {
    if (m_server) {
        m_server->close();
        delete m_server;
        m_server = nullptr;
    }
}

bool EndpointServer::IsListening() const {
    return m_server && m_server->isListening();
}

void EndpointServer::OnNewConnection() {
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        if (!PeerIsSameUser(*socket)) {
            socket->abort();
            continue;
        }
        // A peer that connects and stalls is cut off.
        QPointer<QLocalSocket> guard(socket);
        QTimer::singleShot(kFrameTimeoutMs, socket, [guard] {
            if (guard)
                guard->abort();
        });
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { OnReadyRead(socket); });
        if (socket->bytesAvailable() > 0)
            OnReadyRead(socket);
    }
}

void EndpointServer::OnReadyRead(QLocalSocket* socket) {
    if (socket->bytesAvailable() < static_cast<qint64>(kRequestFrameSize))
        return;
    QByteArray bytes = socket->readAll();
    auto request = DecodeRequest(std::as_bytes(std::span(bytes.constData(), bytes.size())));
    if (!request) { // malformed, or more than one frame
        socket->abort();
        return;
    }
    std::int32_t result = m_handler ? m_handler(request->message, request->kind) : 0;
    if (request->kind == MessageKind::Send) {
        auto answer = EncodeAnswer(result);
        socket->write(reinterpret_cast<const char*>(answer.data()), answer.size());
        socket->flush();
    }
    socket->disconnectFromServer();
}

bool EndpointExists(const std::filesystem::path& deviceRoot, const EndpointAddress& address) {
    return Connect(deviceRoot, address) != nullptr;
}

std::optional<std::int32_t> SendToEndpoint(const std::filesystem::path& deviceRoot,
                                           const EndpointAddress& address,
                                           const WindowMessage& message, int timeoutMs) {
    auto socket = Connect(deviceRoot, address);
    if (!socket || !WriteFrame(*socket, {MessageKind::Send, message}, timeoutMs))
        return std::nullopt;
    QByteArray answer;
    while (answer.size() < static_cast<qsizetype>(kAnswerFrameSize)) {
        if (socket->bytesAvailable() == 0 && !socket->waitForReadyRead(timeoutMs))
            return std::nullopt;
        answer += socket->read(static_cast<qint64>(kAnswerFrameSize) - answer.size());
    }
    return DecodeAnswer(std::as_bytes(std::span(answer.constData(), answer.size())));
}

bool PostToEndpoint(const std::filesystem::path& deviceRoot, const EndpointAddress& address,
                    const WindowMessage& message, int timeoutMs) {
    auto socket = Connect(deviceRoot, address);
    return socket && WriteFrame(*socket, {MessageKind::Post, message}, timeoutMs);
}

} // namespace zelvor
