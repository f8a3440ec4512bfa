#include "ui/widgets/lists/playlist_list_model.h"

namespace zelvor {

PlaylistListModel::PlaylistListModel(PlaylistEntryList& rows, QObject* parent)
    : QAbstractListModel(parent), m_rows(rows) {}

void PlaylistListModel::Reset() {
    beginResetModel();
    endResetModel();
}

void PlaylistListModel::RowChanged(int row) {
    const QModelIndex changed = index(row, 0);
    if (changed.isValid())
        emit dataChanged(changed, changed, {Qt::DisplayRole, Qt::EditRole});
}

int PlaylistListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows.Count();
}

QVariant PlaylistListModel::data(const QModelIndex& index, int role) const {
    if ((role != Qt::DisplayRole && role != Qt::EditRole) ||
        !index.isValid())
        return {};
    const PlaylistEntry* entry = m_rows.At(index.row());
    if (entry == nullptr)
        return {};
    const std::u16string_view text = entry->Text(1);
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

QVariant PlaylistListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (section != 0 || orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QStringLiteral("Title");
}

Qt::ItemFlags PlaylistListModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    // Editable only through the control's EditLabel: it has no edit triggers.
    // "Drag enabled" only keeps a selection pressed on (see the control).
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable |
           Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}

} // namespace zelvor
