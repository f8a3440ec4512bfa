#include <gtest/gtest.h>

#include "tags/audio_file_type.h"
#include "tags/track_record.h"
#include "platform/text.h"

namespace zelvor {
namespace {

TEST(TrackRecordFields, FreshRecordReadsEmptyTextsAndInitialNumbers) {
    TrackRecord r;
    for (int id : {0, 1, 2, 3, 4, 8}) {
        std::u16string out = u"sentinel";
        EXPECT_TRUE(r.GetField(id, out));
        EXPECT_EQ(out, u"") << id;
        EXPECT_FALSE(r.HasText(id));
    }
    std::int64_t n = 99;
    EXPECT_TRUE(r.GetField(kFieldRunTimeB, n));
    EXPECT_EQ(n, -1);
    EXPECT_TRUE(r.GetField(kFieldDuration, n));
    EXPECT_EQ(n, 0);
}

TEST(TrackRecordFields, PathSetsFileNameAndReplacesBoth) {
    TrackRecord r;
    r.SetField(kFieldTitle, u"Song");
    r.SetField(kFieldPath, u"\\Storage Card\\Music\\a.b.mp3");
    EXPECT_EQ(r.Text(kFieldFileName), u"a.b.mp3");
    r.SetField(kFieldPath, u"plain.wma");
    EXPECT_EQ(r.Text(kFieldPath), u"plain.wma");
    EXPECT_EQ(r.Text(kFieldFileName), u"plain.wma");
    EXPECT_EQ(r.Text(kFieldTitle), u"Song"); // neighbours in the shared buffer survive
}

TEST(TrackRecordFields, TextsKeepTheirValuesWhateverOrderTheyAreSetIn) {
    TrackRecord r;
    r.SetField(kFieldGenre, u"Jazz");
    r.SetField(kFieldTitle, u"A long title that needs the heap");
    r.SetField(kFieldArtist, u"Ärtist");
    r.SetField(kFieldTitle, u"T");
    r.SetField(kFieldAlbum, u"");
    EXPECT_EQ(r.Text(kFieldGenre), u"Jazz");
    EXPECT_EQ(r.Text(kFieldTitle), u"T");
    EXPECT_EQ(r.Text(kFieldArtist), u"Ärtist");
    EXPECT_TRUE(r.HasText(kFieldAlbum)); // set to empty is not none
    EXPECT_FALSE(r.HasText(kFieldPath));
    r.ClearText(kFieldArtist);
    EXPECT_FALSE(r.HasText(kFieldArtist));
    EXPECT_EQ(r.Text(kFieldGenre), u"Jazz");
}

TEST(TrackRecordFields, NumbersKeepTheFieldWidth) {
    TrackRecord r;
    r.SetField(kFieldTrackNumber, std::int64_t{0x12345});
    r.SetField(kFieldRunTimeB, std::int64_t{0xFFFF});
    r.SetField(kFieldDuration, std::int64_t{0x1'0000'0005});
    EXPECT_EQ(r.TrackNumber(), 0x2345);
    EXPECT_EQ(r.RunTimeB(), -1);
    EXPECT_EQ(r.Duration(), 5u);
}

TEST(TrackRecordFields, UnknownAndMismatchedIdsChangeNothing) {
    TrackRecord r;
    r.SetField(11, u"x");
    r.SetField(13, std::int64_t{7});
    r.SetField(kFieldDuration, u"text for a number");
    r.SetField(kFieldTitle, std::int64_t{3});
    EXPECT_FALSE(r.HasText(kFieldTitle));
    EXPECT_EQ(r.Duration(), 0u);
    for (int id : {11, 13, 14, 100}) {
        std::int64_t n = 42;
        std::u16string s = u"kept";
        EXPECT_FALSE(r.GetField(id, n));
        EXPECT_FALSE(r.GetField(id, s));
        EXPECT_EQ(n, 42);
        EXPECT_EQ(s, u"kept");
    }
}

TEST(TrackRecordFields, TextsOfTheSameRecordCanBeCopiedIntoOtherFields) {
    TrackRecord r;
    r.ReserveText(8); // far too small: the record grows as needed
    r.SetField(kFieldTitle, u"A title long enough to move the buffer when it grows");
    r.SetField(kFieldGenre, u"G");
    r.SetField(kFieldPath, r.Text(kFieldTitle));
    r.SetField(kFieldAlbum, r.Text(kFieldFileName));
    r.SetField(kFieldArtist, r.Text(kFieldArtist)); // none into itself: now set and empty
    EXPECT_EQ(r.Text(kFieldPath), u"A title long enough to move the buffer when it grows");
    EXPECT_EQ(r.Text(kFieldFileName), r.Text(kFieldPath));
    EXPECT_EQ(r.Text(kFieldAlbum), r.Text(kFieldPath));
    EXPECT_TRUE(r.HasText(kFieldArtist));
    EXPECT_EQ(r.Text(kFieldGenre), u"G");
}

TEST(TrackRecordFields, ShownTitleFallsBackToTheFileNameWithoutExtension) {
    TrackRecord r;
    EXPECT_EQ(ShownTitle(r), u"");
    r.SetField(kFieldPath, u"\\Storage Card\\Music\\a.b.mp3");
    EXPECT_EQ(ShownTitle(r), u"a.b");
    r.SetField(kFieldTitle, u"");
    EXPECT_EQ(ShownTitle(r), u"a.b");
    r.SetField(kFieldTitle, u"Real");
    EXPECT_EQ(ShownTitle(r), u"Real");
    EXPECT_EQ(FileNameOfPath(u"no-slash.tar.gz", true), u"no-slash.tar");
    EXPECT_EQ(FileNameOfPath(u"\\dir.d\\plain", true), u"plain");
}

TEST(TrackRecordClone, CopiesFieldsAndDerivesFileNameFromPath) {
    TrackRecord r;
    r.SetField(kFieldPath, u"\\Flash Disk\\x.aac");
    r.SetField(kFieldFileName, u"odd.name");
    r.SetField(kFieldArtist, u"Someone");
    r.SetField(kFieldRunTimeC, std::int64_t{9});
    auto c = r.Clone();
    EXPECT_EQ(c->Text(kFieldFileName), u"x.aac");
    EXPECT_EQ(c->Text(kFieldArtist), u"Someone");
    EXPECT_EQ(c->RunTimeC(), 9u);

    TrackRecord noPath;
    noPath.SetField(kFieldFileName, u"only.mp3");
    EXPECT_EQ(noPath.Clone()->Text(kFieldFileName), u"only.mp3");
    EXPECT_FALSE(noPath.Clone()->HasText(kFieldPath));
}

struct FilterCase {
    std::u16string_view name;
    AudioFileType expected;
};

void PrintTo(const FilterCase& c, std::ostream* os) {
    *os << ToUtf8(c.name);
}

class AudioFileFilter : public ::testing::TestWithParam<FilterCase> {};

TEST_P(AudioFileFilter, LooksAtTheLastFourCharactersIgnoringCase) {
    EXPECT_EQ(GetAudioFileType(GetParam().name), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Names, AudioFileFilter,
    ::testing::Values(FilterCase{u"SONG.MP3", kAudioMp3}, FilterCase{u"a.Mp3", kAudioMp3},
                      FilterCase{u".mp3", kAudioMp3}, FilterCase{u"track.WMA", kAudioWma},
                      FilterCase{u"track.aac", kAudioAac}, FilterCase{u"track.m4a", kNotMusic},
                      FilterCase{u"x.mp3x", kNotMusic}, FilterCase{u"x.mpeg", kNotMusic},
                      FilterCase{u"mp3", kNotMusic}, FilterCase{u"", kNotMusic},
                      FilterCase{u"song.mp3 ", kNotMusic}, FilterCase{u"a\\b.wma", kAudioWma}));

} // namespace
} // namespace zelvor
