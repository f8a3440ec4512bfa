#include "playlists/playlist_compare.h"

#include "platform/text.h"

namespace zelvor {

namespace {

constexpr std::int32_t kUnlinked = -1;

// b against a, case-sensitively, negated with the flag.
int CompareEntryText(const PlaylistEntry& a, const PlaylistEntry& b, int which, bool orderFlag) {
    const int result = CompareText(b.Text(which), a.Text(which));
    return orderFlag ? -result : result;
}

// Text 2 or 3: empty texts apart from the others, then the texts. 0 when
// both are empty or equal.
int CompareOptionalText(const PlaylistEntry& a, const PlaylistEntry& b, int which, bool orderFlag,
                        int up, int down) {
    const bool aEmpty = a.Text(which).empty();
    const bool bEmpty = b.Text(which).empty();
    if (aEmpty && bEmpty)
        return 0;
    if (aEmpty)
        return up;
    if (bEmpty)
        return down;
    return CompareEntryText(a, b, which, orderFlag);
}

} // namespace

int ComparePlaylistEntries(const PlaylistEntry& a, const PlaylistEntry& b, int mode,
                           bool orderFlag) {
    const int up = orderFlag ? 1 : -1;
    const int down = -up;
    if (a.LibraryIndex() == kUnlinked)
        return down;
    if (b.LibraryIndex() == kUnlinked)
        return up;
    if (mode == kSortByText2 || mode == kSortByText2And3) {
        if (const int result = CompareOptionalText(a, b, 2, orderFlag, up, down); result != 0)
            return result;
    }
    if (mode == kSortByText2And3) {
        if (const int result = CompareOptionalText(a, b, 3, orderFlag, up, down); result != 0)
            return result;
    }
    if (mode != kSortByValueD && mode != kSortByText2 && mode != kSortByText2And3)
        return CompareEntryText(a, b, 1, orderFlag);
    if (a.ValueD() != b.ValueD()) {
        const int aValue = a.ValueD();
        const int bValue = b.ValueD();
        return orderFlag ? aValue - bValue : bValue - aValue;
    }
    return CompareEntryText(a, b, 1, orderFlag);
}

void SortPlaylistEntries(PlaylistEntryList& list, int mode, bool orderFlag) {
    list.StableSort([mode, orderFlag](const PlaylistEntry& a, const PlaylistEntry& b) {
        // The comparison puts an unlinked entry before or after everything,
        // itself included, which no sort may be given: unlinked pairs stay.
        if (a.LibraryIndex() == kUnlinked && b.LibraryIndex() == kUnlinked)
            return false;
        return ComparePlaylistEntries(a, b, mode, orderFlag) < 0;
    });
}

} // namespace zelvor
