#pragma once
// The parent window of a list control under test: it keeps every window
// message the list posts or sends it and answers sent ones with 0.
// Also the app and the mouse and key events the tests feed the lists.

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/support/qt_app.h"
#include "ui/widgets/main_frame/window_message_event.h"

namespace zelvor::testing {

class MessageSink : public QWidget {
public:
    std::vector<WindowMessage> received;

    std::vector<WindowMessage> Take() {
        QCoreApplication::processEvents();
        return std::exchange(received, {});
    }

protected:
    bool event(QEvent* event) override {
        if (event->type() != WindowMessageEvent::EventType())
            return QWidget::event(event);
        auto* message = static_cast<WindowMessageEvent*>(event);
        received.push_back(message->Message());
        message->SetResult(0);
        return true;
    }
};

// The first base of a fixture whose members are widgets.
struct WidgetApplicationFirst {
    WidgetApplicationFirst() { EnsureQtApplication(); }
};

inline void SendMouse(QWidget* target, QEvent::Type type, QPoint point,
                      Qt::MouseButtons buttons = Qt::LeftButton) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, point, target->mapToGlobal(point), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
}

// Leaves a picture of the widget in the artifacts folder for people to see.
inline void SavePicture(QWidget& widget, const std::string& name) {
    QCoreApplication::processEvents();
    const auto path = ArtifactDir() / (name + ".png");
    EXPECT_TRUE(widget.grab().save(QString::fromStdString(path.string())));
}

inline void SendKey(QWidget* target, QEvent::Type type, int key, bool autoRepeat = false) {
    QKeyEvent event(type, key, Qt::NoModifier, QString(), autoRepeat);
    QCoreApplication::sendEvent(target, &event);
}

} // namespace zelvor::testing
