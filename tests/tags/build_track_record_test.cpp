#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tags/build_track_record.h"
#include "tests/support/test_device.h"
#include "tests/tags/tag_builders.h"

namespace zelvor {
namespace {

using namespace zelvor::testing;

class BuildRecord : public ::testing::Test {
protected:
    std::u16string Put(std::u16string_view name, const std::string& bytes) {
        std::u16string path = u"\\Storage Card\\Music\\" + std::u16string(name);
        m_device.WriteFile(path, bytes);
        return path;
    }
    TestDevice m_device;
};

std::string AdtsStream(std::size_t frames) {
    std::string out;
    for (std::size_t i = 0; i < frames; ++i)
        out += AdtsFrame({});
    return out;
}

TEST_F(BuildRecord, TitleFallsBackToTheFileNameWithoutExtension) {
    auto record = BuildTrackRecord(Put(u"a.b.mp3", MpegHeader({}) + std::string(417 * 100, '\0')));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->Text(kFieldFileName), u"a.b.mp3");
    EXPECT_EQ(record->Text(kFieldTitle), u"a.b");
    // MP3 and WMA set their texts even when empty.
    EXPECT_TRUE(record->HasText(kFieldAlbum));
    EXPECT_EQ(record->Text(kFieldAlbum), u"");
    EXPECT_EQ(record->Duration(), 2u);
}

TEST_F(BuildRecord, AFailingReaderMakesNoRecord) {
    EXPECT_FALSE(BuildTrackRecord(Put(u"silence.mp3", std::string(20000, '\0'))));
    EXPECT_FALSE(BuildTrackRecord(Put(u"video.wma", AsfHeader(1, AsfCodecList({2, 1})))));
    EXPECT_FALSE(BuildTrackRecord(Put(u"notasf.wma", std::string(100, 'x'))));
    EXPECT_FALSE(BuildTrackRecord(u"\\Storage Card\\Music\\missing.aac"));
    EXPECT_FALSE(BuildTrackRecord(Put(u"notes.txt", "text")));
    // The type code decides the reader: any code but 0 and 1 is AAC, whose
    // reader refuses a name that does not end in .aac.
    std::u16string mp3 = Put(u"real.mp3", MpegHeader({}) + std::string(1000, '\0'));
    EXPECT_TRUE(BuildTrackRecord(mp3, kAudioMp3));
    EXPECT_FALSE(BuildTrackRecord(mp3, kAudioAac));
    EXPECT_FALSE(BuildTrackRecord(mp3, 7));
}

TEST_F(BuildRecord, WmaFieldsAndWrappedDuration) {
    std::string wma =
        AsfHeader(3, AsfContentDescription(u"", u"Author") + AsfFileProperties(6000000000ULL) +
                         AsfExtendedContent({{u"WM/Genre", 0, AsfStringValue(u"Jazz")},
                                             {u"WM/TrackNumber", 3, Le32(70000)}}));
    auto record = BuildTrackRecord(Put(u"Track.WMA", wma));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->Text(kFieldTitle), u"Track");
    EXPECT_EQ(record->Text(kFieldArtist), u"Author");
    EXPECT_EQ(record->Text(kFieldGenre), u"Jazz");
    EXPECT_TRUE(record->HasText(kFieldAlbum)); // set even when empty, as for MP3
    EXPECT_EQ(record->Duration(), 170u);
    EXPECT_EQ(record->TrackNumber(), 70000 & 0xFFFF); // the field keeps 16 bits
}

TEST_F(BuildRecord, AacTextsOnlyWhenNonEmptyAndWholeSeconds) {
    std::string tagged =
        Id3v2TagBytes(3, Frame4Plain("TIT2", Latin1Text("Aac song"))) + AdtsStream(1000) +
        Id3v1({.artist = "Who", .comment = std::string(29, 'c') + "\x01", .genre = 3});
    tagged[tagged.size() - 2] = '\x0B'; // byte 126: the track under this reader's rule
    auto record = BuildTrackRecord(Put(u"SONG.AAC", tagged));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->Text(kFieldTitle), u"Aac song");
    EXPECT_EQ(record->Text(kFieldArtist), u"Who");
    EXPECT_EQ(record->Text(kFieldGenre), u"Dance");
    EXPECT_FALSE(record->HasText(kFieldAlbum));
    EXPECT_EQ(record->Duration(), 23u); // 23.2199 s, the fraction cut off
    EXPECT_EQ(record->TrackNumber(), 11);
}

TEST_F(BuildRecord, LinksAreFollowedOnlyWhileTheyStayOnTheDevice) {
    const std::string mp3 = MpegHeader({}) + std::string(1000, '\0');
    Put(u"inside.mp3", mp3);
    TempDir outside;
    { std::ofstream(outside.Path() / "outside.mp3", std::ios::binary) << mp3; }
    const auto folder = m_device.Host(u"\\Storage Card\\Music");
    std::filesystem::create_symlink(folder / "inside.mp3", folder / "near.mp3");
    std::filesystem::create_symlink(outside.Path() / "outside.mp3", folder / "far.mp3");
    std::filesystem::create_directory_symlink(outside.Path(), folder / "away");
    EXPECT_TRUE(BuildTrackRecord(u"\\Storage Card\\Music\\near.mp3"));
    EXPECT_FALSE(BuildTrackRecord(u"\\Storage Card\\Music\\far.mp3"));
    EXPECT_FALSE(BuildTrackRecord(u"\\Storage Card\\Music\\away\\outside.mp3"));
    EXPECT_FALSE(BuildTrackRecord(u"\\Storage Card\\Music\\Away\\outside.mp3"));
}

} // namespace
} // namespace zelvor
