#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLocalSocket>

#include <sys/wait.h>
#include <unistd.h>

#include "host/endpoint.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {
using testing::TempDir;

const EndpointAddress kPelrin{EndpointKind::Title, u"Pelrin"};

// Runs the Qt event loop (the server lives on this thread) until done()
// or the time is up.
template <typename Done> void Spin(Done done, int ms) {
    QElapsedTimer timer;
    timer.start();
    while (!done() && timer.elapsed() < ms)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

// The result of a blocking client run on another thread.
template <typename T> T Await(std::future<T>& future) {
    Spin([&] { return future.wait_for(std::chrono::milliseconds(1)) == std::future_status::ready; },
         10000);
    return future.get();
}

class Endpoints : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(server.Listen(root.Path(), kPelrin)); }
    TempDir root;
    EndpointServer server;
    std::vector<std::pair<WindowMessage, MessageKind>> received;
    void Record(std::int32_t answer) {
        server.SetHandler([this, answer](const WindowMessage& m, MessageKind k) {
            received.emplace_back(m, k);
            return answer;
        });
    }
};

TEST_F(Endpoints, SendWaitsForTheAnswerAndPostDoesNot) {
    Record(42);
    auto sent = std::async(std::launch::async, [&] {
        return SendToEndpoint(root.Path(), kPelrin, {0x592, 1, -2});
    });
    EXPECT_EQ(Await(sent), 42);
    auto posted = std::async(std::launch::async, [&] {
        return PostToEndpoint(root.Path(), kPelrin, {0x5A4, 0, 0});
    });
    EXPECT_TRUE(Await(posted));
    Spin([] { return false; }, 100);
    ASSERT_EQ(received.size(), 2u);
    EXPECT_EQ(received[0].first, (WindowMessage{0x592, 1, -2}));
    EXPECT_EQ(received[0].second, MessageKind::Send);
    EXPECT_EQ(received[1].second, MessageKind::Post);
}

TEST_F(Endpoints, FindingAndSecondListenersAndMissingPeers) {
    auto exists = std::async(std::launch::async, [&] { return EndpointExists(root.Path(), kPelrin); });
    EXPECT_TRUE(Await(exists));
    EndpointServer second;
    std::string error;
    auto listening = std::async(std::launch::async, [&] {
        return second.Listen(root.Path(), kPelrin, &error);
    });
    EXPECT_FALSE(Await(listening)); // one program per title
    EXPECT_FALSE(EndpointExists(root.Path(), {EndpointKind::Class, u"Mobile Navigator 6"}));
    EXPECT_FALSE(SendToEndpoint(root.Path(), {EndpointKind::Title, u"Zelvor"}, {1, 0, 0}, 200));
    server.Close();
    EXPECT_FALSE(EndpointExists(root.Path(), kPelrin));
    // A socket left behind by a program that died does not block a new one.
    EXPECT_TRUE(second.Listen(root.Path(), kPelrin, &error)) << error;
}

TEST_F(Endpoints, OversizedAndStalledFramesNeverReachTheHandler) {
    Record(1);
    auto dir = PrepareEndpointDirectory(root.Path());
    ASSERT_TRUE(dir);
    QString path = QString::fromStdString((*dir / EndpointFileName(kPelrin)).string());
    auto raw = [&](QByteArray bytes) {
        return std::async(std::launch::async, [path, bytes] {
            QLocalSocket s;
            s.connectToServer(path);
            if (!s.waitForConnected(1000))
                return false;
            s.write(bytes);
            s.waitForBytesWritten(1000);
            // The server cuts the connection; nothing is answered.
            bool answered = s.waitForReadyRead(3000) && s.bytesAvailable() > 0;
            return !answered;
        });
    };
    auto good = EncodeRequest({MessageKind::Send, {7, 0, 0}});
    QByteArray goodBytes(reinterpret_cast<const char*>(good.data()), good.size());
    auto oversized = raw(goodBytes + QByteArray(4096, 'y'));
    auto stalled = raw(goodBytes.left(7));
    EXPECT_TRUE(Await(oversized));
    EXPECT_TRUE(Await(stalled));
    EXPECT_TRUE(received.empty());
    // And the server still serves well-formed peers afterwards.
    auto sent = std::async(std::launch::async, [&] { return SendToEndpoint(root.Path(), kPelrin, {8, 0, 0}); });
    EXPECT_EQ(Await(sent), 1);
}

TEST_F(Endpoints, APeerOfAnotherUserIsRefused) {
    if (::getuid() != 0)
        GTEST_SKIP() << "needs root to act as another user";
    Record(5);
    pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (::setgid(65534) != 0 || ::setuid(65534) != 0)
            ::_exit(3);
        auto result = SendToEndpoint(root.Path(), kPelrin, {9, 0, 0}, 500);
        ::_exit(result ? 1 : 0);
    }
    int status = -1;
    Spin([&] { return ::waitpid(child, &status, WNOHANG) != 0; }, 10000);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_TRUE(received.empty());
}

} // namespace
} // namespace zelvor

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
