#include "ui/widgets/lists/playlist_list_ctrl.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

#include "res/window_messages.h"
#include "playlists/playlist_compare.h"
#include "ui/widgets/lists/list_notify.h"
#include "ui/rules/lists/list_rules.h"
#include "ui/widgets/lists/playlist_list_model.h"
#include "ui/widgets/lists/playlist_row_delegate.h"
#include "ui/widgets/main_frame/window_message_event.h"

namespace zelvor {

CPlaylistListCtrl::CPlaylistListCtrl(PlaylistEntryList& rows, QWidget* parent)
    : QListView(parent),
      m_rows(rows),
      m_model(new PlaylistListModel(rows, this)),
      m_delegate(new PlaylistRowDelegate(*this)),
      m_header(new QHeaderView(Qt::Horizontal, this)) {
    setModel(m_model);
    setItemDelegate(m_delegate);
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    // Scrolling while dragging is done here, one line per move outside.
    setAutoScroll(false);
    // Lets a press on a row that is already selected keep the selection
    // until the release, so that a drag can start from it. No drag and drop
    // ever starts: moves after a press on a row are handled here.
    setDragEnabled(true);
    setFrameShape(QFrame::Box);
    setFrameShadow(QFrame::Plain);
    setLineWidth(1); // the 1-pixel border the column widths allow for
    m_header->setModel(m_model);
    m_header->setSectionsClickable(true);
    m_header->setStretchLastSection(true);
    connect(m_header, &QHeaderView::sectionClicked, this, [this](int column) {
        PostToParent(*this, kMsgListColumnClick, static_cast<std::uint32_t>(column), 0);
    });
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
        PostToParent(*this, kMsgListClick, static_cast<std::uint32_t>(index.row()), 0);
    });
    connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        PostToParent(*this, kMsgListDoubleClick, static_cast<std::uint32_t>(index.row()), 0);
    });
}

PlaylistEntryList& CPlaylistListCtrl::Rows() { return m_rows; }

void CPlaylistListCtrl::SetUp() {
    PlaceHeader();
    FitColumn();
}

void CPlaylistListCtrl::Reset() {
    m_model->Reset();
    FitColumn();
}

int CPlaylistListCtrl::ColumnWidth() const { return m_delegate->ColumnWidth(); }

// The column is as wide as the window allows and never wider: a text longer
// than that is cut with "..." when its row is painted, so the list never
// scrolls sideways under the stylus and the longest text need not be
// measured. The rule's width is also kept within the viewport, which Qt
// narrows by the scroll bar only when a row is hidden at all, whereas the
// rule counts a last row showing 6 pixels or more as fitting.
void CPlaylistListCtrl::FitColumn() {
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    const int perPage = RowsPerPage(viewport()->height(), m_delegate->RowHeight(), true);
    const int width = std::min(OneColumnWidth(this->width(), m_rows.Count(), perPage, scrollBar),
                               viewport()->width());
    if (width == m_delegate->ColumnWidth())
        return;
    m_delegate->SetColumnWidth(width);
    m_header->resizeSection(0, width);
    doItemsLayout();
}

int CPlaylistListCtrl::FirstSelected() const {
    const std::vector<int> rows = SelectedIndexes();
    return rows.empty() ? -1 : rows.front();
}

std::vector<int> CPlaylistListCtrl::SelectedIndexes() const {
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedIndexes())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

int CPlaylistListCtrl::SelectedCount() const {
    return static_cast<int>(selectionModel()->selectedIndexes().size());
}

void CPlaylistListCtrl::SelectOnly(int index) {
    const QModelIndex row = m_model->index(index, 0);
    if (!row.isValid()) {
        ClearSelection();
        return;
    }
    selectionModel()->setCurrentIndex(row, QItemSelectionModel::ClearAndSelect);
}

void CPlaylistListCtrl::ClearSelection() { selectionModel()->clearSelection(); }

void CPlaylistListCtrl::EnsureVisible(int index) {
    const QModelIndex row = m_model->index(index, 0);
    if (row.isValid())
        scrollTo(row);
}

