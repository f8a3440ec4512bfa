// What the demo's media files really hold: the player's own readers find the
// manifest's values in every file ffmpeg and the maker wrote, and the tags
// around the encoded streams are laid out byte for byte as each kind says.

#include "platform/text.h"
#include "tags/asf/analyse_wma_file.h"
#include "tags/build_track_record.h"
#include "tags/genre_names.h"
#include "tags/mpeg/analyse_mp3_file.h"
#include "tests/tools/demo_fixture.h"
#include "tests/tools/media_probe.h"
#include "tools/zelvor_demo/id3_builder.h"

#include <gtest/gtest.h>
#include <set>
#include <tuple>

namespace zelvor::testing {
namespace {

using DemoTags = DemoTest;

TEST_F(DemoTags, ThePlayersReadersFindTheManifestValues) {
    int read = 0;
    for (const auto& row : Rows()) {
        if (!row.excluded.empty() || row.tags == "none")
            continue;
        SCOPED_TRACE(ToUtf8(row.path));
        auto record = BuildTrackRecord(row.path);
        ASSERT_TRUE(record);
        EXPECT_EQ(record->Text(kFieldTitle), row.title);
        EXPECT_EQ(record->Text(kFieldArtist), row.artist);
        EXPECT_EQ(record->Text(kFieldAlbum), row.album);
        EXPECT_EQ(record->Text(kFieldGenre), row.genre);
        // The AAC reader takes the ID3v1 track byte only when byte 125 is not
        // zero, so a version 1.1 tag gives it none.
        if (row.type != "aac")
            EXPECT_EQ(record->TrackNumber(), row.track);
        if (row.type == "wma") {
            WmaFileInfo wma;
            ASSERT_EQ(AnalyseWmaFile(wma, row.path), 1);
            EXPECT_EQ(wma.year, row.year);
        }
        ++read;
    }
    EXPECT_GE(read, 25);
}

// The ID3v2 version of each layout, the year frame, the stream right behind
// the tag and the ID3v1.1 block (genre by its standard number) only where the
// layout has one.
TEST_F(DemoTags, TagLayoutsHoldTheManifestValuesByteForByte) {
    const std::map<std::string, int> kVersion{{"id3v22", 2}, {"id3v23", 3}, {"id3v23+id3v11", 3},
                                              {"id3v24", 4}, {"none", 0}};
    const std::map<int, std::string> kYearFrame{{2, "TYE"}, {3, "TYER"}, {4, "TDRC"}};
    std::map<std::string, int> seen;
    for (const auto& row : Rows()) {
        if (row.type != "mp3" && row.type != "aac")
            continue;
        SCOPED_TRACE(ToUtf8(row.path));
        const auto bytes = Read(row.path);
        auto tag = ProbeId3v2(bytes);
        ASSERT_EQ(tag ? tag->version : 0, kVersion.at(row.tags));
        const std::size_t stream = tag ? tag->tagLength : 0;
        if (tag) {
            EXPECT_EQ(std::to_integer<int>(bytes[4]), 0); // revision 0: the AAC reader insists
            EXPECT_EQ(std::to_integer<int>(bytes[5]), 0); // no flags
            EXPECT_TRUE(tag->sizeBytesSyncsafe);
            EXPECT_EQ(tag->texts[kYearFrame.at(tag->version)], row.year);
            EXPECT_EQ(tag->texts[tag->version == 2 ? "TRK" : "TRCK"], 
                      row.track > 0 ? FromUtf8(std::to_string(row.track)) : u"");
        }
        if (row.type == "aac") {
            EXPECT_TRUE(IsAdtsHeader(bytes, stream));
        } else {
            ASSERT_LT(stream + 2, bytes.size());
            EXPECT_EQ(std::to_integer<int>(bytes[stream]), 0xFF);
            EXPECT_EQ(std::to_integer<int>(bytes[stream + 1]) & 0xE0, 0xE0);
        }
        Mp3FileInfo v1;
        const bool hasV1 = bytes.size() >= 128 && ReadMp3Id3v1(v1, std::span(bytes).last(128));
        ASSERT_EQ(hasV1, row.tags.ends_with("id3v11"));
        if (hasV1) {
            EXPECT_EQ(std::tie(v1.title, v1.artist, v1.album, v1.year),
                      std::tie(row.title, row.artist, row.album, row.year));
            EXPECT_EQ(v1.track, row.track); // read only from a version 1.1 tag
            // The genre's number in the player's table; 255 for a genre it lacks.
            const auto& names = GenreNamesUtf16;
            auto named = std::find(names.begin(), names.end(), row.genre);
            EXPECT_EQ(v1.genreIndex, named == names.end() ? 255 : named - names.begin());
        }
        ++seen[row.type + ":" + row.tags];
    }
    for (const char* layout :
         {"mp3:id3v23+id3v11", "mp3:id3v23", "mp3:id3v24", "mp3:id3v22", "aac:id3v23+id3v11"})
        EXPECT_GE(seen[layout], 3) << layout;
}

// ffmpeg's own ID3v1 tag of an ASCII-only file is the reference for the
// hand-built one: both must give the same 128 bytes.
TEST_F(DemoTags, HandBuiltId3v1MatchesTheEncodersOwn) {
    int compared = 0;
    for (const auto& row : Rows()) {
        std::u16string texts = row.title + row.artist + row.album;
        if (row.tags != "id3v23+id3v11" || row.type != "mp3" ||
            std::any_of(texts.begin(), texts.end(), [](char16_t c) { return c >= 0x80; }))
            continue;
        auto built = demo::BuildId3v1Tag(
            {row.title, row.artist, row.album, row.genre, row.year, static_cast<int>(row.track)});
        const auto bytes = Read(row.path);
        ASSERT_TRUE(built && bytes.size() >= demo::kId3v1Size) << ToUtf8(row.path);
        EXPECT_TRUE(std::equal(built->begin(), built->end(), bytes.end() - demo::kId3v1Size))
            << ToUtf8(row.path);
        ++compared;
    }
    EXPECT_GE(compared, 3);
}

TEST_F(DemoTags, Mp3EncodingsIncludeTheThreeKinds) {
    std::set<std::tuple<int, int, int, bool>> kinds; // MPEG version, kbps, Hz, mono
    for (const auto& row : Rows()) {
        Mp3FileInfo info;
        if (row.type == "mp3" && AnalyseMp3File(info, row.path) == 1)
            kinds.insert({info.version, info.bitRate, info.sampleRate, info.channelMode == 3});
    }
    EXPECT_TRUE(kinds.count({3, 128, 44100, false}));
    EXPECT_TRUE(kinds.count({3, 320, 44100, false}));
    EXPECT_TRUE(kinds.count({2, 64, 22050, true}));
}

} // namespace
} // namespace zelvor::testing
