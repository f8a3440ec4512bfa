// zelvor-lib scan: the library update from the command line, in its
// interactive form (with a live progress display on a terminal) or, with
// --mode, its silent form. --write replaces the library as the screens do.
// Ctrl-C cancels through the same flags as the update dialog's Cancel.

#include <chrono>
#include <csignal>
#include <cstdio>

#include <unistd.h>

#include "config/settings.h"
#include "library/library_file.h"
#include "library/library_replacement.h"
#include "library/library_updater.h"
#include "platform/text.h"
#include "tags/build_track_record.h"
#include "app/program_cli.h"
#include "tools/zelvor_lib/command_line.h"
#include "tools/zelvor_lib/commands.h"
#include "tools/zelvor_lib/json_line.h"

namespace zelvor {
namespace {

LibraryUpdater* g_running = nullptr;

extern "C" void CancelOnInterrupt(int) {
    if (g_running)
        g_running->RequestCancel(); // atomic stores only: safe in a handler
}

// The update dialog's display on a terminal: one line redrawn in place with
// the bar and the count line; the message line goes on a line of its own.
class TerminalUpdateView : public UpdateView {
public:
    void SetRange(int lower, int upper, bool) override {
        m_lower = lower;
        m_upper = upper;
        m_position = lower;
        Draw();
    }
    void SetPosition(int position) override {
        m_position = position;
        Draw();
    }
    void SetCountLine(std::u16string_view text) override {
        m_count = ToUtf8(text);
        Draw();
    }
    void SetMessageLine(std::u16string_view text) override {
        std::fprintf(stderr, "\r\033[K%s\n", ToUtf8(text).c_str());
        Draw();
    }
    bool Pump() override { return false; } // Ctrl-C reaches the updater directly
    ~TerminalUpdateView() override { std::fputc('\n', stderr); }

private:
    void Draw() {
        constexpr int kWidth = 30;
        const int span = std::max(m_upper - m_lower, 1);
        const int filled = std::clamp((m_position - m_lower) * kWidth / span, 0, kWidth);
        std::fprintf(stderr, "\r\033[K[%s%s] %s", std::string(filled, '#').c_str(),
                     std::string(kWidth - filled, ' ').c_str(), m_count.c_str());
        std::fflush(stderr);
    }
    int m_lower = 0, m_upper = 1, m_position = 0;
    std::string m_count;
};

std::unique_ptr<TrackRecord> BuildRecord(std::u16string_view path, int typeCode) {
    return BuildTrackRecord(path, typeCode);
}

std::u16string RootForMode(int mode) {
    return mode == kStorageCard ? GetStorageCardRoot()
                                : (mode == kStorageFlash ? GetFlashDiskRoot() : u"\\");
}

// Runs the update as the screens do: silently for a storage mode, otherwise
// interactively, with the terminal's display when standard error is one.
// Ctrl-C cancels through the updater's flags. The seconds it took.
double RunTimedUpdate(LibraryUpdater& updater, std::optional<long long> mode) {
    g_running = &updater;
    auto previous = std::signal(SIGINT, CancelOnInterrupt);
    const auto start = std::chrono::steady_clock::now();
    if (mode) {
        UpdateLibrarySilently(updater, static_cast<int>(*mode), RootForMode(static_cast<int>(*mode)));
    } else {
        std::unique_ptr<TerminalUpdateView> view;
        if (::isatty(STDERR_FILENO))
            view = std::make_unique<TerminalUpdateView>();
        updater.SetView(view.get());
        updater.SetRoot(u"\\");
        updater.SetStorageFolders(GetStorageCardRoot(), GetFlashDiskRoot());
        RunInteractiveUpdate(updater);
        updater.SetView(nullptr);
    }
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::signal(SIGINT, previous);
    g_running = nullptr;
    return seconds;
}

// Replaces the library as the caller of each form does: the interactive one
// whatever the run's end (a cancelled one included), the silent one only its
// storage's part. True when the library was saved.
bool WriteScanResults(TrackList& results, std::optional<long long> mode) {
    TrackList library;
    if (!mode)
        return ReplaceLibraryAfterUpdate(library, results) == 1;
    LoadTrackList(GetLibraryPath(), library);
    return ReplaceStorageAfterSilentUpdate(library, results, static_cast<int>(*mode)) == 1;
}

void PrintScanFigures(const UpdateStats& stats, double seconds, bool cancelled) {
    std::printf("%s\n", JsonLine()
                            .Add("found", stats.found)
                            .Add("added", stats.added)
                            .Add("skipped", stats.skipped)
                            .Add("failed", stats.failed)
                            .Add("levels", stats.levels)
                            .Add("seconds", seconds)
                            .Add("cancelled", cancelled)
                            .Str()
                            .c_str());
}

} // namespace

int RunScanCommand(const Arguments& args) {
    std::set<std::string> valueOptions = CommandLine::DeviceOptions();
    valueOptions.insert("--mode");
    CommandLine cmd(args, valueOptions, {"--write", "--list"});
    auto mode = cmd.Number("--mode");
    if (!cmd.Ok() || !cmd.Positional().empty() || (mode && *mode != 1 && *mode != 3 && *mode != 4)) {
        std::fprintf(stderr, "zelvor-lib scan: %s\nusage: zelvor-lib scan --root DIR [--card DIR] "
                             "[--flash DIR] [--mode 1|3|4] [--write] [--list]\n",
                     cmd.Ok() ? "bad arguments" : cmd.Error().c_str());
        return 2;
    }
    std::string error;
    auto device = cmd.OpenDevice(&error);
    if (!device) {
        std::fprintf(stderr, "zelvor-lib scan: %s\n", error.c_str());
        return 1;
    }

    LibraryUpdater updater(BuildRecord);
    updater.SetLanguage(ReadLanguage());
    const double seconds = RunTimedUpdate(updater, mode);
    if (cmd.Has("--list")) {
        LibraryHeader header{std::u16string(kLibraryMagic), true,
                             static_cast<std::uint32_t>(updater.Results().Count()), kLibraryFieldCount};
        PrintTrackList(header, true, updater.Results());
    }
    const bool writeFailed = cmd.Has("--write") && !WriteScanResults(updater.Results(), mode);
    // The figures are printed either way; a library that could not be saved
    // fails the command, whatever the scan found.
    PrintScanFigures(updater.Stats(), seconds, updater.Stopped());
    if (writeFailed)
        return Failure("zelvor-lib scan", "the library could not be saved");
    return kExitSuccess;
}

} // namespace zelvor
