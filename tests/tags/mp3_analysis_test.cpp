#include <gtest/gtest.h>

#include "platform/text.h"
#include "tags/mpeg/analyse_mp3_file.h"
#include "tags/mpeg/frame_sync.h"
#include "tags/mpeg/mpeg_header.h"
#include "tests/support/test_device.h"
#include "tests/tags/tag_builders.h"

namespace zelvor {
namespace {

using namespace zelvor::testing;

struct Analysis {
    int result = 0;
    Mp3FileInfo info;
};

Analysis Analyse(const std::string& bytes) {
    Analysis a;
    MemoryFile file = MemoryFileOf(bytes);
    a.result = AnalyseMp3File(a.info, file, u"\\Storage Card\\x.mp3");
    return a;
}

std::string Zeros(std::size_t n) {
    return std::string(n, '\0');
}

TEST(Mp3FrameSync, LooksAtTheFirst10001PositionsOnly) {
    const std::string header = MpegHeader({});
    for (std::size_t offset :
         {std::size_t{0}, std::size_t{1}, std::size_t{9999}, std::size_t{10000}}) {
        Analysis a = Analyse(Zeros(offset) + header + Zeros(1000));
        EXPECT_EQ(a.result, 1) << offset;
        EXPECT_EQ(a.info.layout.headerOffset, offset);
        EXPECT_EQ(a.info.flags, kMp3HasStream);
    }
    EXPECT_EQ(Analyse(Zeros(10001) + header + Zeros(1000)).result, 0);
    EXPECT_EQ(Analyse("\xFF\xFB\x90").result, 0); // fewer than 4 bytes

    MemoryFile file = MemoryFileOf(std::string("\xFF\xFB\x90\x00", 4) + Zeros(10) + header);
    FrameSync skipped = FindFrameSync(file, 1);
    EXPECT_TRUE(skipped.found);
    EXPECT_EQ(skipped.offset, 14u);
    EXPECT_EQ(skipped.header, MpegHeaderValue({}));
}

TEST(Mp3FrameSync, SearchStartsAtZeroEvenBehindAnId3v2Tag) {
    // The UTF-16 mark FF FE inside the tag is taken for a frame header.
    std::string tag = Id3v2TagBytes(3, Frame4("TIT2", Utf16Text(u"Title")));
    Analysis a = Analyse(tag + MpegHeader({}) + Zeros(5000));
    EXPECT_EQ(a.info.layout.headerOffset, 21u);
    EXPECT_EQ(a.info.layer, 1); // FF FE 54 00 read as MPEG-1 Layer I
    // A long tag without such bytes hides the stream altogether.
    std::string longTag = Id3v2TagBytes(3, Frame4("TIT2", Latin1Text(std::string(12000, 'a'))));
    EXPECT_EQ(Analyse(longTag + MpegHeader({}) + Zeros(5000)).result, 0);
}

TEST(Mp3Duration, EveryFrameCounts26Milliseconds) {
    // 128 kbit/s at 44.1 kHz, no padding: 417-byte frames; 4,170,000 bytes
    // after the header position are 10,000 frames and 260 seconds.
    Analysis a = Analyse(MpegHeader({}) + Zeros(4170000));
    EXPECT_EQ(a.info.layout.frameLength, 417);
    EXPECT_EQ(a.info.layout.frameCount, 10000u);
    EXPECT_EQ(a.info.duration, 260);
    EXPECT_EQ(a.info.bitRate, 128);
    EXPECT_EQ(a.info.sampleRate, 44100);
    EXPECT_EQ(a.info.framesCounted, 1u);
    EXPECT_EQ(a.info.layout.fileSize, 4170004u);
    // MPEG-2 looks up its own row, and still counts 26 ms per frame.
    a = Analyse(MpegHeader({.versionBits = 2, .bitRateIndex = 5}) + Zeros(417 * 1000 + 416));
    EXPECT_EQ(a.info.bitRate, 64);
    EXPECT_EQ(a.info.sampleRate, 22050);
    EXPECT_EQ(a.info.duration, 26);
}

TEST(Mp3Duration, BitRateIndexesZeroAndFifteen) {
    // Free format with padding: one-byte frames.
    Analysis a = Analyse(MpegHeader({.bitRateIndex = 0, .padding = 1}) + Zeros(100000));
    EXPECT_EQ(a.info.bitRate, 0);
    EXPECT_EQ(a.info.layout.frameLength, 1);
    EXPECT_EQ(a.info.duration, 2600);
    // Index 15: -1 is not kept and gives a negative length: no frames.
    a = Analyse(MpegHeader({.bitRateIndex = 15}) + Zeros(100000));
    EXPECT_EQ(a.result, 1);
    EXPECT_EQ(a.info.flags, kMp3HasStream);
    EXPECT_EQ(a.info.bitRate, 0);
    EXPECT_EQ(a.info.layout.frameLength, -3);
    EXPECT_EQ(a.info.duration, 0);
}

TEST(Mp3Stream, ReservedVersionGivesNoStreamFieldsButTagsAreRead) {
    std::string header = MpegHeader({.versionBits = 1, .bitRateIndex = 5});
    Analysis a = Analyse(header + Zeros(5000));
    EXPECT_EQ(a.result, 0);
    EXPECT_EQ(a.info.version, kMpegVersionReserved);
    EXPECT_EQ(a.info.layer, 3);
    EXPECT_EQ(a.info.bitRate, 0);
    EXPECT_EQ(a.info.sampleRate, 0);

    a = Analyse(header + Zeros(5000) + Id3v1({.title = "Tagged"}));
    EXPECT_EQ(a.result, 1);
    EXPECT_EQ(a.info.flags, kMp3HasId3v1);
    EXPECT_EQ(a.info.title, u"Tagged");
    EXPECT_EQ(a.info.duration, 0);
}

TEST(Mp3Stream, HeaderBitsAsTheyStand) {
    Analysis a = Analyse(MpegHeader({.layerBits = 3,
                                     .protection = 0,
                                     .bitRateIndex = 1,
                                     .sampleRateIndex = 3,
                                     .padding = 1,
                                     .channelMode = 3,
                                     .copyright = 1,
                                     .original = 1,
                                     .emphasis = 2}) +
                         Zeros(2000));
    EXPECT_EQ(a.info.layer, 1);
    EXPECT_EQ(a.info.protection, 0);
    EXPECT_EQ(a.info.bitRate, 32);
    EXPECT_EQ(a.info.sampleRate, 44100); // reserved index 3
    EXPECT_EQ(a.info.channelMode, 3);
    EXPECT_EQ(a.info.copyright, 1);
    EXPECT_EQ(a.info.original, 1);
    EXPECT_EQ(a.info.emphasis, 2);
    EXPECT_EQ(a.info.layout.frameLength, 36);

    // A reserved layer looks up no bit rate: the frame is the padding alone.
    a = Analyse(MpegHeader({.layerBits = 0, .padding = 1}) + Zeros(1000));
    EXPECT_EQ(a.info.layer, 0);
    EXPECT_EQ(a.info.bitRate, 0);
    EXPECT_EQ(a.info.layout.frameLength, 1);
}

TEST(Mp3Id3v1, VersionOneOneCarriesTrackAndGenre) {
    Analysis a = Analyse(MpegHeader({}) + Zeros(3000) +
                         Id3v1({.title = "  Song\t",
                                .artist = "Art\xE9",
                                .album = "Alb",
                                .year = "1999",
                                .comment = std::string(28, 'c'),
                                .track = 4,
                                .genre = 147}));
    EXPECT_EQ(a.info.flags, kMp3HasId3v1 | kMp3HasStream);
    EXPECT_EQ(a.info.title, u"Song");
    EXPECT_EQ(a.info.artist, u"Art\u00E9");
    EXPECT_EQ(a.info.year, u"1999");
    EXPECT_EQ(a.info.comment, std::u16string(28, u'c'));
    EXPECT_EQ(a.info.track, 4);
    EXPECT_EQ(a.info.genreIndex, 147);
    EXPECT_EQ(a.info.genre, u"SynthPop");

    for (std::uint8_t genre : {148, 255}) {
        a = Analyse(Id3v1({.title = "T", .track = 1, .genre = genre}));
        EXPECT_EQ(a.info.genreIndex, genre);
        EXPECT_EQ(a.info.genre, u"");
    }
}

TEST(Mp3Id3v1, TextsGoThroughTheDeviceCodePage) {
    const std::string tag = Id3v1({.title = "\xC0\xE1\xE2", .artist = "x"});
    ASSERT_TRUE(SetDeviceCodePage("windows-1251"));
    std::u16string cyrillic = Analyse(tag).info.title;
    ASSERT_TRUE(SetDeviceCodePage("windows-1252"));
    EXPECT_EQ(cyrillic, u"\u0410\u0431\u0432");
    EXPECT_EQ(Analyse(tag).info.title, u"\u00C0\u00E1\u00E2");
}

TEST(Mp3Id3v1, VersionOneZeroNeverYieldsAGenre) {
    Analysis a = Analyse(Id3v1({.title = "T", .comment = std::string(30, 'z'), .genre = 17}));
    EXPECT_EQ(a.result, 1);
    EXPECT_EQ(a.info.comment, std::u16string(30, u'z'));
    EXPECT_EQ(a.info.genre, u"");
    EXPECT_EQ(a.info.genreIndex, 255);
    EXPECT_EQ(a.info.track, 0);
    EXPECT_EQ(Analyse(Id3v1({.title = "T"}).substr(1)).result, 0); // 127 bytes
}

TEST(Mp3Merge, LongerId3v1TitleKeepsAllFourId3v1Texts) {
    std::string v2 = Id3v2TagBytes(3, Frame4("TIT2", Latin1Text("Abc")) +
                                          Frame4("TPE1", Latin1Text("V2 artist")) +
                                          Frame4("TRCK", Latin1Text("9")));
    Analysis a =
        Analyse(v2 + MpegHeader({}) + Zeros(1000) +
                Id3v1({.title = "Abcdef", .artist = "V1", .album = "A1", .track = 2, .genre = 8}));
    EXPECT_EQ(a.info.title, u"Abcdef");
    EXPECT_EQ(a.info.artist, u"V1");
    EXPECT_EQ(a.info.album, u"A1");
    EXPECT_EQ(a.info.genre, u"Jazz");
    EXPECT_EQ(a.info.track, 2);
}

TEST(Mp3Merge, Id3v2TextsReplaceWhenItsTitleIsAtLeastAsLong) {
    std::string v2 = Id3v2TagBytes(3, Frame4("TIT2", Utf16Text(u"\u00C9t\u00E9 ")) +
                                          Frame4("TPE1", Latin1Text(" Band ")) +
                                          Frame4("TCON", Latin1Text("(8)")));
    Analysis a =
        Analyse(v2 + Zeros(100) + MpegHeader({}) + Zeros(1000) +
                Id3v1({.title = "Ete", .artist = "V1", .album = "A1", .track = 6, .genre = 17}));
    EXPECT_EQ(a.info.title, u"\u00C9t\u00E9"); // four characters before trimming, then trimmed
    EXPECT_EQ(a.info.artist, u"Band");
    EXPECT_EQ(a.info.album, u"");
    EXPECT_EQ(a.info.genre, u"Jazz");
    EXPECT_EQ(a.info.track, 6); // no ID3v2 track: the ID3v1 one
}

TEST(Mp3Merge, EmptyId3v1TitleLosesTheOtherId3v1Texts) {
    Analysis a = Analyse(MpegHeader({}) + Zeros(1000) +
                         Id3v1({.artist = "Only artist", .track = 3, .genre = 1}));
    EXPECT_EQ(a.result, 1);
    EXPECT_EQ(a.info.title, u"");
    EXPECT_EQ(a.info.artist, u"");
    EXPECT_EQ(a.info.genre, u"");
    EXPECT_EQ(a.info.track, 3);
}

TEST(Mp3Merge, Id3v2AloneIsNotEnough) {
    EXPECT_EQ(Analyse(Id3v2TagBytes(3, Frame4("TIT2", Latin1Text("Title"))) + Zeros(20000)).result,
              0);
}

TEST(Mp3Analysis, ByPathThroughTheDevice) {
    TestDevice device;
    device.WriteFile(u"\\Storage Card\\Music\\a.mp3", MpegHeader({}) + Zeros(417 * 10));
    Mp3FileInfo info;
    info.title = u"left over";
    EXPECT_EQ(AnalyseMp3File(info, u"\\Storage Card\\Music\\a.mp3"), 1);
    EXPECT_EQ(info.title, u"");
    EXPECT_EQ(AnalyseMp3File(info, u"\\Storage Card\\Music\\missing.mp3"), 0);
}

} // namespace
} // namespace zelvor
