#include "ui/widgets/lists/track_list_ctrl.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QStyle>

#include "config/application_values.h"
#include "res/string_table.h"
#include "ui/rules/lists/list_rules.h"
#include "ui/widgets/drawing/wait_cursor_count.h"
#include "ui/widgets/lists/track_list_model.h"

namespace zelvor {

namespace {

// Fixed English, not translated.
const QStringList kFiveHeadings = {QStringLiteral("File Name"), QStringLiteral("Title (Song)"),
                                   QStringLiteral("Album"), QStringLiteral("Artist"),
                                   QStringLiteral("Genre")};

} // namespace

CTrackListCtrl::CTrackListCtrl(TrackList& tracks, QWidget* parent)
    : QTreeView(parent), m_tracks(tracks), m_model(new TrackListModel(tracks, this)) {
    setModel(m_model);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::MultiSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    setFrameShape(QFrame::Box);
    setFrameShadow(QFrame::Plain);
    setLineWidth(1); // the 1-pixel border the column widths allow for
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::Interactive);
    header()->setSectionsClickable(true);
    header()->setSortIndicatorShown(false);
    connect(header(), &QHeaderView::sectionClicked, this, &CTrackListCtrl::OnHeadingClicked);
}

TrackList& CTrackListCtrl::Tracks() { return m_tracks; }

int CTrackListCtrl::ScrollBarWidth() const {
    return style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
}

void CTrackListCtrl::SetUpOneColumn() {
    if (m_oneColumnSetUp)
        return;
    m_oneColumnSetUp = true;
    const std::u16string_view heading = LoadAppText(kTextFileName);
    m_model->SetHeadings({QString::fromUtf16(heading.data(), static_cast<qsizetype>(heading.size()))});
    setHeaderHidden(true);
    FitColumn();
}

void CTrackListCtrl::FitColumn() {
    if (m_model->columnCount() == 0)
        return;
    const int rowHeight = std::max(sizeHintForRow(0), fontMetrics().height());
    // From the frame's inside, not the viewport, so that a list not yet
    // shown (whose viewport is not placed) fits the same.
    const int headerHeight = isHeaderHidden() ? 0 : header()->sizeHint().height();
    const int perPage = RowsPerPage(contentsRect().height() - headerHeight, rowHeight, false);
    const int width = OneColumnWidth(this->width(), m_tracks.Count(), perPage, ScrollBarWidth());
    if (columnWidth(0) != width)
        setColumnWidth(0, width);
}

void CTrackListCtrl::SetUpFiveColumns() {
    m_model->SetHeadings(kFiveHeadings);
    setHeaderHidden(false);
    const int width = FiveColumnWidth(contentsRect().width(), ScrollBarWidth());
    for (int column = 0; column < static_cast<int>(kFiveHeadings.size()); ++column)
        setColumnWidth(column, width);
}

int CTrackListCtrl::AddTrack(std::unique_ptr<TrackRecord> record, int index) {
    return m_model->AddTrack(std::move(record), index);
}

TrackRecord* CTrackListCtrl::TrackAt(int index) const { return m_tracks.TrackAt(index); }

bool CTrackListCtrl::RemoveTrack(int index) { return m_model->RemoveTrack(index); }

std::vector<std::unique_ptr<TrackRecord>> CTrackListCtrl::RemoveAllTracks(bool destroyRecords) {
    return m_model->RemoveAllTracks(destroyRecords);
}

void CTrackListCtrl::SortTracks(int key, int order) { m_model->SortTracks(key, order); }

void CTrackListCtrl::Reset() { m_model->Reset(); }

void CTrackListCtrl::OnHeadingClicked(int column) {
    const TrackSortChoice next = HeadingClickSort(column, {m_tracks.SortKey(), m_tracks.SortOrder()});
    ScopedWaitCursor wait;
    SortTracks(next.key, next.order);
}

std::vector<int> CTrackListCtrl::SelectedIndexes() const {
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

int CTrackListCtrl::FirstSelected() const { return NextSelected(-1); }

int CTrackListCtrl::NextSelected(int after) const {
    int next = -1;
    for (const QModelIndex& index : selectionModel()->selectedRows()) {
        if (index.row() > after && (next < 0 || index.row() < next))
            next = index.row();
    }
    return next;
}

void CTrackListCtrl::SelectOnly(int index) {
    const QModelIndex row = m_model->index(index, 0);
    if (!row.isValid()) {
        selectionModel()->clearSelection();
        return;
    }
    selectionModel()->setCurrentIndex(
        row, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

} // namespace zelvor
