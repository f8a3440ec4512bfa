#pragma once
// What the callers of the library update do with its result: the library
// list is replaced (wholly after the interactive update, the rescanned
// storage's part after a silent one), the library file is saved and the
// free-space fingerprints are recorded, so the next start knows the library
// matches the storage.

#include "library/track_list.h"

namespace zelvor {

// After the interactive update, however the dialog ended: the library is
// emptied, every result record is appended (the records change hands, the
// result list is left empty), the library file is saved and the
// fingerprints of the storage card and the flash disk are recorded.
// Returns what SaveTrackList returned.
int ReplaceLibraryAfterUpdate(TrackList& library, TrackList& results);

// After a silent update of mode 1 (both storages), 3 (flash disk) or 4
// (storage card): the records of that storage (all of them for mode 1) are
// removed, the results appended, the library saved, and the fingerprint of
// each rescanned storage recorded. A storage that was not rescanned keeps its
// old fingerprint, so a change there is still noticed at the next start.
int ReplaceStorageAfterSilentUpdate(TrackList& library, TrackList& results, int mode);

} // namespace zelvor
