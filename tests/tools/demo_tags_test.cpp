// What the demo's media files really hold, read back byte by byte: the
// hand-built ID3 tags, ffmpeg's ASF descriptors, and the MPEG encodings.

#include "platform/text.h"
#include "tests/tools/demo_fixture.h"
#include "tests/tools/media_probe.h"
#include "tools/zelvor_demo/id3_builder.h"

#include <gtest/gtest.h>
#include <set>
#include <tuple>

namespace zelvor::testing {
namespace {

// Standard ID3v1 numbers of the genres the collection uses, so the test does
// not lean on the maker's own table.
int StandardGenreNumber(std::u16string_view name) {
    static const std::pair<std::u16string_view, int> kNumbers[] = {
        {u"Country", 2},    {u"Jazz", 8},        {u"Pop", 13},  {u"Rock", 17},  {u"Ambient", 26},
        {u"Classical", 32}, {u"Electronic", 52}, {u"Folk", 80}, {u"Latin", 86}, {u"Speech", 101}};
    for (const auto& [genre, number] : kNumbers) {
        if (genre == name)
            return number;
    }
    return 255;
}

class DemoTags : public DemoTest {
protected:
    std::vector<std::byte> Read(const ManifestRow& row) { return ReadDeviceFile(Fs(), row.path); }
    template <typename Check>
    int ForEach(std::string_view type, std::string_view tags, Check check) {
        int count = 0;
        for (const auto& row : Rows()) {
            if (row.type == type && row.tags == tags) {
                SCOPED_TRACE(ToUtf8(row.path));
                check(row, Read(row));
                ++count;
            }
        }
        return count;
    }
};

void ExpectId3v1(const ManifestRow& row, const std::vector<std::byte>& bytes) {
    auto tag = ProbeId3v1(bytes);
    ASSERT_TRUE(tag);
    EXPECT_EQ(tag->title, row.title);
    EXPECT_EQ(tag->artist, row.artist);
    EXPECT_EQ(tag->album, row.album);
    EXPECT_EQ(tag->year, row.year);
    EXPECT_EQ(tag->zeroByte, 0); // version 1.1: the track byte follows
    EXPECT_EQ(tag->track, row.track);
    EXPECT_EQ(tag->genre, StandardGenreNumber(row.genre));
}

// The frames that hold a row's title, artist, album and track, by their 2.2
// ids or their 2.3 and 2.4 ones; a row without a track has no track frame.
void ExpectId3v2Texts(Id3v2Probe& tag, const ManifestRow& row) {
    bool v22 = tag.version == 2;
    EXPECT_EQ(tag.texts[v22 ? "TT2" : "TIT2"], row.title);
    EXPECT_EQ(tag.texts[v22 ? "TP1" : "TPE1"], row.artist);
    EXPECT_EQ(tag.texts[v22 ? "TAL" : "TALB"], row.album);
    EXPECT_EQ(tag.texts[v22 ? "TRK" : "TRCK"],
              row.track > 0 ? FromUtf8(std::to_string(row.track)) : u"");
}

TEST_F(DemoTags, Id3v22TagIsExactAndTheStreamFollowsIt) {
    int files =
        ForEach("mp3", "id3v22", [](const ManifestRow& row, const std::vector<std::byte>& bytes) {
            auto tag = ProbeId3v2(bytes);
            ASSERT_TRUE(tag);
            EXPECT_EQ(tag->version, 2);
            EXPECT_EQ(std::to_integer<int>(bytes[4]), 0); // revision
            EXPECT_EQ(std::to_integer<int>(bytes[5]), 0); // flags
            EXPECT_TRUE(tag->sizeBytesSyncsafe);
            ExpectId3v2Texts(*tag, row);
            EXPECT_EQ(tag->texts["TCO"],
                      FromUtf8("(" + std::to_string(StandardGenreNumber(row.genre)) + ")"));
            EXPECT_EQ(tag->texts["TYE"], row.year);
            // The MPEG stream starts right behind the tag.
            ASSERT_LT(tag->tagLength + 2, bytes.size());
            EXPECT_EQ(std::to_integer<int>(bytes[tag->tagLength]), 0xFF);
            EXPECT_EQ(std::to_integer<int>(bytes[tag->tagLength + 1]) & 0xE0, 0xE0);
            EXPECT_FALSE(ProbeId3v1(bytes));
        });
    EXPECT_GE(files, 4);
}

TEST_F(DemoTags, Mp3TagsHoldTheManifestValues) {
    auto check = [](const ManifestRow& row, const std::vector<std::byte>& bytes) {
        auto tag = ProbeId3v2(bytes);
        ASSERT_TRUE(tag);
        EXPECT_EQ(tag->version, row.tags == "id3v24" ? 4 : 3);
        ExpectId3v2Texts(*tag, row);
        EXPECT_EQ(tag->texts["TCON"], row.genre);
        EXPECT_EQ(tag->texts[row.tags == "id3v24" ? "TDRC" : "TYER"], row.year);
        if (row.tags == "id3v23+id3v11") {
            ExpectId3v1(row, bytes);
        } else {
            EXPECT_FALSE(ProbeId3v1(bytes));
        }
    };
    EXPECT_GE(ForEach("mp3", "id3v23+id3v11", check), 8);
    EXPECT_GE(ForEach("mp3", "id3v23", check), 3);
    EXPECT_GE(ForEach("mp3", "id3v24", check), 4);
    ForEach("mp3", "none", [](const ManifestRow&, const std::vector<std::byte>& bytes) {
        EXPECT_FALSE(ProbeId3v2(bytes));
        EXPECT_FALSE(ProbeId3v1(bytes));
    });
}

// ffmpeg's own ID3v1 tag of an ASCII-only file is the reference for the
// hand-built one: both must give the same 128 bytes.
TEST_F(DemoTags, HandBuiltId3v1MatchesTheEncodersOwn) {
    int compared = 0;
    ForEach(
        "mp3", "id3v23+id3v11", [&](const ManifestRow& row, const std::vector<std::byte>& bytes) {
            bool ascii = true;
            for (const auto* text : {&row.title, &row.artist, &row.album})
                for (char16_t c : *text)
                    ascii = ascii && c < 0x80;
            if (!ascii)
                return;
            auto built = demo::BuildId3v1Tag({row.title, row.artist, row.album, row.genre, row.year,
                                              static_cast<int>(row.track)});
            ASSERT_TRUE(built);
            ASSERT_GE(bytes.size(), demo::kId3v1Size);
            EXPECT_TRUE(std::equal(built->begin(), built->end(), bytes.end() - demo::kId3v1Size));
            ++compared;
        });
    EXPECT_GE(compared, 3);
}

TEST_F(DemoTags, TaggedAacHasId3v230InFrontAndId3v11Behind) {
    int files = ForEach(
        "aac", "id3v23+id3v11", [](const ManifestRow& row, const std::vector<std::byte>& bytes) {
            auto tag = ProbeId3v2(bytes);
            ASSERT_TRUE(tag);
            EXPECT_EQ(tag->version, 3);
            EXPECT_EQ(std::to_integer<int>(bytes[4]), 0); // revision 0: the AAC reader insists
            ExpectId3v2Texts(*tag, row);
            EXPECT_TRUE(IsAdtsHeader(bytes, tag->tagLength));
            ExpectId3v1(row, bytes);
        });
    EXPECT_GE(files, 3);
    ForEach("aac", "none", [](const ManifestRow&, const std::vector<std::byte>& bytes) {
        EXPECT_TRUE(IsAdtsHeader(bytes, 0));
        EXPECT_FALSE(ProbeId3v1(bytes));
    });
}

TEST_F(DemoTags, WmaDescriptorsHoldTheManifestValues) {
    int files =
        ForEach("wma", "asf", [](const ManifestRow& row, const std::vector<std::byte>& bytes) {
            auto texts = ProbeAsfTexts(bytes);
            ASSERT_TRUE(texts);
            EXPECT_EQ((*texts)[u"Title"], row.title);
            EXPECT_EQ((*texts)[u"Author"], row.artist);
            EXPECT_EQ((*texts)[u"WM/AlbumTitle"], row.album);
            EXPECT_EQ((*texts)[u"WM/Genre"], row.genre);
            EXPECT_EQ((*texts)[u"WM/TrackNumber"], FromUtf8(std::to_string(row.track)));
            EXPECT_EQ((*texts)[u"WM/Year"], row.year);
        });
    EXPECT_GE(files, 5);
}

TEST_F(DemoTags, Mp3EncodingsIncludeTheThreeKinds) {
    std::set<std::tuple<int, int, int, bool>> kinds; // version, kbps, Hz, mono
    for (const auto& row : Rows()) {
        if (row.type != "mp3")
            continue;
        auto bytes = Read(row);
        auto tag = ProbeId3v2(bytes);
        auto frame = ProbeMpeg(bytes, tag ? tag->tagLength : 0);
        ASSERT_TRUE(frame) << ToUtf8(row.path);
        EXPECT_EQ(frame->layer, 3) << ToUtf8(row.path);
        kinds.insert({frame->version, frame->kbps, frame->hz, frame->mono});
    }
    EXPECT_TRUE(kinds.count({1, 128, 44100, false}));
    EXPECT_TRUE(kinds.count({1, 320, 44100, false}));
    EXPECT_TRUE(kinds.count({2, 64, 22050, true}));
}

} // namespace
} // namespace zelvor::testing
