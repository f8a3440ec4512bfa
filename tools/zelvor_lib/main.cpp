// zelvor-lib: the music library without a screen. Machine-readable output is
// JSON Lines on standard output; errors are one line on standard error.

#include <string>
#include <string_view>

#include "app/program_cli.h"
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

std::string MakeUsage() {
    std::string usage = "usage: zelvor-lib COMMAND ...\n";
    for (const Command& c : kCommands)
        usage += "  zelvor-lib " + std::string(c.usage) + "\n";
    usage += "  zelvor-lib --help | --version\n"
             "Exit status: 0 done, 1 failed, 2 bad usage.\n";
    return usage;
}

} // namespace

int main(int argc, char** argv) {
    const std::string usage = MakeUsage();
    const zelvor::ProgramUsage program{"zelvor-lib", usage};
    if (auto status = zelvor::AnswerStandardOptions(program, argc, argv))
        return *status;
    if (argc < 2)
        return zelvor::UsageError(program, "missing command");
    std::string_view name = argv[1];
    for (const Command& c : kCommands) {
        if (c.name == name)
            return c.run(zelvor::Arguments(argv + 2, argv + argc));
    }
    return zelvor::UsageError(program, "unknown command '" + std::string(name) + "'");
}
