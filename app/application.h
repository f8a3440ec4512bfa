#pragma once
// The application object: the order in which the program starts and ends.
//
// InitInstance, in this order:
//   1. the registry key the profile values live under ("Quorrel Systems Inc.");
//   2-4. the instance rules (app/startup.h): Pelrin asked to end, and a
//      running instance raised (or not) while this start ends;
//   5. the program directory, the language and the GUI colour;
//   6. the skin module for that colour;
//   7. the frame's construction: the portrait flag from the screen, and the
//      folders "My Music" and "My Playlists" made when missing;
//   8. the frame's window with its panes (a failure ends start-up);
//   9. the frame shown.
// ExitInstance releases the skin module once the frame is gone.
//
// The windows themselves are the toolkit's business: ApplicationShell does
// what needs them, so the order and the decisions are checked with fakes.

#include <cstdint>
#include <string_view>

#include "app/startup.h"

namespace zelvor {

class ApplicationShell {
public:
    virtual ~ApplicationShell() = default;
    virtual void SetRegistryKey(std::u16string_view company) = 0;
    // Loads the skin module of the colour (the program's own images for 0 or
    // when the module is missing).
    virtual void SelectSkin(std::uint16_t colour) = 0;
    // Creates the main frame's window and its panes; false when any of them
    // cannot be made, or when another instance has taken the frame's title
    // since the instance rules looked.
    virtual bool LoadFrame() = 0;
    virtual void ShowFrame() = 0;
    // Destroys the frame if it still exists (its panes save their settings).
    virtual void DestroyFrame() = 0;
    virtual void ReleaseSkin() = 0;
};

class CZelvorApp {
public:
    // Both are borrowed for the application's life.
    CZelvorApp(InstanceEnvironment& environment, ApplicationShell& shell)
        : m_environment(environment), m_shell(shell) {}

    // True when the program is to run its event loop; false when it is to
    // end at once (a running instance, or a frame that could not be made).
    bool InitInstance(std::u16string_view commandLine);
    // The program's exit code.
    int ExitInstance();

private:
    InstanceEnvironment& m_environment;
    ApplicationShell& m_shell;
};

} // namespace zelvor
