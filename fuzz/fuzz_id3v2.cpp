// The ID3v2 reader and the in-place strip on arbitrary file bytes.

#include <cstdlib>

#include "fuzz/fuzz_seeds.h"

#include "tags/id3v2/strip_id3v2_tag.h"
#include "bytes/memory_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor;
    std::span<const std::byte> bytes(reinterpret_cast<const std::byte*>(data), size);
    MemoryFile file(bytes);
    Id3v2Tag tag;
    ReadId3v2(tag, file);
    (void)tag.GetGenre();

    // A strip either leaves the file as it was or takes exactly the tag away.
    const std::uint64_t before = file.Size();
    const int result = StripId3v2Tag(tag, file);
    const std::uint64_t after = file.Size();
    if (after != before && (result != 1 || !tag.present || before - after != tag.tagLength))
        std::abort();
    return 0;
}

// An ID3v2.3 tag with a title and a genre, before a little audio.
std::vector<FuzzInput> MakeFuzzSeeds() {
    FuzzInput tag{'I', 'D', '3', 3, 0, 0, 0, 0, 0, 33};
    for (const char* frame : {"TIT2", "TCON"}) {
        tag.insert(tag.end(), frame, frame + 4);
        const FuzzInput body{0, 0, 0, 7, 0, 0, 0, '(', '1', '7', ')', 'x', 'y'};
        tag.insert(tag.end(), body.begin(), body.end());
    }
    tag.resize(43, 0);
    FuzzInput withAudio = tag;
    withAudio.insert(withAudio.end(), {0xFF, 0xFB, 0x90, 0x00, 1, 2, 3, 4});
    return {tag, withAudio};
}
