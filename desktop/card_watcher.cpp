#include "desktop/card_watcher.h"

#include <QSocketNotifier>
#include <algorithm>
#include <fcntl.h>
#include <string>
#include <system_error>
#include <unistd.h>

#include "res/window_messages.h"

namespace zelvor {
namespace fs = std::filesystem;
namespace {

// The frame polls a new card's folder at this interval too.
constexpr int kSettleMs = 100;

// The whole table from the start; reading it to the end also clears the
// pending change event.
std::string ReadMountTable(int fd) {
    std::string text;
    if (fd < 0 || ::lseek(fd, 0, SEEK_SET) != 0)
        return text;
    char buffer[8192];
    for (ssize_t got; (got = ::read(fd, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<size_t>(got));
    return text;
}

} // namespace

CardWatcher::CardWatcher(fs::path folder, Poster post, QObject* parent)
    : QObject(parent),
      m_folder(fs::absolute(std::move(folder)).lexically_normal()),
      m_post(std::move(post)),
      m_mountTable(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)),
      m_presence(CardObservation{}) {
    m_settle.setSingleShot(true);
    m_settle.setInterval(kSettleMs);
    connect(&m_settle, &QTimer::timeout, this, &CardWatcher::Check);
    const auto schedule = [this] {
        if (!m_settle.isActive())
            m_settle.start();
    };
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, schedule);
    if (m_mountTable >= 0) {
        m_mountNotifier = std::make_unique<QSocketNotifier>(m_mountTable, QSocketNotifier::Exception);
        connect(m_mountNotifier.get(), &QSocketNotifier::activated, this, schedule);
    }
    m_presence = CardPresence(Observe());
    ArmWatches();
}

CardWatcher::~CardWatcher() {
    m_mountNotifier.reset();
    if (m_mountTable >= 0)
        ::close(m_mountTable);
}

CardObservation CardWatcher::Observe() const {
    CardObservation seen;
    std::error_code ec;
    seen.folderExists = fs::is_directory(m_folder, ec);
    const std::vector<std::string> points = ParseMountPoints(ReadMountTable(m_mountTable));
    // The table names the folder as the kernel resolved it.
    const fs::path real = seen.folderExists ? fs::canonical(m_folder, ec) : m_folder;
    seen.isMountPoint = std::find(points.begin(), points.end(), real.string()) != points.end();
    return seen;
}

// Only the nearest existing folder above the card is watched: the card's
// arrival and departure change it, while the card's own contents, which
// the library update reads anyway, would only wake the watcher for nothing.
void CardWatcher::ArmWatches() {
    if (!m_watcher.directories().isEmpty())
        m_watcher.removePaths(m_watcher.directories());
    std::error_code ec;
    fs::path above = m_folder.parent_path();
    while (!above.empty() && !fs::is_directory(above, ec) && above != above.parent_path())
        above = above.parent_path();
    if (!above.empty())
        m_watcher.addPath(QString::fromStdString(above.string()));
}

void CardWatcher::Check() {
    ArmWatches();
    if (const auto change = m_presence.Update(Observe()))
        m_post({kMsgStorageCard, static_cast<std::uint32_t>(*change), 0});
}

} // namespace zelvor
