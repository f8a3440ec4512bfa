// What the demo's media files really hold: the manifest has the line of every
// file of the collection, the player's own readers find its values in every
// file ffmpeg and the maker wrote, and the maker's ID3v1 block is the
// encoder's own.

#include "platform/text.h"
#include "tags/asf/analyse_wma_file.h"
#include "tags/build_track_record.h"
#include "tests/tools/demo_fixture.h"
#include "tools/zelvor_demo/id3_builder.h"
#include "tools/zelvor_demo/manifest.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace zelvor::testing {
namespace {
using demo::FileKind;
using demo::TagStyle;

using DemoTags = DemoTest;

TEST_F(DemoTags, TheManifestHoldsTheLineOfEveryFile) {
    std::ifstream in(Demo().rootA / "demo-manifest.jsonl", std::ios::binary);
    const std::string manifest(std::istreambuf_iterator<char>(in), {});
    for (const auto& file : Files())
        EXPECT_NE(manifest.find(demo::ManifestLine(file)), std::string::npos) << ToUtf8(file.path);
}

TEST_F(DemoTags, ThePlayersReadersFindTheManifestValues) {
    int read = 0;
    for (const auto& file : Files()) {
        if (!file.excluded.empty() || file.tags == TagStyle::None)
            continue;
        SCOPED_TRACE(ToUtf8(file.path));
        auto record = BuildTrackRecord(file.path);
        ASSERT_TRUE(record);
        EXPECT_EQ(record->Text(kFieldTitle), file.fields.title);
        EXPECT_EQ(record->Text(kFieldArtist), file.fields.artist);
        EXPECT_EQ(record->Text(kFieldAlbum), file.fields.album);
        EXPECT_EQ(record->Text(kFieldGenre), file.fields.genre);
        // The AAC reader takes the ID3v1 track byte only when byte 125 is not
        // zero, so a version 1.1 tag gives it none.
        if (demo::ManifestType(file.kind) != "aac") {
            EXPECT_EQ(record->TrackNumber(), file.fields.track);
        }
        if (file.kind == FileKind::Wma) {
            WmaFileInfo wma;
            ASSERT_EQ(AnalyseWmaFile(wma, file.path), 1);
            EXPECT_EQ(wma.year, file.fields.year);
        }
        ++read;
    }
    EXPECT_GE(read, 25);
}

// ffmpeg's own ID3v1 tag of an ASCII-only file is the reference for the
// hand-built one: both must give the same 128 bytes.
TEST_F(DemoTags, HandBuiltId3v1MatchesTheEncodersOwn) {
    int compared = 0;
    for (const auto& file : Files()) {
        const auto& f = file.fields;
        std::u16string texts = f.title + f.artist + f.album;
        if (file.tags != TagStyle::Id3v23V11 || demo::ManifestType(file.kind) != "mp3" ||
            std::any_of(texts.begin(), texts.end(), [](char16_t c) { return c >= 0x80; }))
            continue;
        auto built = demo::BuildId3v1Tag(f);
        const auto bytes = Read(file.path);
        ASSERT_TRUE(built && bytes.size() >= demo::kId3v1Size) << ToUtf8(file.path);
        EXPECT_TRUE(std::equal(built->begin(), built->end(), bytes.end() - demo::kId3v1Size))
            << ToUtf8(file.path);
        ++compared;
    }
    EXPECT_GE(compared, 3);
}

} // namespace
} // namespace zelvor::testing
