#pragma once
// What the main frame's rules ask of the frame's window and of the world
// outside the program. The Qt frame implements FrameWindow; the endpoints
// implement OutsideWindows; tests stand fakes in for both.
//
// Everything here is called on the UI thread.

#include <cstdint>
#include <optional>

#include "platform/endpoint_directory.h"
#include "platform/message_frame.h"

namespace zelvor {

class BrowserPane;
class PlayerPane;

class FrameWindow {
public:
    virtual ~FrameWindow() = default;

    // Queues a message to the frame itself; it is handled after the current
    // handler has returned (PostMessage).
    virtual void PostToSelf(const WindowMessage& message) = 0;

    // The device screen, in pixels (SM_CXSCREEN, SM_CYSCREEN).
    virtual int ScreenWidth() = 0;
    virtual int ScreenHeight() = 0;
    // The frame over the whole screen at (0, 0), shown, and the player pane
    // over the same rectangle.
    virtual void PlaceFullScreen(int width, int height) = 0;
    // In front of every other window and active (SetForegroundWindow).
    virtual void BringToFront() = 0;

    // The panes; null while a pane does not exist (before creation, after
    // destruction).
    virtual PlayerPane* Player() = 0;
    virtual BrowserPane* Browser() = 0;
    virtual bool PlayerVisible() = 0;
    virtual bool BrowserVisible() = 0;
    virtual bool PanelVisible() = 0;
    // The player pane shown and the browser hidden, or the other way round.
    virtual void ShowPlayerPane() = 0;
    virtual void ShowBrowserPane() = 0;
    virtual void ClosePanel() = 0;
    virtual void FocusBrowser() = 0;
    virtual void FocusPlayer() = 0;

    // Loads the skin module of the colour (SelectSkinModule).
    virtual void ReloadSkin(std::uint16_t colour) = 0;

    // The system wait cursor over the program, and the cursor before it back.
    virtual void BeginWaitCursor() = 0;
    virtual void EndWaitCursor() = 0;
    // Blocks the UI thread (the card polls after an insertion).
    virtual void Sleep(int milliseconds) = 0;

    // The play list panel follows a new skin or a turned screen: its
    // bitmaps loaded again, its list and buttons placed for the pane.
    virtual void RedoPanelLayout() = 0;
};

// Windows of other programs, by title or class.
class OutsideWindows {
public:
    virtual ~OutsideWindows() = default;
    virtual bool Exists(const EndpointAddress& address) = 0;
    // SendMessageW: the answer, or nothing when the window is not there or
    // does not answer in time.
    virtual std::optional<std::int32_t> Send(const EndpointAddress& address,
                                             const WindowMessage& message) = 0;
};

} // namespace zelvor
