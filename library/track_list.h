#pragma once
// TrackList: an ordered list of TrackRecords that owns them. The library,
// the play queue and the browser's song lists are track lists; the list
// controls that show them only borrow the records.
//
// Indexes are 0-based positions in the list. Records handed in become the
// list's; TrackAt lends a record that stays valid until it is removed or the
// list is destroyed (sorting moves records, it does not free them).

#include <cstdint>
#include <memory>
#include <vector>

#include "tags/track_record.h"

namespace zelvor {

// The sort key of a track list is a TrackRecord field id, or this one: album,
// then track number, then title (the order an album is played in).
constexpr int kSortAlbumOrder = 13;

// A sort parameter packs the order into the high 16 bits and the key into
// the low 16 bits. Each is taken as 16 bits, so an order of 0x10000 reads as 0.
constexpr std::uint32_t MakeSortParameter(int key, int order) {
    return (static_cast<std::uint32_t>(static_cast<std::uint16_t>(order)) << 16) |
           static_cast<std::uint16_t>(key);
}

// The comparison the track list sorts by. The low 16 bits of sortParameter
// name the field; every comparison is made second record against first, and
// when the high 16 bits are non-zero every non-zero result is negated:
//   - fields 7 and 12 (numbers): b - a, in 32-bit arithmetic;
//   - 13: empty albums apart (an empty album of a gives -1, of b +1), then
//     albums case-sensitively, then track numbers, then titles case-sensitively;
//   - any other field: its texts ignoring case. Fields without a text (the
//     other numbers, unassigned ids) read as empty and so compare equal.
// So with a non-zero order texts run A to Z, numbers upward and empty albums
// come last; with order 0 everything is reversed. <0, 0 or >0.
int CompareTracks(const TrackRecord& a, const TrackRecord& b, std::uint32_t sortParameter);

class TrackList {
public:
    TrackList() = default;
    TrackList(const TrackList&) = delete;
    TrackList& operator=(const TrackList&) = delete;
    TrackList(TrackList&&) = default;
    TrackList& operator=(TrackList&&) = default;

    int Count() const { return static_cast<int>(m_records.size()); }
    bool Empty() const { return m_records.empty(); }
    // Room for this many records in all, so a loader appends without regrowing.
    void Reserve(int count) { m_records.reserve(static_cast<size_t>(count < 0 ? 0 : count)); }

    // Inserts the record at index, or at the end when index < 0 or beyond the
    // end; returns the index used, or -1 for a null record.
    int AddTrack(std::unique_ptr<TrackRecord> record, int index = -1);
    // The record at index; nullptr when index < 0 or >= Count().
    TrackRecord* TrackAt(int index) const;
    // Removes and destroys the record; false when there is no such index.
    bool RemoveTrack(int index);
    // Empties the list. With destroyRecords the records are destroyed and an
    // empty vector is returned; without, the caller gets them, in list order.
    std::vector<std::unique_ptr<TrackRecord>> RemoveAllTracks(bool destroyRecords = true);

    // A key >= 0 replaces the kept sort key and an order >= 0 the kept order
    // (a negative argument keeps the kept value); then the list is sorted by
    // CompareTracks with MakeSortParameter(key, order). Records that compare
    // equal keep their relative order.
    void SortTracks(int key, int order);
    int SortKey() const { return m_sortKey; }
    int SortOrder() const { return m_sortOrder; }

    auto begin() const { return m_records.begin(); }
    auto end() const { return m_records.end(); }

private:
    std::vector<std::unique_ptr<TrackRecord>> m_records;
    // No key until the first sort: sorting then keeps the list as it is.
    std::int16_t m_sortKey = -1;
    std::int32_t m_sortOrder = 1;
};

} // namespace zelvor
