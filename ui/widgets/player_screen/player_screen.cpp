#include "ui/widgets/player_screen/player_screen.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimerEvent>

#include "res/window_messages.h"
#include "host/gst_graph_notify_qt.h"
#include "ui/widgets/player_screen/device_keys.h"
#include "ui/rules/player_screen/player_keys.h"
#include "ui/rules/player_screen/title_scroll.h"

namespace zelvor {
namespace {

QString ToQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}

QRect ToQRect(const PixelRect& r) {
    return QRect(r.left, r.top, r.Width(), r.Height());
}

PixelPoint PointOf(const QMouseEvent* event) {
    const QPoint p = event->position().toPoint();
    return {p.x(), p.y()};
}

// Keys whose hold is not a repeat of the key: the seek keys and Play have
// their own timer, Stop and the track keys act once a press. The volume
// keys step on while held, as the device's do.
bool RepeatsWhileHeld(int deviceKey) {
    KeyAction action = KeyActionOf(deviceKey);
    return action == KeyAction::VolumeUp || action == KeyAction::VolumeDown;
}

} // namespace

CPlayerScreen::CPlayerScreen(FrameMessages& frame, MediaGraphFactory& factory,
                             ScreenOrientation orientation, PlayerScreenHost host, QWidget* parent)
    : QWidget(parent), m_frame(frame), m_host(std::move(host)), m_fonts(DefaultScreenFonts()) {
    MakeHostServices(m_host);
    setAttribute(Qt::WA_OpaquePaintEvent); // painting covers every pixel: nothing to erase
    setFocusPolicy(Qt::StrongFocus);
    setWindowTitle(QStringLiteral("Zelvor"));

    m_layout = &PlayerLayoutFor(orientation);
    resize(m_layout->screen.width, m_layout->screen.height);
    m_player = std::make_unique<Player>(factory, *this);
    m_player->SetNotifyHook(MakePostedEventHook(this));
    ScreenActions& actions = *this;
    m_control = std::make_unique<PlayerScreenControl>(*m_player, *this, actions);
    BuildLayout(orientation);
    m_control->Start();
}

CPlayerScreen::~CPlayerScreen() {
    // The player stops the graph and writes the settings and the queue while
    // every part of the screen it calls back into is still there.
    m_control.reset();
    m_player.reset();
    StopAllTimers();
}

void CPlayerScreen::MakeHostServices(PlayerScreenHost& host) {
    if (!host.sounds) {
        m_ownSounds = std::make_unique<HostSounds>();
        host.sounds = m_ownSounds.get();
    }
    if (!host.idle) {
        m_ownIdle = std::make_unique<HostIdleTimer>();
        host.idle = m_ownIdle.get();
    }
    if (!host.display) {
        m_ownDisplay = std::make_unique<HostDisplayPower>();
        host.display = m_ownDisplay.get();
    }
    if (!host.power) {
        m_ownPower = std::make_unique<SysfsPowerSource>();
        host.power = m_ownPower.get();
    }
    if (!host.tickCount)
        host.tickCount = [] { return GetTickCount(); };
    if (!host.localTime)
        host.localTime = [] { return GetLocalTime(); };
}

void CPlayerScreen::BuildLayout(ScreenOrientation orientation) {
    PlayerPosition& position = m_player->Position();
    const SeekBar before = position.Bar();
    const int travel = before.right - before.left;
    const double along = travel > 0 ? double(before.thumbX - before.left) / travel : 0.0;

    m_layout = &PlayerLayoutFor(orientation);
    m_images = LoadPlayerScreenImages(SkinResourceHandle(), *m_layout);
    m_geometry = GeometryOf(*m_layout, m_images);
    const PixelRect& bar = m_geometry.buttons[kButtonSeekBar];
    position.Bar().SetGeometry(m_layout->buttons[kButtonSeekBar].position.x, bar.Width(),
                               m_geometry.thumb.width, 0);
    // The thumb keeps its place along the track.
    SeekBar& after = position.Bar();
    after.thumbX = after.left + static_cast<int>((after.right - after.left) * along);
    m_control->SetGeometry(m_geometry);
    m_buffer = QImage(m_layout->screen.width, m_layout->screen.height, QImage::Format_RGB32);
    m_buffer.fill(Qt::black);
    RedoTextLayout();
    update();
}

void CPlayerScreen::RedoLayout() {
    ScreenOrientation orientation = m_layout->orientation;
    if (width() > 0 && height() > 0)
        orientation = OrientationOf(width(), height());
    BuildLayout(orientation);
}

void CPlayerScreen::RedoTextLayout() {
    // One font serves every language here, so only the title's measure can
    // change (with the area's width): selecting the entry again measures it.
    PlayQueue& queue = m_player->Queue();
    if (queue.EntryCount() > 0 && queue.CurrentIndex() >= 0)
        queue.SelectEntry(queue.CurrentIndex());
    TrackTextsChanged();
    InvalidateElement(ScreenElement::Clock);
}

