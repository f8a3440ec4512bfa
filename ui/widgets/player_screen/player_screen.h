#pragma once
// CPlayerScreen: the full-screen skinned player. It owns the Player (engine,
// queue, position, volume, button states) and shows what the Player holds;
// the decisions live in PlayerScreenControl, the drawing in
// PaintPlayerScreen. The widget translates Qt's events into those and back:
//
//   creation     the layout for the orientation, the queue loaded from its
//                file, the clock timer; after the first paint the frame is
//                told once (kMsgStartupCheck) to check the library;
//   painting     double-buffered and element-wise: a repaint names the
//                element's area only; the off-screen image is brought up to
//                date there and copied to the window;
//   graph        the graph's notifications arrive as posted events and run
//                the engine's OnGraphNotify on this thread;
//   destruction  the Player goes first: it stops the graph, writes the
//                settings and, when it changed, the queue's file.
//
// The orientation follows the widget's size (the frame keeps the pane the
// size of the device screen); the widget starts at the layout's size.
// UI thread only. The frame is borrowed and must outlive the screen; so must
// the graph factory and the given host services.

#include <QImage>
#include <QWidget>
#include <map>
#include <memory>

#include "playback/player.h"
#include "ui/rules/layout/player_layout.h"
#include "ui/rules/main_frame/player_pane.h"
#include "ui/rules/player_screen/player_screen_control.h"
#include "ui/widgets/player_screen/player_screen_host.h"
#include "ui/widgets/player_screen/player_screen_images.h"
#include "ui/widgets/player_screen/player_screen_painter.h"
#include "ui/widgets/drawing/wait_cursor_count.h"

namespace zelvor {

class CPlayerScreen final : public QWidget,
                            public PlayerPane,
                            public PlayerView,
                            private ScreenActions {
    Q_OBJECT

public:
    CPlayerScreen(FrameMessages& frame, MediaGraphFactory& factory, ScreenOrientation orientation,
                  PlayerScreenHost host = {}, QWidget* parent = nullptr);
    ~CPlayerScreen() override;

    // PlayerPane.
    QWidget* Widget() override { return this; }
    void RedoLayout() override;
    void RedoTextLayout() override;
    void SetShellStatus(std::int32_t value) override;
    void OnShellPlayerMessage() override;
    void ReleaseCurrentTrack() override;
    void Resume() override;
    int QueueCount() override;
    void ReplaceQueue(const TrackList& list) override;
    void CancelHoldTimers() override;
    void PlayFromBrowser(const TrackList& songs, int start) override;
    void CopyQueue(TrackList& into) override;
    void ReplaceQueueKeepingCurrent(const TrackList& list) override;
    Player* RemoteControlPlayer() override { return m_player.get(); }

    Player& GetPlayer() { return *m_player; }
    PlayerScreenControl& Control() { return *m_control; }
    ScreenOrientation Orientation() const { return m_layout->orientation; }
    const ScreenGeometry& Geometry() const { return m_geometry; }

    // A timer's work (what its tick runs); tests call it instead of waiting.
    void OnTimer(int id);
    // The whole screen as it would be painted now.
    QImage RenderScreen();

    // PlayerView.
    void InvalidateButton(int button) override;
    void InvalidateSeekThumb() override;
    void InvalidateTimeDisplay() override;
    void InvalidateRemainingMarker() override;
    void InvalidateVolume() override;
    void InvalidateAll(bool erase) override;
    void UpdateNow() override;
    void TrackTextsChanged() override;
    void PlayStateChanged(std::int32_t state) override;
    void Beep() override;
    void FocusPlayer() override;
    void SetWaitCursor(bool on) override;
    int MeasureTitleText(std::u16string_view text) override;
    int TitleAreaWidth() override;
    void StartTimer(int id, int periodMs) override;
    void StopTimer(int id) override;
    bool TimerRunning(int id) override;
    void SetMouseCapture(bool captured) override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    // ScreenActions.
    void ShowBrowser() override;
    void HideFrame() override;
    void ShowMenu() override;
    void DisplayOff() override;
    void ResetIdleTimer() override;
    std::uint32_t TickCount() override;
    LocalTime Now() override;
    int ReadBatteryLevel() override;
    void InvalidateElement(ScreenElement element) override;

    void MakeHostServices(PlayerScreenHost& host);
    void BuildLayout(ScreenOrientation orientation);
    PlayerScreenScene Scene() const;
    void Invalidate(const PixelRect& area);
    void StopAllTimers();

    FrameMessages& m_frame;
    PlayerScreenHost m_host;
    // The host's own services, made when none were given.
    std::unique_ptr<HostSounds> m_ownSounds;
    std::unique_ptr<HostIdleTimer> m_ownIdle;
    std::unique_ptr<HostDisplayPower> m_ownDisplay;
    std::unique_ptr<SysfsPowerSource> m_ownPower;

    const PlayerLayout* m_layout = nullptr;
    PlayerScreenImages m_images;
    ScreenGeometry m_geometry;
    ScreenFonts m_fonts;
    QImage m_buffer; // the off-screen image, the layout's screen size

    std::map<int, int> m_timers; // screen timer id -> Qt timer id
    WaitCursorCount m_waitCursors;
    bool m_startupPosted = false;
    bool m_captured = false;

    // Made last and destroyed first: the player calls back into the view.
    std::unique_ptr<Player> m_player;
    std::unique_ptr<PlayerScreenControl> m_control;
};

} // namespace zelvor
