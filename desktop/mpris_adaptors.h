#pragma once
// The two interfaces of the player's object, as Qt D-Bus adaptors: the
// properties and methods named exactly as the MPRIS 2 interfaces name them.
// Both belong to the service's object and forward to the service.

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QStringList>
#include <QVariantMap>

namespace zelvor {

class MprisService;

class MprisRootAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ CanQuit)
    Q_PROPERTY(bool CanRaise READ CanRaise)
    Q_PROPERTY(bool HasTrackList READ HasTrackList)
    Q_PROPERTY(QString Identity READ Identity)
    Q_PROPERTY(QString DesktopEntry READ DesktopEntry)
    Q_PROPERTY(QStringList SupportedUriSchemes READ SupportedUriSchemes)
    Q_PROPERTY(QStringList SupportedMimeTypes READ SupportedMimeTypes)

public:
    explicit MprisRootAdaptor(MprisService* service);

    bool CanQuit() const { return true; }
    bool CanRaise() const { return true; }
    bool HasTrackList() const { return false; }
    QString Identity() const { return QStringLiteral("Zelvor"); }
    QString DesktopEntry() const { return QStringLiteral("zelvor"); }
    QStringList SupportedUriSchemes() const { return {}; }
    QStringList SupportedMimeTypes() const { return {}; }

public slots:
    void Raise();
    void Quit();

private:
    MprisService* m_service;
};

class MprisPlayerAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ PlaybackStatus)
    Q_PROPERTY(QString LoopStatus READ LoopStatus WRITE SetLoopStatus)
    Q_PROPERTY(double Rate READ Rate WRITE SetRate)
    Q_PROPERTY(bool Shuffle READ Shuffle WRITE SetShuffle)
    Q_PROPERTY(QVariantMap Metadata READ Metadata)
    Q_PROPERTY(double Volume READ Volume WRITE SetVolume)
    Q_PROPERTY(qlonglong Position READ Position)
    Q_PROPERTY(double MinimumRate READ Rate)
    Q_PROPERTY(double MaximumRate READ Rate)
    Q_PROPERTY(bool CanGoNext READ HasEntries)
    Q_PROPERTY(bool CanGoPrevious READ HasEntries)
    Q_PROPERTY(bool CanPlay READ HasEntries)
    Q_PROPERTY(bool CanPause READ HasEntries)
    Q_PROPERTY(bool CanSeek READ CanSeek)
    Q_PROPERTY(bool CanControl READ CanControl)

public:
    explicit MprisPlayerAdaptor(MprisService* service);

    QString PlaybackStatus() const;
    QString LoopStatus() const;
    void SetLoopStatus(const QString& status);
    double Rate() const { return 1.0; }
    void SetRate(double) {} // one speed only
    bool Shuffle() const;
    void SetShuffle(bool on);
    QVariantMap Metadata() const;
    double Volume() const;
    void SetVolume(double level);
    qlonglong Position() const;
    bool HasEntries() const;
    bool CanSeek() const;
    bool CanControl() const { return true; }

public slots:
    void Next();
    void Previous();
    void Pause();
    void PlayPause();
    void Stop();
    void Play();
    void Seek(qlonglong offsetUs);
    void SetPosition(const QDBusObjectPath& trackId, qlonglong positionUs);
    void OpenUri(const QString&) {} // the player plays its library only

signals:
    void Seeked(qlonglong positionUs);

private:
    MprisService* m_service;
};

} // namespace zelvor
