#include "playlists/playlist_file.h"

#include "config/settings.h"
#include "bytes/file_cursor.h"
#include "bytes/byte_order.h"
#include "platform/device.h"
#include "platform/text.h"

namespace zelvor {
namespace {

constexpr std::size_t kMagicBytes = 12;
constexpr std::size_t kCountOffset = 12;

PlaylistHeader ParseHeader(std::span<const std::byte> bytes) {
    PlaylistHeader header;
    header.magic = LoadUtf16Z(bytes.first(kMagicBytes));
    header.magicMatches = CompareText(header.magic, kPlaylistMagic) == 0;
    header.entryCount = static_cast<std::int32_t>(LoadU32Le(bytes.subspan(kCountOffset)));
    return header;
}

} // namespace

bool ReadPlaylist(DeviceFile& file, std::u16string_view musicFolder, PlaylistEntryList& list,
                  PlaylistHeader* headerOut) {
    FileCursor cursor(file);
    auto headerBytes = cursor.Take(kPlaylistHeaderBytes);
    if (!headerBytes)
        return false;
    const PlaylistHeader header = ParseHeader(*headerBytes);
    if (headerOut)
        *headerOut = header;
    const std::int32_t count = header.magicMatches ? header.entryCount : 0;
    for (std::int32_t i = 0; i < count; ++i) {
        auto lengthBytes = cursor.Take(2);
        if (!lengthBytes)
            break;
        const std::uint16_t length = LoadU16Le(*lengthBytes);
        // An odd length cannot come from a writer of UTF-16 paths: the file
        // is damaged from here on, so keep what came before and stop.
        if (length % 2 != 0)
            break;
        // A path longer than any device path is left out; its length is
        // intact, so the entries after it still load.
        if (length > kMaxPlaylistPathBytes) {
            if (!cursor.Skip(length))
                break;
            continue;
        }
        auto pathBytes = cursor.Take(length);
        if (!pathBytes)
            break;
        std::u16string path = LoadUtf16Z(*pathBytes);
        // A length of 0 or 2 (a NUL alone) still makes an entry, as every
        // entry read whole does. Its path stays empty: joined to the music
        // folder it would name the folder itself, which is no track.
        if (!path.empty() && path[0] != u'\\')
            path = JoinDevicePath(musicFolder, path);
        list.Insert(std::make_unique<PlaylistEntry>(path));
    }
    return true;
}

int LoadPlaylist(std::u16string_view path, PlaylistEntryList& list) {
    const std::u16string musicFolder = GetMusicFolder();
    list.RemoveAll(true);
    auto file = CurrentDevice().FileSystem().OpenFile(path, FileMode::Read);
    if (!file)
        return 0;
    ReadPlaylist(*file, musicFolder, list);
    return 1;
}

bool WritePlaylist(const PlaylistEntryList& list, ByteSink& sink) {
    // The count is stored as a signed 16-bit number, as the device's writer
    // does: a longer list cannot be represented (it used to store a count
    // that said nothing or too little and lose the rest), so it is refused.
    if (list.Count() > kMaxPlaylistEntries)
        return false;
    const auto count = static_cast<std::int16_t>(list.Count());
    std::vector<std::byte> bytes;
    AppendUtf16Z(bytes, kPlaylistMagic);
    AppendU32Le(bytes, static_cast<std::uint32_t>(std::int32_t{count}));
    bytes.resize(kPlaylistHeaderBytes, std::byte{0});
    if (!sink.Append(bytes))
        return false;
    for (int i = 0; i < count; ++i) {
        const PlaylistEntry* entry = list.At(i);
        std::u16string_view path = entry ? entry->Text(1) : std::u16string_view();
        // Empty paths are skipped, and so are paths longer than the writer's
        // entry buffer holds. A path of 260 characters is written, though the
        // reader, whose buffer is one character shorter, passes over it.
        const std::size_t length = (path.size() + 1) * 2;
        if (path.empty() || path.size() > kMaxWrittenPathChars)
            continue;
        bytes.clear();
        AppendU16Le(bytes, static_cast<std::uint16_t>(length));
        AppendUtf16Z(bytes, path);
        if (!sink.Append(bytes))
            return false;
    }
    return true;
}

int SavePlaylist(std::u16string_view path, const PlaylistEntryList& list) {
    // Made in memory and swapped in whole: a failing disk keeps the old file.
    // A list too long to store is refused before the file is touched.
    MemorySink sink;
    if (!WritePlaylist(list, sink))
        return 0;
    return CurrentDevice().FileSystem().ReplaceFile(path, sink.Bytes()) ? 1 : 0;
}

} // namespace zelvor
