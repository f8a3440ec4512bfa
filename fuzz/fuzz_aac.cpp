// The AAC reader's read step (ADTS frame count, ID3v2.3 frame list, ID3v1)
// on arbitrary file bytes.

#include <cmath>
#include <cstdlib>
#include <vector>

#include "fuzz/fuzz_seeds.h"
#include "tags/adts/read_aac_file.h"
#include "bytes/memory_file.h"

namespace {

// Inputs that begin with 'R' are repeated past 1 MB, so the count also takes
// the jump-ahead path that large files take.
constexpr std::size_t kLargeFile = 1300000;

std::vector<std::byte> FileBytes(const std::uint8_t* data, std::size_t size) {
    std::vector<std::byte> bytes(reinterpret_cast<const std::byte*>(data),
                                 reinterpret_cast<const std::byte*>(data) + size);
    if (size > 1 && data[0] == 'R') {
        const std::vector<std::byte> unit(bytes.begin() + 1, bytes.end());
        bytes.clear();
        while (bytes.size() < kLargeFile)
            bytes.insert(bytes.end(), unit.begin(), unit.end());
    }
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor;
    MemoryFile file(FileBytes(data, size));
    size = static_cast<std::size_t>(file.Size());
    AacTrackInfo info;
    ReadAacStream(file, info);
    // Frames are at least 7 bytes; the count reads each byte about once.
    if (info.stream.framesCounted > size / 7 + 1 || !(info.duration >= 0) ||
        info.stream.bytesRead > 2 * size + 32768)
        std::abort();
    return 0;
}

// Four ADTS frames of 32 bytes (AAC LC, 44.1 kHz, stereo). No seed begins
// with 'R': each of its variants would be a file of a megabyte, too slow
// for a replay under the sanitizers.
std::vector<FuzzInput> MakeFuzzSeeds() {
    FuzzInput file;
    for (int frame = 0; frame < 4; ++frame) {
        const FuzzInput header{0xFF, 0xF1, 0x50, 0x80, 0x04, 0x1F, 0xFC};
        file.insert(file.end(), header.begin(), header.end());
        file.resize(file.size() + 25, 0x21);
    }
    return {file};
}
