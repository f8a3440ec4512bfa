// The player's start and its memory, on libraries of 0, 20,000 and 100,000
// records: zelvor runs on the offscreen platform with ZELVOR_START_PROBE set,
// and the time from starting the process to its line "first-paint-ms" (the
// first painted player screen) is measured here; its "rss-kb", read a second
// later with the library loaded, gives the resident memory. The libraries
// are synthetic (no music files behind them) and each storage's fingerprint
// is recorded, so that the start-up check finds nothing to rescan.
// The last lines give the start against the empty library's, and the memory
// above the empty library's against the records' text bytes.
//
//   cmake --build --preset release --target zelvor zelvor_bench_start -j2
//   build/release/bin/zelvor_bench_start --benchmark_repetitions=5

#include <benchmark/benchmark.h>

#include "bench/median_reporter.h"

#include <chrono>
#include <cstdlib>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "config/settings.h"
#include "library/library_file.h"
#include "library/track_list.h"
#include "platform/device.h"

namespace fs = std::filesystem;
using namespace zelvor;

namespace {

fs::path g_zelvor;
fs::path g_devices;
std::map<int, std::size_t> g_textBytes;

std::u16string Text(const std::string& s) {
    return std::u16string(s.begin(), s.end());
}

// Ten songs an album, five albums an artist, forty genres.
TrackList MakeLibrary(int records) {
    TrackList list;
    list.Reserve(records);
    for (int i = 0; i < records; ++i) {
        const int album = i / 10, artist = album / 5;
        const std::string title = "Song number " + std::to_string(i);
        auto r = std::make_unique<TrackRecord>();
        r->SetField(kFieldPath, Text("\\Storage Card\\Music\\Artist " + std::to_string(artist) +
                                     "\\Album " + std::to_string(album) + "\\" + title + ".mp3"));
        r->SetField(kFieldTitle, Text(title));
        r->SetField(kFieldAlbum, Text("Album " + std::to_string(album)));
        r->SetField(kFieldArtist, Text("Artist " + std::to_string(artist)));
        r->SetField(kFieldGenre, Text("Genre " + std::to_string(artist % 40)));
        r->SetField(kFieldTrackNumber, std::int64_t{i % 10 + 1});
        r->SetField(kFieldDuration, std::int64_t{180 + i % 120});
        list.AddTrack(std::move(r));
    }
    return list;
}

// A device whose library holds `records` records, made once.
fs::path PrepareDevice(int records) {
    const fs::path root = g_devices / ("start_device_" + std::to_string(records));
    const TrackList library = MakeLibrary(records);
    std::size_t textBytes = 0;
    for (int i = 0; i < library.Count(); ++i)
        textBytes += library.TrackAt(i)->TextBytes();
    g_textBytes[records] = textBytes;
    std::error_code ec;
    if (fs::exists(root / "done", ec))
        return root;
    fs::remove_all(root, ec);
    auto device = Device::Open({.root = root});
    if (!device)
        return {};
    ScopedCurrentDevice current(*device);
    if (SaveTrackList(GetLibraryPath(), library, 0) != 1)
        return {};
    RecordFreeSpace(kStorageCard, GetStorageCardRoot());
    RecordFreeSpace(kStorageFlash, GetFlashDiskRoot());
    if (std::FILE* done = std::fopen((root / "done").c_str(), "w"))
        std::fclose(done);
    return root;
}

struct StartFigures {
    double seconds = 0; // process start to the first-paint line
    long long rssKb = 0;
    bool ok = false;
};

StartFigures RunOnce(const fs::path& root) {
    int out[2];
    if (::pipe(out) != 0)
        return {};
    const auto started = std::chrono::steady_clock::now();
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::dup2(out[1], STDOUT_FILENO);
        ::close(out[0]);
        if (int quiet = ::open("/dev/null", O_WRONLY); quiet >= 0)
            ::dup2(quiet, STDERR_FILENO); // Qt's notes about the platform
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        ::setenv("ZELVOR_AUDIO_SINK", "fake", 1);
        ::setenv("ZELVOR_START_PROBE", "1", 1);
        ::execl(g_zelvor.c_str(), "zelvor", "--root", root.c_str(), static_cast<char*>(nullptr));
        ::_exit(127);
    }
    ::close(out[1]);
    StartFigures figures;
    std::FILE* lines = ::fdopen(out[0], "r");
    char line[256];
    while (lines && std::fgets(line, sizeof line, lines)) {
        long long value = 0;
        if (std::sscanf(line, "first-paint-ms %lld", &value) == 1) {
            figures.seconds =
                std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
            figures.ok = true;
        } else if (std::sscanf(line, "rss-kb %lld", &value) == 1) {
            figures.rssKb = value;
        }
    }
    if (lines)
        std::fclose(lines);
    int status = 0;
    ::waitpid(pid, &status, 0);
    return figures;
}

void Start(benchmark::State& state) {
    const int records = static_cast<int>(state.range(0));
    const fs::path root = PrepareDevice(records);
    if (root.empty()) {
        state.SkipWithError("could not make the device");
        return;
    }
    long long rssKb = 0;
    for (auto _ : state) {
        StartFigures figures = RunOnce(root);
        if (!figures.ok) {
            state.SkipWithError("zelvor painted no player screen");
            return;
        }
        state.SetIterationTime(figures.seconds);
        rssKb = figures.rssKb;
    }
    state.counters["rss_kb"] = static_cast<double>(rssKb);
    state.counters["text_kb"] = static_cast<double>(g_textBytes[records]) / 1024.0;
}

// Medians (or single runs) of the start time and the memory, by records.
class StartReporter : public zelvor::MedianReporter {
public:
    void PrintSummary() const {
        if (!m_seconds.count(0))
            return;
        for (const auto& [records, time] : m_seconds) {
            if (records == 0)
                continue;
            std::printf("start with %d records: %.0f ms, %.2f x the empty library's\n", records,
                        time, time / m_seconds.at(0));
            if (m_rssKb.count(records) && m_rssKb.count(0) && g_textBytes[records] > 0)
                std::printf("  memory above the empty library: %.0f KiB, %.2f x the text bytes\n",
                            m_rssKb.at(records) - m_rssKb.at(0),
                            (m_rssKb.at(records) - m_rssKb.at(0)) * 1024.0 /
                                static_cast<double>(g_textBytes[records]));
        }
    }

private:
    void Keep(const Run& run) override {
        const std::string& args = run.run_name.args; // "records:N"
        const int records = std::atoi(args.c_str() + args.find(':') + 1);
        m_seconds[records] = run.GetAdjustedRealTime();
        auto rss = run.counters.find("rss_kb");
        if (rss != run.counters.end())
            m_rssKb[records] = rss->second.value;
    }

    std::map<int, double> m_seconds;
    std::map<int, double> m_rssKb;
};

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const fs::path self = fs::read_symlink("/proc/self/exe");
    g_zelvor = self.parent_path() / "zelvor";
    g_devices = ZELVOR_BENCH_DEVICE_DIR;
    if (!fs::exists(g_zelvor)) {
        std::fprintf(stderr, "zelvor_bench_start: build zelvor first (%s)\n", g_zelvor.c_str());
        return 1;
    }
    benchmark::RegisterBenchmark("start/first_paint", Start)
        ->ArgName("records")
        ->Arg(0)
        ->Arg(20000)
        ->Arg(100000)
        ->UseManualTime()
        ->Iterations(3)
        ->Unit(benchmark::kMillisecond);
    StartReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintSummary();
    benchmark::Shutdown();
    return 0;
}
