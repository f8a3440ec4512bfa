#pragma once
// The table model of a track list control: rows are the records of a
// borrowed TrackList, texts are made from the record's fields when the view
// asks for them (only the rows it shows), so nothing is copied.
//
// Columns, in the five-column form: 0 the title (or the file name without its
// extension when the title is empty), 1 the path, 2 album, 3 artist,
// 4 genre. The headings stand as they always have: "File Name" over the
// titles and "Title (Song)" over the paths.

#include <QAbstractTableModel>
#include <QStringList>

#include "library/track_list.h"

namespace zelvor {

class TrackListModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    // The list must outlive the model.
    TrackListModel(TrackList& tracks, QObject* parent);

    TrackList& Tracks() const { return m_tracks; }
    // One heading per column; the number of columns follows.
    void SetHeadings(QStringList headings);
    // The text of a cell, as a view gets it.
    static QString CellText(const TrackRecord& record, int column);

    int AddTrack(std::unique_ptr<TrackRecord> record, int index);
    bool RemoveTrack(int index);
    // Without destruction the caller gets the records, in list order.
    std::vector<std::unique_ptr<TrackRecord>> RemoveAllTracks(bool destroyRecords);
    // Sorts the list; selected and current rows follow their records.
    void SortTracks(int key, int order);
    void Reset();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    TrackList& m_tracks;
    QStringList m_headings;
};

} // namespace zelvor
