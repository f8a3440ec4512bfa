// zelvor-lib text: what LoadLocalText returns for a text number and language.

#include <cstdio>

#include "config/local_text.h"
#include "platform/text.h"
#include "tools/zelvor_lib/command_line.h"
#include "tools/zelvor_lib/commands.h"

namespace zelvor {

int RunTextCommand(const Arguments& args) {
    std::set<std::string> valueOptions = CommandLine::DeviceOptions();
    valueOptions.insert("--lang");
    CommandLine cmd(args, valueOptions, {});
    auto language = cmd.Number("--lang");
    long long id = -1;
    if (cmd.Ok() && cmd.Positional().size() == 1)
        id = std::strtoll(cmd.Positional()[0].c_str(), nullptr, 10);
    if (!cmd.Ok() || id < 0 || id > 0xFFFF) {
        std::fprintf(stderr, "zelvor-lib text: %s\nusage: zelvor-lib text [--root DIR] --lang N ID\n",
                     cmd.Ok() ? "give one text number" : cmd.Error().c_str());
        return 2;
    }
    std::string error;
    auto device = cmd.OpenDevice(&error);
    if (!device) {
        std::fprintf(stderr, "zelvor-lib text: %s\n", error.c_str());
        return 1;
    }
    auto text = LoadLocalText(kLocalTextFileName, static_cast<std::int16_t>(language.value_or(0)),
                              static_cast<std::uint16_t>(id));
    std::string utf8 = ToUtf8(text) + "\n";
    std::fwrite(utf8.data(), 1, utf8.size(), stdout);
    return 0;
}

} // namespace zelvor
