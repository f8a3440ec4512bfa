#include "desktop/card_watcher.h"

#include <QCoreApplication>
#include <QTest>
#include <gtest/gtest.h>
#include <sys/mount.h>

#include "res/window_messages.h"
#include "tests/support/qt_app.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {
namespace fs = std::filesystem;

constexpr int kWaitMs = 5000; // an upper bound for inotify; a pass takes ~100 ms

class CardWatcherTest : public ::testing::Test {
protected:
    void SetUp() override { testing::EnsureQtApplication(); }

    std::unique_ptr<CardWatcher> Watch(const fs::path& folder) {
        return std::make_unique<CardWatcher>(
            folder, [this](const WindowMessage& m) { m_posted.push_back(m); });
    }

    // Waits for the next message and returns its wParam (-1: none came).
    int NextCardMessage() {
        const size_t before = m_seen;
        if (!QTest::qWaitFor([&] { return m_posted.size() > before; }, kWaitMs))
            return -1;
        const WindowMessage m = m_posted[m_seen++];
        return m.message == kMsgStorageCard ? static_cast<int>(m.wParam) : -2;
    }

    testing::TempDir m_dir;
    std::vector<WindowMessage> m_posted;
    size_t m_seen = 0;
};

TEST_F(CardWatcherTest, BindFolderRemovedAndRecreated) {
    const fs::path card = m_dir.Path() / "media" / "CARD";
    fs::create_directories(card / "Album");
    auto watcher = Watch(card);
    EXPECT_TRUE(watcher->Present());

    fs::remove_all(card);
    EXPECT_EQ(NextCardMessage(), 0);
    EXPECT_FALSE(watcher->Present());

    fs::create_directories(card);
    EXPECT_EQ(NextCardMessage(), 1);
    fs::remove_all(card);
    EXPECT_EQ(NextCardMessage(), 0);
    EXPECT_EQ(m_posted.size(), 3u);
}

// The folders above the card may come with it (a medium mounted under a
// fresh /media/$USER): the watch climbs down as they appear.
TEST_F(CardWatcherTest, CardWhoseParentsAppearLater) {
    const fs::path card = m_dir.Path() / "media" / "ann" / "CARD";
    auto watcher = Watch(card);
    EXPECT_FALSE(watcher->Present());

    fs::create_directories(card.parent_path());
    QTest::qWait(300); // the parent alone is no card
    EXPECT_TRUE(m_posted.empty());
    fs::create_directory(card);
    EXPECT_EQ(NextCardMessage(), 1);
}

TEST_F(CardWatcherTest, ChangesInsideTheCardSayNothing) {
    const fs::path card = m_dir.Path() / "CARD";
    fs::create_directories(card);
    auto watcher = Watch(card);
    fs::create_directories(card / "new album");
    fs::remove_all(card / "new album");
    QTest::qWait(300);
    EXPECT_TRUE(m_posted.empty());
}

// A medium mounted on a fixed folder: only the mount table changes. Needs
// the right to mount (root in CI); skipped elsewhere.
TEST_F(CardWatcherTest, MediumMountedAndUnmountedOnAFixedFolder) {
    const fs::path card = m_dir.Path() / "mnt" / "card";
    fs::create_directories(card);
    if (::mount("zelvor-test", card.c_str(), "tmpfs", 0, nullptr) != 0)
        GTEST_SKIP() << "no right to mount here";
    auto watcher = Watch(card);
    EXPECT_TRUE(watcher->Present());

    ASSERT_EQ(::umount(card.c_str()), 0);
    EXPECT_EQ(NextCardMessage(), 0); // the folder is still there, empty
    ASSERT_EQ(::mount("zelvor-test", card.c_str(), "tmpfs", 0, nullptr), 0);
    EXPECT_EQ(NextCardMessage(), 1);
    ::umount(card.c_str());
    EXPECT_EQ(NextCardMessage(), 0);
}

} // namespace
} // namespace zelvor
