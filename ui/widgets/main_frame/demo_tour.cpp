#include "ui/widgets/main_frame/demo_tour.h"

#include <QApplication>
#include <QCoreApplication>
#include <QPainter>
#include <QDir>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <cstdio>

#include "config/application_values.h"
#include "res/window_messages.h"
#include "platform/device.h"
#include "res/command_ids.h"
#include "ui/rules/layout/player_layout.h"
#include "ui/widgets/lists/bitmap_button.h"
#include "ui/widgets/lists/track_list_ctrl.h"
#include "ui/widgets/main_frame/main_frame.h"
#include "ui/widgets/panel/play_list_panel.h"

namespace zelvor {
namespace {

// The library check and the first update take a moment on a real card.
constexpr int kQueueWaitLimitMs = 30000;
constexpr int kQueuePollMs = 100;

} // namespace

DemoTour::DemoTour(CMainFrame& frame, QString folder, double pace, QObject* parent)
    : QObject(parent), m_frame(frame), m_folder(std::move(folder)), m_pace(pace) {
    m_steps = {
        {"first-start", [] {}, 300},
        {"library-found", [] {}, 300},
        {"play", [this] { Key(Qt::Key_Return); }, 2500},
        {"pause", [this] { Key(Qt::Key_Return); }, 700},
        {"next", [this] { Key(Qt::Key_Return); Key(Qt::Key_Right); }, 2500},
        {"seek", [this] { TapButton(kButtonSeekBar, 0.6); }, 2000},
        {"random", [this] { TapButton(kButtonRandomOff); }, 700},
        {"repeat", [this] { TapButton(kButtonRepeatOff); }, 700},
        {"volume", [this] { Key(Qt::Key_Down); Key(Qt::Key_Down); Key(Qt::Key_Down); }, 1500},
    };
    // The panel comes while the queue still holds the whole library, so that
    // deleting a row shows; the browser's steps then play shorter lists.
    AddPanelSteps();
    AddBrowserSteps();
    m_steps.push_back({"colour", [this] { ChangeColour(); }, 1000});
    m_steps.push_back({"landscape", [this] { m_frame.SetScreenSize(QSize(320, 240)); }, 2000});
}

void DemoTour::AddPanelSteps() {
    // The play list panel, from the Menu button, in both orientations.
    m_steps.push_back({"panel-portrait", [this] { TapButton(kButtonMenu); }, 700});
    m_steps.push_back({"panel-delete", [this] { PanelDeleteRow(1); }, 700});
    m_steps.push_back({"panel-hand-on", [this] { PanelButton(kCmdHandOn); }, 1000});
    m_steps.push_back({"turn", [this] { m_frame.SetScreenSize(QSize(320, 240)); }, 1000});
    m_steps.push_back({"panel-landscape", [this] { TapButton(kButtonMenu); }, 700});
    m_steps.push_back({"panel-leave", [this] { PanelButton(kCmdFavourites); }, 700});
    m_steps.push_back({"portrait", [this] { m_frame.SetScreenSize(QSize(240, 320)); }, 1000});
}

void DemoTour::Start() {
    QDir().mkpath(m_folder);
    QTimer::singleShot(Paced(m_steps[0].settleMs), this, [this] { Snapshot(0); });
}

void DemoTour::RunStep(std::size_t index) {
    if (index >= m_steps.size()) {
        m_frame.PostFrameMessage({kMsgShellClose, 0, 0});
        return;
    }
    if (index == 1) { // the library found: wait for the queue to fill
        WaitForQueue(index, 0);
        return;
    }
    m_steps[index].action();
    if (m_steps[index].until) {
        WaitUntil(index, 0);
        return;
    }
    QTimer::singleShot(Paced(m_steps[index].settleMs), this, [this, index] { Snapshot(index); });
}

void DemoTour::WaitUntil(std::size_t index, int waitedMs) {
    if (!m_steps[index].until() && waitedMs < kQueueWaitLimitMs) {
        QTimer::singleShot(kQueuePollMs, this,
                           [this, index, waitedMs] { WaitUntil(index, waitedMs + kQueuePollMs); });
        return;
    }
    QTimer::singleShot(Paced(m_steps[index].settleMs), this, [this, index] { Snapshot(index); });
}

int DemoTour::Paced(int milliseconds) const {
    return static_cast<int>(milliseconds * m_pace);
}

void DemoTour::WaitForQueue(std::size_t index, int waitedMs) {
    PlayerPane* player = m_frame.PlayerScreen();
    if (player && player->QueueCount() == 0 && waitedMs < kQueueWaitLimitMs) {
        QTimer::singleShot(kQueuePollMs, this,
                           [this, index, waitedMs] { WaitForQueue(index, waitedMs + kQueuePollMs); });
        return;
    }
    QTimer::singleShot(Paced(m_steps[index].settleMs), this, [this, index] { Snapshot(index); });
}

void DemoTour::Snapshot(std::size_t index) {
    const QString file =
        QStringLiteral("%1/%2-%3.png").arg(m_folder).arg(index + 1, 2, 10, QLatin1Char('0'))
            .arg(QLatin1String(m_steps[index].name));
    if (!m_frame.IsDestroyed() && Picture().save(file)) {
        m_saved << QStringLiteral("%1: %2").arg(QLatin1String(m_steps[index].name), file);
        std::printf("tour: %s\n", qPrintable(m_saved.back()));
        std::fflush(stdout);
    }
    RunStep(index + 1);
}

QPixmap DemoTour::Picture() {
    // A menu or a dialog open over the frame is a window of its own: it is
    // put into the picture where it lies on the screen.
    QPixmap picture = m_frame.grab();
    QPainter painter(&picture);
    for (QWidget* over : {QApplication::activeModalWidget(), QApplication::activePopupWidget()})
        if (over && over != &m_frame && over->isVisible())
            painter.drawPixmap(over->mapToGlobal(QPoint()) - m_frame.mapToGlobal(QPoint()),
                               over->grab());
    return picture;
}

void DemoTour::Key(int qtKey) {
    PlayerPane* player = m_frame.PlayerScreen();
    if (!player)
        return;
    QKeyEvent press(QEvent::KeyPress, qtKey, Qt::NoModifier);
    QKeyEvent release(QEvent::KeyRelease, qtKey, Qt::NoModifier);
    QCoreApplication::sendEvent(player->Widget(), &press);
    QCoreApplication::sendEvent(player->Widget(), &release);
}

void DemoTour::TapButton(int button, double across) {
    PlayerPane* player = m_frame.PlayerScreen();
    if (!player)
        return;
    const auto& layout = PlayerLayoutFor(AppValues().portrait ? ScreenOrientation::Portrait
                                                              : ScreenOrientation::Landscape);
    const PixelRect place = ButtonRect(layout.buttons[static_cast<std::size_t>(button)]);
    const QPointF point(place.left + (place.right - place.left) * across,
                        (place.top + place.bottom) / 2.0);
    QWidget* widget = player->Widget();
    const QPointF global = widget->mapToGlobal(point);
    QMouseEvent press(QEvent::MouseButtonPress, point, global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, point, global, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &press);
    QCoreApplication::sendEvent(widget, &release);
}

void DemoTour::ChangeColour() {
    // As the shell does it: the new value in its key, then the message. Red
    // stands out from the program's own indigo and from blue; from red, orange.
    constexpr std::uint16_t kRed = 2, kOrange = 3;
    const std::uint16_t next = AppValues().guiColor == kRed ? kOrange : kRed;
    RegistryStore& registry = CurrentDevice().Registry();
    registry.SetDword(RegistryRoot::LocalMachine, u"OMBREL", u"GUI Color", next);
    registry.Flush(RegistryRoot::LocalMachine);
    m_frame.PostFrameMessage({kMsgColourChanged, 0, 0});
}

// A tap on one of the panel's buttons, when the panel is open.
void DemoTour::PanelButton(int command) {
    CPlayListPanel* panel = m_frame.PlayListPanel();
    if (panel && panel->isVisible())
        if (CBitmapButton* button = panel->Button(command))
            button->click();
}

// A row tapped (selected), then the delete button.
void DemoTour::PanelDeleteRow(int row) {
    CPlayListPanel* panel = m_frame.PlayListPanel();
    if (!panel || !panel->isVisible())
        return;
    panel->List().SelectOnly(row);
    PanelButton(kCmdDeleteSongs);
}

} // namespace zelvor
