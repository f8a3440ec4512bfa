#include "ui/widgets/lists/track_list_model.h"

#include <unordered_map>

namespace zelvor {

namespace {

QString ToQString(std::u16string_view text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

constexpr int kColumnFields[] = {kFieldTitle, kFieldPath, kFieldAlbum, kFieldArtist,
                                 kFieldGenre};

} // namespace

TrackListModel::TrackListModel(TrackList& tracks, QObject* parent)
    : QAbstractTableModel(parent), m_tracks(tracks) {}

void TrackListModel::SetHeadings(QStringList headings) {
    beginResetModel();
    m_headings = std::move(headings);
    endResetModel();
}

QString TrackListModel::CellText(const TrackRecord& record, int column) {
    if (column == 0)
        return ToQString(ShownTitle(record));
    if (column < 0 || column >= static_cast<int>(std::size(kColumnFields)))
        return {};
    return ToQString(record.Text(kColumnFields[column]));
}

int TrackListModel::AddTrack(std::unique_ptr<TrackRecord> record, int index) {
    if (!record)
        return -1;
    const int row = index < 0 || index > m_tracks.Count() ? m_tracks.Count() : index;
    beginInsertRows({}, row, row);
    const int used = m_tracks.AddTrack(std::move(record), row);
    endInsertRows();
    return used;
}

bool TrackListModel::RemoveTrack(int index) {
    if (m_tracks.TrackAt(index) == nullptr)
        return false;
    beginRemoveRows({}, index, index);
    m_tracks.RemoveTrack(index);
    endRemoveRows();
    return true;
}

std::vector<std::unique_ptr<TrackRecord>> TrackListModel::RemoveAllTracks(bool destroyRecords) {
    if (m_tracks.Empty())
        return {};
    beginResetModel();
    auto records = m_tracks.RemoveAllTracks(destroyRecords);
    endResetModel();
    return records;
}

void TrackListModel::SortTracks(int key, int order) {
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<const TrackRecord*> records;
    records.reserve(static_cast<size_t>(before.size()));
    for (const QModelIndex& index : before)
        records.push_back(m_tracks.TrackAt(index.row()));
    m_tracks.SortTracks(key, order);
    if (!before.isEmpty()) {
        std::unordered_map<const TrackRecord*, int> rowOf;
        for (int row = 0; row < m_tracks.Count(); ++row)
            rowOf.emplace(m_tracks.TrackAt(row), row);
        QModelIndexList after;
        for (qsizetype i = 0; i < before.size(); ++i)
            after.push_back(index(rowOf.at(records[static_cast<size_t>(i)]), before[i].column()));
        changePersistentIndexList(before, after);
    }
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void TrackListModel::Reset() {
    beginResetModel();
    endResetModel();
}

int TrackListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_tracks.Count();
}

int TrackListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_headings.size());
}

QVariant TrackListModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid())
        return {};
    const TrackRecord* record = m_tracks.TrackAt(index.row());
    return record != nullptr ? QVariant(CellText(*record, index.column())) : QVariant();
}

QVariant TrackListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= m_headings.size())
        return {};
    return m_headings[section];
}

} // namespace zelvor
