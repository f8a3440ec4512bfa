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

TEST(AdtsHeader, FieldsAndTheSyncPointRule) {
    std::string frame =
        AdtsFrame({.frameLength = 4001, .samplingIndex = 3, .profile = 2, .channels = 6});
    auto h = ParseAdtsHeader(AsBytes(frame.substr(0, 7)));
    ASSERT_TRUE(h);
    EXPECT_EQ(h->frameLength, 4001u);
    EXPECT_EQ(h->samplingIndex, 3);
    EXPECT_EQ(h->profile, 2);
    EXPECT_EQ(h->channelConfiguration, 6);
    EXPECT_EQ(h->HeaderLength(), 7u);
    EXPECT_FALSE(ParseAdtsHeader(AsBytes(frame.substr(0, 6))));
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
    // Shorter than its own header: 6 bytes, or 8 with a CRC.
    EXPECT_FALSE(ParseAdtsHeader(AsBytes(AdtsFrame({.frameLength = 6}))));
    EXPECT_FALSE(
        ParseAdtsHeader(AsBytes(AdtsFrame({.frameLength = 8, .protectionAbsent = false}))));
    EXPECT_EQ(ParseAdtsHeader(AsBytes(AdtsFrame({.frameLength = 9, .protectionAbsent = false})))
                  ->HeaderLength(),
              9u);
    // Rates fall with the index and halve every three steps.
    EXPECT_EQ(AdtsSampleRate(4), 44100);
    for (int i = 0; i + 3 < kAdtsSamplingIndexCount; ++i)
        EXPECT_EQ(AdtsSampleRate(i), 2 * AdtsSampleRate(i + 3)) << i;
    for (int i = 0; i < 3; ++i)
        EXPECT_GT(AdtsSampleRate(i), AdtsSampleRate(i + 1)) << i;
    EXPECT_EQ(AdtsSampleRate(-1), 0);
    EXPECT_EQ(AdtsSampleRate(kAdtsSamplingIndexCount), 0);
}

TEST(AdtsDuration, FrameTimeIs1024SamplesIn100NanosecondUnits) {
    EXPECT_EQ(AdtsFrameTime(44100), 232199);
    EXPECT_EQ(AdtsFrameTime(48000), 213333);
    EXPECT_EQ(AdtsFrameTime(0), 0);
    AacTrackInfo info = ReadStream(Frames(1000));
    EXPECT_EQ(info.stream.Frames(), 1000u);
    EXPECT_DOUBLE_EQ(info.duration, 23.2199);
    EXPECT_EQ(info.stream.sampleRate, 44100);
    EXPECT_EQ(info.stream.profile, 2); // header profile 1 + 1
    EXPECT_EQ(info.stream.channelConfiguration, 2);
}

TEST(AdtsDuration, CountsEachFrameOnceAcrossChunkEdgesAndJunk) {
    // 333-byte frames straddle every chunk edge; junk before the stream and
    // between two runs is passed over.
    std::string stream = std::string(100, '\x12') + Frames(300, {.frameLength = 333}) +
                         std::string(50, '\x12') + Frames(200, {.frameLength = 333});
    EXPECT_EQ(ReadStream(stream).stream.framesCounted, 500u);
    // A frame longer than 1024 bytes is counted where the walk meets it, but
    // never taken as a place to start.
    EXPECT_EQ(
        ReadStream(Frames(3) + AdtsFrame({.frameLength = 2000}) + Frames(3)).stream.framesCounted,
        7u);
    EXPECT_EQ(ReadStream(AdtsFrame({.frameLength = 2000}) + Frames(3)).stream.framesCounted, 3u);
    // Only the first frame sets the stream's parameters.
    AacTrackInfo info =
        ReadStream(Frames(2, {.samplingIndex = 3}) + Frames(2, {.samplingIndex = 8}));
    EXPECT_EQ(info.stream.sampleRate, 48000);
    EXPECT_EQ(info.stream.framesCounted, 4u);
}

