// zelvor-lib strip: removes the ID3v2 tag of a file in place, as the player
// does when its decoder cannot be built, and prints the outcome as JSON.
// FILE is a host path, or a device path when a device is named (see tags).

#include <cstdio>

#include "platform/device.h"
#include "tags/id3v2/strip_id3v2_tag.h"
#include "tools/zelvor_lib/command_line.h"
#include "tools/zelvor_lib/commands.h"
#include "tools/zelvor_lib/json_line.h"

namespace zelvor {

int RunStripCommand(const Arguments& args) {
    CommandLine cmd(args, CommandLine::DeviceOptions(), {});
    if (!cmd.Ok() || cmd.Positional().size() != 1) {
        std::fprintf(stderr, "zelvor-lib strip: %s\nusage: zelvor-lib strip [--root DIR] FILE\n",
                     cmd.Ok() ? "give one file" : cmd.Error().c_str());
        return 2;
    }
    bool hostPaths = true;
    std::string error;
    auto device = OpenDeviceForFiles(cmd, hostPaths, &error);
    if (!device) {
        std::fprintf(stderr, "zelvor-lib strip: %s\n", error.c_str());
        return 1;
    }
    const std::string& argument = cmd.Positional()[0];
    std::u16string path = DevicePathOfFile(argument, hostPaths);
    auto sizeOf = [&] {
        FindData data;
        return device->FileSystem().FindFirst(path, data) ? std::int64_t(data.size)
                                                          : std::int64_t{-1};
    };
    std::int64_t before = sizeOf();
    Id3v2Tag tag;
    // Nothing reopens the file after the tool exits: no need to let it settle.
    int result = StripId3v2Tag(tag, path, std::chrono::milliseconds{0});
    JsonLine line;
    line.Add("file", argument)
        .Add("result", result)
        .Add("error", tag.error)
        .Add("size_before", before)
        .Add("size_after", sizeOf());
    std::string text = line.Str() + "\n";
    std::fwrite(text.data(), 1, text.size(), stdout);
    SetCurrentDevice(nullptr);
    return result == 1 ? 0 : 1;
}

} // namespace zelvor
