// Records built per second by the tag readers, side by side with TagLib
// reading the same files (FileRef with fast audio properties), and for AAC,
// which TagLib does not read raw, with a plain read of the bytes the AAC
// reader touches. Warm cache: every benchmark runs over the same corpus many
// times. Rates are per second of CPU time, which a machine busy with other
// work disturbs less than wall time; run repetitions in a random order and
// compare medians. From the release preset:
//   build/release/bin/tags_bench --benchmark_repetitions=5
//       --benchmark_enable_random_interleaving=true  (one line)
// The last lines give the ratios (of medians when repeated).

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <map>
#include <vector>

#include <taglib/fileref.h>
#include <taglib/tag.h>

#include "bench/tags_bench_corpus.h"
#include "platform/device.h"
#include "platform/text.h"
#include "tags/adts/read_aac_file.h"
#include "tags/build_track_record.h"

namespace zelvor::bench {
namespace {

constexpr int kFilesPerFormat = 300;

Corpus g_corpus;

std::u16string DevicePath(const std::string& name) {
    std::u16string path = u"\\Storage Card\\" + FromUtf8(name);
    for (char16_t& c : path) {
        if (c == u'/')
            c = u'\\';
    }
    return path;
}

void ZelvorRecords(benchmark::State& state, const std::vector<std::string>& names) {
    std::vector<std::u16string> paths;
    for (const std::string& name : names)
        paths.push_back(DevicePath(name));
    std::size_t made = 0;
    for (auto _ : state) {
        for (const std::u16string& path : paths) {
            auto record = BuildTrackRecord(path);
            made += record != nullptr;
            benchmark::DoNotOptimize(record);
        }
    }
    if (made != paths.size() * state.iterations())
        state.SkipWithError("a file gave no record");
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * paths.size()));
}

void TagLibRecords(benchmark::State& state, const std::vector<std::string>& names) {
    std::vector<std::string> paths;
    for (const std::string& name : names)
        paths.push_back((g_corpus.folder / name).string());
    for (auto _ : state) {
        for (const std::string& path : paths) {
            // What a record needs: the five texts, the track and the length.
            TagLib::FileRef file(path.c_str(), true, TagLib::AudioProperties::Fast);
            if (file.isNull() || !file.tag() || !file.audioProperties()) {
                state.SkipWithError("TagLib could not read a file");
                return;
            }
            TagLib::Tag* tag = file.tag();
            benchmark::DoNotOptimize(tag->title());
            benchmark::DoNotOptimize(tag->artist());
            benchmark::DoNotOptimize(tag->album());
            benchmark::DoNotOptimize(tag->genre());
            benchmark::DoNotOptimize(tag->track());
            benchmark::DoNotOptimize(file.audioProperties()->lengthInSeconds());
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * paths.size()));
}

// A plain read of as many bytes as the AAC reader touches in each file (its
// chunks, the 10 header bytes and the 128 tail bytes; the files carry no
// ID3v2 tag) in 32 KiB reads from the start, the file opened by its device
// path as the reader opens it.
void PlainReadOfTouchedBytes(benchmark::State& state, const std::vector<std::string>& names) {
    std::vector<std::pair<std::u16string, std::uint64_t>> files;
    for (const std::string& name : names) {
        AacTrackInfo info;
        ReadAacFile(DevicePath(name), &info);
        files.emplace_back(DevicePath(name), info.stream.bytesRead + 10 + 128);
    }
    DeviceFileSystem& fs = CurrentDevice().FileSystem();
    std::vector<std::byte> buffer(32768);
    for (auto _ : state) {
        for (const auto& [path, bytes] : files) {
            auto file = fs.OpenFile(path, FileMode::Read);
            for (std::uint64_t done = 0; file && done < bytes;) {
                std::size_t n = file->ReadAt(done, std::span(buffer).first(std::min<std::uint64_t>(
                                                       buffer.size(), bytes - done)));
                if (n == 0)
                    break;
                done += n;
            }
            benchmark::DoNotOptimize(buffer.data());
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * files.size()));
}

class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            // With repetitions only the median counts; a single run counts as is.
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median")
                continue;
            auto it = run.counters.find("items_per_second");
            if (it != run.counters.end())
                m_rates[run.run_name.function_name] = it->second.value;
        }
    }
    void PrintRatios() const {
        const std::array<std::array<const char*, 3>, 3> pairs = {{
            {"MP3", "zelvor/mp3", "taglib/mp3"},
            {"WMA", "zelvor/wma", "taglib/wma"},
            {"AAC", "zelvor/aac", "plain_read/aac"},
        }};
        for (const auto& [format, ours, theirs] : pairs) {
            double a = Rate(ours);
            double b = Rate(theirs);
            if (a > 0 && b > 0)
                std::printf("%s: %.0f records/s vs %.0f (%s): ratio %.2f\n", format, a, b, theirs,
                            a / b);
        }
    }

private:
    double Rate(const std::string& prefix) const {
        for (const auto& [name, rate] : m_rates) {
            if (name.rfind(prefix, 0) == 0)
                return rate;
        }
        return 0;
    }
    std::map<std::string, double> m_rates;
};

} // namespace
} // namespace zelvor::bench

int main(int argc, char** argv) {
    using namespace zelvor;
    using namespace zelvor::bench;
    benchmark::Initialize(&argc, argv);
    if (!PrepareCorpus(g_corpus, kFilesPerFormat)) {
        std::fprintf(stderr, "tags_bench: ffmpeg could not make the corpus\n");
        return 1;
    }
    DeviceConfig config;
    config.root = g_corpus.folder / "device";
    config.card = g_corpus.folder;
    auto device = Device::Open(config);
    if (!device)
        return 1;
    ScopedCurrentDevice current(*device);

    benchmark::RegisterBenchmark("zelvor/mp3", ZelvorRecords, g_corpus.mp3);
    benchmark::RegisterBenchmark("taglib/mp3", TagLibRecords, g_corpus.mp3);
    benchmark::RegisterBenchmark("zelvor/wma", ZelvorRecords, g_corpus.wma);
    benchmark::RegisterBenchmark("taglib/wma", TagLibRecords, g_corpus.wma);
    benchmark::RegisterBenchmark("zelvor/aac", ZelvorRecords, g_corpus.aac);
    benchmark::RegisterBenchmark("plain_read/aac", PlainReadOfTouchedBytes, g_corpus.aac);

    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    benchmark::Shutdown();
    return 0;
}
