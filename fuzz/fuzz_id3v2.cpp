// The ID3v2 reader and the in-place strip on arbitrary file bytes.

#include <cstdlib>

#include "tags/id3v2/strip_id3v2_tag.h"
#include "tags/memory_file.h"

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
