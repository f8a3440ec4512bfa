#pragma once
// PlayerPane: what the main frame asks of the player screen, and
// FrameMessages: how the player screen reaches the frame. The frame never
// calls into the screen's internals and the screen never calls the frame
// directly: follow-up steps between them are posted messages, as between
// the device's windows (res/window_messages.h).

#include <cstdint>

#include "platform/message_frame.h"

class QWidget;

namespace zelvor {

class Player;
class TrackList;

// Posts a message to the main frame; it is handled after the current
// handler returns, on the UI thread.
class FrameMessages {
public:
    virtual ~FrameMessages() = default;
    virtual void PostToFrame(const WindowMessage& message) = 0;
    // The player's Library button: the frame shows the browser screen.
    virtual void ShowBrowser() = 0;
    // The player's Menu button (button id 16), handed to the application:
    // the frame opens the play list panel over the player, on the queue.
    virtual void ShowMenu() = 0;
    // The player's Hide button: the frame goes to the bottom and hides.
    virtual void HideFrame() = 0;

    // The browser's way back: the player pane shown, the browser hidden.
    virtual void ShowPlayer() = 0;
    // The browser plays songs: the player's queue becomes copies of them
    // with the song at start current, playing starts, and the player is
    // shown, all under the wait cursor.
    virtual void PlayFromBrowser(const TrackList& songs, int start) = 0;
};

class PlayerPane {
public:
    virtual ~PlayerPane() = default;
    virtual QWidget* Widget() = 0;

    // The screen's orientation or the skin changed: bitmaps are loaded again
    // from the current skin module, the layout rebuilt, everything repainted.
    virtual void RedoLayout() = 0;
    // The language changed to or from number 7: the text layout is redone.
    virtual void RedoTextLayout() = 0;

    // The shell's status value (WM_USER + 413 and the shell query): stored,
    // and the status area redrawn.
    virtual void SetShellStatus(std::int32_t value) = 0;
    // WM_USER + 421 from the shell; the player acts only while playing.
    virtual void OnShellPlayerMessage() = 0;

    // The storage card was removed: the current track is released.
    virtual void ReleaseCurrentTrack() = 0;
    // The storage card came back: the player resumes.
    virtual void Resume() = 0;

    // The play queue's number of entries, and handing it a new list (the
    // library, already sorted by the frame): each record is copied.
    virtual int QueueCount() = 0;
    virtual void ReplaceQueue(const TrackList& list) = 0;

    // Before the browser is shown: the seek-hold and press-and-hold timers
    // are cancelled.
    virtual void CancelHoldTimers() = 0;

    // The browser's songs: the layout refreshed, the queue replaced by copies
    // of them, the entry that was songs[start] made current and played.
    virtual void PlayFromBrowser(const TrackList& songs, int start) = 0;
    // For the play list panel: copies of the queue's entries in the
    // playlist's own order, and an edited copy taken back as the queue (the
    // current track plays on while the copy still holds it; the queue's
    // file is written at once).
    virtual void CopyQueue(TrackList& into) = 0;
    virtual void ReplaceQueueKeepingCurrent(const TrackList& list) = 0;
    // The player a desktop's remote control drives, with the same commands
    // as the screen's buttons; null for a pane that has none.
    virtual Player* RemoteControlPlayer() { return nullptr; }
};

} // namespace zelvor
