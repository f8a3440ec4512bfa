// Replays a fuzz target's inputs without libFuzzer: the seeds made in code,
// variants of each (every cut-off length up to a bound, then single bytes
// changed), and every file of the folders named on the command line. Under
// the debug build's sanitizers this makes the fuzz targets part of the test
// run. With --write-seeds DIR it writes the seeds as files instead, the
// starting corpus of a libFuzzer run.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "fuzz/fuzz_seeds.h"

namespace {

constexpr std::size_t kMaxCutVariants = 512;
constexpr std::size_t kMaxByteVariants = 512;
constexpr std::uint8_t kReplacements[] = {0x00, 0xFF, 0x80, 0x7F};

long g_runs = 0;

void Run(const FuzzInput& input) {
    LLVMFuzzerTestOneInput(input.data(), input.size());
    ++g_runs;
}

// Cut-off lengths, and single-byte changes spread evenly over the input.
void RunVariants(const FuzzInput& seed) {
    const std::size_t cutStep = seed.size() / kMaxCutVariants + 1;
    for (std::size_t length = 0; length < seed.size(); length += cutStep)
        Run(FuzzInput(seed.begin(), seed.begin() + static_cast<std::ptrdiff_t>(length)));
    const std::size_t byteStep = seed.size() / kMaxByteVariants + 1;
    for (std::size_t at = 0; at < seed.size(); at += byteStep) {
        for (std::uint8_t value : kReplacements) {
            FuzzInput changed = seed;
            changed[at] = value;
            Run(changed);
        }
    }
}

bool WriteSeeds(const std::filesystem::path& folder) {
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    int n = 0;
    for (const FuzzInput& seed : MakeFuzzSeeds()) {
        std::ofstream out(folder / ("seed-" + std::to_string(n++)), std::ios::binary);
        out.write(reinterpret_cast<const char*>(seed.data()), static_cast<std::streamsize>(seed.size()));
        if (!out)
            return false;
    }
    std::printf("%d seeds written to %s\n", n, folder.c_str());
    return true;
}

bool ReplayFolder(const std::filesystem::path& folder) {
    std::error_code ec;
    if (!std::filesystem::is_directory(folder, ec)) {
        std::fprintf(stderr, "not a folder: %s\n", folder.c_str());
        return false;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, ec)) {
        if (!entry.is_regular_file())
            continue;
        std::ifstream in(entry.path(), std::ios::binary);
        Run(FuzzInput(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()));
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::string_view(argv[1]) == "--write-seeds")
        return WriteSeeds(argv[2]) ? 0 : 1;
    for (const FuzzInput& seed : MakeFuzzSeeds()) {
        Run(seed);
        RunVariants(seed);
    }
    for (int i = 1; i < argc; ++i) {
        if (!ReplayFolder(argv[i]))
            return 1;
    }
    std::printf("%ld inputs replayed\n", g_runs);
    return 0;
}
