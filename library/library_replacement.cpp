#include "library/library_replacement.h"

#include "config/settings.h"
#include "library/library_file.h"

namespace zelvor {
namespace {

void AppendAll(TrackList& library, TrackList& results) {
    for (auto& record : results.RemoveAllTracks(false))
        library.AddTrack(std::move(record));
}

} // namespace

int ReplaceLibraryAfterUpdate(TrackList& library, TrackList& results) {
    library.RemoveAllTracks();
    AppendAll(library, results);
    int saved = SaveTrackList(GetLibraryPath(), library, 0);
    RecordFreeSpace(kStorageCard, GetStorageCardRoot());
    RecordFreeSpace(kStorageFlash, GetFlashDiskRoot());
    return saved;
}

int ReplaceStorageAfterSilentUpdate(TrackList& library, TrackList& results, int mode) {
    // One pass over the records, keeping the others in their order.
    for (auto& record : library.RemoveAllTracks(false)) {
        if (mode != 1 && ClassifyStoragePath(record->Text(kFieldPath)) != mode)
            library.AddTrack(std::move(record));
    }
    AppendAll(library, results);
    int saved = SaveTrackList(GetLibraryPath(), library, 0);
    if (mode == 1 || mode == kStorageCard)
        RecordFreeSpace(kStorageCard, GetStorageCardRoot());
    if (mode == 1 || mode == kStorageFlash)
        RecordFreeSpace(kStorageFlash, GetFlashDiskRoot());
    return saved;
}

} // namespace zelvor
