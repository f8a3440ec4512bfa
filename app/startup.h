#pragma once
// The rules of start-up that decide whether this program runs at all: ask
// the sibling video player to end, and keep to one instance (raising the
// running one unless the navigation application is in front and did not
// start us). The rest of start-up builds windows and lives with the UI.

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/endpoint_directory.h"
#include "platform/message_frame.h"

namespace zelvor {

// What start-up needs of the world outside the program; the host implements
// it with endpoints, tests with a fake.
class InstanceEnvironment {
public:
    virtual ~InstanceEnvironment() = default;
    virtual bool WindowExists(const EndpointAddress& address) = 0;          // FindWindowW
    virtual void SendMessageTo(const EndpointAddress& address, const WindowMessage& message) = 0;
    virtual void Sleep(int milliseconds) = 0;
    // SetForegroundWindow and SetWindowPos(0, 0, width, height, SWP_SHOWWINDOW)
    // on the running instance's window.
    virtual void RaiseRunningInstance(int width, int height) = 0;
    virtual int ScreenWidth() = 0;  // SM_CXSCREEN
    virtual int ScreenHeight() = 0; // SM_CYSCREEN
};

// Polls after asking Pelrin to end: at most this many, this far apart.
constexpr int kPelrinPolls = 10;
constexpr int kPelrinPollMs = 200;

// The command-line token of the navigation application, compared ignoring
// case with the whole command line.
constexpr std::u16string_view kNavigonCommandLine = u"navigon";

// Steps 2 to 4 of InitInstance: true when this program is to go on starting,
// false when a running instance makes it end (that instance raised or not).
bool ApplyInstanceRules(InstanceEnvironment& env, std::u16string_view commandLine);

// Creates "My Music" and "My Playlists" in the program directory when
// missing; failures are not checked, as on the device.
void CreateProgramFolders();

} // namespace zelvor
