// zelvor-lib info: what the program sees of a device — its roots and
// folders, the settings it reads, and one text in every language column.

#include <cstdio>

#include "config/local_text.h"
#include "config/settings.h"
#include "platform/text.h"
#include "res/string_table.h"
#include "tools/zelvor_lib/command_line.h"
#include "tools/zelvor_lib/commands.h"
#include "tools/zelvor_lib/json_line.h"

namespace zelvor {
namespace {

void Print(const JsonLine& line) {
    std::printf("%s\n", line.Str().c_str());
}

JsonLine Place(std::u16string_view role, std::u16string path) {
    JsonLine line;
    line.Add("place", role).Add("path", path);
    FindData data;
    bool exists = PathExists(path, &data);
    line.Add("exists", exists);
    if (auto host = CurrentDevice().FileSystem().ToHostPath(path))
        line.Add("host", std::string_view(host->string()));
    return line;
}

} // namespace

int RunInfoCommand(const Arguments& args) {
    std::set<std::string> valueOptions = CommandLine::DeviceOptions();
    valueOptions.insert("--languages");
    CommandLine cmd(args, valueOptions, {});
    auto languages = cmd.Number("--languages");
    if (!cmd.Ok() || !cmd.Positional().empty()) {
        std::fprintf(stderr, "zelvor-lib info: %s\nusage: zelvor-lib info [--root DIR] [--languages N]\n",
                     cmd.Ok() ? "no positional arguments" : cmd.Error().c_str());
        return 2;
    }
    std::string error;
    auto device = cmd.OpenDevice(&error);
    if (!device) {
        std::fprintf(stderr, "zelvor-lib info: %s\n", error.c_str());
        return 1;
    }
    Print(JsonLine().Add("device", std::string_view(device->Root().string())));
    Print(Place(u"storage card", GetStorageCardRoot()));
    Print(Place(u"flash disk", GetFlashDiskRoot()));
    Print(Place(u"program directory", GetProgramDirectory()));
    Print(Place(u"music folder", GetMusicFolder()));
    Print(Place(u"playlist folder", GetPlaylistFolder()));
    Print(Place(u"text file", GetProgramDirectory() + u"\\" + std::u16string(kLocalTextFileName)));

    JsonLine settings;
    settings.Add("language", int{ReadLanguage()}).Add("gui_color", unsigned{ReadGuiColor()});
    settings.Add("random", GetProfileNumber(kTextSectionMain, kTextEntryRandom, 0))
        .Add("repeat", GetProfileNumber(kTextSectionMain, kTextEntryRepeat, 0))
        .Add("mute", GetProfileNumber(kTextSectionMain, kTextEntryMute, 0));
    settings.Add("card_changed", StorageChanged(kStorageCard, GetStorageCardRoot()))
        .Add("flash_changed", StorageChanged(kStorageFlash, GetFlashDiskRoot()));
    Print(settings);

    for (long long lang = 0; lang <= languages.value_or(3); ++lang) {
        const auto language = static_cast<std::int16_t>(lang);
        JsonLine texts;
        texts.Add("language", static_cast<std::int64_t>(lang))
            .Add("all_music", LoadLocalText(kLocalTextFileName, language, kTextAllMusic))
            .Add("total", FormatText(LoadLocalText(kLocalTextFileName, language, kTextTotalSongs), 42));
        Print(texts);
    }
    return 0;
}

} // namespace zelvor
