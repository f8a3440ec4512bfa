#include "ui/rules/browser/browse_groups.h"

#include "platform/text.h"

#include <algorithm>
#include <limits>

namespace zelvor {
namespace {

std::int16_t Clamp16(long long value) {
    return static_cast<std::int16_t>(
        std::min<long long>(value, std::numeric_limits<std::int16_t>::max()));
}

std::unique_ptr<PlaylistEntry> GroupRow(std::u16string_view text, int libraryIndex, int groupIndex,
                                        int songs) {
    auto row = std::make_unique<PlaylistEntry>(text);
    row->SetLibraryIndex(libraryIndex);
    row->SetValueC(groupIndex);
    row->SetValueD(Clamp16(songs));
    return row;
}

// Equal ignoring case, as the device's lstrcmpiW says. Neighbours in a
// sorted library are mostly the very same text, so the collator is asked
// only when the texts differ at all.
bool SameGroup(std::u16string_view a, std::u16string_view b) {
    return a == b || (!a.empty() && !b.empty() && CompareTextIgnoreCase(a, b) == 0);
}

} // namespace

void SetSongSortValues(PlaylistEntry& row, const TrackRecord& record) {
    row.SetValueD(Clamp16(record.TrackNumber()));
}

void AppendSongRows(const TrackList& library, int first, int last, PlaylistEntryList& rows) {
    first = std::max(first, 0);
    last = std::min(last, library.Count() - 1);
    for (int i = first; i <= last; ++i) {
        const TrackRecord& record = *library.TrackAt(i);
        auto row = std::make_unique<PlaylistEntry>(ShownTitle(record));
        SetSongSortValues(*row, record);
        row->SetLibraryIndex(i);
        row->SetValueC(rows.Count());
        rows.Insert(std::move(row));
    }
}

void BuildGroupRows(const TrackList& library, int field, bool withAll, const GroupNames& names,
                    PlaylistEntryList& rows, std::vector<BrowseGroup>& groups) {
    rows.RemoveAll();
    groups.clear();
    if (withAll) {
        groups.push_back({-1, 0, 0});
        rows.Insert(GroupRow(names.all, -1, 0, library.Count()));
    }
    const int count = library.Count();
    int first = 0;
    while (first < count) {
        std::u16string_view value = library.TrackAt(first)->Text(field);
        int last = first;
        while (last + 1 < count) {
            std::u16string_view next = library.TrackAt(last + 1)->Text(field);
            if (!SameGroup(value, next))
                break;
            value = next;
            ++last;
        }
        const std::u16string_view shown = library.TrackAt(first)->Text(field);
        const bool unknown = shown.empty();
        groups.push_back({first, last, unknown ? kUnknownGroupMarker : 0});
        rows.Insert(GroupRow(unknown ? names.unknown : shown, first,
                             static_cast<int>(groups.size()) - 1, last - first + 1));
        first = last + 1;
    }
}

} // namespace zelvor
