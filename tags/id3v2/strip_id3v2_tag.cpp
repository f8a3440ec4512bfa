#include "tags/id3v2/strip_id3v2_tag.h"

#include <algorithm>
#include <array>
#include <thread>

#include "platform/device.h"

namespace zelvor {
namespace {

constexpr std::size_t kCopyBlock = 16384;

bool StartsWithId3(std::span<const std::byte> header) {
    return static_cast<char>(header[0]) == 'I' && static_cast<char>(header[1]) == 'D' &&
           static_cast<char>(header[2]) == '3';
}

} // namespace

int StripId3v2Tag(Id3v2Tag& tag, std::u16string_view path, std::chrono::milliseconds settle) {
    tag.error = kId3v2NoError;
    DeviceFileSystem& fs = CurrentDevice().FileSystem();
    std::uint32_t attributes = fs.GetAttributes(path);
    if (attributes == kInvalidAttributes) {
        tag.error = kId3v2FileNotFound;
        return 0;
    }
    fs.SetAttributes(path, kAttrNormal);
    auto file = fs.OpenFile(path, FileMode::ReadWrite);
    if (!file) {
        fs.SetAttributes(path, attributes);
        tag.error = kId3v2CannotOpen;
        return 0;
    }
    std::uint64_t sizeBefore = file->Size();
    int result = StripId3v2Tag(tag, *file);
    bool rewritten = file->Size() != sizeBefore;
    file.reset(); // closed before the attributes go back
    // The device left the attributes cleared when there was nothing to do;
    // a file without a tag must come out of this unchanged.
    fs.SetAttributes(path, attributes);
    if (rewritten)
        std::this_thread::sleep_for(settle);
    return result;
}

int StripId3v2Tag(Id3v2Tag& tag, DeviceFile& file) {
    tag.error = kId3v2NoError;
    std::array<std::byte, kId3v2HeaderSize> header{};
    if (file.ReadAt(0, header) < header.size() || !StartsWithId3(header))
        return 1; // nothing to do

    const std::uint64_t tagLength = std::uint64_t{Id3v2SizeField(header)} + kId3v2HeaderSize;
    const std::uint64_t fileSize = file.Size();
    if (tagLength > fileSize) {
        // The device would have cut the file at a negative length; a size
        // that lies must not cost the user the file.
        tag.error = kId3v2TagBeyondFile;
        return 0;
    }
    std::array<std::byte, kCopyBlock> block{};
    for (std::uint64_t n = 0;; ++n) {
        std::uint64_t from = tagLength + n * kCopyBlock;
        std::size_t expected =
            static_cast<std::size_t>(std::min<std::uint64_t>(kCopyBlock, fileSize - from));
        std::size_t got = file.ReadAt(from, block);
        // A read error must not pass for the end of the file: cutting the
        // file short then would lose the music after the failed block.
        bool failed = got < expected;
        if (failed || (got > 0 && !file.WriteAt(n * kCopyBlock, std::span(block).first(got)))) {
            tag.error = kId3v2WriteFailed;
            return 0;
        }
        if (got < kCopyBlock)
            break;
    }
    if (!file.Truncate(fileSize - tagLength)) {
        tag.error = kId3v2WriteFailed;
        return 0;
    }
    return 1;
}

} // namespace zelvor
