// The ASF header walk of the WMA reader on arbitrary file bytes.

#include <cstdlib>

#include "fuzz/fuzz_seeds.h"

#include "tags/asf/analyse_wma_file.h"
#include "bytes/memory_file.h"

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

// An ASF header object holding one content-description object.
std::vector<FuzzInput> MakeFuzzSeeds() {
    const FuzzInput headerGuid{0x30, 0x26, 0xB2, 0x75, 0x8E, 0x66, 0xCF, 0x11,
                               0xA6, 0xD9, 0x00, 0xAA, 0x00, 0x62, 0xCE, 0x6C};
    const FuzzInput contentGuid{0x33, 0x26, 0xB2, 0x75, 0x8E, 0x66, 0xCF, 0x11,
                                0xA6, 0xD9, 0x00, 0xAA, 0x00, 0x62, 0xCE, 0x6C};
    FuzzInput content = contentGuid;
    const FuzzInput contentRest{44, 0, 0, 0, 0, 0, 0, 0, 4, 0, 0, 0, 0, 0, 0, 0,
                                0, 0, 0, 0, 'A', 0, 0, 0};
    content.insert(content.end(), contentRest.begin(), contentRest.end());
    FuzzInput file = headerGuid;
    const auto total = static_cast<std::uint8_t>(30 + content.size());
    const FuzzInput headerRest{total, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 1, 2};
    file.insert(file.end(), headerRest.begin(), headerRest.end());
    file.insert(file.end(), content.begin(), content.end());
    return {file};
}
