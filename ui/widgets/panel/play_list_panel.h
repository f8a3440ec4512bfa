#pragma once
// CPlayListPanel: the pane over the player screen that lists tracks and
// lets the user clear the list, delete rows from it, hand it on and leave.
//
//   list        a one-column CTrackListCtrl (id 2000) over the panel's own
//               TrackList, at the panel's list rectangle cut to the pane;
//   buttons     hand on (1002), clear (1003, after the panel's own
//               confirmation: only OK clears), delete selected (1004, see
//               DeleteSelectedRows), leave (1005);
//   background  the skin's panel bitmap at (0, 0), copied opaquely, with
//               the program's icon at the title bar's right end: a tap on it
//               opens the About box;
//   changed     set whenever rows are removed here; the owner reads it.
//
// Created hidden by the frame; the owner is borrowed and must outlive it.
// UI thread only.

#include <QImage>
#include <QWidget>
#include <array>
#include <cstdint>

#include "library/track_list.h"
#include "ui/rules/layout/browser_layout.h"

namespace zelvor {

class CBitmapButton;
class CTrackListCtrl;
class PanelOwner;

class CPlayListPanel final : public QWidget {
    Q_OBJECT
public:
    CPlayListPanel(PanelOwner& owner, QWidget* parent);
    ~CPlayListPanel() override;

    // The panel's rows become these records, the selection and the changed
    // flag are cleared.
    void ShowTracks(TrackList tracks);
    const TrackList& Tracks() const { return m_tracks; }
    CTrackListCtrl& List() { return *m_list; }
    CBitmapButton* Button(int command);

    std::int32_t Changed() const { return m_changed; }

    // A button's command (WM_COMMAND 1002 to 1005); other numbers are ignored.
    void OnCommand(int command);
    // The skin changed or the pane turned: bitmaps loaded again from the
    // current skin, list and icon placed for the pane's size, repainted.
    void RedoLayout();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void ClearAfterQuestion();
    void DeleteSelected();
    void PlaceChildren();

    PanelOwner& m_owner;
    TrackList m_tracks;
    CTrackListCtrl* m_list = nullptr; // child widgets, owned by the panel
    std::array<CBitmapButton*, kPanelButtonCount> m_buttons{};
    QImage m_background;
    QImage m_icon;
    std::int32_t m_changed = 0;
};

} // namespace zelvor
