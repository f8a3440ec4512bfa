// What the demo's media files really hold: the player's own readers find the
// manifest's values in every file ffmpeg and the maker wrote, and the maker's
// ID3v1 block is the encoder's own.

#include "platform/text.h"
#include "tags/asf/analyse_wma_file.h"
#include "tags/build_track_record.h"
#include "tags/mpeg/analyse_mp3_file.h"
#include "tests/tools/demo_fixture.h"
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
        if (row.type != "aac") {
            EXPECT_EQ(record->TrackNumber(), row.track);
        }
        if (row.type == "wma") {
            WmaFileInfo wma;
            ASSERT_EQ(AnalyseWmaFile(wma, row.path), 1);
            EXPECT_EQ(wma.year, row.year);
        }
        ++read;
    }
    EXPECT_GE(read, 25);
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
