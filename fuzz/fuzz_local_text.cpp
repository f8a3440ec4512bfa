// The scan of the shell's translation file on arbitrary file bytes. The
// first byte picks the language (also ones with no column), the second the
// English text looked for; the rest is the file.

#include <cstdlib>
#include <string>

#include "config/local_text.h"
#include "fuzz/fuzz_seeds.h"
#include "bytes/byte_order.h"

namespace {

const std::u16string kKeys[] = {u"Play", u"", u"MUSIC LIBRARY", std::u16string(300, u'k')};
constexpr std::size_t kMaxTextChars = 255;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2)
        return 0;
    const auto language = static_cast<std::int16_t>(static_cast<std::int8_t>(data[0]));
    const std::u16string& key = kKeys[data[1] % std::size(kKeys)];
    auto found = zelvor::FindTranslation(std::as_bytes(std::span(data + 2, size - 2)), key,
                                         language);
    if (found && (found->size() > kMaxTextChars || language <= 0))
        std::abort();
    return 0;
}

std::vector<FuzzInput> MakeFuzzSeeds() {
    std::vector<std::byte> file;
    zelvor::AppendU16Le(file, 0xFEFF);
    for (char16_t c : std::u16string(u"English\tDeutsch\tFran\u00E7ais\r\n"
                                     u"play\tSpielen\tJouer\r\n"
                                     u"Music Library\tBibliothek\r\n") +
                          std::u16string(300, u'k') + u"\t" + std::u16string(280, u'z') + u"\r\n")
        zelvor::AppendU16Le(file, c);
    std::vector<FuzzInput> seeds;
    for (std::uint8_t language : {1, 2, 3, 24, 25}) {
        for (std::uint8_t key = 0; key < std::size(kKeys); ++key) {
            FuzzInput seed{language, key};
            const FuzzInput body = FuzzBytes(file);
            seed.insert(seed.end(), body.begin(), body.end());
            seeds.push_back(std::move(seed));
        }
    }
    return seeds;
}
