#include "playlists/playlist_entry_list.h"

#include <algorithm>

namespace zelvor {

PlaylistEntry* PlaylistEntryList::At(int index) const {
    if (index == -1)
        return m_entries.empty() ? nullptr : m_entries.back().get();
    if (index < 0 || index >= Count())
        return nullptr;
    return m_entries[static_cast<size_t>(index)].get();
}

int PlaylistEntryList::Insert(std::unique_ptr<PlaylistEntry> entry, int index) {
    if (!entry)
        return -1;
    if (index < 0 || index >= Count())
        index = Count();
    m_entries.insert(m_entries.begin() + index, std::move(entry));
    return 1;
}

int PlaylistEntryList::Remove(const PlaylistEntry* entry) {
    auto it = std::find_if(m_entries.begin(), m_entries.end(),
                           [&](const auto& e) { return e.get() == entry; });
    if (entry == nullptr || it == m_entries.end())
        return 0;
    m_entries.erase(it);
    m_changed = true;
    return 1;
}

std::vector<std::unique_ptr<PlaylistEntry>> PlaylistEntryList::RemoveAll(bool destroyEntries) {
    m_currentIndex = -1;
    std::vector<std::unique_ptr<PlaylistEntry>> released;
    if (m_entries.empty())
        return released;
    released.swap(m_entries);
    m_changed = false;
    if (destroyEntries)
        released.clear();
    return released;
}

void PlaylistEntryList::StableSort(
    const std::function<bool(const PlaylistEntry&, const PlaylistEntry&)>& before) {
    std::stable_sort(m_entries.begin(), m_entries.end(),
                     [&](const auto& a, const auto& b) { return before(*a, *b); });
}

} // namespace zelvor