void CPlaylistListCtrl::EditLabel(int index) {
    const QModelIndex row = m_model->index(index, 0);
    if (!row.isValid())
        return;
    m_editRow = index;
    m_renameCommitted = false;
    m_editedText.clear();
    scrollTo(row);
    edit(row);
}

void CPlaylistListCtrl::commitData(QWidget* editor) {
    // The entry is not written here: the parent decides in its answer.
    if (const auto* line = qobject_cast<QLineEdit*>(editor)) {
        m_editedText = line->text();
        m_renameCommitted = true;
    }
}

void CPlaylistListCtrl::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    QListView::closeEditor(editor, hint);
    if (m_editRow < 0)
        return;
    const int row = m_editRow;
    m_editRow = -1;
    if (!m_renameCommitted)
        m_editedText = QString();
    const bool accepted =
        SendToParent(*this, kMsgListEndRename, static_cast<std::uint32_t>(row), 0) != 0;
    PlaylistEntry* entry = m_rows.At(row);
    if (accepted && m_renameCommitted && entry != nullptr) {
        entry->SetText(1, m_editedText.toStdU16String());
        m_model->RowChanged(row);
    }
}

void CPlaylistListCtrl::SetDragDisabled(bool disabled) {
    m_dragDisabled = disabled;
    setDragEnabled(!disabled);
}

void CPlaylistListCtrl::SetSortMode(int mode, bool orderFlag) {
    m_sortMode = static_cast<std::int16_t>(mode);
    m_sortOrderFlag = orderFlag;
}

void CPlaylistListCtrl::SortRows() {
    SortPlaylistEntries(m_rows, m_sortMode, m_sortOrderFlag);
    m_model->Reset();
}

int CPlaylistListCtrl::TopRow() const {
    const QModelIndex top = indexAt(QPoint(1, 1));
    return top.isValid() ? top.row() : 0;
}

int CPlaylistListCtrl::RowsPerFullPage() const {
    return RowsPerPage(viewport()->height(), m_delegate->RowHeight(), false);
}

bool CPlaylistListCtrl::event(QEvent* event) {
    if (event->type() == WindowMessageEvent::EventType()) {
        auto* message = static_cast<WindowMessageEvent*>(event);
        if (message->Message().message == kMsgListContextRequest) {
            const WindowMessage& request = message->Message();
            message->SetResult(
                SendToParent(*this, kMsgListContextMenu, request.wParam, request.lParam));
            m_enterPressed = false;
            return true;
        }
    }
    return QListView::event(event);
}

void CPlaylistListCtrl::contextMenuEvent(QContextMenuEvent* event) {
    const QPoint global = event->globalPos();
    QCoreApplication::postEvent(
        this, new WindowMessageEvent({kMsgListContextRequest, 0, PackPoint(global.x(), global.y())}));
    event->accept();
}

void CPlaylistListCtrl::mousePressEvent(QMouseEvent* event) {
    m_heldForMenu = false;
    if (event->button() == Qt::LeftButton) {
        m_holdGlobal = event->globalPosition().toPoint();
        m_hold.start(kContextHoldMs, this);
    }
    if (!m_dragDisabled && event->button() == Qt::LeftButton) {
        m_pressRow = -1;
        m_dragged = false;
        const QModelIndex row = indexAt(event->position().toPoint());
        if (row.isValid()) {
            m_pressRow = row.row();
            m_pressPoint = event->position().toPoint();
            if (!selectionModel()->isSelected(row))
                selectionModel()->select(row, QItemSelectionModel::ClearAndSelect);
        }
    }
    QListView::mousePressEvent(event);
}

void CPlaylistListCtrl::mouseMoveEvent(QMouseEvent* event) {
    if (m_dragDisabled || m_pressRow < 0 || (event->buttons() & Qt::LeftButton) == 0) {
        QListView::mouseMoveEvent(event);
        return;
    }
    const QPoint point = event->position().toPoint();
    if (!m_dragged &&
        (point - m_pressPoint).manhattanLength() < QApplication::startDragDistance())
        return;
    m_dragged = true;
    m_hold.stop();
    DragTo(point);
}

