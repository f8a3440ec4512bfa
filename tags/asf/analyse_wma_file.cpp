#include "tags/asf/analyse_wma_file.h"

#include <array>
#include <vector>

#include "platform/device.h"
#include "tags/asf/asf_guid.h"
#include "tags/asf/asf_object.h"
#include "bytes/byte_cursor.h"
#include "bytes/read_ahead_file.h"

namespace zelvor {
namespace {

// The header object's own fields before its first child.
constexpr std::size_t kHeaderObjectFixedSize = 30;
constexpr std::size_t kWmaReadAhead = 16384;

} // namespace

int AnalyseWmaFile(WmaFileInfo& info, std::u16string_view path) {
    info.Reset();
    auto file = CurrentDevice().FileSystem().OpenFile(path, FileMode::Read);
    if (!file)
        return 0;
    // The header objects of most files, in one read.
    ReadAheadFile head(*file, kWmaReadAhead);
    return AnalyseWmaFile(info, head, path);
}

int AnalyseWmaFile(WmaFileInfo& info, DeviceFile& file, std::u16string_view path) {
    info.Reset();
    info.path = path;
    // Only the header object's fixed part is needed: its children are read
    // one by one from the file, so a large header (cover art) is not held
    // twice.
    std::array<std::byte, kHeaderObjectFixedSize> head{};
    if (file.ReadAt(0, head) < head.size() || !IsAsfGuid(head, kAsfHeaderObject))
        return 0;
    ByteCursor cursor(head);
    cursor.Skip(16);
    std::uint64_t headerSize = 0;
    std::uint32_t count32 = 0;
    std::uint8_t reserved1 = 0;
    std::uint8_t reserved2 = 0;
    cursor.ReadU64Le(headerSize);
    cursor.ReadU32Le(count32);
    cursor.ReadU8(reserved1);
    cursor.ReadU8(reserved2);
    if (static_cast<std::uint32_t>(headerSize) < kHeaderObjectFixedSize)
        return 0; // an object smaller than its own header
    // The device refused a file only when both bytes were wrong at once.
    if (reserved1 != 1 && reserved2 != 2)
        return 0;

    int result = 1;
    const std::uint16_t count = static_cast<std::uint16_t>(count32);
    std::uint64_t offset = kHeaderObjectFixedSize;
    std::vector<std::byte> object;
    for (std::uint16_t i = 0; i < count; ++i) {
        std::uint32_t size = ReadAsfObject(file, offset, object);
        if (size == 0)
            break;
        offset += size;
        if (IsAsfGuid(object, kAsfContentDescriptionObject)) {
            ReadContentDescription(info, object);
        } else if (IsAsfGuid(object, kAsfFilePropertiesObject)) {
            ReadFileProperties(info, object);
        } else if (IsAsfGuid(object, kAsfExtendedContentDescriptionObject)) {
            ReadExtendedContentDescription(info, object);
        } else if (IsAsfGuid(object, kAsfCodecListObject)) {
            if (!CodecListIsAudioOnly(object)) {
                info.nonAudioCodec = true;
                result = 0;
            }
        }
        // Stream properties, stream bit rates, the header extension and
        // everything else are passed over.
    }
    return result;
}

} // namespace zelvor
