#include "tags/id3v2/id3v2_tag.h"

#include <algorithm>
#include <vector>

#include "platform/device.h"
#include "bytes/byte_cursor.h"
#include "tags/genre_names.h"

namespace zelvor {

void Id3v2Tag::Reset() {
    for (auto& frame : frames)
        frame.reset();
    genreText.clear();
    error = kId3v2NoError;
    present = false;
    majorVersion = 0;
    genreIndex = -1;
    track = 0;
    trackTotal = 0;
    tagLength = 0;
}

std::string_view Id3v2Tag::Frame(Id3v2Slot slot) const {
    const auto& frame = frames[static_cast<std::size_t>(slot)];
    return frame ? std::string_view(*frame) : std::string_view();
}

std::string_view Id3v2Tag::GetGenre() const {
    return GenreOfId3v2(genreIndex, genreText);
}

std::uint32_t Id3v2SevenBitSize(std::span<const std::byte, 4> bytes) {
    return (std::uint32_t{ByteAt(bytes, 0)} << 21) + (std::uint32_t{ByteAt(bytes, 1)} << 14) +
           (std::uint32_t{ByteAt(bytes, 2)} << 7) + std::uint32_t{ByteAt(bytes, 3)};
}

std::uint32_t Id3v2SizeField(std::span<const std::byte, kId3v2HeaderSize> header) {
    return Id3v2SevenBitSize(header.subspan<6, 4>());
}

int ReadId3v2(Id3v2Tag& tag, std::u16string_view path) {
    tag.Reset();
    tag.path = path;
    DeviceFileSystem& fs = CurrentDevice().FileSystem();
    if (fs.GetAttributes(path) == kInvalidAttributes) {
        tag.error = kId3v2FileNotFound;
        return 0;
    }
    auto file = fs.OpenFile(path, FileMode::Read);
    if (!file) {
        tag.error = kId3v2CannotOpen;
        return 0;
    }
    return ReadId3v2(tag, *file); // keeps the path
}

int ReadId3v2(Id3v2Tag& tag, DeviceFile& file) {
    tag.Reset();
    std::array<std::byte, kId3v2HeaderSize> header{};
    if (file.ReadAt(0, header) < header.size()) {
        tag.error = kId3v2ShortHeader;
        return 0;
    }
    tag.majorVersion = ByteAt(header, 3);
    tag.present = ByteAt(header, 0) == 'I' && ByteAt(header, 1) == 'D' && ByteAt(header, 2) == '3';
    if (!tag.present)
        return 1;

    std::uint32_t size = Id3v2SizeField(header);
    // A size that lies cannot make us allocate more than the file holds.
    std::uint64_t available = file.Size() > kId3v2HeaderSize ? file.Size() - kId3v2HeaderSize : 0;
    std::vector<std::byte> body(static_cast<std::size_t>(std::min<std::uint64_t>(size, available)));
    body.resize(file.ReadAt(kId3v2HeaderSize, body));

    bool threeCharacterIds = tag.majorVersion == 2;
    bool skipSixBytes = (ByteAt(header, 5) & 0x02) != 0;
    ParseId3v2Body(tag, body, threeCharacterIds, skipSixBytes);
    tag.tagLength = size + static_cast<std::uint32_t>(kId3v2HeaderSize);
    return 1;
}

} // namespace zelvor
