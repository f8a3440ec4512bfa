#include <gtest/gtest.h>

#include "tags/id3v2/id3v2_tag.h"
#include "tests/support/test_device.h"
#include "tests/tags/tag_builders.h"

namespace zelvor {
namespace {

using namespace zelvor::testing;

Id3v2Tag Read(const std::string& bytes) {
    Id3v2Tag tag;
    MemoryFile file = MemoryFileOf(bytes);
    EXPECT_EQ(ReadId3v2(tag, file), 1);
    return tag;
}

std::string Rest(std::string_view text) {
    return std::string(text);
}

TEST(Id3v2Modes, EachHeaderChoosesItsOwnFrameLayout) {
    Id3v2Tag v22 = Read(
        Id3v2TagBytes(2, Frame3("TT2", Latin1Text("Two")) + Frame3("TP1", Latin1Text("Band"))));
    EXPECT_EQ(v22.GetTitle(), "Two");
    EXPECT_EQ(v22.GetArtist(), "Band");
    // A 4-character id in a 2.2 tag is not a frame of this layout.
    EXPECT_EQ(Read(Id3v2TagBytes(2, Frame4("TIT2", Latin1Text("x")))).GetTitle(), "");

    for (std::uint8_t major : {3, 4, 0, 5}) {
        Id3v2Tag tag = Read(Id3v2TagBytes(major, Frame4("TIT2", Latin1Text("Four"))));
        EXPECT_EQ(tag.GetTitle(), "Four") << int{major};
        EXPECT_EQ(tag.majorVersion, major);
    }
}

TEST(Id3v2Modes, FrameSizesAreReadSevenBitsPerByteInVersion23Too) {
    // A 300-byte title written with a plain 32-bit size (00 00 01 2C) is
    // read as 1 x 128 + 44 = 172 bytes; the walk then meets text where the
    // next header should be and stops, so the artist after it is lost.
    std::string title(299, 'a');
    Id3v2Tag tag = Read(Id3v2TagBytes(3, Frame4Plain("TIT2", Latin1Text(title)) +
                                             Frame4Plain("TPE1", Latin1Text("Lost"))));
    EXPECT_EQ(tag.GetTitle(), std::string(171, 'a'));
    EXPECT_EQ(tag.GetArtist(), "");
    // High bits are added in as they stand: 00 00 00 FF is 255, not 127.
    std::string frame = "TIT2" + std::string("\0\0\0\xFF", 4) + std::string(2, '\0') +
                        Latin1Text(std::string(254, 'b'));
    EXPECT_EQ(Read(Id3v2TagBytes(3, frame)).GetTitle(), std::string(254, 'b'));
}

TEST(Id3v2Walk, FlagsLastFramesPaddingAndSizesThatLie) {
    // Flag bit 2 starts the body six bytes in; the extended-header bit is
    // not the one tested, so the six bytes are read as a frame header.
    std::string body = std::string(6, '\x01') + Frame4("TIT2", Latin1Text("Skipped"));
    EXPECT_EQ(Read(Id3v2TagBytes(3, body, 0x02)).GetTitle(), "Skipped");
    EXPECT_EQ(Read(Id3v2TagBytes(3, body, 0x40)).GetTitle(), "");
    // The last frame of a kind wins; padding or a size that lies ends the
    // walk, keeping the frames before it.
    Id3v2Tag tag = Read(Id3v2TagBytes(3, Frame4("TIT2", Latin1Text("First")) +
                                             Frame4("TALB", Latin1Text("A")) +
                                             Frame4("TIT2", Latin1Text("Second")) +
                                             std::string(20, '\0') + Frame4("TPE1", "\0x")));
    EXPECT_EQ(tag.GetTitle(), "Second");
    EXPECT_EQ(tag.GetAlbum(), "A");
    EXPECT_EQ(tag.GetArtist(), "");
    tag = Read(Id3v2TagBytes(3, Frame4("TALB", Latin1Text("Kept")) + "TIT2" + SevenBit32(5000) +
                                    std::string(2, '\0') + Latin1Text("short")));
    EXPECT_EQ(tag.GetAlbum(), "Kept");
    EXPECT_FALSE(tag.frames[kId3v2Title].has_value());
    // A frame header must end before the body does: one byte more makes a
    // frame whose text is empty.
    EXPECT_FALSE(Read(Id3v2TagBytes(3, Frame4("TIT2", ""))).frames[kId3v2Title].has_value());
    tag = Read(Id3v2TagBytes(3, Frame4("TIT2", std::string(1, '\0'))));
    EXPECT_EQ(tag.frames[kId3v2Title], std::string(10, '\0'));
    // A tag body cut at the end of the file.
    std::string whole =
        Id3v2TagBytes(3, Frame4("TIT2", Latin1Text("Title")) + Frame4("TPE1", Latin1Text("Who")));
    tag = Read(Id3v2Header(3, 100000) + whole.substr(10, 25));
    EXPECT_EQ(tag.GetTitle(), "Title");
    EXPECT_EQ(tag.GetArtist(), "");
    EXPECT_EQ(tag.tagLength, 100010u);
}

struct TextStartCase {
    const char* name;
    std::string frame;
    Id3v2Slot slot;
    std::string expected;
};

class Id3v2TextStart : public ::testing::TestWithParam<TextStartCase> {};

TEST_P(Id3v2TextStart, SkipsTheFramesPrefix) {
    Id3v2Tag tag = Read(Id3v2TagBytes(3, GetParam().frame));
    EXPECT_EQ(Rest(tag.Frame(GetParam().slot)), GetParam().expected);
}

const std::string kTenZeros(10, '\0');

INSTANTIATE_TEST_SUITE_P(
    Frames, Id3v2TextStart,
    ::testing::Values(
        TextStartCase{
            "CommentSkipsLanguageAndDescription",
            Frame4("COMM", std::string("\0eng", 4) + "desc" + std::string(1, '\0') + "Nice"),
            kId3v2Comment, "Nice"},
        TextStartCase{"CommentWithoutDescriptionEnd",
                      Frame4("COMM", std::string("\0eng", 4) + "only"), kId3v2Comment, kTenZeros},
        TextStartCase{"CommentShorterThanItsLanguage", Frame4("COMM", std::string("\0e", 2)),
                      kId3v2Comment, kTenZeros},
        TextStartCase{
            "UserUrlSkipsDescription",
            Frame4("WXXX", std::string(1, '\0') + "home" + std::string(1, '\0') + "http://x"),
            kId3v2UserUrl, "http://x"},
        TextStartCase{"Utf16KeepsItsMark", Frame4("TIT2", Utf16Text(u"Hi")), kId3v2Title,
                      std::string("\xFF\xFEH\0i\0", 6)},
        TextStartCase{"OnlyTheEncodingByte", Frame4("TPE1", std::string(1, '\x01')), kId3v2Artist,
                      kTenZeros},
        TextStartCase{"OtherKindsSkipOneByte", Frame4("TCOP", Latin1Text("(c) 1999")),
                      kId3v2Copyright, "(c) 1999"}),
    [](const auto& param) { return std::string(param.param.name); });

TEST(Id3v2TextStart, TwoTwoIdsFillTheSameSlots) {
    Id3v2Tag tag = Read(
        Id3v2TagBytes(2, Frame3("COM", std::string("\0eng", 4) + std::string(1, '\0') + "c22") +
                             Frame3("TYE", Latin1Text("1999")) + Frame3("TCR", Latin1Text("c")) +
                             Frame3("WXX", std::string(1, '\0') + std::string(1, '\0') + "u")));
    EXPECT_EQ(Rest(tag.Frame(kId3v2Comment)), "c22");
    EXPECT_EQ(Rest(tag.Frame(kId3v2Year)), "1999");
    EXPECT_EQ(Rest(tag.Frame(kId3v2Copyright)), "c");
    EXPECT_EQ(Rest(tag.Frame(kId3v2UserUrl)), "u");
}

TEST(Id3v2Genre, NumberInParenthesesOrTextKeptByteForByte) {
    const std::string utf16("\xFF\xFE(\0" "1\0" "7\0)\0", 10);
    const std::tuple<std::string, std::int32_t, std::string, std::string> cases[] = {
        {Latin1Text("(17)"), 17, "", "Rock"},         {Latin1Text("Rock"), -1, "Rock", "Rock"},
        {Latin1Text("()"), 0, "", "Blues"},           {Latin1Text("(147)"), 147, "", "SynthPop"},
        {Latin1Text("(148)"), 148, "", ""},           {Latin1Text("(1x2)"), 12, "", "Other"},
        {Latin1Text("(99999999999999999999)"), 2147483647, "", ""},
        {Utf16Text(u"(17)"), -1, utf16, utf16},
        {Latin1Text(std::string(150, 'g')), -1, std::string(100, 'g'), std::string(100, 'g')}};
    for (const auto& [frame, index, text, genre] : cases) {
        Id3v2Tag tag = Read(Id3v2TagBytes(3, Frame4("TCON", frame)));
        EXPECT_EQ(tag.genreIndex, index) << frame;
        EXPECT_EQ(tag.genreText, text);
        EXPECT_EQ(Rest(tag.GetGenre()), genre);
    }
}

TEST(Id3v2Track, DigitsAroundTheSlash) {
    const std::tuple<const char*, std::int32_t, std::int32_t> cases[] = {
        {"5/12", 5, 12}, {"7", 7, 0},     {"/12", 0, 12},     {"12", 12, 0}, {"7a", 7, 0},
        {"a7", 0, 0},    {"123", 123, 0}, {"3 of 9", 39, 0}, {"", 0, 0},    {"04/", 4, 0}};
    for (const auto& [text, track, total] : cases) {
        Id3v2Tag tag = Read(Id3v2TagBytes(3, Frame4("TRCK", Latin1Text(text))));
        EXPECT_EQ(tag.GetTrack(), track) << text;
        EXPECT_EQ(tag.trackTotal, total) << text;
    }
}

TEST(Id3v2Read, HeaderResultsErrorsAndAResetBetweenReads) {
    testing::TestDevice device;
    Id3v2Tag tag = Read(Id3v2TagBytes(3, Frame4("TIT2", Latin1Text("Old")) +
                                             Frame4("TCON", Latin1Text("(3)")) +
                                             Frame4("TRCK", Latin1Text("2/9"))));
    EXPECT_EQ(ReadId3v2(tag, u"\\Storage Card\\missing.mp3"), 0);
    EXPECT_EQ(tag.error, kId3v2FileNotFound);
    device.WriteFile(u"\\Storage Card\\short.mp3", "ID3\x03");
    EXPECT_EQ(ReadId3v2(tag, u"\\Storage Card\\short.mp3"), 0);
    EXPECT_EQ(tag.error, kId3v2ShortHeader);
    device.WriteFile(u"\\Storage Card\\plain.mp3", std::string(200, '\x55'));
    EXPECT_EQ(ReadId3v2(tag, u"\\storage card\\PLAIN.mp3"), 1);
    EXPECT_FALSE(tag.present);
    EXPECT_EQ(tag.error, kId3v2NoError);
    EXPECT_EQ(tag.GetTitle(), "");
    EXPECT_EQ(tag.genreIndex, -1);
    EXPECT_EQ(tag.GetTrack() + tag.trackTotal, 0);
    tag = Read(Id3v2TagBytes(3, Frame4("TIT2", Latin1Text("T")) + std::string(40, '\0')));
    EXPECT_TRUE(tag.present);
    EXPECT_EQ(tag.tagLength, 10u + 12u + 40u);
}

} // namespace
} // namespace zelvor
