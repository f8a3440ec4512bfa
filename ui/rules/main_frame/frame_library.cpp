#include "ui/rules/main_frame/frame_library.h"

#include "config/application_values.h"
#include "config/settings.h"
#include "res/window_messages.h"
#include "library/library_file.h"
#include "library/library_replacement.h"
#include "platform/device.h"
#include "res/string_table.h"
#include "ui/rules/main_frame/browser_pane.h"
#include "ui/rules/main_frame/frame_window.h"
#include "ui/rules/main_frame/wait_cursor.h"
#include "ui/rules/main_frame/player_pane.h"

namespace zelvor {

LibraryCheck LoadLibraryForCheck(TrackList& library) {
    library.RemoveAllTracks();
    std::u16string path = GetLibraryPath();
    if (!PathExists(path))
        return kLibraryRebuild;
    auto file = CurrentDevice().FileSystem().OpenFile(path, FileMode::Read);
    if (!file)
        return kLibraryRebuild;
    LibraryHeader header;
    // A file that is not a library (another magic, no header) is rebuilt
    // rather than taken for an empty library.
    if (!ReadTrackList(*file, GetProgramDirectory(), library, &header) || !header.magicMatches)
        return kLibraryRebuild;
    return kLibraryUsable;
}

int SilentUpdateMode(std::uint32_t trigger, std::int32_t forced, bool cardChanged,
                     bool flashChanged) {
    const bool card = cardChanged || forced == 1 || forced == kStorageCard;
    // A card insertion says nothing about the flash disk.
    const bool flash = trigger != kUpdateAfterCardInsertion &&
                       (flashChanged || forced == 1 || forced == kStorageFlash);
    if (card && flash)
        return 1;
    if (card)
        return kStorageCard;
    if (flash)
        return kStorageFlash;
    return 0;
}

FrameLibrary::FrameLibrary(FrameWindow& window, RecordBuilder builder)
    : m_window(window), m_builder(std::move(builder)) {}

void FrameLibrary::CheckAtStartup() {
    const bool cardChanged = StorageChanged(kStorageCard, GetStorageCardRoot());
    const bool flashChanged = StorageChanged(kStorageFlash, GetFlashDiskRoot());
    LibraryCheck loaded;
    {
        WaitCursor wait(m_window);
        loaded = LoadLibraryForCheck(m_library);
    }
    PlayerPane* player = m_window.Player();
    if (!cardChanged && !flashChanged && loaded == kLibraryUsable && player &&
        player->QueueCount() == 0)
        HandLibraryToPlayer();
    if (cardChanged || flashChanged || loaded != kLibraryUsable)
        m_window.PostToSelf({kMsgUpdateLibrary, kUpdateAfterStartupCheck, loaded});
}

void FrameLibrary::UpdateSilently(std::uint32_t trigger, std::int32_t forced) {
    const int mode = SilentUpdateMode(trigger, forced,
                                      StorageChanged(kStorageCard, GetStorageCardRoot()),
                                      StorageChanged(kStorageFlash, GetFlashDiskRoot()));
    if (mode == 0 || m_stop.load()) {
        m_window.PostToSelf({kMsgUpdateFinished, 0, 0});
        return;
    }
    m_updating = true;
    BrowserPane* browser = m_window.Browser();
    if (browser)
        browser->ShowStatusText(LoadAppText(kTextSearchingFiles));
    bool replaced = false;
    {
        WaitCursor wait(m_window);
        LibraryUpdater updater(m_builder);
        updater.SetLanguage(AppValues().language);
        m_running.store(&updater);
        const std::u16string root = mode == kStorageCard   ? GetStorageCardRoot()
                                    : mode == kStorageFlash ? GetFlashDiskRoot()
                                                            : std::u16string(u"\\");
        UpdateLibrarySilently(updater, mode, root, &m_stop);
        m_running.store(nullptr);
        // A stopped run holds only part of the storage: the library keeps
        // what it had rather than losing the rest.
        if (!updater.Stopped() && !m_stop.load()) {
            ReplaceStorageAfterSilentUpdate(m_library, updater.Results(), mode);
            replaced = true;
        }
    }
    if (browser)
        browser->ShowStatusText(u"");
    // The queue was made from a library that is gone when the whole library
    // had to be rebuilt, so it is filled again from the new one.
    const std::int32_t refill = forced == kLibraryRebuild && mode == 1 ? 1 : 0;
    m_window.PostToSelf({kMsgUpdateFinished, replaced ? 1u : 0u, replaced ? refill : 0});
}

bool FrameLibrary::FinishUpdate(bool changed, bool refill) {
    m_updating = false;
    if (!changed || m_stop.load())
        return false;
    PlayerPane* player = m_window.Player();
    if (!m_library.Empty() && player && (player->QueueCount() == 0 || refill))
        HandLibraryToPlayer();
    if (BrowserPane* browser = m_window.Browser())
        browser->Reload();
    return true;
}

void FrameLibrary::RequestStop() {
    m_stop.store(true);
    if (LibraryUpdater* running = m_running.load())
        running->RequestCancel();
}

void FrameLibrary::HandLibraryToPlayer() {
    m_library.SortTracks(kSortAlbumOrder, 1);
    if (PlayerPane* player = m_window.Player())
        player->ReplaceQueue(m_library);
}

} // namespace zelvor
