#pragma once
// The zelvor-lib commands. Each takes the arguments after its name and
// returns the process exit status; each lives in its own command_*.cpp.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "library/library_file.h"
#include "platform/device.h"

namespace zelvor {

using Arguments = std::vector<std::string>;

int RunInfoCommand(const Arguments& args);
int RunTextCommand(const Arguments& args);
int RunDumpCommand(const Arguments& args);
int RunSortCommand(const Arguments& args);
int RunPlayCommand(const Arguments& args);

// Shared by dump and sort (command_dump.cpp): a library or playlist file
// opened either on the device of --root (FILE is a device path) or, without
// --root, as a host file.
class CommandLine;
struct OpenedListFile {
    std::unique_ptr<Device> device;           // with --root
    std::unique_ptr<DeviceFileSystem> hostFs; // without: the file's host folder
    std::unique_ptr<DeviceFile> file;
    std::u16string devicePath;
    std::u16string relativeBase; // folder that relative library paths join
    std::u16string musicFolder;  // folder that relative playlist paths join
};
std::optional<OpenedListFile> OpenListFile(const CommandLine& cmd, const std::string& fileArg,
                                           std::string* error);
// The header line and one line per record, as dump prints a library file.
void PrintTrackList(const LibraryHeader& header, bool headerRead, const TrackList& list);
int RunTagsCommand(const Arguments& args);
int RunStripCommand(const Arguments& args);
int RunScanCommand(const Arguments& args);

// For commands that take files (tags, strip): without --root, --card or
// --flash the files are host paths, read through a device rooted at the
// host's "/"; with one of them they are device paths. Sets hostPaths and
// makes the device current.
class CommandLine;
std::unique_ptr<Device> OpenDeviceForFiles(const CommandLine& cmd, bool& hostPaths,
                                           std::string* error);
std::u16string DevicePathOfFile(const std::string& argument, bool hostPath);

} // namespace zelvor