void CPlayerScreen::SetShellStatus(std::int32_t value) {
    m_control->SetShellStatus(value);
}

void CPlayerScreen::OnShellPlayerMessage() {
    m_control->OnShellPlayerMessage();
}

void CPlayerScreen::ReleaseCurrentTrack() {
    m_control->ReleaseCurrentTrack();
}

void CPlayerScreen::Resume() {
    m_control->Resume();
}

int CPlayerScreen::QueueCount() {
    return m_player->Queue().EntryCount();
}

void CPlayerScreen::ReplaceQueue(const TrackList& list) {
    m_player->Queue().ReplaceQueue(list);
}

void CPlayerScreen::PlayFromBrowser(const TrackList& songs, int start) {
    RedoLayout();
    PlayQueue& queue = m_player->Queue();
    PlaybackEngine& engine = m_player->Engine();
    queue.ReplaceQueue(songs);
    // With Random on the copies were shuffled: the chosen song is the one
    // whose order number is its place in the browser's list.
    for (int i = 0; i < queue.EntryCount(); ++i) {
        std::int64_t order = -1;
        if (!queue.Entry(i)->GetField(kFieldRunTimeA, order) || order != start)
            continue;
        if (i != queue.CurrentIndex()) {
            engine.StopAndRelease(false);
            queue.SelectEntry(i);
            engine.OpenTrack(queue.CurrentPath());
        }
        break;
    }
    if (queue.EntryCount() > 0)
        engine.PlayCommand(true);
}

void CPlayerScreen::CancelHoldTimers() {
    m_control->CancelHoldTimers();
}

void CPlayerScreen::CopyQueue(TrackList& into) {
    m_player->Queue().CopyEntries(into);
}

void CPlayerScreen::ReplaceQueueKeepingCurrent(const TrackList& list) {
    m_player->Queue().ReplaceQueueKeepingCurrent(list);
}

void CPlayerScreen::OnTimer(int id) {
    m_control->OnTimer(id);
}

PlayerScreenScene CPlayerScreen::Scene() const {
    const PlayQueue& queue = m_player->Queue();
    const PlayerPosition& position = m_player->Position();
    const PlayerVolume& volume = m_player->Volume();
    const TimeDisplay& time = position.Time();
    PlayerScreenScene scene{m_images, m_geometry, m_player->Buttons(), m_fonts};
    scene.thumbX = position.Bar().thumbX;
    scene.thumbDragged = position.Bar().drag == SeekDrag::kActive;
    scene.time = {time.hours, time.minutes, time.seconds, position.ShowsRemaining()};
    scene.volumeIndex = volume.Index();
    scene.muted = volume.Muted();
    scene.clock = ToQString(m_control->Clock());
    scene.batteryLevel = m_control->BatteryLevel();
    scene.indicator = m_control->IndicatorShown();
    scene.title =
        ToQString(queue.TitleScrolls() ? RotatedTitle(queue.TitleText(), queue.TitleScrollOffset())
                                       : queue.TitleText());
    scene.counter = ToQString(queue.CounterText());
    return scene;
}

QImage CPlayerScreen::RenderScreen() {
    QPainter painter(&m_buffer);
    PaintPlayerScreen(painter, Scene(), m_buffer.rect());
    painter.end();
    return m_buffer.copy();
}

bool CPlayerScreen::event(QEvent* event) {
    if (event->type() == GraphNotifyEventType()) {
        if (m_player)
            m_player->Engine().OnGraphNotify();
        return true;
    }
    return QWidget::event(event);
}

void CPlayerScreen::paintEvent(QPaintEvent* event) {
    const PlayerScreenScene scene = Scene();
    QPainter offScreen(&m_buffer);
    for (const QRect& rect : event->region())
        PaintPlayerScreen(offScreen, scene, rect.intersected(m_buffer.rect()));
    offScreen.end();

    QPainter window(this);
    for (const QRect& rect : event->region()) {
        const QRect inside = rect.intersected(m_buffer.rect());
        if (!inside.isEmpty())
            window.drawImage(inside.topLeft(), m_buffer, inside);
    }
    // A window larger than the device screen shows black around it.
    const QRegion outside = event->region().subtracted(QRegion(m_buffer.rect()));
    for (const QRect& rect : outside)
        window.fillRect(rect, Qt::black);
    window.end();

    if (!m_startupPosted) {
        m_startupPosted = true;
        m_frame.PostToFrame({kMsgStartupCheck, 0, 0});
    }
}

void CPlayerScreen::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (m_control && width() > 0 && height() > 0 &&
        OrientationOf(width(), height()) != m_layout->orientation)
        BuildLayout(OrientationOf(width(), height()));
}

void CPlayerScreen::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_control->Pointer().Press(PointOf(event));
}

