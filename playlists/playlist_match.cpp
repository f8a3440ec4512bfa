#include "playlists/playlist_match.h"

#include <string>
#include <unordered_map>
#include <vector>

#include "platform/text.h"

namespace zelvor {

void MatchPlaylistToLibrary(PlaylistEntryList& list, const TrackList& library) {
    if (library.Count() == 0 || list.Count() == 0)
        return;
    // Paths are equal ignoring case exactly when their case-blind sort keys
    // are equal, so each path is collated once instead of once per pair.
    std::unordered_map<std::string, std::vector<PlaylistEntry*>> pending;
    for (const auto& entry : list) {
        if (entry->LibraryIndex() == -1)
            pending[TextSortKeyIgnoreCase(entry->Text(1))].push_back(entry.get());
    }
    for (int i = 0; i < library.Count() && !pending.empty(); ++i) {
        const TrackRecord& record = *library.TrackAt(i);
        auto it = pending.find(TextSortKeyIgnoreCase(record.Text(kFieldPath)));
        if (it == pending.end())
            continue;
        std::u16string_view title = record.Text(kFieldTitle);
        if (title.empty())
            title = FileNameOfPath(record.Text(kFieldPath), true);
        for (PlaylistEntry* entry : it->second) {
            entry->SetText(1, title);
            entry->SetLibraryIndex(i);
        }
        pending.erase(it);
    }
}

} // namespace zelvor
