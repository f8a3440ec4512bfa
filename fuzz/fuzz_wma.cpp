// The ASF header walk of the WMA reader on arbitrary file bytes.

#include <cstdlib>

#include "tags/asf/analyse_wma_file.h"
#include "tags/memory_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor;
    MemoryFile file(std::span(reinterpret_cast<const std::byte*>(data), size));
    WmaFileInfo info;
    const int result = AnalyseWmaFile(info, file, u"fuzz.wma");
    if ((result == 1 && info.nonAudioCodec) || info.title.size() > kWmaTextMax ||
        info.artist.size() > kWmaTextMax || info.comment.size() > kWmaTextMax)
        std::abort();
    return 0;
}
