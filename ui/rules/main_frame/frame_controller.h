#pragma once
// The rules of the main frame: what each message from the shell, the
// storage system, the sibling programs and the program's own follow-up steps
// makes the frame do. The Qt frame (main_frame.h) delivers the messages and
// does what FrameWindow asks; the rules themselves need no toolkit.
//
// Messages from other programs arrive sent (the handler's result is the
// answer) or posted; the frame's own follow-up steps are always posted, so
// each runs after the handler that asked for it.

#include <cstdint>

#include "res/window_messages.h"
#include "library/library_updater.h"
#include "ui/rules/main_frame/frame_library.h"
#include "ui/rules/main_frame/frame_window.h"

namespace zelvor {

// The shell's answer passed to the device-lock display, and the value it
// gets at the end of a card removal or of an update while the browser shows.
constexpr std::int32_t kDeviceLockShellAnswer = 9999;
constexpr std::int32_t kDeviceLockBrowserDone = 255;
// Polls of the storage card root after an insertion, this far apart.
constexpr int kCardPolls = 10;
constexpr int kCardPollMs = 100;
// The language whose texts need the player's other text layout.
constexpr std::int16_t kLanguageWithOwnTextLayout = 7;

// WM_SIZE's and WM_ACTIVATE's packed parameters.
constexpr std::int32_t PackSize(int width, int height) {
    return static_cast<std::int32_t>((static_cast<std::uint32_t>(height & 0xFFFF) << 16) |
                                     static_cast<std::uint32_t>(width & 0xFFFF));
}
constexpr std::uint32_t kActivateActive = 1;
constexpr std::uint32_t kActivateMinimisedFlag = 0x10000; // high word of wParam

class FrameController {
public:
    // Window and outside are borrowed for the controller's life.
    FrameController(FrameWindow& window, OutsideWindows& outside, RecordBuilder builder);

    // One message; the result is what a sender gets back (0 for most).
    std::int32_t Handle(const WindowMessage& message);

    // The end of WM_CREATE, once the panes exist: full screen, player shown.
    void OnCreate();
    // WM_DESTROY's part for the library list: its rows are released.
    void OnDestroy() { m_library.Release(); }

    // Asks the shell for its status value and passes a non-zero answer on.
    void ShellQuery();

    TrackList& Library() { return m_library.Library(); }
    FrameLibrary& LibraryRules() { return m_library; }

private:
    void OnBackKey();
    void OnStorageCard(bool inserted);
    void OnLanguageChanged();
    void OnColourChanged();
    void OnSize(std::int32_t packedSize);
    void OnActivate(std::uint32_t state);
    void OnSetFocus();
    std::int32_t OnShellStatus(std::int32_t value);
    void OnUpdateFinished(bool changed, bool refill);
    void TellDeviceLock(std::int32_t value);
    void TellDeviceLockIfBrowserShows();

    FrameWindow& m_window;
    OutsideWindows& m_outside;
    FrameLibrary m_library;
};

} // namespace zelvor
