#pragma once
// The library update dialog: runs the interactive update from inside its
// own modal loop, showing a progress bar, a count line and a message line,
// and closes by itself when the update is finished. It has no caption and
// no visible buttons; the cancel key (Escape) stops the update.
//
// The update starts half a second after the dialog is first painted: the
// first paint starts a 500 ms timer, the timer posts kMsgStartUpdate (wParam
// 1) to the dialog, and its handler runs the search, add and finish phases.
// A dialog that is never painted never scans.
//
// The dialog owns the updater and so the found files and the result
// records; the caller hands Results() to ReplaceLibraryAfterUpdate however
// the dialog ended, before the dialog goes.

#include <QBasicTimer>
#include <cstdint>
#include <string_view>

#include "library/library_updater.h"
#include "ui/rules/dialogs/update_progress.h"
#include "library/update_view.h"
#include "ui/widgets/dialogs/skinned_dialog.h"

class QLabel;
class QProgressBar;

namespace zelvor {

class CUpdateLibDlg : public CSkinnedDialog, public UpdateView {
    Q_OBJECT
public:
    CUpdateLibDlg(QWidget* parent, RecordBuilder builder);

    void SetRoot(std::u16string_view root); // one that does not exist becomes "\"
    void SetStorageFolders(std::u16string_view first, std::u16string_view second);
    // The result of the dialog's last ending, which callers do not look at:
    // kIdCancel after any run, the finish's own OK being followed by a Cancel.
    int DoModal();
    TrackList& Results() { return m_updater.Results(); }
    int Phase() const { return m_updater.Phase(); } // 0 before the start, then 1, 2, 3

    // The bar driven directly: the range takes effect at the next
    // InitUpdateProgress. SetUpdateProgress shows a position and pumps; 1
    // when no cancel came in meanwhile, 0 otherwise, and 0 without pumping
    // when a cancel is already waiting or a percent range has no span.
    void SetUpdateRange(int lower, int upper, bool percentMode);
    void InitUpdateProgress();
    int SetUpdateProgress(int position);
    bool ProgressFinished() const { return m_finished; }

    // UpdateView, for the updater.
    void SetRange(int lower, int upper, bool percentMode) override;
    void SetPosition(int position) override; // the updater pumps after it
    void SetCountLine(std::u16string_view text) override;
    void SetMessageLine(std::u16string_view text) override;
    bool Pump() override;
    void BeginWaitCursor() override;
    void EndWaitCursor() override;
    void Pause(int milliseconds) override;

    void accept() override; // OK, Enter
    void reject() override; // Cancel, Escape
    void done(int result) override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void PostStartUpdate(std::uint32_t wParam);
    void OnStartUpdate(std::uint32_t wParam);
    bool ShowProgress(int position);
    void SetLine(int id, std::u16string_view text);

    LibraryUpdater m_updater; // holds the cancel-asked and stopped flags
    QProgressBar* m_bar = nullptr;
    ProgressRange m_range;
    bool m_finished = false;
    bool m_firstPaint = true;
    QBasicTimer m_updateTimer; // the device's timer 102
};

} // namespace zelvor
