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
    for (std::size_t offset : {0, 10000}) {
        Analysis a = Analyse(Zeros(offset) + header + Zeros(1000));
        EXPECT_EQ(a.info.layout.headerOffset, offset);
        EXPECT_EQ(a.info.flags, kMp3HasStream);
    }
    EXPECT_EQ(Analyse(Zeros(10001) + header + Zeros(1000)).result, 0);
    MemoryFile file = MemoryFileOf(std::string("\xFF\xFB\x90\x00", 4) + Zeros(10) + header);
    EXPECT_EQ(FindFrameSync(file, 1).offset, 14u);
    // Even behind an ID3v2 tag: its UTF-16 mark FF FE is taken for a header.
    EXPECT_EQ(Analyse(Id3v2TagBytes(3, Frame4("TIT2", Utf16Text(u"T"))) + header).info.layer, 1);
}

// The first header's frame length divides the bytes after it; each frame
// counts 26 ms.
TEST(Mp3Duration, EveryFrameOfTheFirstHeadersLengthCounts26Milliseconds) {
    struct Case {
        MpegHeaderBits bits;
        std::size_t after;
        int bitRate, sampleRate, duration;
    };
    for (const Case& c : {Case{{}, 4170000, 128, 44100, 260},
                          Case{{.versionBits = 2, .bitRateIndex = 5}, 417 * 1000 + 416, 64, 22050, 26},
                          Case{{.bitRateIndex = 0, .padding = 1}, 100000, 0, 44100, 2600},
                          Case{{.bitRateIndex = 15}, 100000, 0, 44100, 0}}) {
        Analysis a = Analyse(MpegHeader(c.bits) + Zeros(c.after));
        EXPECT_EQ(a.result, 1);
        EXPECT_EQ(a.info.bitRate, c.bitRate) << c.after;
        EXPECT_EQ(a.info.sampleRate, c.sampleRate) << c.after;
        EXPECT_EQ(a.info.duration, c.duration) << c.after;
    }
}

TEST(Mp3Merge, TheLongerTitleDecidesWhichTagGivesTheTexts) {
    const std::string v1 = Id3v1({.title = "Abcdef", .artist = "V1", .track = 2, .genre = 8});
    Analysis a = Analyse(Id3v2TagBytes(3, Frame4("TIT2", Latin1Text("Abc")) +
                                              Frame4("TPE1", Latin1Text("V2")) +
                                              Frame4("TRCK", Latin1Text("9"))) +
                         MpegHeader({}) + Zeros(1000) + v1);
    EXPECT_EQ(a.info.title + a.info.artist + a.info.genre, u"AbcdefV1Jazz");
    EXPECT_EQ(a.info.track, 2);
    // An empty ID3v1 title loses the other ID3v1 texts, but not the track.
    a = Analyse(MpegHeader({}) + Zeros(1000) + Id3v1({.artist = "Only", .track = 3, .genre = 1}));
    EXPECT_EQ(a.info.artist, u"");
    EXPECT_EQ(a.info.track, 3);
    // ID3v1 texts go through the device's code page.
    ASSERT_TRUE(SetDeviceCodePage("windows-1251"));
    std::u16string cyrillic = Analyse(Id3v1({.title = "\xC0\xE1\xE2  \t"})).info.title;
    ASSERT_TRUE(SetDeviceCodePage("windows-1252"));
    EXPECT_EQ(cyrillic, u"\u0410\u0431\u0432");
}

} // namespace
} // namespace zelvor
