#include "desktop/card_watcher.h"

#include <QCoreApplication>
#include <QTest>
#include <gtest/gtest.h>

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

// The presence rules are tested on their own; this is the wiring: the watch
// climbs down as the folders above the card appear (a medium mounted under a
// fresh /media/$USER), changes inside the card say nothing, and the card's
// going and coming are posted as they happen.
TEST_F(CardWatcherTest, PostsTheCardComingAndGoingAndNothingElse) {
    const fs::path card = m_dir.Path() / "media" / "ann" / "CARD";
    auto watcher = Watch(card);
    EXPECT_FALSE(watcher->Present());
    fs::create_directories(card.parent_path());
    QTest::qWait(300); // the parent alone is no card
    EXPECT_TRUE(m_posted.empty());
    fs::create_directory(card);
    EXPECT_EQ(NextCardMessage(), 1);
    fs::create_directories(card / "new album");
    fs::remove_all(card / "new album");
    fs::remove_all(card);
    EXPECT_EQ(NextCardMessage(), 0);
    EXPECT_FALSE(watcher->Present());
    QTest::qWait(300);
    EXPECT_EQ(m_posted.size(), 2u);
}

} // namespace
} // namespace zelvor
