// The whole MP3 analysis (frame sync, stream fields, ID3v1, ID3v2 merge) on
// arbitrary file bytes.

#include <cstdlib>

#include "fuzz/fuzz_seeds.h"

#include "bytes/memory_file.h"
#include "tags/mpeg/analyse_mp3_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor;
    MemoryFile file(std::span(reinterpret_cast<const std::byte*>(data), size));
    Mp3FileInfo info;
    Id3v2Tag tag;
    const int result = AnalyseMp3File(info, file, u"fuzz.mp3", &tag);
    if (result != (info.flags != 0 ? 1 : 0) || info.duration < 0 || info.framesCounted > 1)
        std::abort();
    return 0;
}

// Three MPEG-1 layer III frames (128 kbit/s, 44.1 kHz) after an ID3v2 tag
// and before an ID3v1 tag.
std::vector<FuzzInput> MakeFuzzSeeds() {
    FuzzInput file{'I', 'D', '3', 3, 0, 0, 0, 0, 0, 10, 'T', 'I', 'T', '2', 0, 0, 0, 0, 0, 0};
    for (int frame = 0; frame < 3; ++frame) {
        const FuzzInput header{0xFF, 0xFB, 0x90, 0x00};
        file.insert(file.end(), header.begin(), header.end());
        file.resize(file.size() + 413, 0x55);
    }
    FuzzInput v1{'T', 'A', 'G'};
    v1.resize(128, 'a');
    file.insert(file.end(), v1.begin(), v1.end());
    return {file};
}
