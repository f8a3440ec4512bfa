#pragma once
// CMainFrame: the program's only top-level window. It holds the player
// screen, the play list panel and the browser screen as child panes over its
// whole area, owns the library list, and is where every message to the
// program arrives: sent or posted by other programs through the "Zelvor"
// endpoint, posted by the program's own follow-up steps as
// WindowMessageEvents. The rules live in FrameController; this class
// delivers messages to it and carries out what it asks of the window.
//
// Life: constructed, then Create() makes the panes (WM_CREATE); WM_CLOSE
// (posted to it, or the window's close button) destroys the panes, the play
// list panel first, then the browser and the player (WM_DESTROY), which
// lets the player save its settings and queue,
// and emits Closed(). The panes are owned here and destroyed before the
// widget. UI thread only.

#include <QSize>
#include <QWidget>
#include <functional>
#include <memory>

#include "library/library_updater.h"
#include "ui/rules/main_frame/browser_pane.h"
#include "ui/rules/main_frame/frame_controller.h"
#include "ui/rules/panel/panel_owner.h"
#include "ui/rules/main_frame/player_pane.h"

namespace zelvor {

// Makers of the panes; each gets the frame as parent widget and as the way
// to reach it. A null result makes the frame's creation fail.
struct FramePaneMakers {
    std::function<std::unique_ptr<PlayerPane>(QWidget* parent, FrameMessages& frame)> player;
    // Without one the frame holds an empty browser that stays hidden until
    // shown.
    std::function<std::unique_ptr<BrowserPane>(QWidget* parent, FrameMessages& frame,
                                               TrackList& library)>
        browser;
};

// Child ids of the panes, as the shell's tools know them.
constexpr int kPlayerPaneId = 0xE900;
constexpr int kPanelPaneId = 0xE901;
constexpr int kBrowserPaneId = 0xE903;

class CPlayListPanel;

class CMainFrame final : public QWidget,
                         public FrameMessages,
                         private FrameWindow,
                         private PanelOwner {
    Q_OBJECT
public:
    // screen: the device screen in pixels. outside is borrowed for the
    // frame's life; the builder reads music files for the library update.
    CMainFrame(QSize screen, OutsideWindows& outside, RecordBuilder builder, FramePaneMakers makers,
               QWidget* parent = nullptr);
    ~CMainFrame() override;

    // WM_CREATE: the panes, then full screen with the player shown. False
    // when a pane could not be made (the frame is then unusable).
    bool Create();
    // WM_DESTROY; also run by the destructor if nothing ran it before.
    void Destroy();
    bool IsDestroyed() const { return m_destroyed; }

    // A message handled at once (SendMessage), and one queued (PostMessage).
    std::int32_t SendFrameMessage(const WindowMessage& message);
    void PostFrameMessage(const WindowMessage& message);

    // The device screen turned or changed size: the frame follows it.
    void SetScreenSize(QSize screen);
    QSize ScreenSize() const { return m_screen; }

    // FrameMessages, for the panes.
    void PostToFrame(const WindowMessage& message) override { PostFrameMessage(message); }
    void ShowBrowser() override;
    void ShowMenu() override;
    void HideFrame() override;
    void ShowPlayer() override;
    void PlayFromBrowser(const TrackList& songs, int start) override;

    FrameController& Rules() { return m_rules; }
    PlayerPane* PlayerScreen() { return m_player.get(); }
    BrowserPane* BrowserScreen() { return m_browser.get(); }
    CPlayListPanel* PlayListPanel() { return m_panel.get(); }

signals:
    // The frame was destroyed by WM_CLOSE; the program ends.
    void Closed();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    // FrameWindow, for the rules.
    void PostToSelf(const WindowMessage& message) override { PostFrameMessage(message); }
    int ScreenWidth() override { return m_screen.width(); }
    int ScreenHeight() override { return m_screen.height(); }
    void PlaceFullScreen(int width, int height) override;
    void BringToFront() override;
    PlayerPane* Player() override { return m_player.get(); }
    BrowserPane* Browser() override { return m_browser.get(); }
    bool PlayerVisible() override;
    bool BrowserVisible() override;
    bool PanelVisible() override;
    void ShowPlayerPane() override;
    void ShowBrowserPane() override;
    void ClosePanel() override;
    void FocusBrowser() override;
    void FocusPlayer() override;
    void ReloadSkin(std::uint16_t colour) override;
    void BeginWaitCursor() override;
    void EndWaitCursor() override;
    void Sleep(int milliseconds) override;
    void RedoPanelLayout() override;

    // PanelOwner, for the play list panel.
    void HandOn(const TrackList& list) override;
    void Leave() override;

    void LayPanes();
    bool IsOwnKeyEvent(QObject* watched, QEvent* event) const;

    QSize m_screen;
    FramePaneMakers m_makers;
    FrameController m_rules;
    std::unique_ptr<PlayerPane> m_player;
    std::unique_ptr<BrowserPane> m_browser;
    // A child widget, deleted before the other panes and the frame.
    std::unique_ptr<CPlayListPanel> m_panel;
    bool m_destroyed = false;
};

} // namespace zelvor
