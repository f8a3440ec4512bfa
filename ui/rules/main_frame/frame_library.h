#pragma once
// The main frame's side of the music library: the one library list of the
// program, the start-up check that loads it, the silent update that rebuilds
// the part of it that lies on a storage that changed, and handing it to the
// player when the player has nothing to play.
//
// The library list owns its records for the frame's life; screens borrow it
// through Library(). Everything runs on the UI thread except RequestStop.

#include <atomic>
#include <cstdint>

#include "library/library_updater.h"
#include "library/track_list.h"

namespace zelvor {

class FrameWindow;

// What the start-up check found of the library file, also the lParam of the
// update it asks for: the storages to rescan whatever their fingerprints say.
enum LibraryCheck : std::int32_t {
    kLibraryUsable = 0,  // loaded as it stands
    kLibraryRebuild = 1, // missing, unreadable or not a library: both storages
};

// Who asked for a silent update (its wParam).
constexpr std::uint32_t kUpdateAfterCardInsertion = 4;
constexpr std::uint32_t kUpdateAfterStartupCheck = 1;

// Loads the library file into the list; kLibraryRebuild when there is no
// usable library file (the list is then empty or holds what could be read).
LibraryCheck LoadLibraryForCheck(TrackList& library);

// The silent update's mode (1 both storages, 3 the flash disk, 4 the card,
// 0 nothing to do) for what changed and what is to be rescanned anyway.
// Only the card is looked at after a card insertion.
int SilentUpdateMode(std::uint32_t trigger, std::int32_t forced, bool cardChanged,
                     bool flashChanged);

class FrameLibrary {
public:
    FrameLibrary(FrameWindow& window, RecordBuilder builder);

    TrackList& Library() { return m_library; }
    bool Updating() const { return m_updating; }

    // WM_USER + 213: fingerprints, load, the library to an empty queue, and
    // WM_USER + 209 when anything is to be rescanned.
    void CheckAtStartup();
    // WM_USER + 209: the silent update; ends by posting WM_USER + 212.
    void UpdateSilently(std::uint32_t trigger, std::int32_t forced);
    // WM_USER + 212, first steps: true when the library changed and no stop
    // is pending; the library then went to the player where it should and
    // the browser reloaded.
    bool FinishUpdate(bool changed, bool refill);

    // Ends a running update at its next test and keeps any further one from
    // changing the library. Safe from a signal handler.
    void RequestStop();
    bool StopRequested() const { return m_stop.load(); }

    // The library list's rows are released (the frame's destruction).
    void Release() { m_library.RemoveAllTracks(); }

private:
    // Sorted in album order and copied into the player's queue.
    void HandLibraryToPlayer();

    FrameWindow& m_window;
    RecordBuilder m_builder;
    TrackList m_library;
    bool m_updating = false;
    std::atomic<bool> m_stop{false};
    std::atomic<LibraryUpdater*> m_running{nullptr};
};

} // namespace zelvor
