// Library file load and save, and the album-order sort, at library sizes a
// big card holds. Memory is counted by a replaced global allocator: after a
// load, the heap held by the track list is compared with the bytes of text
// its records hold (the "2x" budget).
//
//   cmake --preset release && cmake --build --preset release --target zelvor_bench_library
//   build/release/bin/zelvor_bench_library

#include <algorithm>
#include <atomic>
#include <random>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <string>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include "library/library_file.h"
#include "platform/device.h"

namespace {

std::atomic<std::int64_t> g_heapBytes{0};
std::atomic<std::int64_t> g_peakBytes{0};

void* Allocate(std::size_t size) {
    void* p = std::malloc(size == 0 ? 1 : size);
    if (p == nullptr)
        throw std::bad_alloc();
    std::int64_t now = g_heapBytes += static_cast<std::int64_t>(malloc_usable_size(p));
    std::int64_t peak = g_peakBytes.load();
    while (now > peak && !g_peakBytes.compare_exchange_weak(peak, now)) {
    }
    return p;
}

void Free(void* p) {
    if (p == nullptr)
        return;
    g_heapBytes -= static_cast<std::int64_t>(malloc_usable_size(p));
    std::free(p);
}

} // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void operator delete(void* p) noexcept { Free(p); }
void operator delete[](void* p) noexcept { Free(p); }
void operator delete(void* p, std::size_t) noexcept { Free(p); }
void operator delete[](void* p, std::size_t) noexcept { Free(p); }

namespace zelvor {
namespace {

std::u16string Ascii(const std::string& s) {
    return std::u16string(s.begin(), s.end());
}

// A library shaped like a real one: ten tracks an album, five albums an
// artist, a few dozen genres, paths of some sixty characters.
TrackList MakeLibrary(int count) {
    TrackList list;
    std::uint32_t seed = 12345;
    auto next = [&seed] { return seed = seed * 1103515245u + 12345u; };
    static const char* const kWords[] = {"love", "night", "river", "blue",  "fire", "road",
                                         "heart", "rain", "dream", "stone", "light", "home"};
    auto words = [&](int n) {
        std::string s;
        for (int i = 0; i < n; ++i)
            s += std::string(i ? " " : "") + kWords[(next() >> 16) % 12];
        return s;
    };
    std::vector<std::unique_ptr<TrackRecord>> records;
    for (int i = 0; i < count; ++i) {
        int album = i / 10, artist = album / 5;
        std::string artistName = "Artist " + std::to_string(artist);
        std::string albumName = std::string("Album ") + kWords[album % 12] + " " +
                                kWords[album / 12 % 12] + " " + std::to_string(album);
        std::string title = words(3);
        auto r = std::make_unique<TrackRecord>();
        r->SetField(kFieldPath, Ascii("\\Storage Card\\Music\\" + artistName + "\\" + albumName +
                                      "\\" + std::to_string(i % 10 + 1) + " " + title + ".mp3"));
        r->SetField(kFieldTitle, Ascii(title));
        if (i % 17 != 0) // some files carry no album tag
            r->SetField(kFieldAlbum, Ascii(albumName));
        r->SetField(kFieldArtist, Ascii(artistName));
        r->SetField(kFieldGenre, Ascii("Genre " + std::to_string(artist % 40)));
        r->SetField(kFieldDuration, std::int64_t{180 + i % 200});
        r->SetField(kFieldTrackNumber, std::int64_t{i % 10 + 1});
        records.push_back(std::move(r));
    }
    // Shuffled, as a scan of several folders leaves them.
    std::shuffle(records.begin(), records.end(), std::mt19937(7));
    for (auto& r : records)
        list.AddTrack(std::move(r));
    return list;
}

struct BenchDevice {
    BenchDevice() {
        std::string pattern = (std::filesystem::temp_directory_path() / "zelvor-bench-XXXXXX").string();
        root = ::mkdtemp(pattern.data());
        device = Device::Open({.root = root / "device"});
        SetCurrentDevice(device.get());
    }
    ~BenchDevice() {
        SetCurrentDevice(nullptr);
        device.reset();
        std::filesystem::remove_all(root);
    }
    std::filesystem::path root;
    std::unique_ptr<Device> device;
};

constexpr std::u16string_view kPath = u"\\Flash Disk\\Zelvor\\MusicLib.qdx";

std::int64_t StringBytes(const TrackList& list) {
    std::int64_t bytes = 0;
    for (const auto& r : list)
        bytes += static_cast<std::int64_t>(r->TextBytes());
    return bytes;
}

void BM_LoadTrackList(benchmark::State& state) {
    BenchDevice device;
    SaveTrackList(kPath, MakeLibrary(static_cast<int>(state.range(0))), 0);
    std::int64_t held = 0, peak = 0, strings = 0;
    for (auto _ : state) {
        TrackList list;
        std::int64_t before = g_heapBytes;
        g_peakBytes = before;
        LoadTrackList(kPath, list);
        held = g_heapBytes - before;
        peak = g_peakBytes - before;
        strings = StringBytes(list);
        benchmark::DoNotOptimize(list);
    }
    state.counters["records"] = static_cast<double>(state.range(0));
    state.counters["string_MB"] = static_cast<double>(strings) / 1e6;
    state.counters["held_x_strings"] = static_cast<double>(held) / static_cast<double>(strings);
    state.counters["peak_x_strings"] = static_cast<double>(peak) / static_cast<double>(strings);
}

void BM_SaveTrackList(benchmark::State& state) {
    BenchDevice device;
    TrackList list = MakeLibrary(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(SaveTrackList(kPath, list, 0));
}

void BM_SortTracksAlbumOrder(benchmark::State& state) {
    TrackList list = MakeLibrary(static_cast<int>(state.range(0)));
    std::int64_t peak = 0;
    const std::int64_t strings = StringBytes(list);
    for (auto _ : state) {
        state.PauseTiming();
        // Each round sorts from the same kind of disorder.
        list.SortTracks(kFieldTitle, 1);
        std::int64_t before = g_heapBytes;
        g_peakBytes = before;
        state.ResumeTiming();
        list.SortTracks(kSortAlbumOrder, 1);
        peak = g_peakBytes - before;
    }
    state.counters["sort_peak_x_strings"] = static_cast<double>(peak) / static_cast<double>(strings);
}

BENCHMARK(BM_LoadTrackList)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveTrackList)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SortTracksAlbumOrder)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zelvor

BENCHMARK_MAIN();
