// The library update on a large synthetic device: 20,000 music files of all
// three types over 2,000 folders, hard links to a small ffmpeg corpus. Side by
// side in one run, warm cache:
//   - the search phase against a bare readdir walk of the same tree;
//   - the search phase's floor: the bare walk that also asks each folder
//     whether its entries carry stored attributes (hidden and system files
//     are left out);
//   - the whole update against a TagLib walk that reads the same files, on
//     this device and on one of MP3 and WMA files only (the formats TagLib
//     reads; it passes over the AAC files);
//   - the finished library's heap use against its records' text bytes;
//   - the start-up check's fingerprints of both storages (folders on the
//     host's disk, so each is a walk that signs the music files below it).
//
//   cmake --preset release && cmake --build --preset release --target zelvor_bench_scan
//   build/release/bin/zelvor_bench_scan

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <dirent.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cstdio>
#include <deque>
#include <filesystem>
#include <string>

#include <taglib/fileref.h>
#include <taglib/tag.h>

#include "bench/tags_bench_corpus.h"
#include "config/settings.h"
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
SyntheticDevice* g_mp3WmaDevice = nullptr;

// Makes the device current for the benchmark's run.
class OnDevice {
public:
    explicit OnDevice(SyntheticDevice* device) : m_previous(g_device) {
        g_device = device;
        SetCurrentDevice(device->device.get());
    }
    ~OnDevice() {
        g_device = m_previous;
        SetCurrentDevice(m_previous->device.get());
    }
    OnDevice(const OnDevice&) = delete;
    OnDevice& operator=(const OnDevice&) = delete;

private:
    SyntheticDevice* m_previous;
};

// Artist/Album folders on the card and the flash disk, ten files each,
// cycling through the given corpus files.
bool MakeDevice(const bench::Corpus& corpus,
                std::initializer_list<const std::vector<std::string>*> formats,
                const fs::path& root) {
    std::vector<fs::path> sources;
    for (const auto* names : formats)
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
// readdir walk; visit(dirFd, folder, name) is called for each file, so a
// caller that needs no path builds none; enter(dirFd) is called once for
// each folder opened.
template <typename Visit, typename Enter = void (*)(int)>
void WalkFiles(Visit visit, Enter enter = [](int) {}) {
    std::deque<std::string> folders{(g_device->root / "Storage Card").string(),
                                    (g_device->root / "Flash Disk").string()};
    while (!folders.empty()) {
        std::string folder = std::move(folders.front());
        folders.pop_front();
        DIR* dir = ::opendir(folder.c_str());
        if (!dir)
            continue;
        enter(::dirfd(dir));
        while (dirent* e = ::readdir(dir)) {
            if (e->d_name[0] == '.')
                continue;
            if (e->d_type == DT_DIR)
                folders.push_back(folder + "/" + e->d_name);
            else
                visit(::dirfd(dir), folder, e->d_name);
        }
        ::closedir(dir);
    }
}

bool IsMusicName(std::string_view name) {
    return name.ends_with(".mp3") || name.ends_with(".wma") || name.ends_with(".aac");
}

// What the search phase does at its barest: every folder listed once,
// music files picked by name.
void BareWalk(benchmark::State& state) {
    for (auto _ : state) {
        int music = 0;
        WalkFiles([&](int, const std::string& folder, const char* name) {
            // The search keeps each found file's path, so the walk makes one.
            std::string path = folder + "/" + name;
            benchmark::DoNotOptimize(path);
            if (IsMusicName(name))
                ++music;
        });
        benchmark::DoNotOptimize(music);
        state.counters["files"] = music;
    }
}

// The bare walk that also asks each folder once whether its entries carry
// stored attribute words (the search reads them per file only where they
// do, to leave hidden and system files out): the least the search can do.
void BareWalkProbingFolders(benchmark::State& state) {
    for (auto _ : state) {
        int music = 0;
        WalkFiles(
            [&](int, const std::string& folder, const char* name) {
                std::string path = folder + "/" + name;
                benchmark::DoNotOptimize(path);
                if (IsMusicName(name))
                    ++music;
            },
            [](int dirFd) {
                benchmark::DoNotOptimize(::fgetxattr(dirFd, "user.zelvor.words", nullptr, 0));
            });
        state.counters["files"] = music;
    }
}

void SearchPhase(benchmark::State& state) {
    for (auto _ : state) {
        LibraryUpdater updater([](std::u16string_view, int) { return nullptr; });
        updater.SetStorageFolders(u"\\Storage Card", u"\\Flash Disk");
        updater.ScanFolderTree();
        state.counters["files"] = static_cast<double>(updater.FoundFiles().size());
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
    OnDevice on(state.range(0) ? g_mp3WmaDevice : g_device);
    for (auto _ : state) {
        const size_t before = mallinfo2().uordblks;
        LibraryUpdater adder(Build);
        adder.SetStorageFolders(u"\\Storage Card", u"\\Flash Disk");
        adder.ScanFolderTree();
        adder.AddFoundFilesToLibrary();
        adder.FoundFiles().clear(); // only the finished library counts
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
    OnDevice on(state.range(0) ? g_mp3WmaDevice : g_device);
    for (auto _ : state) {
        int read = 0;
        WalkFiles([&](int, const std::string& folder, const char* name) {
            const std::string path = folder + "/" + name;
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
    SyntheticDevice mp3Wma;
    mp3Wma.root = corpus.folder.parent_path() / "scan_device_mp3_wma";
    if (!MakeDevice(corpus, {&corpus.mp3, &corpus.wma, &corpus.aac}, device.root) ||
        !MakeDevice(corpus, {&corpus.mp3, &corpus.wma}, mp3Wma.root)) {
        std::fprintf(stderr, "zelvor_bench_scan: could not make the device\n");
        return 1;
    }
    device.device = Device::Open({.root = device.root});
    mp3Wma.device = Device::Open({.root = mp3Wma.root});
    SetCurrentDevice(device.device.get());
    g_device = &device;
    g_mp3WmaDevice = &mp3Wma;

    benchmark::RegisterBenchmark("scan/bare_readdir_walk", BareWalk)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("scan/bare_walk_probing_folders", BareWalkProbingFolders)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("scan/search_phase", SearchPhase)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("scan/fingerprints", Fingerprints)->Unit(benchmark::kMillisecond);
    // mp3_wma:1 is the device of MP3 and WMA files only.
    for (auto* b : {benchmark::RegisterBenchmark("scan/taglib_walk", TagLibWalk),
                    benchmark::RegisterBenchmark("scan/whole_update", WholeUpdate)})
        b->ArgName("mp3_wma")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(2);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
