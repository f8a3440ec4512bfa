#include "ui/widgets/main_frame/main_frame.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QThread>

#include "ui/widgets/lists/track_list_ctrl.h"
#include "ui/widgets/main_frame/empty_browser_pane.h"
#include "ui/rules/main_frame/wait_cursor.h"
#include "ui/widgets/main_frame/window_message_event.h"
#include "ui/widgets/panel/play_list_panel.h"
#include "ui/widgets/skin/skin_module.h"

namespace zelvor {

CMainFrame::CMainFrame(QSize screen, OutsideWindows& outside, RecordBuilder builder,
                       FramePaneMakers makers, QWidget* parent)
    : QWidget(parent),
      m_screen(screen),
      m_makers(std::move(makers)),
      m_rules(static_cast<FrameWindow&>(*this), outside, std::move(builder)) {
    setWindowTitle(QStringLiteral("Zelvor"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    // Escape is the device's back key wherever the focus is in the frame.
    qApp->installEventFilter(this);
}

CMainFrame::~CMainFrame() {
    qApp->removeEventFilter(this);
    Destroy();
}

bool CMainFrame::Create() {
    if (!m_makers.player)
        return false;
    m_player = m_makers.player(this, *this);
    if (!m_player || !m_player->Widget())
        return false;
    m_player->Widget()->setProperty("paneId", kPlayerPaneId);

    m_panel = std::make_unique<CPlayListPanel>(static_cast<PanelOwner&>(*this), this);
    m_panel->setProperty("paneId", kPanelPaneId);
    m_panel->hide();

    if (m_makers.browser)
        m_browser = m_makers.browser(this, *this, m_rules.Library());
    else
        m_browser = std::make_unique<EmptyBrowserPane>(this);
    if (!m_browser || !m_browser->Widget())
        return false;
    m_browser->Widget()->setProperty("paneId", kBrowserPaneId);
    m_browser->Widget()->hide();

    m_rules.OnCreate();
    return true;
}

void CMainFrame::Destroy() {
    if (m_destroyed)
        return;
    m_destroyed = true;
    m_panel.reset();
    m_browser.reset();
    m_player.reset(); // saves the player's settings and queue
    m_rules.OnDestroy();
}

std::int32_t CMainFrame::SendFrameMessage(const WindowMessage& message) {
    if (message.message == kMsgClose) {
        close();
        return 0;
    }
    if (m_destroyed)
        return 0;
    return m_rules.Handle(message);
}

void CMainFrame::PostFrameMessage(const WindowMessage& message) {
    QCoreApplication::postEvent(this, new WindowMessageEvent(message));
}

void CMainFrame::SetScreenSize(QSize screen) {
    m_screen = screen;
    PlaceFullScreen(screen.width(), screen.height());
}

void CMainFrame::ShowBrowser() {
    if (m_player)
        m_player->CancelHoldTimers();
    ShowBrowserPane();
    FocusBrowser();
}

// The Menu button opens the play list panel over the player, listing the
// queue as it stands (copies, in the playlist's own order): the queue is
// what a user asks to see from the player. The About box is reached from
// the panel's title bar.
void CMainFrame::ShowMenu() {
    if (!m_player || !m_panel)
        return;
    m_player->CancelHoldTimers();
    TrackList copies;
    m_player->CopyQueue(copies);
    m_panel->ShowTracks(std::move(copies));
    m_panel->setGeometry(rect());
    m_panel->show();
    m_panel->raise();
    m_panel->List().setFocus();
}

void CMainFrame::HideFrame() {
    lower();
    hide();
}

void CMainFrame::ShowPlayer() {
    ShowPlayerPane();
}

void CMainFrame::PlayFromBrowser(const TrackList& songs, int start) {
    if (!m_player)
        return;
    WaitCursor wait(*this);
    m_player->PlayFromBrowser(songs, start);
    ShowPlayerPane();
}

bool CMainFrame::event(QEvent* event) {
    if (event->type() == WindowMessageEvent::EventType()) {
        SendFrameMessage(static_cast<WindowMessageEvent*>(event)->Message());
        return true;
    }
    if (event->type() == QEvent::WindowActivate && !m_destroyed)
        m_rules.Handle({kMsgActivate, isMinimized() ? kActivateActive | kActivateMinimisedFlag
                                                    : kActivateActive,
                        0});
    return QWidget::event(event);
}

bool CMainFrame::IsOwnKeyEvent(QObject* watched, QEvent* event) const {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    // Escape inside an in-place edit ends the edit, not the screen.
    if (qobject_cast<QLineEdit*>(watched))
        return false;
    return static_cast<QWidget*>(watched)->window() == this;
}

bool CMainFrame::eventFilter(QObject* watched, QEvent* event) {
    if (IsOwnKeyEvent(watched, event) &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        PostFrameMessage({kMsgBackKey, 0, 0});
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void CMainFrame::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    LayPanes();
    if (!m_destroyed)
        m_rules.Handle({kMsgSize, 0, PackSize(width(), height())});
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    const bool wasDestroyed = m_destroyed;
    Destroy();
    event->accept();
    if (!wasDestroyed)
        emit Closed();
}

void CMainFrame::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (!m_destroyed)
        m_rules.Handle({kMsgSetFocus, 0, 0});
}

void CMainFrame::PlaceFullScreen(int width, int height) {
    const QSize size(width, height);
    const QScreen* display = screen();
    // On a device whose display is the screen the frame covers it; on a
    // desktop it is a window of the device screen's size.
    if (display && display->geometry().size() == size) {
        setMinimumSize(0, 0);
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        showFullScreen();
    } else {
        if (isFullScreen())
            showNormal();
        setFixedSize(size);
        show();
    }
    LayPanes();
}

void CMainFrame::BringToFront() {
    show();
    raise();
    activateWindow();
}

void CMainFrame::LayPanes() {
    for (QWidget* pane : {m_player ? m_player->Widget() : nullptr,
                          m_browser ? m_browser->Widget() : nullptr,
                          static_cast<QWidget*>(m_panel.get())})
        if (pane)
            pane->setGeometry(rect());
}

bool CMainFrame::PlayerVisible() {
    return m_player && m_player->Widget()->isVisible();
}

bool CMainFrame::BrowserVisible() {
    return m_browser && m_browser->Widget()->isVisible();
}

bool CMainFrame::PanelVisible() {
    return m_panel && m_panel->isVisible();
}

void CMainFrame::ShowPlayerPane() {
    if (m_browser)
        m_browser->Widget()->hide();
    if (m_player) {
        m_player->Widget()->show();
        m_player->Widget()->setFocus();
    }
}

void CMainFrame::ShowBrowserPane() {
    if (!m_browser)
        return;
    m_browser->Widget()->show();
    m_browser->Widget()->raise();
    if (m_player)
        m_player->Widget()->hide();
}

// Leaving the panel (its leave button or the back key) keeps what the user
// did there: a list whose rows were removed (the changed flag) is taken
// over as with hand on, so a confirmed clear or a deletion is never undone
// silently. An untouched list leaves the queue as it is.
void CMainFrame::ClosePanel() {
    if (!m_panel || !m_panel->isVisible())
        return;
    if (m_panel->Changed() && m_player)
        m_player->ReplaceQueueKeepingCurrent(m_panel->Tracks());
    m_panel->hide();
    FocusPlayer();
}

// Hand on: the panel's list becomes the play queue (the current track plays
// on if the list still holds it) and is saved at once; the panel closes.
void CMainFrame::HandOn(const TrackList& list) {
    if (m_player)
        m_player->ReplaceQueueKeepingCurrent(list);
    if (m_panel)
        m_panel->hide();
    FocusPlayer();
}

void CMainFrame::Leave() {
    ClosePanel();
}

void CMainFrame::RedoPanelLayout() {
    if (m_panel)
        m_panel->RedoLayout();
}

void CMainFrame::FocusBrowser() {
    if (m_browser)
        m_browser->Widget()->setFocus();
}

void CMainFrame::FocusPlayer() {
    // While the panel covers the player, keys belong to the panel's list.
    if (m_panel && m_panel->isVisible())
        m_panel->List().setFocus();
    else if (m_player)
        m_player->Widget()->setFocus();
}

void CMainFrame::ReloadSkin(std::uint16_t colour) {
    SelectSkinModule(colour);
}

void CMainFrame::BeginWaitCursor() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void CMainFrame::EndWaitCursor() {
    QApplication::restoreOverrideCursor();
}

void CMainFrame::Sleep(int milliseconds) {
    QThread::msleep(static_cast<unsigned long>(milliseconds));
}

} // namespace zelvor
