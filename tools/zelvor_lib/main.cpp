// zelvor-lib: the music library without a screen. Machine-readable output is
// JSON Lines on standard output; errors are one line on standard error.

#include <cstdio>
#include <string_view>

#include "tools/zelvor_lib/commands.h"

namespace {

struct Command {
    std::string_view name;
    std::string_view usage;
    int (*run)(const zelvor::Arguments&);
};

constexpr Command kCommands[] = {
    {"info", "info [--root DIR] [--languages N]", zelvor::RunInfoCommand},
    {"text", "text [--root DIR] --lang N ID", zelvor::RunTextCommand},
    {"dump", "dump [--root DIR] FILE", zelvor::RunDumpCommand},
    {"sort", "sort [--root DIR] FILE.qdx --key K [--order O]", zelvor::RunSortCommand},
    {"play", "play FILE... [--seconds N] [--sink auto|fake|wav:PATH] [--random] [--repeat 0|1|2]",
     zelvor::RunPlayCommand},
    {"tags", "tags [--raw] [--root DIR] FILE...", zelvor::RunTagsCommand},
    {"strip", "strip [--root DIR] FILE", zelvor::RunStripCommand},
    {"scan", "scan --root DIR [--card DIR] [--flash DIR] [--mode 1|3|4] [--write] [--list]",
     zelvor::RunScanCommand},
};

int Usage() {
    std::fputs("usage: zelvor-lib COMMAND ...\n", stderr);
    for (const Command& c : kCommands)
        std::fprintf(stderr, "  zelvor-lib %.*s\n", static_cast<int>(c.usage.size()), c.usage.data());
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2)
        return Usage();
    std::string_view name = argv[1];
    for (const Command& c : kCommands) {
        if (c.name == name)
            return c.run(zelvor::Arguments(argv + 2, argv + argc));
    }
    std::fprintf(stderr, "zelvor-lib: unknown command '%s'\n", argv[1]);
    return Usage();
}
