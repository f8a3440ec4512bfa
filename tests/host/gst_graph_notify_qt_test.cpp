#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>
#include <thread>

#include "host/gst_graph_notify_qt.h"

namespace zelvor {
namespace {

class Receiver : public QObject {
public:
    bool event(QEvent* e) override {
        if (e->type() != GraphNotifyEventType())
            return QObject::event(e);
        ++notifications;
        onThread = QThread::currentThread() == thread();
        return true;
    }
    int notifications = 0;
    bool onThread = false;
};

TEST(QtGraphNotify, ANotificationFromAnotherThreadArrivesAsAPostedEventOnTheReceiversThread) {
    int argc = 0;
    QCoreApplication app(argc, nullptr);
    Receiver receiver;
    auto hook = MakePostedEventHook(&receiver);
    std::thread graphThread([&] {
        hook();
        hook();
    });
    graphThread.join();
    EXPECT_EQ(receiver.notifications, 0); // posted, not sent
    QCoreApplication::processEvents();
    EXPECT_EQ(receiver.notifications, 2);
    EXPECT_TRUE(receiver.onThread);
}

} // namespace
} // namespace zelvor
