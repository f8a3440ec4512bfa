// The tag steps of the MP3 analysis: the ID3v1 tag and the merge with the
// ID3v2 tag.

#include "platform/text.h"
#include "bytes/byte_cursor.h"
#include "tags/genre_names.h"
#include "tags/mpeg/analyse_mp3_file.h"
#include "tags/tag_text.h"

namespace zelvor {
namespace {

std::u16string SingleByteField(std::span<const std::byte> tag, std::size_t offset,
                               std::size_t size) {
    return DecodeSingleByte(tag.subspan(offset, size));
}

} // namespace

std::u16string DecodeId3Text(std::string_view raw) {
    if (!raw.empty() && static_cast<unsigned char>(raw[0]) == 0xFF)
        return DecodeUtf16Le(raw.size() > 2 ? raw.substr(2) : std::string_view());
    return DecodeSingleByte(raw);
}

bool ReadMp3Id3v1(Mp3FileInfo& info, std::span<const std::byte> tail) {
    if (tail.size() < 128 || ByteAt(tail, 0) != 'T' || ByteAt(tail, 1) != 'A' ||
        ByteAt(tail, 2) != 'G')
        return false;
    info.title = SingleByteField(tail, 3, 30);
    info.artist = SingleByteField(tail, 33, 30);
    info.album = SingleByteField(tail, 63, 30);
    info.year = SingleByteField(tail, 93, 4);
    if (ByteAt(tail, 125) == 0) {
        // Version 1.1: a zero byte ends a shorter comment, then the track.
        info.comment = SingleByteField(tail, 97, 28);
        info.track = ByteAt(tail, 126);
        info.genreIndex = ByteAt(tail, 127);
        if (auto genre = GenreOfId3v1Byte(info.genreIndex))
            info.genre = DecodeSingleByte(*genre);
    } else {
        // Version 1.0 never yields a genre, track or genre index.
        info.comment = SingleByteField(tail, 97, 30);
    }
    info.flags |= kMp3HasId3v1;
    return true;
}

void MergeId3v2(Mp3FileInfo& info, const Id3v2Tag& tag) {
    std::u16string v1Title = std::move(info.title);
    std::u16string v1Artist = std::move(info.artist);
    std::u16string v1Album = std::move(info.album);
    std::u16string v1Genre = std::move(info.genre);
    const std::int32_t v1Track = info.track;

    info.title = DecodeId3Text(tag.GetTitle());
    info.artist = DecodeId3Text(tag.GetArtist());
    info.album = DecodeId3Text(tag.GetAlbum());
    info.genre = DecodeId3Text(tag.GetGenre());

    // The longer title decides which tag supplies all four texts. The ID3v2
    // title is measured before trimming, the ID3v1 one after.
    if (info.title.size() < v1Title.size()) {
        info.title = std::move(v1Title);
        info.artist = std::move(v1Artist);
        info.album = std::move(v1Album);
        info.genre = std::move(v1Genre);
    } else {
        for (std::u16string* text : {&info.artist, &info.title, &info.album, &info.genre})
            TrimWhiteSpace(*text);
        info.track = tag.GetTrack();
    }
    if (info.track < 1 && v1Track > 0)
        info.track = v1Track;
}

} // namespace zelvor
