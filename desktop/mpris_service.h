#pragma once
// The player on the session bus as org.mpris.MediaPlayer2.zelvor, the
// interface desktops, media keys and playerctl use to reach a music player.
// The object /org/mpris/MediaPlayer2 carries the root interface (Raise,
// Quit, identity) and the Player interface (state, metadata, volume,
// shuffle, loop, position; Play, Pause, PlayPause, Stop, Next, Previous,
// Seek, SetPosition). Every request runs the player screen's own commands
// (remote_commands.h) on the UI thread.
//
// Changes are announced with PropertiesChanged and Seeked. The player tells
// its screen, not the bus, what changed, so the service looks at the state
// right after each of its own requests and otherwise four times a second
// (ReadMprisState is a handful of field reads), announcing what differs.
//
// Without a session bus the player runs as before: Start returns null after
// one debug line. A second player on the same bus (another device root)
// takes the name with ".instance<pid>" appended, as the interface allows.

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QVariantMap>
#include <functional>
#include <memory>

#include "desktop/mpris_mapping.h"
#include "platform/message_frame.h"

namespace zelvor {

class Player;

class MprisService : public QObject {
    Q_OBJECT
public:
    struct Hooks {
        std::function<Player*()> player;                    // null while there is none
        std::function<void(const WindowMessage&)> postToFrame; // Raise and Quit
    };

    static std::unique_ptr<MprisService> Start(Hooks hooks);
    ~MprisService() override;

    const QString& BusName() const { return m_busName; }

    // For the adaptors.
    Player* CurrentPlayer() const { return m_hooks.player ? m_hooks.player() : nullptr; }
    void PostToFrame(const WindowMessage& message);
    // Runs a command on the player, if any, then announces what it changed.
    void Run(const std::function<void(Player&)>& command);
    void AnnounceSeek(std::int64_t positionUs);
    MprisState State() const;
    QVariantMap Metadata() const;

private:
    explicit MprisService(Hooks hooks);
    void Refresh();

    Hooks m_hooks;
    QString m_busName;
    QTimer m_poll;
    QElapsedTimer m_sinceLastLook;
    MprisState m_last;
    std::int64_t m_lastPositionUs = 0;
};

} // namespace zelvor
