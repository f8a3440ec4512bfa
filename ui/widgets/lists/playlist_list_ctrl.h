#pragma once
// CPlaylistListCtrl: the browser's list, rows are the PlaylistEntry of a
// borrowed PlaylistEntryList, shown by their text 1 under one heading,
// "Title". Rows are painted by PlaylistRowDelegate (alternating colours, cut
// texts); the view asks only for the rows it shows.
//
// The stylus: a press on a row selects it alone unless it is selected; a
// drag from there selects exactly the rows of the visible page that the
// rectangle between press and stylus touches, and scrolls while the stylus
// is outside the list (AutoScrollSteps). SetDragDisabled leaves presses and
// moves to the view's ordinary handling.
//
// The parent (the browser) is told with WindowMessageEvents: posted
// kMsgListClick (tap on a row, lParam 0; Enter released, lParam 1),
// kMsgListLeft / kMsgListRight (first press of an arrow), kMsgListColumnClick,
// kMsgListDoubleClick; sent kMsgListContextMenu (passing on a
// kMsgListContextRequest) and kMsgListEndRename (its answer accepts the
// label). Taps and double taps on empty space post nothing. A touch screen
// has no right button: holding the stylus still for kContextHoldMs asks for
// the context menu as a right click does, and its release chooses nothing.

#include <QBasicTimer>
#include <QListView>
#include <QString>
#include <vector>

#include "playlists/playlist_entry_list.h"

class QHeaderView;

namespace zelvor {

class PlaylistListModel;
class PlaylistRowDelegate;

class CPlaylistListCtrl : public QListView {
    Q_OBJECT
public:
    // How long a still press lasts before it counts as a press-and-hold.
    static constexpr int kContextHoldMs = 600;

    // The list must outlive the control; the control never frees its entries.
    CPlaylistListCtrl(PlaylistEntryList& rows, QWidget* parent);

    PlaylistEntryList& Rows();
    void SetUp();
    // The rows changed: the view reads them again and the column is fitted.
    void Reset();
    // The column to the window's width: see FitColumn in the .cpp.
    void FitColumn();
    int ColumnWidth() const;

    int FirstSelected() const;                // -1 when none
    std::vector<int> SelectedIndexes() const; // ascending
    int SelectedCount() const;
    void SelectOnly(int index);               // index < 0 clears all
    void ClearSelection();
    void EnsureVisible(int index);
    // In-place rename of the row's text 1. When it ends, kMsgListEndRename
    // (wParam row) is sent; the parent reads EditedText() and answers non-zero
    // to accept, which puts the new text into the entry.
    void EditLabel(int index);
    // The text of the rename that just ended; a null QString when cancelled.
    QString EditedText() const { return m_editedText; }
    void SetDragDisabled(bool disabled);
    void SetSortMode(int mode, bool orderFlag);
    int SortMode() const { return m_sortMode; }
    bool SortOrderFlag() const { return m_sortOrderFlag; }
    // Stable sort of Rows() by ComparePlaylistEntries; the selection is cleared.
    void SortRows();

    int TopRow() const;
    int RowsPerFullPage() const;

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void commitData(QWidget* editor) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void updateGeometries() override;

private:
    void DragTo(const QPoint& point);
    void PlaceHeader();

    PlaylistEntryList& m_rows;
    PlaylistListModel* m_model;       // owned by the control
    PlaylistRowDelegate* m_delegate;  // owned by the control
    QHeaderView* m_header;            // child of the control
    bool m_enterPressed = false;
    bool m_dragDisabled = false;
    bool m_dragged = false;           // the stylus moved since the press
    QBasicTimer m_hold;               // runs from a press until it moves or ends
    bool m_heldForMenu = false;       // the press became a context request
    QPoint m_holdGlobal;              // where the press was, screen pixels
    int m_pressRow = -1;
    QPoint m_pressPoint;              // viewport pixels
    int m_sortMode = 0;
    bool m_sortOrderFlag = false;
    int m_editRow = -1;
    bool m_renameCommitted = false;
    QString m_editedText;
};

} // namespace zelvor
