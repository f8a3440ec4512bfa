#pragma once
// Tells the frame when the storage card comes and goes on a host, with the
// message the device shell sends (kMsgStorageCard, wParam 0 removed, 1
// inserted), so the frame's own rules run: the playing track stops when its
// card goes, the library is brought up to date when a card returns.
//
// Nothing is polled. Qt's file-system watcher watches the nearest existing
// folder above the card's (its creation and removal show there), and the
// kernel's mount table is watched for a medium mounted over or unmounted from
// an existing folder (poll's priority event on /proc/self/mountinfo). Events
// are settled for 100 ms, the frame's own card poll interval, before the card
// is looked at again, so a burst of changes makes one check.

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>

#include "platform/message_frame.h"
#include "desktop/card_presence.h"

class QSocketNotifier;

namespace zelvor {

class CardWatcher : public QObject {
    Q_OBJECT
public:
    using Poster = std::function<void(const WindowMessage&)>;

    // `folder` is the card's host folder; `post` delivers each message (to
    // the frame's queue). The card's state at construction is the start.
    CardWatcher(std::filesystem::path folder, Poster post, QObject* parent = nullptr);
    ~CardWatcher() override;

    bool Present() const { return m_presence.Present(); }

private:
    CardObservation Observe() const;
    void ArmWatches();
    void Check();

    std::filesystem::path m_folder;
    Poster m_post;
    QFileSystemWatcher m_watcher;
    QTimer m_settle;
    int m_mountTable = -1;
    std::unique_ptr<QSocketNotifier> m_mountNotifier;
    CardPresence m_presence;
};

} // namespace zelvor
