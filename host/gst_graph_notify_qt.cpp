#include "host/gst_graph_notify_qt.h"

#include <QCoreApplication>

namespace zelvor {

QEvent::Type GraphNotifyEventType() {
    return static_cast<QEvent::Type>(QEvent::User + static_cast<int>(kMsgGraphNotify));
}

MediaGraph::NotifyHook MakePostedEventHook(QObject* receiver) {
    // postEvent may be called from any thread; the event is delivered on the
    // receiver's thread. Several notifications may be pending at once: each
    // OnGraphNotify drains every queued event, later ones find none.
    return [receiver] { QCoreApplication::postEvent(receiver, new QEvent(GraphNotifyEventType())); };
}

} // namespace zelvor
