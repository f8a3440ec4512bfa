// zelvor-lib sort: a library file's records in the order the track list
// sorts them by a key and an order, printed as dump prints them.

#include <cstdio>

#include "library/library_file.h"
#include "tools/zelvor_lib/command_line.h"
#include "tools/zelvor_lib/commands.h"

namespace zelvor {

int RunSortCommand(const Arguments& args) {
    std::set<std::string> valueOptions = CommandLine::DeviceOptions();
    valueOptions.insert({"--key", "--order"});
    CommandLine cmd(args, valueOptions, {});
    auto key = cmd.Number("--key");
    auto order = cmd.Number("--order");
    if (!cmd.Ok() || cmd.Positional().size() != 1 || !key) {
        std::fprintf(stderr,
                     "zelvor-lib sort: %s\nusage: zelvor-lib sort [--root DIR] FILE.qdx --key K "
                     "[--order O]\n",
                     cmd.Ok() ? "give one file and --key" : cmd.Error().c_str());
        return 2;
    }
    std::string error;
    auto opened = OpenListFile(cmd, cmd.Positional()[0], &error);
    if (!opened) {
        std::fprintf(stderr, "zelvor-lib sort: %s\n", error.c_str());
        return 1;
    }
    TrackList list;
    LibraryHeader header;
    bool read = ReadTrackList(*opened->file, opened->relativeBase, list, &header);
    // The arguments go through as the list takes them: negative keeps the
    // list's initial key or order, and each is cut to 16 bits.
    list.SortTracks(static_cast<int>(*key), static_cast<int>(order.value_or(1)));
    PrintTrackList(header, read, list);
    // A file too short for a header is shown as such, and fails the command.
    return read ? 0 : 1;
}

} // namespace zelvor
