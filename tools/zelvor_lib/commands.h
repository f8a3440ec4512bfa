#pragma once
// The zelvor-lib commands. Each takes the arguments after its name and
// returns the process exit status; each lives in its own command_*.cpp.

#include <memory>
#include <string>
#include <vector>

#include "platform/device.h"

namespace zelvor {

using Arguments = std::vector<std::string>;

int RunTextCommand(const Arguments& args);
int RunTagsCommand(const Arguments& args);
int RunStripCommand(const Arguments& args);

// For commands that take files (tags, strip): without --root, --card or
// --flash the files are host paths, read through a device rooted at the
// host's "/"; with one of them they are device paths. Sets hostPaths and
// makes the device current.
class CommandLine;
std::unique_ptr<Device> OpenDeviceForFiles(const CommandLine& cmd, bool& hostPaths,
                                           std::string* error);
std::u16string DevicePathOfFile(const std::string& argument, bool hostPath);

} // namespace zelvor
