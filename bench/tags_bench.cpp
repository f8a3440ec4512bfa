// Records built per second by the tag readers, side by side with TagLib
// reading the same files (FileRef with fast audio properties), and for AAC,
// which TagLib does not read raw, with a plain read of the bytes the AAC
// reader touches. Warm cache: every benchmark runs over the same corpus many
// times. Rates are per second of CPU time, which a machine busy with other
// work disturbs less than wall time; run repetitions in a random order and
// compare medians. From the release preset:
//   build/release/bin/tags_bench --benchmark_repetitions=5
//       --benchmark_enable_random_interleaving=true  (one line)
// The last lines give the ratios (of medians when repeated), and how far
// the MP3 and WMA readers are from their floor: the same files opened with a
// bare open(2), the very reads the reader made, and close(2).

#include <benchmark/benchmark.h>

#include "bench/median_reporter.h"

#include <array>
#include <cstdio>
#include <map>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

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

// The reads a reader made of one file: where and how many bytes.
struct TouchedFile {
    std::string host;
    std::vector<std::pair<std::uint64_t, std::size_t>> reads;
};

// A file that notes each read it passes on.
class RecordingFile final : public DeviceFile {
public:
    RecordingFile(std::unique_ptr<DeviceFile> file, TouchedFile& log)
        : m_file(std::move(file)), m_log(log) {}
    std::uint64_t Size() const override { return m_file->Size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) override {
        m_log.reads.emplace_back(offset, out.size());
        return m_file->ReadAt(offset, out);
    }
    bool WriteAt(std::uint64_t offset, std::span<const std::byte> data) override {
        return m_file->WriteAt(offset, data);
    }
    bool Truncate(std::uint64_t size) override { return m_file->Truncate(size); }

private:
    std::unique_ptr<DeviceFile> m_file;
    TouchedFile& m_log;
};

// Opens through the device's own file system and records what is read.
class RecordingFileSystem final : public DeviceFileSystem {
public:
    RecordingFileSystem(DeviceFileSystem& inner, std::vector<TouchedFile>& log)
        : DeviceFileSystem(inner.HostRoot()), m_inner(inner), m_log(log) {}
    std::optional<std::filesystem::path> ToHostPath(std::u16string_view path) const override {
        return m_inner.ToHostPath(path);
    }
    std::unique_ptr<DeviceFile> OpenFile(std::u16string_view path, FileMode mode,
                                         bool create) override {
        auto file = m_inner.OpenFile(path, mode, create);
        if (!file)
            return nullptr;
        m_log.push_back({m_inner.ToHostPath(path).value_or("").string(), {}});
        return std::make_unique<RecordingFile>(std::move(file), m_log.back());
    }

private:
    DeviceFileSystem& m_inner;
    std::vector<TouchedFile>& m_log;
};

std::vector<TouchedFile> TouchedFiles(const std::vector<std::string>& names) {
    std::vector<TouchedFile> log;
    log.reserve(names.size() * 2);
    auto recorder = Device::Open({.root = g_corpus.folder / "device", .card = g_corpus.folder});
    if (!recorder)
        return log;
    recorder->SetFileSystem(std::make_unique<RecordingFileSystem>(CurrentDevice().FileSystem(), log));
    ScopedCurrentDevice recording(*recorder);
    for (const std::string& name : names)
        benchmark::DoNotOptimize(BuildTrackRecord(DevicePath(name)));
    return log;
}

// The floor of a reader: open(2), the reads it made, close(2).
void Floor(benchmark::State& state, const std::vector<std::string>& names) {
    const std::vector<TouchedFile> files = TouchedFiles(names);
    std::vector<std::byte> buffer;
    for (const TouchedFile& file : files) {
        for (const auto& read : file.reads)
            buffer.resize(std::max(buffer.size(), read.second));
    }
    for (auto _ : state) {
        for (const TouchedFile& file : files) {
            const int fd = ::open(file.host.c_str(), O_RDONLY | O_CLOEXEC);
            for (const auto& [offset, size] : file.reads)
                benchmark::DoNotOptimize(::pread(fd, buffer.data(), size, static_cast<off_t>(offset)));
            ::close(fd);
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * files.size()));
}

class RatioReporter : public zelvor::MedianReporter {
public:
    void PrintRatios() const {
        const std::array<std::array<const char*, 3>, 5> pairs = {{
            {"MP3", "zelvor/mp3", "taglib/mp3"},
            {"WMA", "zelvor/wma", "taglib/wma"},
            {"AAC", "zelvor/aac", "plain_read/aac"},
            {"MP3", "zelvor/mp3", "floor/mp3"},
            {"WMA", "zelvor/wma", "floor/wma"},
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
    void Keep(const Run& run) override {
        auto it = run.counters.find("items_per_second");
        if (it != run.counters.end())
            m_rates[run.run_name.function_name] = it->second.value;
    }
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
    benchmark::RegisterBenchmark("floor/mp3", Floor, g_corpus.mp3);
    benchmark::RegisterBenchmark("floor/wma", Floor, g_corpus.wma);

    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    benchmark::Shutdown();
    return 0;
}
