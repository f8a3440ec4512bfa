#pragma once
// PlaylistEntryList: an ordered list of PlaylistEntry that owns them. It
// holds a loaded playlist and the files the library update finds.
//
// Besides the entries it keeps a changed flag (set when an entry is removed,
// cleared when the list is emptied) and a current index (-1 after emptying,
// otherwise whatever its user sets).

#include <functional>
#include <memory>
#include <vector>

#include "playlists/playlist_entry.h"

namespace zelvor {

class PlaylistEntryList {
public:
    PlaylistEntryList() = default;
    PlaylistEntryList(const PlaylistEntryList&) = delete;
    PlaylistEntryList& operator=(const PlaylistEntryList&) = delete;
    PlaylistEntryList(PlaylistEntryList&&) = default;
    PlaylistEntryList& operator=(PlaylistEntryList&&) = default;

    int Count() const { return static_cast<int>(m_entries.size()); }
    // The entry at index, -1 meaning the last one; nullptr when there is none.
    // The entry stays the list's and lives until it is removed.
    PlaylistEntry* At(int index) const;
    // Takes the entry and puts it before the entry at index when
    // 0 <= index < Count(), otherwise at the end. 1, or -1 for a null entry.
    int Insert(std::unique_ptr<PlaylistEntry> entry, int index = -1);
    // Finds the entry by identity, destroys it and sets the changed flag.
    // 1, or 0 when the entry is not in the list.
    int Remove(const PlaylistEntry* entry);
    // Sets the current index to -1. A list holding entries is emptied and its
    // changed flag cleared; an empty list keeps its flag. With destroyEntries
    // the entries are destroyed, otherwise the caller gets them in order.
    std::vector<std::unique_ptr<PlaylistEntry>> RemoveAll(bool destroyEntries = true);

    // Reorders the entries so that `before` holds for no later entry against
    // an earlier one; entries it does not order keep their order. Neither the
    // changed flag nor the current index changes. `before` must be a strict
    // weak order.
    void StableSort(const std::function<bool(const PlaylistEntry&, const PlaylistEntry&)>& before);

    bool Changed() const { return m_changed; }
    int CurrentIndex() const { return m_currentIndex; }
    void SetCurrentIndex(int index) { m_currentIndex = index; }

    auto begin() const { return m_entries.begin(); }
    auto end() const { return m_entries.end(); }

private:
    std::vector<std::unique_ptr<PlaylistEntry>> m_entries;
    bool m_changed = false;
    int m_currentIndex = -1;
};

} // namespace zelvor
