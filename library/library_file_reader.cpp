#include <algorithm>

#include "config/settings.h"
#include "bytes/file_cursor.h"
#include "bytes/byte_order.h"
#include "library/library_file.h"
#include "platform/device.h"
#include "platform/text.h"

namespace zelvor {
namespace {

constexpr std::size_t kMagicBytes = 14;
constexpr std::size_t kCountOffset = 16;
constexpr std::size_t kFieldCountOffset = 20;

// The stored slots in file order and the record field each one fills.
constexpr int kSlotFields[kLibraryFieldCount] = {kFieldPath,   kFieldTitle,    kFieldAlbum,
                                                 kFieldArtist, kFieldGenre,    kFieldDuration,
                                                 kFieldTrackNumber};
constexpr int kFirstNumberSlot = 5;

LibraryHeader ParseHeader(std::span<const std::byte> bytes) {
    LibraryHeader header;
    header.magic = LoadUtf16Z(bytes.first(kMagicBytes));
    header.magicMatches = CompareText(header.magic, kLibraryMagic) == 0;
    header.recordCount = LoadU32Le(bytes.subspan(kCountOffset));
    header.fieldCount = LoadU16Le(bytes.subspan(kFieldCountOffset));
    return header;
}

// Turns the values of one stored record into a TrackRecord. The texts are
// decoded first so the record gets one text allocation of the exact size.
class RecordBuilder {
public:
    explicit RecordBuilder(std::u16string_view relativeBase) : m_base(relativeBase) {}

    std::unique_ptr<TrackRecord> Build(std::span<const std::uint16_t> lengths,
                                       std::span<const std::byte> values) {
        for (auto& text : m_texts)
            text.clear();
        std::array<bool, kFirstNumberSlot> present{};
        std::uint32_t duration = 0;
        std::uint16_t trackNumber = 0;
        const int slots = std::min<int>(static_cast<int>(lengths.size()), kLibraryFieldCount);
        std::size_t offset = 0;
        for (int slot = 0; slot < static_cast<int>(lengths.size()); ++slot) {
            const std::size_t length = lengths[static_cast<size_t>(slot)];
            // Slots beyond the seven this format defines are passed over, and
            // so is a slot longer than any field can be: the lengths still
            // place everything that follows, so the rest of the record and
            // the file stay readable.
            std::span<const std::byte> value = values.subspan(offset, length);
            offset += length;
            if (length == 0 || slot >= slots || length > kMaxSlotBytes)
                continue;
            if (slot < kFirstNumberSlot) {
                AssignUtf16Z(value, m_texts[static_cast<size_t>(slot)]);
                present[static_cast<size_t>(slot)] = true;
            } else if (kSlotFields[slot] == kFieldDuration) {
                // A number slot shorter than its number leaves the field 0.
                if (length >= 4)
                    duration = LoadU32Le(value);
            } else if (length >= 2) {
                trackNumber = LoadU16Le(value);
            }
        }
        if (present[0] && (m_texts[0].empty() || m_texts[0][0] != u'\\'))
            m_texts[0] = JoinDevicePath(m_base, m_texts[0]);

        auto record = std::make_unique<TrackRecord>();
        std::size_t chars = FileNameOfPath(m_texts[0]).size();
        for (const auto& text : m_texts)
            chars += text.size();
        record->ReserveText(chars);
        for (int slot = 0; slot < kFirstNumberSlot; ++slot) {
            if (present[static_cast<size_t>(slot)])
                record->SetField(kSlotFields[slot], m_texts[static_cast<size_t>(slot)]);
        }
        record->SetField(kFieldDuration, std::int64_t{duration});
        record->SetField(kFieldTrackNumber, std::int64_t{trackNumber});
        return record;
    }

private:
    std::u16string_view m_base;
    std::array<std::u16string, kFirstNumberSlot> m_texts;
};

} // namespace

std::u16string GetLibraryPath() {
    return JoinDevicePath(GetProgramDirectory(), kLibraryFileName);
}

bool ReadTrackList(DeviceFile& file, std::u16string_view relativeBase, TrackList& list,
                   LibraryHeader* headerOut) {
    FileCursor cursor(file);
    auto headerBytes = cursor.Take(kLibraryHeaderBytes);
    if (!headerBytes)
        return false;
    const LibraryHeader header = ParseHeader(*headerBytes);
    if (headerOut)
        *headerOut = header;
    // A wrong magic is another version or a damaged file: an empty library.
    // A header naming no fields describes records of no bytes, whose count
    // nothing in the file can confirm: that is no library either.
    if (!header.magicMatches || header.fieldCount == 0)
        return true;

    const std::size_t lengthBytes = std::size_t{header.fieldCount} * 2;
    // Each record takes at least its lengths, so the file's size bounds how
    // many it can hold whatever the header claims.
    list.Reserve(static_cast<int>(std::min<std::uint64_t>(
        header.recordCount, cursor.Remaining() / lengthBytes)));
    std::vector<std::uint16_t> lengths(header.fieldCount);
    RecordBuilder builder(relativeBase);
    for (std::uint32_t i = 0; i < header.recordCount; ++i) {
        auto lengthView = cursor.Take(lengthBytes);
        if (!lengthView)
            break;
        std::uint64_t valueBytes = 0;
        for (std::size_t slot = 0; slot < lengths.size(); ++slot) {
            lengths[slot] = LoadU16Le(lengthView->subspan(slot * 2));
            valueBytes += lengths[slot];
        }
        // A record cut off by the end of the file is not kept.
        auto values = valueBytes <= cursor.Remaining()
                          ? cursor.Take(static_cast<std::size_t>(valueBytes))
                          : std::nullopt;
        if (!values)
            break;
        list.AddTrack(builder.Build(lengths, *values));
    }
    return true;
}

int LoadTrackList(std::u16string_view path, TrackList& list) {
    list.RemoveAllTracks();
    auto file = CurrentDevice().FileSystem().OpenFile(path, FileMode::Read);
    if (!file)
        return 0;
    ReadTrackList(*file, DeviceFolderOf(path), list);
    return 1;
}

} // namespace zelvor
