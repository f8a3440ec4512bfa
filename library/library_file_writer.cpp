#include "bytes/byte_order.h"
#include "library/library_file.h"
#include "platform/device.h"

namespace zelvor {
namespace {

constexpr int kStringSlots = 5;
constexpr int kStringFields[kStringSlots] = {kFieldPath, kFieldTitle, kFieldAlbum, kFieldArtist,
                                             kFieldGenre};

// The part of a text that is stored: at most 255 characters, never ending
// in the first half of a surrogate pair.
std::u16string_view StoredText(std::u16string_view text) {
    if (text.size() <= kMaxStoredTextChars)
        return text;
    std::size_t keep = kMaxStoredTextChars;
    if (text[keep - 1] >= 0xD800 && text[keep - 1] <= 0xDBFF)
        --keep;
    return text.substr(0, keep);
}

std::vector<std::byte> MakeHeader(std::uint32_t recordCount) {
    std::vector<std::byte> header;
    header.reserve(kLibraryHeaderBytes);
    AppendUtf16Z(header, kLibraryMagic);
    AppendU16Le(header, 0);
    AppendU32Le(header, recordCount);
    AppendU16Le(header, kLibraryFieldCount);
    header.resize(kLibraryHeaderBytes, std::byte{0});
    return header;
}

} // namespace

int MeasureRecord(const TrackRecord& record, std::array<std::uint16_t, 7>& lengths) {
    int sum = 0;
    for (int slot = 0; slot < kStringSlots; ++slot) {
        std::u16string_view text = StoredText(record.Text(kStringFields[slot]));
        lengths[static_cast<size_t>(slot)] =
            text.empty() ? 0 : static_cast<std::uint16_t>((text.size() + 1) * 2);
        sum += lengths[static_cast<size_t>(slot)];
    }
    lengths[5] = 4; // duration
    lengths[6] = 2; // track number
    return sum + lengths[5] + lengths[6];
}

bool WriteTrackList(const TrackList& list, ByteSink& sink) {
    const auto recordCount = static_cast<std::uint32_t>(list.Count());
    if (!sink.Append(MakeHeader(recordCount)))
        return false;
    std::uint32_t written = 0;
    std::vector<std::byte> buffer;
    buffer.reserve(kLibraryFieldCount * 2 + kLibraryFieldCount * kMaxSlotBytes);
    for (const auto& record : list) {
        std::array<std::uint16_t, 7> lengths{};
        MeasureRecord(*record, lengths);
        buffer.clear();
        for (std::uint16_t length : lengths)
            AppendU16Le(buffer, length);
        for (int slot = 0; slot < kStringSlots; ++slot) {
            if (lengths[static_cast<size_t>(slot)] != 0)
                AppendUtf16Z(buffer, StoredText(record->Text(kStringFields[slot])));
        }
        AppendU32Le(buffer, record->Duration());
        AppendU16Le(buffer, record->TrackNumber());
        // A refused record is left out, and the loop goes on with the next.
        if (sink.Append(buffer))
            ++written;
    }
    if (written == recordCount)
        return true;
    // The count must never promise more records than the file holds.
    return sink.Overwrite(0, MakeHeader(written));
}

int SaveTrackList(std::u16string_view path, const TrackList& list, int hidden) {
    // The whole file is made in memory and then replaces the old one in one
    // step, so a full disk or a pulled card leaves the old library intact
    // instead of a file cut off half-way.
    MemorySink sink;
    if (!WriteTrackList(list, sink))
        return 0;
    DeviceFileSystem& fs = CurrentDevice().FileSystem();
    if (!fs.ReplaceFile(path, sink.Bytes()))
        return 0;
    // The replace keeps the attributes of the file it replaced; set them as
    // asked. The contents are in place either way, so a file system that can
    // keep no hidden bit does not fail the save.
    fs.SetAttributes(path, hidden != 0 ? kAttrHidden | kAttrArchive : kAttrArchive);
    return 1;
}

} // namespace zelvor
