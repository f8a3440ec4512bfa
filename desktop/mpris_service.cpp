#include "desktop/mpris_service.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QUrl>
#include <unistd.h>

#include "desktop/mpris_adaptors.h"
#include "desktop/remote_commands.h"
#include "platform/debug_print.h"
#include "platform/device.h"
#include "playback/play_state.h"

namespace zelvor {
namespace {

const QString kObjectPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString kBusName = QStringLiteral("org.mpris.MediaPlayer2.zelvor");
const QString kPlayerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");
constexpr int kLookIntervalMs = 250;
// Positions are whole seconds; a look may come up to a second late.
constexpr std::int64_t kJumpToleranceUs = 2 * kMicrosecondsPerSecond;

std::string UrlOfDevicePath(std::u16string_view devicePath) {
    Device* device = CurrentDevicePointer();
    const auto host = device ? device->FileSystem().ToHostPath(devicePath) : std::nullopt;
    return host ? QUrl::fromLocalFile(QString::fromStdString(host->string())).toEncoded().toStdString()
                : std::string();
}

QStringList OneOrNone(const std::u16string& text) {
    return text.empty() ? QStringList() : QStringList{QString::fromStdU16String(text)};
}

} // namespace

std::unique_ptr<MprisService> MprisService::Start(Hooks hooks) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        DebugPrint(u"Zelvor: no session bus, no remote control");
        return nullptr;
    }
    std::unique_ptr<MprisService> service(new MprisService(std::move(hooks)));
    new MprisRootAdaptor(service.get());
    new MprisPlayerAdaptor(service.get());
    if (!bus.registerObject(kObjectPath, service.get(), QDBusConnection::ExportAdaptors)) {
        DebugPrint(u"Zelvor: the remote control's object is taken");
        return nullptr;
    }
    service->m_busName = kBusName;
    if (!bus.registerService(kBusName)) {
        service->m_busName = kBusName + QStringLiteral(".instance%1").arg(::getpid());
        if (!bus.registerService(service->m_busName)) {
            bus.unregisterObject(kObjectPath);
            DebugPrint(u"Zelvor: the remote control's bus name is taken");
            return nullptr;
        }
    }
    return service;
}

MprisService::MprisService(Hooks hooks) : m_hooks(std::move(hooks)) {
    m_last = State();
    m_sinceLastLook.start();
    m_poll.setInterval(kLookIntervalMs);
    connect(&m_poll, &QTimer::timeout, this, &MprisService::Refresh);
    m_poll.start();
}

MprisService::~MprisService() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!m_busName.isEmpty())
        bus.unregisterService(m_busName);
    bus.unregisterObject(kObjectPath);
}

void MprisService::PostToFrame(const WindowMessage& message) {
    if (m_hooks.postToFrame)
        m_hooks.postToFrame(message);
}

void MprisService::Run(const std::function<void(Player&)>& command) {
    if (Player* player = CurrentPlayer()) {
        command(*player);
        Refresh();
    }
}

void MprisService::AnnounceSeek(std::int64_t positionUs) {
    if (auto* adaptor = findChild<MprisPlayerAdaptor*>())
        emit adaptor->Seeked(positionUs);
}

MprisState MprisService::State() const {
    Player* player = CurrentPlayer();
    return player ? ReadMprisState(*player, UrlOfDevicePath) : MprisState{};
}

QVariantMap MprisService::Metadata() const {
    const MprisTrack track = State().track;
    QVariantMap map;
    map.insert(QStringLiteral("mpris:trackid"),
               QVariant::fromValue(QDBusObjectPath(QString::fromStdString(track.trackId))));
    if (track.url.empty())
        return map; // no track
    map.insert(QStringLiteral("mpris:length"), qlonglong{track.lengthUs});
    map.insert(QStringLiteral("xesam:title"), QString::fromStdU16String(track.title));
    map.insert(QStringLiteral("xesam:artist"), OneOrNone(track.artist));
    map.insert(QStringLiteral("xesam:album"), QString::fromStdU16String(track.album));
    map.insert(QStringLiteral("xesam:genre"), OneOrNone(track.genre));
    map.insert(QStringLiteral("xesam:trackNumber"), track.trackNumber);
    map.insert(QStringLiteral("xesam:url"), QString::fromStdString(track.url));
    return map;
}

void MprisService::Refresh() {
    Player* player = CurrentPlayer();
    const MprisState now = State();
    const std::int64_t positionUs = player ? RemotePositionUs(*player) : 0;
    const std::int64_t elapsedUs = m_sinceLastLook.restart() * 1000;
    const bool sameTrack = now.track.trackId == m_last.track.trackId;
    const bool jumped =
        sameTrack && now.playState != kPlayStateStopped &&
        PositionJumped(m_lastPositionUs, positionUs, elapsedUs,
                       m_last.playState == kPlayStatePlaying, kJumpToleranceUs);
    const auto changed = ChangedProperties(m_last, now);
    m_last = now;
    m_lastPositionUs = positionUs;
    if (jumped)
        AnnounceSeek(positionUs);
    if (changed.empty())
        return;
    auto* adaptor = findChild<MprisPlayerAdaptor*>();
    QVariantMap values;
    for (std::string_view name : changed) {
        const QByteArray key(name.data(), static_cast<qsizetype>(name.size()));
        values.insert(QString::fromLatin1(key), adaptor->property(key.constData()));
    }
    QDBusMessage signal = QDBusMessage::createSignal(
        kObjectPath, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("PropertiesChanged"));
    signal << kPlayerInterface << values << QStringList();
    QDBusConnection::sessionBus().send(signal);
}

} // namespace zelvor
