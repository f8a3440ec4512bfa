// zelvor-lib dump: a library (.qdx) or playlist (.mpl) file as JSON Lines.
// The first line is the file's header as stored; then one line per record
// or entry that the program's own reader takes from it.

#include <cstdio>
#include <filesystem>

#include "config/settings.h"
#include "library/library_file.h"
#include "platform/text.h"
#include "playlists/playlist_file.h"
#include "tools/zelvor_lib/command_line.h"
#include "tools/zelvor_lib/commands.h"
#include "tools/zelvor_lib/json_line.h"

namespace zelvor {
namespace {

void PrintLine(const JsonLine& line) {
    std::string text = line.Str() + "\n";
    std::fwrite(text.data(), 1, text.size(), stdout);
}

bool EndsWithIgnoringCase(std::u16string_view text, std::u16string_view suffix) {
    return text.size() >= suffix.size() &&
           EqualsIgnoreCase(text.substr(text.size() - suffix.size()), suffix);
}

// A playlist by its extension, or, for other names, by its magic.
bool IsPlaylistFile(const OpenedListFile& opened) {
    if (EndsWithIgnoringCase(opened.devicePath, u".mpl"))
        return true;
    if (EndsWithIgnoringCase(opened.devicePath, u".qdx"))
        return false;
    PlaylistEntryList ignored;
    PlaylistHeader header;
    return ReadPlaylist(*opened.file, opened.musicFolder, ignored, &header) && header.magicMatches;
}

void DumpPlaylist(const OpenedListFile& opened) {
    PlaylistEntryList list;
    PlaylistHeader header;
    bool read = ReadPlaylist(*opened.file, opened.musicFolder, list, &header);
    JsonLine head;
    head.Add("magic", header.magic).Add("count", std::int64_t{header.entryCount});
    if (!read)
        head.Add("error", "file shorter than its header");
    else if (!header.magicMatches)
        head.Add("error", "magic does not match");
    PrintLine(head);
    for (const auto& entry : list)
        PrintLine(JsonLine().Add("path", entry->Text(1)));
}

} // namespace

std::optional<OpenedListFile> OpenListFile(const CommandLine& cmd, const std::string& fileArg,
                                           std::string* error) {
    OpenedListFile opened;
    if (cmd.Has("--root")) {
        opened.device = cmd.OpenDevice(error);
        if (!opened.device)
            return std::nullopt;
        opened.devicePath = DevicePathArgument(fileArg);
        opened.relativeBase = DeviceFolderOf(opened.devicePath);
        opened.musicFolder = GetMusicFolder();
        opened.file = opened.device->FileSystem().OpenFile(opened.devicePath, FileMode::Read);
    } else {
        // A host file is read as if it lay at the root of a device of its own.
        std::filesystem::path host = std::filesystem::absolute(fileArg);
        opened.hostFs = std::make_unique<DeviceFileSystem>(host.parent_path());
        opened.devicePath = u"\\" + FromUtf8(host.filename().string());
        opened.musicFolder = DeviceConfig{}.programDirectory + u"\\My Music";
        opened.file = opened.hostFs->OpenFile(opened.devicePath, FileMode::Read);
    }
    if (!opened.file) {
        *error = "cannot open " + fileArg;
        return std::nullopt;
    }
    return opened;
}

void PrintTrackList(const LibraryHeader& header, bool headerRead, const TrackList& list) {
    JsonLine head;
    head.Add("magic", header.magic)
        .Add("count", std::int64_t{header.recordCount})
        .Add("fields", std::int64_t{header.fieldCount});
    if (!headerRead)
        head.Add("error", "file shorter than its header");
    else if (!header.magicMatches)
        head.Add("error", "magic does not match");
    PrintLine(head);
    for (const auto& r : list) {
        PrintLine(JsonLine()
                      .Add("path", r->Text(kFieldPath))
                      .Add("title", r->Text(kFieldTitle))
                      .Add("album", r->Text(kFieldAlbum))
                      .Add("artist", r->Text(kFieldArtist))
                      .Add("genre", r->Text(kFieldGenre))
                      .Add("duration", std::int64_t{r->Duration()})
                      .Add("track", std::int64_t{r->TrackNumber()}));
    }
}

int RunDumpCommand(const Arguments& args) {
    CommandLine cmd(args, CommandLine::DeviceOptions(), {});
    if (!cmd.Ok() || cmd.Positional().size() != 1) {
        std::fprintf(stderr, "zelvor-lib dump: %s\nusage: zelvor-lib dump [--root DIR] FILE\n",
                     cmd.Ok() ? "give one file" : cmd.Error().c_str());
        return 2;
    }
    std::string error;
    auto opened = OpenListFile(cmd, cmd.Positional()[0], &error);
    if (!opened) {
        std::fprintf(stderr, "zelvor-lib dump: %s\n", error.c_str());
        return 1;
    }
    if (IsPlaylistFile(*opened)) {
        DumpPlaylist(*opened);
        return 0;
    }
    TrackList list;
    LibraryHeader header;
    bool read = ReadTrackList(*opened->file, opened->relativeBase, list, &header);
    PrintTrackList(header, read, list);
    // A file too short for a header is shown as such, and fails the command.
    return read ? 0 : 1;
}

} // namespace zelvor
