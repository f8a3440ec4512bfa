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


// A tag's bytes, the slot looked at and the text it must hold (from the
// frame's text start on).
struct SlotCase {
    const char* name;
    std::string tag;
    Id3v2Slot slot;
    std::string expected;
};

class Id3v2Slots : public ::testing::TestWithParam<SlotCase> {};

TEST_P(Id3v2Slots, HoldTheirText) {
    EXPECT_EQ(std::string(Read(GetParam().tag).Frame(GetParam().slot)), GetParam().expected);
}

std::string V3(const std::string& frames, std::uint8_t flags = 0) {
    return Id3v2TagBytes(3, frames, flags);
}

INSTANTIATE_TEST_SUITE_P(
    Frames, Id3v2Slots,
    ::testing::Values(
        SlotCase{"V22ThreeCharacterIds", Id3v2TagBytes(2, Frame3("TP1", Latin1Text("Band"))),
                 kId3v2Artist, "Band"},
        SlotCase{"V22Comment", Id3v2TagBytes(2, Frame3("COM", std::string("\0eng\0c22", 8)) +
                                                   Frame3("TYE", Latin1Text("1999"))),
                 kId3v2Comment, "c22"},
        SlotCase{"V23SizesSevenBitsPerByte",
                 V3(Frame4Plain("TIT2", Latin1Text(std::string(299, 'a'))) +
                    Frame4Plain("TPE1", Latin1Text("Lost"))),
                 kId3v2Artist, ""},
        SlotCase{"FlagTwoSkipsSix", V3(std::string(6, '\1') + Frame4("TIT2", Latin1Text("S")), 2),
                 kId3v2Title, "S"},
        SlotCase{"LastFrameOfAKindWins",
                 V3(Frame4("TIT2", Latin1Text("First")) + Frame4("TIT2", Latin1Text("Second"))),
                 kId3v2Title, "Second"},
        SlotCase{"ASizeThatLiesKeepsTheFramesBefore",
                 V3(Frame4("TALB", Latin1Text("Kept")) + "TIT2" + SevenBit32(5000) + "\0\0x"),
                 kId3v2Album, "Kept"},
        SlotCase{"CutAtTheFileEnd",
                 Id3v2Header(3, 100000) + Frame4("TIT2", Latin1Text("Title")) + "TPE1\0",
                 kId3v2Title, "Title"},
        SlotCase{"CommentSkipsLanguageAndDescription",
                 V3(Frame4("COMM", std::string("\0engdesc\0Nice", 13))), kId3v2Comment, "Nice"},
        SlotCase{"Utf16KeepsItsMark", V3(Frame4("TIT2", Utf16Text(u"Hi"))), kId3v2Title,
                 std::string("\xFF\xFEH\0i\0", 6)},
        SlotCase{"OtherKindsSkipOneByte", V3(Frame4("TCOP", Latin1Text("(c) 1999"))),
                 kId3v2Copyright, "(c) 1999"}),
    [](const auto& param) { return std::string(param.param.name); });

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
        Id3v2Tag tag = Read(V3(Frame4("TCON", frame)));
        EXPECT_EQ(tag.genreIndex, index) << frame;
        EXPECT_EQ(tag.genreText, text);
        EXPECT_EQ(std::string(tag.GetGenre()), genre);
    }
}

TEST(Id3v2Track, DigitsAroundTheSlash) {
    const std::tuple<const char*, std::int32_t, std::int32_t> cases[] = {
        {"5/12", 5, 12}, {"7", 7, 0},     {"/12", 0, 12},     {"12", 12, 0}, {"7a", 7, 0},
        {"a7", 0, 0},    {"123", 123, 0}, {"3 of 9", 39, 0}, {"", 0, 0},    {"04/", 4, 0}};
    for (const auto& [text, track, total] : cases) {
        Id3v2Tag tag = Read(V3(Frame4("TRCK", Latin1Text(text))));
        EXPECT_EQ(tag.GetTrack(), track) << text;
        EXPECT_EQ(tag.trackTotal, total) << text;
    }
}

TEST(Id3v2Read, HeaderResultsErrorsAndAResetBetweenReads) {
    testing::TestDevice device;
    Id3v2Tag tag = Read(V3(Frame4("TIT2", Latin1Text("Old")) + Frame4("TCON", Latin1Text("(3)")) +
                           Frame4("TRCK", Latin1Text("2/9"))));
    device.WriteFile(u"\\Storage Card\\short.mp3", "ID3\x03");
    device.WriteFile(u"\\Storage Card\\plain.mp3", std::string(200, '\x55'));
    for (auto [path, result, error] : {std::tuple{u"\\Storage Card\\missing.mp3", 0, kId3v2FileNotFound},
                                       {u"\\Storage Card\\short.mp3", 0, kId3v2ShortHeader},
                                       {u"\\storage card\\PLAIN.mp3", 1, kId3v2NoError}}) {
        EXPECT_EQ(ReadId3v2(tag, path), result);
        EXPECT_EQ(tag.error, error);
    }
    EXPECT_FALSE(tag.present);
    EXPECT_EQ(tag.GetTitle(), "");
    EXPECT_EQ(tag.genreIndex, -1);
    EXPECT_EQ(tag.GetTrack() + tag.trackTotal, 0);
    tag = Read(V3(Frame4("TIT2", Latin1Text("T")) + std::string(40, '\0')));
    EXPECT_TRUE(tag.present);
    EXPECT_EQ(tag.tagLength, 10u + 12u + 40u);
    EXPECT_EQ(Read(Id3v2Header(3, 100000) + "TIT2").tagLength, 100010u);
}

} // namespace
} // namespace zelvor
