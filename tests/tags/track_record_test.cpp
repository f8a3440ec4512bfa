#include <gtest/gtest.h>

#include "tags/audio_file_type.h"
#include "tags/track_record.h"
#include "platform/text.h"

namespace zelvor {
namespace {

TEST(TrackRecordFields, TextsSharingOneBufferKeepTheirValues) {
    TrackRecord r;
    EXPECT_EQ(r.RunTimeB(), -1);
    r.ReserveText(8); // far too small: the record grows as needed
    r.SetField(kFieldGenre, u"Jazz");
    r.SetField(kFieldTitle, u"A title long enough to move the buffer when it grows");
    r.SetField(kFieldPath, r.Text(kFieldTitle));
    r.SetField(kFieldPath, u"\\Storage Card\\Music\\a.b.mp3");
    r.SetField(kFieldAlbum, r.Text(kFieldFileName));
    r.SetField(kFieldArtist, r.Text(kFieldArtist)); // none into itself: now set and empty
    EXPECT_EQ(r.Text(kFieldFileName), u"a.b.mp3");
    EXPECT_EQ(r.Text(kFieldAlbum), u"a.b.mp3");
    EXPECT_EQ(r.Text(kFieldGenre), u"Jazz");
    EXPECT_TRUE(r.HasText(kFieldArtist));
    r.ClearText(kFieldArtist);
    EXPECT_FALSE(r.HasText(kFieldArtist));
    // Unknown or mismatched ids change nothing and read nothing.
    r.SetField(11, u"x");
    r.SetField(kFieldDuration, u"text for a number");
    r.SetField(kFieldTitle, std::int64_t{3});
    std::int64_t n = 42;
    EXPECT_FALSE(r.GetField(11, n));
    EXPECT_EQ(n, 42);
    EXPECT_EQ(r.Duration(), 0u);
    // Numbers keep the field's width.
    r.SetField(kFieldTrackNumber, std::int64_t{0x12345});
    r.SetField(kFieldRunTimeB, std::int64_t{0xFFFF});
    r.SetField(kFieldDuration, std::int64_t{0x1'0000'0005});
    EXPECT_EQ(r.TrackNumber(), 0x2345);
    EXPECT_EQ(r.RunTimeB(), -1);
    EXPECT_EQ(r.Duration(), 5u);
    // A clone derives its file name from the path.
    r.SetField(kFieldFileName, u"odd.name");
    EXPECT_EQ(r.Clone()->Text(kFieldFileName), u"a.b.mp3");
}

TEST(TrackRecordFields, ShownTitleFallsBackToTheFileNameWithoutExtension) {
    TrackRecord r;
    r.SetField(kFieldPath, u"\\Storage Card\\Music\\a.b.mp3");
    EXPECT_EQ(ShownTitle(r), u"a.b");
    r.SetField(kFieldTitle, u"Real");
    EXPECT_EQ(ShownTitle(r), u"Real");
    EXPECT_EQ(FileNameOfPath(u"\\dir.d\\plain", true), u"plain");
}

TEST(AudioFileFilter, LooksAtTheLastFourCharactersIgnoringCase) {
    const std::pair<std::u16string_view, AudioFileType> names[] = {
        {u"SONG.MP3", kAudioMp3}, {u".mp3", kAudioMp3},   {u"a\\b.wma", kAudioWma},
        {u"t.aac", kAudioAac},    {u"t.m4a", kNotMusic},  {u"x.mp3x", kNotMusic},
        {u"mp3", kNotMusic},      {u"s.mp3 ", kNotMusic}, {u"", kNotMusic}};
    for (const auto& [name, type] : names)
        EXPECT_EQ(GetAudioFileType(name), type) << ToUtf8(name);
}

} // namespace
} // namespace zelvor
