#include <cmath>
#include <gtest/gtest.h>

#include "tags/adts/adts_duration.h"
#include "tags/adts/adts_header.h"
#include "tags/adts/read_aac_file.h"
#include "tests/support/test_device.h"
#include "tests/tags/tag_builders.h"

namespace zelvor {
namespace {

using namespace zelvor::testing;

std::string Frames(std::size_t count, AdtsBits bits = {}) {
    std::string out;
    for (std::size_t i = 0; i < count; ++i)
        out += AdtsFrame(bits);
    return out;
}

AacTrackInfo ReadStream(const std::string& bytes) {
    AacTrackInfo info;
    MemoryFile file = MemoryFileOf(bytes);
    EXPECT_EQ(ReadAacStream(file, info), kAacOk);
    return info;
}

bool Parses(const AdtsBits& bits, std::size_t bytes = 7) {
    return ParseAdtsHeader(AsBytes(AdtsFrame(bits).substr(0, bytes))).has_value();
}

TEST(AdtsHeader, FieldsAndTheSyncPointRule) {
    std::string frame =
        AdtsFrame({.frameLength = 4001, .samplingIndex = 3, .profile = 2, .channels = 6});
    auto h = ParseAdtsHeader(AsBytes(frame));
    ASSERT_TRUE(h);
    EXPECT_EQ(h->frameLength, 4001u);
    EXPECT_EQ(h->samplingIndex * 100 + h->profile * 10 + h->channelConfiguration, 326);
    EXPECT_EQ(h->HeaderLength(), 7u);
    // Too short for the header, or shorter than its own header (8 bytes with a CRC).
    EXPECT_FALSE(Parses({}, 6) || Parses({.frameLength = 6}) ||
                 Parses({.frameLength = 8, .protectionAbsent = false}, 9));
    EXPECT_EQ(ParseAdtsHeader(AsBytes(AdtsFrame({.frameLength = 9, .protectionAbsent = false})))
                  ->HeaderLength(), 9u);
    // Sync points: frames of at most 1024 bytes, a known rate, layer bits 0.
    EXPECT_TRUE(IsAdtsSyncPoint(AsBytes(AdtsFrame({.frameLength = 1024}))));
    EXPECT_TRUE(IsAdtsSyncPoint(AsBytes(AdtsFrame({.protectionAbsent = false}))));
    EXPECT_FALSE(IsAdtsSyncPoint(AsBytes(AdtsFrame({.frameLength = 1025}))));
    EXPECT_FALSE(IsAdtsSyncPoint(AsBytes(AdtsFrame({.samplingIndex = 12}))));
    std::string layerBits = AdtsFrame({});
    layerBits[1] = '\xFF';
    EXPECT_FALSE(IsAdtsSyncPoint(AsBytes(layerBits)));
    layerBits[0] = '\xFE';
    EXPECT_FALSE(IsAdtsSyncPoint(AsBytes(layerBits)));
    // Rates fall with the index and halve every three steps.
    EXPECT_EQ(AdtsSampleRate(4), 44100);
    for (int i = 0; i + 3 < kAdtsSamplingIndexCount; ++i)
        EXPECT_EQ(AdtsSampleRate(i), 2 * AdtsSampleRate(i + 3)) << i;
    for (int i = 0; i < 3; ++i)
        EXPECT_GT(AdtsSampleRate(i), AdtsSampleRate(i + 1)) << i;
    EXPECT_EQ(AdtsSampleRate(-1) + AdtsSampleRate(kAdtsSamplingIndexCount), 0);
}

TEST(AdtsDuration, CountsEachFrameOnceAcrossChunkEdgesAndJunk) {
    // 333-byte frames straddle every chunk edge; junk before the stream and
    // between two runs is passed over.
    std::string stream = std::string(100, '\x12') + Frames(300, {.frameLength = 333}) +
                         std::string(50, '\x12') + Frames(200, {.frameLength = 333});
    EXPECT_EQ(ReadStream(stream).stream.framesCounted, 500u);
    EXPECT_EQ(AdtsFrameTime(44100) + AdtsFrameTime(0), 232199); // 1024 samples in 100 ns units
    EXPECT_DOUBLE_EQ(ReadStream(Frames(1000)).duration, 23.2199);
    // A frame longer than 1024 bytes is counted where the walk meets it, but
    // never taken as a place to start.
    const std::string big = AdtsFrame({.frameLength = 2000});
    EXPECT_EQ(ReadStream(Frames(3) + big + Frames(3)).stream.framesCounted, 7u);
    EXPECT_EQ(ReadStream(big + Frames(3)).stream.framesCounted, 3u);
    // Only the first frame sets the stream's parameters.
    AacTrackInfo info =
        ReadStream(Frames(2, {.samplingIndex = 3}) + Frames(2, {.samplingIndex = 8}));
    EXPECT_EQ(info.stream.sampleRate, 48000);
    EXPECT_EQ(info.stream.framesCounted, 4u);
}

TEST(AdtsDuration, AnId3v23TagIsSkippedOtherStartsAreNot) {
    // Sync-like bytes in the tag would count as frames if it were not skipped.
    std::string tagBody = Frame4Plain("TIT2", Latin1Text("x")) + Frames(5);
    EXPECT_EQ(ReadStream(Id3v2TagBytes(3, tagBody) + Frames(10)).stream.framesCounted, 10u);
    EXPECT_EQ(ReadStream(Id3v2TagBytes(4, tagBody) + Frames(10)).stream.framesCounted, 15u);
    // A size beyond the file skips everything.
    EXPECT_EQ(ReadStream(Id3v2Header(3, 1000000) + Frames(10)).stream.framesCounted, 0u);
}

TEST(AacTags, EachFieldIsDecidedOnItsOwn) {
    // Non-zero byte 125: the last comment byte is read as the version 1.1
    // layout, its track byte 126 taken; a real 1.1 tag gives no track.
    std::string v1 = Id3v1({.title = "Short", .artist = "Longer artist",
                            .comment = std::string(29, 'c') + "\x01", .genre = 200});
    v1[126] = '\x05';
    std::string v2 = Id3v2TagBytes(
        3, Frame4Plain("TIT2", Latin1Text("A longer title")) + Frame4Plain("TIT2", Latin1Text("2")) +
               Frame4Plain("TPE1", Utf16Text(u"Me")) + Frame4Plain("TALB", std::string("\x03" "utf8", 5)) + "TCON" + Be32(99999) + "\0\0x");
    AacTrackInfo info = ReadStream(v2 + Frames(5) + v1);
    // The first frame of a kind; UTF-8 frames read as empty; no genre frame
    // is shorter than "Other".
    EXPECT_EQ(info.title + info.artist + info.album + info.genre, u"A longer titleLonger artistOther");
    EXPECT_EQ(info.track, 5); // the ID3v1 track only
}

TEST(ReadAacFileResults, CodesForEachWayOfFailing) {
    TestDevice device;
    for (const char16_t* name : {u"\\Storage Card\\SONG.AAC", u"\\Storage Card\\song.mp3", u"\\Storage Card\\noext"})
        device.WriteFile(name, Frames(50));
    AacTrackInfo info;
    EXPECT_EQ(ReadAacFile(u"\\Storage Card\\SONG.AAC", nullptr), kAacMissingArgument);
    for (auto [path, result] : {std::pair{u"", kAacMissingArgument}, {u"\\Storage Card\\gone.aac", kAacCannotOpen},
                                {u"\\Storage Card\\song.mp3", kAacNotAac}, {u"\\Storage Card\\noext", kAacNotAac},
                                {u"\\Storage Card\\song.aac", kAacOk}})
        EXPECT_EQ(ReadAacFile(path, &info), result);
    EXPECT_EQ(info.stream.framesCounted, 50u);
}

} // namespace
} // namespace zelvor