void CPlayerScreen::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton)
        m_control->Pointer().Move(PointOf(event));
}

void CPlayerScreen::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_control->Pointer().Release(PointOf(event));
}

void CPlayerScreen::keyPressEvent(QKeyEvent* event) {
    const int deviceKey = DeviceKeyOf(event->key());
    if (deviceKey == 0) {
        QWidget::keyPressEvent(event); // left to the frame
        return;
    }
    if (!event->isAutoRepeat() || RepeatsWhileHeld(deviceKey))
        m_control->KeyDown(deviceKey);
}

void CPlayerScreen::keyReleaseEvent(QKeyEvent* event) {
    // An auto-repeated key sends releases in between; only the real one ends
    // a hold.
    if (!event->isAutoRepeat())
        m_control->KeyUp();
    if (DeviceKeyOf(event->key()) == 0)
        QWidget::keyReleaseEvent(event);
}

void CPlayerScreen::timerEvent(QTimerEvent* event) {
    for (const auto& [id, qtId] : m_timers) {
        if (qtId == event->timerId()) {
            OnTimer(id);
            return;
        }
    }
    QWidget::timerEvent(event);
}

void CPlayerScreen::Invalidate(const PixelRect& area) {
    if (!area.IsEmpty())
        update(ToQRect(area));
}

void CPlayerScreen::InvalidateButton(int button) {
    Invalidate(ButtonArea(m_geometry, button));
}

void CPlayerScreen::InvalidateSeekThumb() {
    InvalidateElement(ScreenElement::SeekBar);
}

void CPlayerScreen::InvalidateTimeDisplay() {
    InvalidateElement(ScreenElement::TimeDigits);
    InvalidateElement(ScreenElement::Title);
    InvalidateElement(ScreenElement::Counter);
}

void CPlayerScreen::InvalidateRemainingMarker() {
    InvalidateElement(ScreenElement::RemainingMarker);
}

void CPlayerScreen::InvalidateVolume() {
    InvalidateElement(ScreenElement::Volume);
}

void CPlayerScreen::InvalidateAll(bool) {
    update(); // every paint restores the background first: erasing adds nothing
}

void CPlayerScreen::UpdateNow() {
    if (isVisible())
        repaint();
}

void CPlayerScreen::TrackTextsChanged() {
    InvalidateElement(ScreenElement::Title);
    InvalidateElement(ScreenElement::Counter);
}

void CPlayerScreen::PlayStateChanged(std::int32_t) {
    // The buttons and the thumb repainted themselves as they changed.
}

void CPlayerScreen::Beep() {
    m_host.sounds->MessageBeep();
}

void CPlayerScreen::FocusPlayer() {
    setFocus(Qt::OtherFocusReason);
}

void CPlayerScreen::SetWaitCursor(bool on) {
    m_waitCursors.Set(on);
}

int CPlayerScreen::MeasureTitleText(std::u16string_view text) {
    return QFontMetrics(m_fonts.text).horizontalAdvance(ToQString(text));
}

int CPlayerScreen::TitleAreaWidth() {
    return m_layout->title.Width();
}

void CPlayerScreen::StartTimer(int id, int periodMs) {
    StopTimer(id); // as SetTimer does, a running timer starts again
    m_timers[id] = startTimer(periodMs);
}

void CPlayerScreen::StopTimer(int id) {
    auto it = m_timers.find(id);
    if (it == m_timers.end())
        return;
    killTimer(it->second);
    m_timers.erase(it);
}

bool CPlayerScreen::TimerRunning(int id) {
    return m_timers.count(id) > 0;
}

void CPlayerScreen::StopAllTimers() {
    for (const auto& [id, qtId] : m_timers)
        killTimer(qtId);
    m_timers.clear();
}

void CPlayerScreen::SetMouseCapture(bool captured) {
    // Qt already sends every move and the release to the widget that took
    // the press, wherever the pointer goes; the flag is all there is to keep.
    m_captured = captured;
}

void CPlayerScreen::ShowBrowser() {
    m_frame.ShowBrowser();
}

void CPlayerScreen::HideFrame() {
    m_frame.HideFrame();
}

void CPlayerScreen::ShowMenu() {
    m_frame.ShowMenu();
}

void CPlayerScreen::DisplayOff() {
    m_host.display->SetDisplayOff();
}

void CPlayerScreen::ResetIdleTimer() {
    m_host.idle->SystemIdleTimerReset();
}

std::uint32_t CPlayerScreen::TickCount() {
    return m_host.tickCount();
}

LocalTime CPlayerScreen::Now() {
    return m_host.localTime();
}

int CPlayerScreen::ReadBatteryLevel() {
    return ::zelvor::ReadBatteryLevel(*m_host.power);
}

void CPlayerScreen::InvalidateElement(ScreenElement element) {
    Invalidate(ElementArea(m_geometry, element));
}

} // namespace zelvor
