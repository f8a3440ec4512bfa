#include "tools/zelvor_demo/demo_catalog.h"

#include <array>

namespace zelvor::demo {
namespace {

struct AlbumEntry {
    std::u16string_view folder;
    std::u16string_view artist;
    std::u16string_view album;
    std::u16string_view genre;
    std::u16string_view year;
    FileKind kind;
    TagStyle tags;
    std::array<std::u16string_view, 4> titles; // empty ones are not used
    bool numbered = true;                      // "NN Title.ext" rather than "Title.ext"
    // Non-zero: the first track is a long one of this many seconds. The AAC
    // reader estimates the length of files over 1 MiB by jumping ahead, so
    // the collection holds two such files.
    int longFirstTrack = 0;
};

constexpr std::u16string_view kCard = u"\\Storage Card";
constexpr std::u16string_view kFlash = u"\\Flash Disk";

// Invented artists and albums. Titles stay within the 30 bytes of an ID3v1
// field so that both tags of a file say the same; the Japanese album has no
// ID3v1 tag, since Windows-1252 cannot hold it.
const std::array kAlbums{
    AlbumEntry{u"\\Storage Card\\Music\\Marrow Lane\\Paper Lanterns",
               u"Marrow Lane",
               u"Paper Lanterns",
               u"Pop",
               u"2016",
               FileKind::Mp3Stereo128,
               TagStyle::Id3v23V11,
               {u"Paper Lanterns", u"Glasshouse Summer", u"Small Hours", u"Tidewater"}},
    AlbumEntry{u"\\Storage Card\\Music\\The Kestrel Hours\\Northbound Static",
               u"The Kestrel Hours",
               u"Northbound Static",
               u"Rock",
               u"2019",
               FileKind::Mp3Stereo320,
               TagStyle::Id3v24,
               {u"Northbound", u"Static Bloom", u"Ember Road", u"Last Ferry Out"}},
    AlbumEntry{u"\\Storage Card\\Music\\Café Ölfjord\\Niño del Mar",
               u"Café Ölfjord",
               u"Niño del Mar",
               u"Jazz",
               u"2021",
               FileKind::Mp3Stereo128,
               TagStyle::Id3v22,
               {u"Señal de Humo", u"Blå Timme", u"Crème Noire"}},
    AlbumEntry{u"\\Storage Card\\Music\\Łódź Tram Society\\Nocne Linie",
               u"Łódź Tram Society",
               u"Nocne Linie",
               u"Electronic",
               u"2018",
               FileKind::Wma,
               TagStyle::Asf,
               {u"Przystanek Zero", u"Żółty Tramwaj", u"Night Line 7"}},
    AlbumEntry{u"\\Storage Card\\Music\\月見草\\夜明けの歌",
               u"月見草",
               u"夜明けの歌",
               u"Ambient",
               u"2020",
               FileKind::Mp3Mono22k,
               TagStyle::Id3v23,
               {u"朝霧", u"川の音", u"星の庭"}},
    AlbumEntry{u"\\Storage Card\\Music\\Dusty Almanac\\Porch Light Sessions",
               u"Dusty Almanac",
               u"Porch Light Sessions",
               u"Country",
               u"2012",
               FileKind::Mp3Mono22k,
               TagStyle::Id3v22,
               {u"Porch Light", u"Rusty Gate Waltz", u"Two Dollar Moon"}},
    AlbumEntry{u"\\Storage Card\\Music\\Grey Heron Quartet\\Winter Sonatas",
               u"Grey Heron Quartet",
               u"Winter Sonatas",
               u"Classical",
               u"2015",
               FileKind::Wma,
               TagStyle::Asf,
               {u"Sonata in Frost I", u"Sonata in Frost II", u"Thaw", u"Heron at Dusk"}},
    AlbumEntry{u"\\Storage Card\\Music\\Vantablue\\Signal Bloom",
               u"Vantablue",
               u"Signal Bloom",
               u"Electronic",
               u"2022",
               FileKind::Aac,
               TagStyle::Id3v23V11,
               {u"Signal Bloom", u"Carrier Wave", u"Phase Lock"},
               true,
               76},
    AlbumEntry{u"\\Storage Card\\Music\\Tin Orchard\\Loose Threads",
               u"",
               u"",
               u"",
               u"",
               FileKind::Aac,
               TagStyle::None,
               {u"Loose Threads", u"Apple Crate"},
               true,
               82},
    AlbumEntry{u"\\Storage Card\\Music\\Unsorted",
               u"",
               u"",
               u"",
               u"",
               FileKind::Mp3Stereo128,
               TagStyle::None,
               {u"field recording 03"},
               false},
    AlbumEntry{
        kCard, u"", u"", u"", u"", FileKind::Mp3Stereo320, TagStyle::None, {u"voice memo"}, false},
    AlbumEntry{u"\\Flash Disk\\My Music\\Sable & Finch\\Harbour Songs",
               u"Sable & Finch",
               u"Harbour Songs",
               u"Folk",
               u"2014",
               FileKind::Mp3Stereo128,
               TagStyle::Id3v23V11,
               {u"Harbour Wall", u"Gull Weather", u"Net Mender"}},
    AlbumEntry{u"\\Flash Disk\\My Music\\Niño\\Canciones Cortas",
               u"Niño",
               u"Canciones Cortas",
               u"Latin",
               u"2023",
               FileKind::Mp3Stereo320,
               TagStyle::Id3v23V11,
               {u"Mañana Lenta", u"Pequeño Sol", u"Agua Dulce"}},
    AlbumEntry{u"\\Flash Disk\\My Music\\Podcasts\\Morning Notes",
               u"Lantern FM",
               u"Morning Notes",
               u"Speech",
               u"2024",
               FileKind::Mp3Mono22k,
               TagStyle::Id3v24,
               {u"Episode 1", u"Episode 2"}},
};

std::u16string_view ExtensionOf(FileKind kind) {
    switch (kind) {
    case FileKind::Mp3Stereo128:
    case FileKind::Mp3Stereo320:
    case FileKind::Mp3Mono22k:
        return u".mp3";
    case FileKind::Wma:
        return u".wma";
    case FileKind::Aac:
    case FileKind::AacLong:
        return u".aac";
    case FileKind::M4a:
        return u".m4a";
    case FileKind::CoverJpeg:
        return u".jpg";
    case FileKind::NotesText:
        return u".txt";
    case FileKind::ProgramFile:
        return u"";
    }
    return u"";
}

std::u16string TwoDigits(int number) {
    return {static_cast<char16_t>(u'0' + number / 10), static_cast<char16_t>(u'0' + number % 10)};
}

// 3 to 12 seconds, different from one track to the next.
int ShortLength(unsigned seed) {
    return 3 + static_cast<int>((seed * 7) % 10);
}

void AddAlbum(const AlbumEntry& album, std::vector<DemoFile>& out) {
    for (std::size_t i = 0; i < album.titles.size() && !album.titles[i].empty(); ++i) {
        DemoFile file;
        int track = static_cast<int>(i) + 1;
        std::u16string stem = std::u16string(album.titles[i]);
        if (album.numbered)
            stem = TwoDigits(track) + u" " + stem;
        file.kind = album.kind;
        file.tags = album.tags;
        file.seed = static_cast<unsigned>(out.size() + 1);
        file.seconds = ShortLength(file.seed);
        if (i == 0 && album.longFirstTrack > 0) {
            file.kind = FileKind::AacLong;
            file.seconds = album.longFirstTrack;
        }
        file.path =
            std::u16string(album.folder) + u"\\" + stem + std::u16string(ExtensionOf(album.kind));
        if (album.tags != TagStyle::None) {
            file.fields = {std::u16string(album.titles[i]), std::u16string(album.artist),
                           std::u16string(album.album),     std::u16string(album.genre),
                           std::u16string(album.year),      track};
        }
        out.push_back(std::move(file));
    }
}

DemoFile OddFile(std::u16string path, FileKind kind, TagStyle tags, TagFields fields,
                 std::string_view excluded, unsigned seed) {
    DemoFile file;
    file.path = std::move(path);
    file.kind = kind;
    file.tags = tags;
    file.fields = std::move(fields);
    file.seed = seed;
    file.seconds = IsAudio(kind) ? ShortLength(seed) : 0;
    file.excluded = excluded;
    return file;
}

} // namespace

std::vector<DemoFile> DemoCollection() {
    std::vector<DemoFile> files;
    for (const AlbumEntry& album : kAlbums)
        AddAlbum(album, files);

    auto seed = [&files] { return static_cast<unsigned>(files.size() + 1); };
    DemoFile hidden = OddFile(
        u"\\Storage Card\\Music\\Marrow Lane\\Paper Lanterns\\05 Bonus Sketch.mp3",
        FileKind::Mp3Stereo128, TagStyle::Id3v23V11,
        {u"Bonus Sketch", u"Marrow Lane", u"Paper Lanterns", u"Pop", u"2016", 5}, "hidden", seed());
    hidden.hidden = true;
    files.push_back(std::move(hidden));
    files.push_back(OddFile(
        u"\\Storage Card\\Music\\.Trash\\Old Demo.mp3", FileKind::Mp3Stereo128, TagStyle::Id3v24,
        {u"Old Demo", u"Marrow Lane", u"", u"Pop", u"2015", 0}, "dot-folder", seed()));
    files.push_back(OddFile(
        u"\\Flash Disk\\My Music\\Sable & Finch\\Harbour Songs\\04 Lantern Rain.m4a", FileKind::M4a,
        TagStyle::Mp4, {u"Lantern Rain", u"Sable & Finch", u"Harbour Songs", u"Folk", u"2014", 4},
        "not-music", seed()));
    files.push_back(OddFile(u"\\Storage Card\\Music\\Marrow Lane\\Paper Lanterns\\cover.jpg",
                            FileKind::CoverJpeg, TagStyle::None, {}, "not-music", seed()));
    files.push_back(OddFile(u"\\Flash Disk\\My Music\\notes.txt", FileKind::NotesText,
                            TagStyle::None, {}, "not-music", seed()));
    return files;
}

std::vector<std::u16string> DemoEmptyFolders() {
    return {u"\\Storage Card\\Music\\Empty Crate",
            std::u16string(kFlash) + u"\\My Music\\New Folder"};
}

std::string_view ManifestType(FileKind kind) {
    switch (kind) {
    case FileKind::Mp3Stereo128:
    case FileKind::Mp3Stereo320:
    case FileKind::Mp3Mono22k:
        return "mp3";
    case FileKind::Wma:
        return "wma";
    case FileKind::Aac:
    case FileKind::AacLong:
        return "aac";
    case FileKind::M4a:
        return "m4a";
    case FileKind::CoverJpeg:
    case FileKind::NotesText:
    case FileKind::ProgramFile:
        return "other";
    }
    return "other";
}

std::string_view ManifestTags(TagStyle tags) {
    switch (tags) {
    case TagStyle::None:
        return "none";
    case TagStyle::Id3v23:
        return "id3v23";
    case TagStyle::Id3v23V11:
        return "id3v23+id3v11";
    case TagStyle::Id3v24:
        return "id3v24";
    case TagStyle::Id3v22:
        return "id3v22";
    case TagStyle::Asf:
        return "asf";
    case TagStyle::Mp4:
        return "mp4";
    }
    return "none";
}

bool IsAudio(FileKind kind) {
    return kind != FileKind::CoverJpeg && kind != FileKind::NotesText &&
           kind != FileKind::ProgramFile;
}

} // namespace zelvor::demo
