#pragma once
// The list model of a playlist list control: rows are the entries of a
// borrowed PlaylistEntryList; a row's text is the entry's text 1, read when
// the view asks for it. One column, headed "Title".

#include <QAbstractListModel>

#include "playlists/playlist_entry_list.h"

namespace zelvor {

class PlaylistListModel final : public QAbstractListModel {
    Q_OBJECT
public:
    // The list must outlive the model.
    PlaylistListModel(PlaylistEntryList& rows, QObject* parent);

    PlaylistEntryList& Rows() const { return m_rows; }
    void Reset();
    // The row's text changed behind the model.
    void RowChanged(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    PlaylistEntryList& m_rows;
};

} // namespace zelvor