void CPlaylistListCtrl::DragTo(const QPoint& point) {
    const QRect band = QRect(m_pressPoint, point).normalized();
    const RowRange rows = DragPageRows(TopRow(), RowsPerFullPage(), m_rows.Count());
    QItemSelection touched;
    QItemSelection untouched;
    for (int row = rows.first; row <= rows.last; ++row) {
        const QModelIndex index = m_model->index(row, 0);
        (visualRect(index).intersects(band) ? touched : untouched).select(index, index);
    }
    selectionModel()->select(untouched, QItemSelectionModel::Deselect);
    selectionModel()->select(touched, QItemSelectionModel::Select);
    const QRect client = viewport()->rect();
    for (const ScrollStep step :
         AutoScrollSteps(point.x(), point.y(), client.width(), client.height(),
                         verticalScrollBar()->isVisible(), horizontalScrollBar()->isVisible())) {
        verticalScrollBar()->triggerAction(step == ScrollStep::LineDown
                                               ? QAbstractSlider::SliderSingleStepAdd
                                               : QAbstractSlider::SliderSingleStepSub);
    }
}

void CPlaylistListCtrl::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_hold.timerId()) {
        QListView::timerEvent(event);
        return;
    }
    m_hold.stop();
    m_heldForMenu = true;
    QCoreApplication::postEvent(
        this, new WindowMessageEvent({kMsgListContextRequest, 0,
                                      PackPoint(m_holdGlobal.x(), m_holdGlobal.y())}));
}

void CPlaylistListCtrl::mouseReleaseEvent(QMouseEvent* event) {
    m_hold.stop();
    // After a drag the rows are chosen already: the view's own release would
    // take the drag for a tap on the row it ends on. After a hold the menu
    // was asked for, and the release is no tap either.
    if (!m_heldForMenu && !(m_dragged && m_pressRow >= 0 && !m_dragDisabled))
        QListView::mouseReleaseEvent(event);
    if (!m_dragDisabled) {
        m_pressRow = -1;
        m_dragged = false;
    }
}

void CPlaylistListCtrl::keyPressEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat()) {
        const int key = event->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter)
            m_enterPressed = true;
        else if (key == Qt::Key_Left)
            PostToParent(*this, kMsgListLeft, static_cast<std::uint32_t>(FirstSelected()), 0);
        else if (key == Qt::Key_Right)
            PostToParent(*this, kMsgListRight, static_cast<std::uint32_t>(FirstSelected()), 0);
    }
    QListView::keyPressEvent(event);
}

// Enter chooses on release, and only when it was pressed here: an Enter that
// closed a dialog over the list does not choose a row. No row, no message.
void CPlaylistListCtrl::keyReleaseEvent(QKeyEvent* event) {
    const int key = event->key();
    if (!event->isAutoRepeat() && (key == Qt::Key_Return || key == Qt::Key_Enter) &&
        m_enterPressed) {
        m_enterPressed = false;
        const int row = FirstSelected();
        if (row >= 0)
            PostToParent(*this, kMsgListClick, static_cast<std::uint32_t>(row), 1);
    }
    QListView::keyReleaseEvent(event);
}

void CPlaylistListCtrl::resizeEvent(QResizeEvent* event) {
    QListView::resizeEvent(event);
    FitColumn();
}

void CPlaylistListCtrl::updateGeometries() {
    QListView::updateGeometries();
    PlaceHeader();
}

void CPlaylistListCtrl::PlaceHeader() {
    const int height = m_header->sizeHint().height();
    if (viewportMargins().top() != height)
        setViewportMargins(0, height, 0, 0);
    const QRect area = viewport()->geometry();
    m_header->setGeometry(area.left(), area.top() - height, area.width(), height);
}

} // namespace zelvor
