#include "library/track_list.h"

#include "library/track_sort.h"

namespace zelvor {

int TrackList::AddTrack(std::unique_ptr<TrackRecord> record, int index) {
    if (!record)
        return -1;
    if (index < 0 || index > Count())
        index = Count();
    m_records.insert(m_records.begin() + index, std::move(record));
    return index;
}

TrackRecord* TrackList::TrackAt(int index) const {
    if (index < 0 || index >= Count())
        return nullptr;
    return m_records[static_cast<size_t>(index)].get();
}

bool TrackList::RemoveTrack(int index) {
    if (index < 0 || index >= Count())
        return false;
    m_records.erase(m_records.begin() + index);
    return true;
}

std::vector<std::unique_ptr<TrackRecord>> TrackList::RemoveAllTracks(bool destroyRecords) {
    std::vector<std::unique_ptr<TrackRecord>> released;
    released.swap(m_records);
    if (destroyRecords)
        released.clear();
    return released;
}

void TrackList::SortTracks(int key, int order) {
    if (key >= 0)
        m_sortKey = static_cast<std::int16_t>(key);
    if (order >= 0)
        m_sortOrder = order;
    SortTrackRecords(m_records, MakeSortParameter(m_sortKey, m_sortOrder));
}

} // namespace zelvor
