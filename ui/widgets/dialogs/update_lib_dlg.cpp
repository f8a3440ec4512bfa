#include "ui/widgets/dialogs/update_lib_dlg.h"

#include <QApplication>
#include <QCoreApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include "config/settings.h"
#include "res/window_messages.h"
#include "ui/rules/dialogs/dialog_results.h"
#include "ui/widgets/main_frame/window_message_event.h"

namespace zelvor {
namespace {

// Template 5002, in dialog units.
constexpr int kWidth = 124, kHeight = 81;
constexpr DialogRect kBarPlace{6, 10, 112, 14};
constexpr DialogRect kCountPlace{6, 32, 110, 8};
constexpr DialogRect kMessagePlace{6, 48, 110, 28};
constexpr DialogRect kDonePlace{12, 66, 44, 14};
constexpr DialogRect kCancelPlace{73, 66, 44, 14};
constexpr int kStartDelayMs = 500;

} // namespace

CUpdateLibDlg::CUpdateLibDlg(QWidget* parent, RecordBuilder builder)
    // The buttons are never shown, so the dialog keeps its template's height.
    : CSkinnedDialog(parent, QString(), {DialogUnitsToPixelsX(kWidth), DialogUnitsToPixelsY(kHeight)}),
      m_updater(std::move(builder)) {
    m_updater.SetView(this);
    m_updater.SetLanguage(ReadLanguage());
    m_bar = new QProgressBar(this);
    m_bar->setTextVisible(false);
    Place(m_bar, kIdUpdateProgress, DialogRectToPixels(kBarPlace));
    auto* count = new QLabel(this);
    Place(count, kIdUpdateCount, DialogRectToPixels(kCountPlace));
    auto* message = new QLabel(this);
    message->setWordWrap(true);
    message->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Place(message, kIdUpdateMessage, DialogRectToPixels(kMessagePlace));
    QPushButton* doneButton = AddButton(kIdOk, QStringLiteral("Done"), kDonePlace, true);
    QPushButton* cancel = AddButton(kIdCancel, QStringLiteral("Cancel"), kCancelPlace, false);
    doneButton->hide();
    cancel->hide();
    connect(doneButton, &QPushButton::clicked, this, &CUpdateLibDlg::accept);
    connect(cancel, &QPushButton::clicked, this, &CUpdateLibDlg::reject);
    InitUpdateProgress();
}

void CUpdateLibDlg::SetRoot(std::u16string_view root) {
    m_updater.SetRoot(root);
}

void CUpdateLibDlg::SetStorageFolders(std::u16string_view first, std::u16string_view second) {
    m_updater.SetStorageFolders(first, second);
}

int CUpdateLibDlg::DoModal() {
    return exec();
}

void CUpdateLibDlg::SetUpdateRange(int lower, int upper, bool percentMode) {
    m_range = {lower, upper, percentMode};
}

void CUpdateLibDlg::InitUpdateProgress() {
    const BarRange bar = BarRangeOf(m_range);
    m_bar->setRange(bar.minimum, bar.maximum);
    m_bar->reset();
}

bool CUpdateLibDlg::ShowProgress(int position) {
    const ProgressStep step = ComputeProgressStep(m_range, position);
    m_finished = m_finished || step.finished;
    if (step.show)
        m_bar->setValue(step.value);
    return step.show;
}

int CUpdateLibDlg::SetUpdateProgress(int position) {
    if (m_updater.CancelAsked() || !ShowProgress(position))
        return 0;
    return m_updater.PumpCancelled() ? 0 : 1;
}

void CUpdateLibDlg::SetRange(int lower, int upper, bool percentMode) {
    SetUpdateRange(lower, upper, percentMode);
    InitUpdateProgress();
}

void CUpdateLibDlg::SetPosition(int position) {
    ShowProgress(position);
}

// Repainted at once: the update holds the thread until its next pump.
void CUpdateLibDlg::SetLine(int id, std::u16string_view text) {
    QWidget* line = Item(id);
    static_cast<QLabel*>(line)->setText(QString::fromStdU16String(std::u16string(text)));
    line->repaint();
}

void CUpdateLibDlg::SetCountLine(std::u16string_view text) {
    SetLine(kIdUpdateCount, text);
}

void CUpdateLibDlg::SetMessageLine(std::u16string_view text) {
    SetLine(kIdUpdateMessage, text);
}

// OK and Cancel reach the updater's flags directly (RequestCancel); the
// updater reads and clears cancel-asked after this returns.
bool CUpdateLibDlg::Pump() {
    QCoreApplication::processEvents();
    return m_updater.CancelAsked();
}

void CUpdateLibDlg::BeginWaitCursor() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void CUpdateLibDlg::EndWaitCursor() {
    QApplication::restoreOverrideCursor();
}

// The success text stays up while the dialog keeps painting; ending the
// dialog meanwhile (Enter, Escape) cuts the pause short.
void CUpdateLibDlg::Pause(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    connect(this, &QDialog::finished, &loop, &QEventLoop::quit);
    loop.exec();
}

void CUpdateLibDlg::accept() {
    m_updater.RequestCancel();
    if (EndOnOk(Phase()) == DialogEnd::Ok)
        done(kIdOk);
}

void CUpdateLibDlg::reject() {
    m_updater.RequestCancel();
    if (EndOnCancel(Phase()) == DialogEnd::Cancel)
        done(kIdCancel);
}

void CUpdateLibDlg::done(int result) {
    m_updateTimer.stop();
    CSkinnedDialog::done(result);
}

void CUpdateLibDlg::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        accept();
        return;
    }
    CSkinnedDialog::keyPressEvent(event); // Escape: reject()
}

// Only a paint on screen counts: a picture taken of a hidden dialog does not.
void CUpdateLibDlg::paintEvent(QPaintEvent* event) {
    CSkinnedDialog::paintEvent(event);
    if (m_firstPaint && isVisible()) {
        m_firstPaint = false;
        m_updateTimer.start(kStartDelayMs, this);
    }
}

void CUpdateLibDlg::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_updateTimer.timerId()) {
        CSkinnedDialog::timerEvent(event);
        return;
    }
    m_updateTimer.stop();
    PostStartUpdate(1);
}

void CUpdateLibDlg::PostStartUpdate(std::uint32_t wParam) {
    QCoreApplication::postEvent(this, new WindowMessageEvent({kMsgStartUpdate, wParam, 0}));
}

bool CUpdateLibDlg::event(QEvent* event) {
    if (event->type() == WindowMessageEvent::EventType()) {
        const WindowMessage& message = static_cast<WindowMessageEvent*>(event)->Message();
        if (message.message == kMsgStartUpdate) {
            OnStartUpdate(message.wParam);
            return true;
        }
    }
    return CSkinnedDialog::event(event);
}

void CUpdateLibDlg::OnStartUpdate(std::uint32_t wParam) {
    if (wParam == 0) {
        PostStartUpdate(1);
        return;
    }
    if (!isVisible())
        return; // ended (Cancel in phase 0) before the start came through
    // Search, add, finish: each only after the one before succeeded and
    // while the update is not stopped. The finish ends with the dialog's own
    // OK, which sets stopped, so a successful run ends a second time, as
    // Cancel, below; callers never look at the result.
    const bool finished = RunInteractiveUpdate(m_updater);
    if (finished)
        accept();
    // A search that failed (its name area could not be had) stops nothing,
    // and in phase 1 Cancel only sets flags: the dialog could then never be
    // closed. It is closed as Cancel instead, with nothing found.
    if (!finished || m_updater.Stopped())
        done(kIdCancel);
}

} // namespace zelvor
