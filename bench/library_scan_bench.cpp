// The library update on a large synthetic device: 20,000 music files of all
// three types over 2,000 folders, hard links to a small ffmpeg corpus. Side by
// side in one run, warm cache:
//   - the search phase against a bare readdir walk of the same tree;
//   - the whole update against a TagLib walk that reads the same files;
//   - the finished library's heap use against its records' text bytes;
//   - the start-up check's fingerprints of both storages (folders on the
//     host's disk, so each is a walk that signs the music files below it).
//
//   cmake --preset release && cmake --build --preset release --target zelvor_bench_scan
//   build/release/bin/zelvor_bench_scan

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <dirent.h>

#include <cstdio>
#include <deque>
#include <filesystem>
#include <string>

#include <taglib/fileref.h>
#include <taglib/tag.h>

#include "bench/tags_bench_corpus.h"
#include "app/settings.h"
#include "library/library_updater.h"
#include "platform/device.h"
#include "tags/audio_file_type.h"
#include "tags/build_track_record.h"

namespace fs = std::filesystem;
using namespace zelvor;

namespace {

constexpr int kFolders = 2000;
constexpr int kFilesPerFolder = 10;

struct SyntheticDevice {
    fs::path root;
    std::unique_ptr<Device> device;
};

SyntheticDevice* g_device = nullptr;

// Artist/Album folders on the card and the flash disk, ten files each,
// cycling through the corpus's MP3, WMA and AAC files.
bool MakeDevice(const bench::Corpus& corpus, const fs::path& root) {
    std::vector<fs::path> sources;
    for (const auto* names : {&corpus.mp3, &corpus.wma, &corpus.aac})
        for (const auto& n : *names)
            sources.push_back(corpus.folder / n);
    if (sources.empty())
        return false;
    std::error_code ec;
    if (fs::exists(root / "done", ec))
        return true;
    fs::remove_all(root, ec);
    size_t next = 0;
    for (int f = 0; f < kFolders; ++f) {
        const char* storage = f % 4 == 0 ? "Flash Disk" : "Storage Card";
        fs::path folder = root / storage / "Music" / ("Artist " + std::to_string(f / 10)) /
                          ("Album " + std::to_string(f));
        fs::create_directories(folder);
        for (int i = 0; i < kFilesPerFolder; ++i) {
            const fs::path& source = sources[next++ % sources.size()];
            fs::path target = folder / (std::to_string(i + 1) + " Track" + source.extension().string());
            fs::create_hard_link(source, target, ec);
            if (ec)
                fs::copy_file(source, target, ec);
        }
    }
    fs::create_directories(root / "Flash Disk/Zelvor");
    fs::create_directories(root / "Windows");
    std::FILE* done = std::fopen((root / "done").c_str(), "w");
    if (done)
        std::fclose(done);
    return true;
}

// Every file below the two storage folders, breadth first, by a plain
// readdir walk; visit(path) is called for each file.
template <typename Visit> void WalkFiles(Visit visit) {
    std::deque<std::string> folders{(g_device->root / "Storage Card").string(),
                                    (g_device->root / "Flash Disk").string()};
    while (!folders.empty()) {
        std::string folder = std::move(folders.front());
        folders.pop_front();
        DIR* dir = ::opendir(folder.c_str());
        if (!dir)
            continue;
        while (dirent* e = ::readdir(dir)) {
            if (e->d_name[0] == '.')
                continue;
            std::string path = folder + "/" + e->d_name;
            if (e->d_type == DT_DIR)
                folders.push_back(std::move(path));
            else
                visit(path);
        }
        ::closedir(dir);
    }
}

// What the search phase does at its barest: every folder listed once,
// music files picked by name.
void BareWalk(benchmark::State& state) {
    for (auto _ : state) {
        int music = 0;
        WalkFiles([&](const std::string& path) {
            std::string_view name = path;
            if (name.ends_with(".mp3") || name.ends_with(".wma") || name.ends_with(".aac"))
                ++music;
        });
        benchmark::DoNotOptimize(music);
        state.counters["files"] = music;
    }
}

void SearchPhase(benchmark::State& state) {
    for (auto _ : state) {
        LibraryUpdater updater([](std::u16string_view, int) { return nullptr; });
        updater.SetStorageFolders(u"\\Storage Card", u"\\Flash Disk");
        updater.ScanFolderTree();
        state.counters["files"] = updater.FoundFiles().Count();
    }
}

// What the start-up check pays before it knows whether to rescan.
void Fingerprints(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(StorageChanged(kStorageCard, GetStorageCardRoot()));
        benchmark::DoNotOptimize(StorageChanged(kStorageFlash, GetFlashDiskRoot()));
    }
}

std::unique_ptr<TrackRecord> Build(std::u16string_view path, int type) {
    return BuildTrackRecord(path, type);
}

void WholeUpdate(benchmark::State& state) {
    for (auto _ : state) {
        const size_t before = mallinfo2().uordblks;
        LibraryUpdater adder(Build);
        adder.SetStorageFolders(u"\\Storage Card", u"\\Flash Disk");
        adder.ScanFolderTree();
        adder.AddFoundFilesToLibrary();
        adder.FoundFiles().RemoveAll(); // only the finished library counts
        size_t textBytes = 0;
        for (const auto& r : adder.Results())
            textBytes += r->TextBytes();
        const size_t held = mallinfo2().uordblks - before;
        state.counters["records"] = adder.Results().Count();
        state.counters["heap/text"] = textBytes ? double(held) / double(textBytes) : 0.0;
    }
}

// The same files through TagLib, found by the same bare walk.
void TagLibWalk(benchmark::State& state) {
    for (auto _ : state) {
        int read = 0;
        WalkFiles([&](const std::string& path) {
            TagLib::FileRef file(path.c_str(), true, TagLib::AudioProperties::Fast);
            if (file.isNull() || !file.tag())
                return;
            TagLib::Tag* tag = file.tag();
            benchmark::DoNotOptimize(tag->title().size() + tag->artist().size() +
                                     tag->album().size() + tag->genre().size() + tag->track());
            if (file.audioProperties())
                benchmark::DoNotOptimize(file.audioProperties()->lengthInSeconds());
            ++read;
        });
        state.counters["records"] = read;
    }
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    bench::Corpus corpus;
    if (!bench::PrepareCorpus(corpus, 30)) {
        std::fprintf(stderr, "zelvor_bench_scan: could not make the corpus (ffmpeg?)\n");
        return 1;
    }
    SyntheticDevice device;
    device.root = corpus.folder.parent_path() / "scan_device";
    if (!MakeDevice(corpus, device.root)) {
        std::fprintf(stderr, "zelvor_bench_scan: could not make the device\n");
        return 1;
    }
    DeviceConfig config;
    config.root = device.root;
    device.device = Device::Open(config);
    SetCurrentDevice(device.device.get());
    g_device = &device;

    benchmark::RegisterBenchmark("scan/bare_readdir_walk", BareWalk)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("scan/search_phase", SearchPhase)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("scan/fingerprints", Fingerprints)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("scan/taglib_walk", TagLibWalk)->Unit(benchmark::kMillisecond)->Iterations(2);
    benchmark::RegisterBenchmark("scan/whole_update", WholeUpdate)->Unit(benchmark::kMillisecond)->Iterations(2);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
