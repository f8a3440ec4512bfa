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

TEST(Mp3FrameSync, LooksAtTheFirst10001PositionsFromTheFileStart) {
    const std::string header = MpegHeader({});
    for (std::size_t offset : {0, 9999, 10000}) {
        Analysis a = Analyse(Zeros(offset) + header + Zeros(1000));
        EXPECT_EQ(a.result, 1) << offset;
        EXPECT_EQ(a.info.layout.headerOffset, offset);
        EXPECT_EQ(a.info.flags, kMp3HasStream);
    }
    EXPECT_EQ(Analyse(Zeros(10001) + header + Zeros(1000)).result, 0);
    EXPECT_EQ(Analyse("\xFF\xFB\x90").result, 0); // fewer than 4 bytes
    MemoryFile file = MemoryFileOf(std::string("\xFF\xFB\x90\x00", 4) + Zeros(10) + header);
    FrameSync skipped = FindFrameSync(file, 1);
    EXPECT_EQ(skipped.offset, 14u);
    EXPECT_EQ(skipped.header, MpegHeaderValue({}));
    // Even behind an ID3v2 tag: its UTF-16 mark FF FE is taken for a header,
    EXPECT_EQ(Analyse(Id3v2TagBytes(3, Frame4("TIT2", Utf16Text(u"T"))) + header).info.layer, 1);
    // and a long tag without such bytes hides the stream altogether.
    std::string longTag = Id3v2TagBytes(3, Frame4("TIT2", Latin1Text(std::string(12000, 'a'))));
    EXPECT_EQ(Analyse(longTag + header + Zeros(5000)).result, 0);
}

TEST(Mp3Duration, EveryFrameOfTheFirstHeadersLengthCounts26Milliseconds) {
    // 417-byte frames: 4,170,000 bytes after the header are 10,000 frames.
    Analysis a = Analyse(MpegHeader({}) + Zeros(4170000));
    EXPECT_EQ(a.info.layout.frameCount, 10000u);
    EXPECT_EQ(a.info.duration, 260);
    EXPECT_EQ(a.info.bitRate, 128);
    a = Analyse(MpegHeader({.versionBits = 2, .bitRateIndex = 5}) + Zeros(417 * 1000 + 416));
    EXPECT_EQ(a.info.bitRate, 64); // MPEG-2 looks up its own row
    EXPECT_EQ(a.info.sampleRate, 22050);
    EXPECT_EQ(a.info.duration, 26);
    a = Analyse(MpegHeader({.bitRateIndex = 0, .padding = 1}) + Zeros(100000));
    EXPECT_EQ(a.info.duration, 2600); // free format: one-byte frames
    a = Analyse(MpegHeader({.bitRateIndex = 15}) + Zeros(100000));
    EXPECT_EQ(a.result, 1); // -1 is not kept, and a negative length counts no frames
    EXPECT_EQ(a.info.bitRate, 0);
    EXPECT_EQ(a.info.duration, 0);
    a = Analyse(MpegHeader({.layerBits = 3,
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
    EXPECT_EQ(a.info.sampleRate, 44100); // reserved index 3
    EXPECT_EQ(a.info.channelMode + a.info.copyright + a.info.original + a.info.emphasis, 7);
    EXPECT_EQ(a.info.layout.frameLength, 36);
}

TEST(Mp3Stream, ReservedVersionGivesNoStreamButTagsAreRead) {
    std::string header = MpegHeader({.versionBits = 1, .bitRateIndex = 5});
    EXPECT_EQ(Analyse(header + Zeros(5000)).result, 0);
    Analysis a = Analyse(header + Zeros(5000) + Id3v1({.title = "Tagged"}));
    EXPECT_EQ(a.result, 1);
    EXPECT_EQ(a.info.flags, kMp3HasId3v1);
    EXPECT_EQ(a.info.title, u"Tagged");
    EXPECT_EQ(Analyse(Id3v2TagBytes(3, Frame4("TIT2", Latin1Text("T"))) + Zeros(20000)).result, 0);
}

TEST(Mp3Id3v1, VersionOneOneCarriesTrackAndGenreThroughTheCodePage) {
    Analysis a = Analyse(MpegHeader({}) + Zeros(3000) +
                         Id3v1({.title = "  Song\t", .comment = std::string(28, 'c'), .track = 4,
                                .genre = 147}));
    EXPECT_EQ(a.info.flags, kMp3HasId3v1 | kMp3HasStream);
    EXPECT_EQ(a.info.title, u"Song");
    EXPECT_EQ(a.info.comment, std::u16string(28, u'c'));
    EXPECT_EQ(a.info.track, 4);
    EXPECT_EQ(a.info.genre, u"SynthPop");
    EXPECT_EQ(Analyse(Id3v1({.title = "T", .track = 1, .genre = 148})).info.genre, u"");
    a = Analyse(Id3v1({.title = "T", .comment = std::string(30, 'z'), .genre = 17}));
    EXPECT_EQ(a.info.genre, u""); // version 1.0 never yields a genre
    EXPECT_EQ(a.info.track, 0);
    const std::string tag = Id3v1({.title = "\xC0\xE1\xE2"});
    ASSERT_TRUE(SetDeviceCodePage("windows-1251"));
    std::u16string cyrillic = Analyse(tag).info.title;
    ASSERT_TRUE(SetDeviceCodePage("windows-1252"));
    EXPECT_EQ(cyrillic, u"\u0410\u0431\u0432");
}

TEST(Mp3Merge, TheLongerTitleDecidesWhichTagGivesTheTexts) {
    std::string v2 = Id3v2TagBytes(3, Frame4("TIT2", Latin1Text("Abc")) +
                                          Frame4("TPE1", Latin1Text("V2 artist")) +
                                          Frame4("TRCK", Latin1Text("9")));
    Analysis a =
        Analyse(v2 + MpegHeader({}) + Zeros(1000) +
                Id3v1({.title = "Abcdef", .artist = "V1", .album = "A1", .track = 2, .genre = 8}));
    EXPECT_EQ(a.info.title, u"Abcdef");
    EXPECT_EQ(a.info.artist, u"V1");
    EXPECT_EQ(a.info.genre, u"Jazz");
    EXPECT_EQ(a.info.track, 2);
    v2 = Id3v2TagBytes(3, Frame4("TIT2", Utf16Text(u"\u00C9t\u00E9 ")) +
                              Frame4("TPE1", Latin1Text(" Band ")) +
                              Frame4("TCON", Latin1Text("(8)")));
    a = Analyse(v2 + Zeros(100) + MpegHeader({}) + Zeros(1000) +
                Id3v1({.title = "Ete", .artist = "V1", .album = "A1", .track = 6, .genre = 17}));
    EXPECT_EQ(a.info.title, u"\u00C9t\u00E9"); // four characters before trimming, then trimmed
    EXPECT_EQ(a.info.artist, u"Band");
    EXPECT_EQ(a.info.album, u"");
    EXPECT_EQ(a.info.genre, u"Jazz");
    EXPECT_EQ(a.info.track, 6); // no ID3v2 track: the ID3v1 one
    // An empty ID3v1 title loses the other ID3v1 texts, but not the track.
    a = Analyse(MpegHeader({}) + Zeros(1000) + Id3v1({.artist = "Only", .track = 3, .genre = 1}));
    EXPECT_EQ(a.info.artist, u"");
    EXPECT_EQ(a.info.track, 3);
}

} // namespace
} // namespace zelvor
