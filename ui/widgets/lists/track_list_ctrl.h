#pragma once
// CTrackListCtrl: a list of track records, in one column (the file-name
// column without a heading bar) or five (title, path, album, artist, genre,
// under fixed English headings). It borrows the TrackList it shows; the
// owner either uses the control's mutators or changes the list and calls
// Reset(). Texts are made when the view paints a row, never stored.
//
// A tap toggles a row's selection, so several rows are chosen without
// modifier keys. A click on a heading sorts by that column's field number
// (column 0 = file name, 1 = title), A to Z first, the reverse on the next
// click of the same heading.

#include <QTreeView>
#include <memory>
#include <vector>

#include "library/track_list.h"

namespace zelvor {

class TrackListModel;

class CTrackListCtrl : public QTreeView {
    Q_OBJECT
public:
    // The list must outlive the control.
    CTrackListCtrl(TrackList& tracks, QWidget* parent);

    TrackList& Tracks();
    // Once only: one column headed by the localised "File Name", no heading
    // bar; then FitColumn.
    void SetUpOneColumn();
    // The first column to the window's width (see OneColumnWidth).
    void FitColumn();
    // Five columns, each (client width - scroll bar) / 5 pixels wide.
    void SetUpFiveColumns();

    int AddTrack(std::unique_ptr<TrackRecord> record, int index = -1);
    TrackRecord* TrackAt(int index) const;
    bool RemoveTrack(int index);
    // Without destruction the caller gets the records, in list order.
    std::vector<std::unique_ptr<TrackRecord>> RemoveAllTracks(bool destroyRecords = true);
    // A key or order >= 0 replaces the kept one; sorts by the kept pair.
    void SortTracks(int key, int order);
    void Reset();

    int FirstSelected() const;
    std::vector<int> SelectedIndexes() const; // ascending
    int NextSelected(int after) const;        // first selected row > after, or -1
    // Selects only this row and makes it current; index < 0 clears.
    void SelectOnly(int index);

    // The width of a vertical scroll bar in the current style, pixels.
    int ScrollBarWidth() const;

private:
    void OnHeadingClicked(int column);

    TrackList& m_tracks;
    TrackListModel* m_model; // owned by the control
    bool m_oneColumnSetUp = false;
};

} // namespace zelvor