TEST(AdtsDuration, LargeFilesAreEstimatedWithoutBias) {
    // 4 MB of equal frames: every gap holds whole frames, so the estimate is
    // exact, while well under half the file is read.
    AacTrackInfo info = ReadStream(Frames(10000, {.frameLength = 419}));
    EXPECT_GT(info.stream.framesEstimated, 0);
    EXPECT_EQ(info.stream.Frames(), 10000u);
    EXPECT_LT(info.stream.bytesRead, 4190000u / 2);

    // Frames of 300 and 500 bytes in turn: the average is right, and the
    // frames a jump lands in are neither lost nor counted twice.
    std::string pair = AdtsFrame({.frameLength = 300}) + AdtsFrame({.frameLength = 500});
    std::string stream;
    for (int i = 0; i < 4000; ++i)
        stream += pair;
    info = ReadStream(stream);
    EXPECT_NEAR(static_cast<double>(info.stream.Frames()), 8000.0, 8000 * 0.001);
}

TEST(AdtsDuration, EstimateFollowsABitRateThatChanges) {
    // A quiet first third in small frames, then large ones. An average of
    // everything counted so far would price every later gap at mostly small
    // frames (about a third too many frames in all); the local average is
    // off only in the one gap that holds the change, by at most half of it.
    AacTrackInfo info =
        ReadStream(Frames(5000, {.frameLength = 200}) + Frames(3300, {.frameLength = 600}));
    EXPECT_LT(info.stream.bytesRead, 3000000u / 2);
    const double oneGapOfSmallFrames = 98400.0 / 200;
    EXPECT_NEAR(static_cast<double>(info.stream.Frames()), 8300.0, oneGapOfSmallFrames / 2);
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
    std::string v1 = Id3v1({.title = "Short", .artist = "Longer artist", .album = "Album",
                            .comment = std::string(29, 'c') + "\x01", .genre = 200});
    v1[126] = '\x05';
    std::string v2 = Id3v2TagBytes(
        3, Frame4Plain("TIT2", Latin1Text("A longer title")) + Frame4Plain("TIT2", Latin1Text("2")) +
               Frame4Plain("TPE1", Utf16Text(u"Me")) +
               Frame4Plain("TALB", std::string("\x03" "utf8", 5)) +
               Frame4Plain("TRCK", Latin1Text("8")) + "TCON" + Be32(99999) + "\0\0x");
    AacTrackInfo info = ReadStream(v2 + Frames(5) + v1);
    EXPECT_EQ(info.title, u"A longer title"); // the first frame of a kind
    EXPECT_EQ(info.artist, u"Longer artist");
    EXPECT_EQ(info.album, u"Album"); // UTF-8 frames read as empty
    EXPECT_EQ(info.genre, u"Other"); // no genre frame is shorter than "Other"
    EXPECT_EQ(info.track, 5);        // the ID3v1 track only
    info = ReadStream(Id3v2TagBytes(3, Frame4Plain("TCON", Latin1Text("(17)")) +
                                           Frame4Plain("TPE1", Utf16Text(u"\u00C5sa"))) +
                      Frames(5) + Id3v1({.title = "T", .track = 4, .genre = 17}));
    EXPECT_EQ(info.genre, u"Rock");
    EXPECT_EQ(info.artist, u"\u00C5sa");
    EXPECT_EQ(info.title, u"T");
    EXPECT_EQ(info.track, 0);
}

TEST(ReadAacFileResults, CodesForEachWayOfFailing) {
    TestDevice device;
    device.WriteFile(u"\\Storage Card\\SONG.AAC", Frames(50));
    device.WriteFile(u"\\Storage Card\\song.mp3", Frames(50));
    device.WriteFile(u"\\Storage Card\\noextension", Frames(50));
    AacTrackInfo info;
    EXPECT_EQ(ReadAacFile(u"", &info), kAacMissingArgument);
    EXPECT_EQ(ReadAacFile(u"\\Storage Card\\SONG.AAC", nullptr), kAacMissingArgument);
    EXPECT_EQ(ReadAacFile(u"\\Storage Card\\gone.aac", &info), kAacCannotOpen);
    EXPECT_EQ(ReadAacFile(u"\\Storage Card\\song.mp3", &info), kAacNotAac);
    EXPECT_EQ(ReadAacFile(u"\\Storage Card\\noextension", &info), kAacNotAac);
    ASSERT_EQ(ReadAacFile(u"\\Storage Card\\song.aac", &info), kAacOk);
    EXPECT_EQ(info.stream.framesCounted, 50u);
}

} // namespace
} // namespace zelvor
