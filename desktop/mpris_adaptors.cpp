#include "desktop/mpris_adaptors.h"

#include "desktop/mpris_service.h"
#include "desktop/remote_commands.h"
#include "res/window_messages.h"

namespace zelvor {

MprisRootAdaptor::MprisRootAdaptor(MprisService* service)
    : QDBusAbstractAdaptor(service), m_service(service) {}

void MprisRootAdaptor::Raise() {
    m_service->PostToFrame({kMsgHostRaise, 0, 0});
}

void MprisRootAdaptor::Quit() {
    // As the shell's close request: the settings and the queue are saved.
    m_service->PostToFrame({kMsgClose, 0, 0});
}

MprisPlayerAdaptor::MprisPlayerAdaptor(MprisService* service)
    : QDBusAbstractAdaptor(service), m_service(service) {
    setAutoRelaySignals(false);
}

QString MprisPlayerAdaptor::PlaybackStatus() const {
    return QString::fromLatin1(PlaybackStatusName(m_service->State().playState));
}

QString MprisPlayerAdaptor::LoopStatus() const {
    return QString::fromLatin1(LoopStatusName(m_service->State().repeatMode));
}

void MprisPlayerAdaptor::SetLoopStatus(const QString& status) {
    if (const auto mode = RepeatModeOf(status.toStdString()))
        m_service->Run([mode](Player& p) { RemoteSetRepeat(p, *mode); });
}

bool MprisPlayerAdaptor::Shuffle() const {
    return m_service->State().random;
}

void MprisPlayerAdaptor::SetShuffle(bool on) {
    m_service->Run([on](Player& p) { RemoteSetRandom(p, on); });
}

QVariantMap MprisPlayerAdaptor::Metadata() const {
    return m_service->Metadata();
}

double MprisPlayerAdaptor::Volume() const {
    const MprisState state = m_service->State();
    return VolumeLevel(state.volumeStep, state.muted);
}

void MprisPlayerAdaptor::SetVolume(double level) {
    m_service->Run([level](Player& p) { RemoteSetVolume(p, level); });
}

qlonglong MprisPlayerAdaptor::Position() const {
    Player* player = m_service->CurrentPlayer();
    return player ? RemotePositionUs(*player) : 0;
}

bool MprisPlayerAdaptor::HasEntries() const {
    return m_service->State().hasEntries;
}

bool MprisPlayerAdaptor::CanSeek() const {
    return m_service->State().canSeek;
}

void MprisPlayerAdaptor::Next() {
    m_service->Run(RemoteNext);
}

void MprisPlayerAdaptor::Previous() {
    m_service->Run(RemotePrevious);
}

void MprisPlayerAdaptor::Pause() {
    m_service->Run(RemotePause);
}

void MprisPlayerAdaptor::PlayPause() {
    m_service->Run(RemotePlayPause);
}

void MprisPlayerAdaptor::Stop() {
    m_service->Run(RemoteStop);
}

void MprisPlayerAdaptor::Play() {
    m_service->Run(RemotePlay);
}

void MprisPlayerAdaptor::Seek(qlonglong offsetUs) {
    m_service->Run([offsetUs](Player& p) { RemoteSeekBy(p, offsetUs); });
}

void MprisPlayerAdaptor::SetPosition(const QDBusObjectPath& trackId, qlonglong positionUs) {
    m_service->Run([&](Player& p) {
        const MprisState state = m_service->State();
        if (AcceptSetPosition(state.track.trackId, trackId.path().toStdString(), positionUs,
                              state.track.lengthUs))
            RemoteSeekTo(p, positionUs);
    });
}

} // namespace zelvor
