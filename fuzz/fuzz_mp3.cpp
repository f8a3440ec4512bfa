// The whole MP3 analysis (frame sync, stream fields, ID3v1, ID3v2 merge) on
// arbitrary file bytes.

#include <cstdlib>

#include "tags/memory_file.h"
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
