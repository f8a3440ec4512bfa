#include "app/startup.h"

#include "config/settings.h"
#include "res/window_messages.h"
#include "platform/device.h"
#include "platform/text.h"

namespace zelvor {
namespace {

const EndpointAddress kPelrin{EndpointKind::Title, kTitlePelrin};
const EndpointAddress kRunningInstance{EndpointKind::Title, kTitleZelvor};
const EndpointAddress kNavigator{EndpointKind::Class, kClassNavigator};

// One request, then up to ten polls; start-up goes on whether or not the
// player has gone by then (two seconds at the most).
void CloseSiblingPlayer(InstanceEnvironment& env) {
    if (!env.WindowExists(kPelrin))
        return;
    env.SendMessageTo(kPelrin, {kMsgRequestClose, 0, 0});
    for (int poll = 0; poll < kPelrinPolls; ++poll) {
        env.Sleep(kPelrinPollMs);
        if (!env.WindowExists(kPelrin))
            return;
    }
}

} // namespace

bool ApplyInstanceRules(InstanceEnvironment& env, std::u16string_view commandLine) {
    CloseSiblingPlayer(env);
    const bool instanceRunning = env.WindowExists(kRunningInstance);
    const bool navigatorRunning = env.WindowExists(kNavigator);
    if (!instanceRunning)
        return true;
    const int width = env.ScreenWidth();
    const int height = env.ScreenHeight();
    // The navigation application in front keeps the first instance behind it,
    // unless it is the one that started us.
    if (navigatorRunning && !EqualsIgnoreCase(commandLine, kNavigonCommandLine))
        return false;
    env.RaiseRunningInstance(width, height);
    return false;
}

void CreateProgramFolders() {
    DeviceFileSystem& fs = CurrentDevice().FileSystem();
    for (const std::u16string& folder : {GetMusicFolder(), GetPlaylistFolder()}) {
        std::u16string path = folder;
        if (!PathExists(path))
            fs.CreateDirectory(folder);
    }
}

} // namespace zelvor
