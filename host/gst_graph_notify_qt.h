#pragma once
// The graph's notify hook for a Qt owner: each notification becomes a posted
// QEvent on the receiver, so the engine's OnGraphNotify runs on the
// receiver's (the UI) thread, as a posted kMsgGraphNotify does on the device.
//
// The receiver must outlive every graph given the hook; the player screen
// releases its graph before it is destroyed.

#include <QEvent>
#include <QObject>

#include "res/window_messages.h"
#include "playback/media_graph.h"

namespace zelvor {

// The event type of the graph notification: QEvent::User + kMsgGraphNotify.
QEvent::Type GraphNotifyEventType();

MediaGraph::NotifyHook MakePostedEventHook(QObject* receiver);

} // namespace zelvor
