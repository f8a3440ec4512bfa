// The browser's levels over a library of 100,000 songs: sorting the library
// by a category's key and building its rows (All Music, Artists, Albums,
// Genres), building the rows alone, and opening a group and the "All" row.
// Each level must take well under 100 ms.
//
//   cmake --preset release && cmake --build --preset release --target zelvor_bench_browser -j2
//   build/release/bin/zelvor_bench_browser

#include "ui/rules/browser/browse_groups.h"
#include "library/track_list.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>
#include <string>

namespace zelvor {
namespace {

constexpr int kSongs = 100'000;

std::u16string Ascii(const std::string& s) {
    return std::u16string(s.begin(), s.end());
}

// Ten songs an album, five albums an artist, forty genres; one artist name
// in three spelled in capitals, so neighbours differ only in case; some
// songs without an album. Shuffled, as a scan leaves them.
TrackList MakeLibrary() {
    static const char* const kWords[] = {"love",  "night", "river", "blue",  "fire",  "road",
                                         "heart", "rain",  "dream", "stone", "light", "home"};
    std::mt19937 random(7);
    std::vector<std::unique_ptr<TrackRecord>> records;
    for (int i = 0; i < kSongs; ++i) {
        const int album = i / 10, artist = album / 5;
        std::string artistName = "Artist " + std::to_string(artist);
        if (i % 3 == 0)
            std::transform(artistName.begin(), artistName.end(), artistName.begin(), ::toupper);
        const std::string albumName =
            std::string("Album ") + kWords[album % 12] + " " + std::to_string(album);
        const std::string title = std::string(kWords[random() % 12]) + " " + kWords[random() % 12] +
                                  " " + std::to_string(i);
        auto r = std::make_unique<TrackRecord>();
        r->SetField(kFieldPath, Ascii("\\Storage Card\\Music\\" + artistName + "\\" + albumName +
                                      "\\" + title + ".mp3"));
        r->SetField(kFieldTitle, Ascii(title));
        if (i % 17 != 0)
            r->SetField(kFieldAlbum, Ascii(albumName));
        r->SetField(kFieldArtist, Ascii(artistName));
        r->SetField(kFieldGenre, Ascii("Genre " + std::to_string(artist % 40)));
        r->SetField(kFieldTrackNumber, std::int64_t{i % 10 + 1});
        records.push_back(std::move(r));
    }
    std::shuffle(records.begin(), records.end(), random);
    TrackList list;
    list.Reserve(kSongs);
    for (auto& r : records)
        list.AddTrack(std::move(r));
    return list;
}

TrackList& Library() {
    static TrackList library = MakeLibrary();
    return library;
}

void BuildLevel(TrackList& library, int key, PlaylistEntryList& rows,
                std::vector<BrowseGroup>& groups) {
    if (key == kFieldTitle) {
        rows.RemoveAll();
        AppendSongRows(library, 0, library.Count() - 1, rows);
    } else {
        BuildGroupRows(library, key, key != kFieldGenre, {u"All", u"Unknown"}, rows, groups);
    }
}

// Level 1 of a category as a tap makes it: the library, kept in album order
// as the player has it, sorted by the key, then the rows built.
void BM_OpenCategory(benchmark::State& state) {
    TrackList& library = Library();
    const int key = static_cast<int>(state.range(0));
    PlaylistEntryList rows;
    std::vector<BrowseGroup> groups;
    for (auto _ : state) {
        state.PauseTiming();
        library.SortTracks(kSortAlbumOrder, 1);
        state.ResumeTiming();
        library.SortTracks(key, 1);
        BuildLevel(library, key, rows, groups);
        benchmark::DoNotOptimize(rows.Count());
    }
    state.counters["rows"] = rows.Count();
}

// The rows alone, from a library already sorted by the key.
void BM_BuildRows(benchmark::State& state) {
    TrackList& library = Library();
    const int key = static_cast<int>(state.range(0));
    library.SortTracks(key, 1);
    PlaylistEntryList rows;
    std::vector<BrowseGroup> groups;
    for (auto _ : state) {
        BuildLevel(library, key, rows, groups);
        benchmark::DoNotOptimize(rows.Count());
    }
    state.counters["rows"] = rows.Count();
}

// Level 2: the songs of one artist, and the "All" row of Artists (every
// song in album order).
void BM_OpenGroup(benchmark::State& state) {
    TrackList& library = Library();
    library.SortTracks(kFieldArtist, 1);
    PlaylistEntryList groupRows;
    std::vector<BrowseGroup> groups;
    BuildGroupRows(library, kFieldArtist, true, {u"All", u"Unknown"}, groupRows, groups);
    const BrowseGroup group = groups[groups.size() / 2];
    PlaylistEntryList rows;
    for (auto _ : state) {
        rows.RemoveAll();
        AppendSongRows(library, group.first, group.last, rows);
        benchmark::DoNotOptimize(rows.Count());
    }
    state.counters["rows"] = rows.Count();
}

void BM_OpenAllOfArtists(benchmark::State& state) {
    TrackList& library = Library();
    PlaylistEntryList rows;
    for (auto _ : state) {
        state.PauseTiming();
        library.SortTracks(kFieldArtist, 1);
        state.ResumeTiming();
        library.SortTracks(kSortAlbumOrder, 1);
        rows.RemoveAll();
        AppendSongRows(library, 0, library.Count() - 1, rows);
        benchmark::DoNotOptimize(rows.Count());
    }
    state.counters["rows"] = rows.Count();
}

void Categories(benchmark::internal::Benchmark* b) {
    b->ArgName("key")->Arg(kFieldTitle)->Arg(kFieldArtist)->Arg(kFieldAlbum)->Arg(kFieldGenre);
    b->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_OpenCategory)->Apply(Categories);
BENCHMARK(BM_BuildRows)->Apply(Categories);
BENCHMARK(BM_OpenGroup)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_OpenAllOfArtists)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zelvor

BENCHMARK_MAIN();
