#include <gtest/gtest.h>

#include "tags/genre_names.h"
#include "tags/tag_text.h"

namespace zelvor {
namespace {

TEST(GenreTable, HoldsTheProgramsOwnSpellingsInBothForms) {
    ASSERT_EQ(GenreNames.size(), 148u);
    const std::pair<int, std::string_view> spellings[] = {
        {0, "Blues"},          {12, "Other"},      {14, "R&B"},        {67, "Psychadelic"},
        {78, "Rock & Roll"},   {85, "Bebob"},      {90, "Avantgarde"}, {93, "Psychedelic Rock"},
        {118, "Rhytmic Soul"}, {123, "A Capella"}, {133, "Negerpunk"}, {134, "Polsk Punk"},
        {144, "Trash Metal"},  {147, "SynthPop"}};
    for (const auto& [index, name] : spellings)
        EXPECT_EQ(GenreName(index), name) << index;
    for (int i = 0; i < kGenreCount; ++i) {
        std::string_view narrow = GenreNames[static_cast<size_t>(i)];
        std::u16string_view wide = GenreNamesUtf16[static_cast<size_t>(i)];
        EXPECT_EQ(std::u16string(narrow.begin(), narrow.end()), wide) << i;
        EXPECT_FALSE(narrow.empty());
    }
    EXPECT_EQ(GenreName(-1), "");
    EXPECT_EQ(GenreName(148), "");
}

TEST(GenreLookups, EachReaderTreatsNumbersOutsideTheTableItsOwnWay) {
    EXPECT_EQ(GenreOfId3v1Byte(147), "SynthPop");
    EXPECT_FALSE(GenreOfId3v1Byte(148).has_value());
    EXPECT_FALSE(GenreOfId3v1Byte(255).has_value());

    EXPECT_EQ(GenreOfId3v2(17, "ignored"), "Rock");
    EXPECT_EQ(GenreOfId3v2(-1, "Own text"), "Own text");
    EXPECT_EQ(GenreOfId3v2(148, "raw"), "raw");

    EXPECT_EQ(GenreOfAacId3v1(0), u"Blues");
    EXPECT_EQ(GenreOfAacId3v1(148), u"Other");
    EXPECT_EQ(GenreOfAacId3v1(255), u"Other");
}

struct FrameGenreCase {
    std::u16string text;
    std::u16string expected;
};

class AacFrameGenre : public ::testing::TestWithParam<FrameGenreCase> {};

TEST_P(AacFrameGenre, ScansParenthesisedNumber) {
    EXPECT_EQ(GenreOfAacFrame(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, AacFrameGenre,
    ::testing::Values(FrameGenreCase{u"(17)", u"Rock"}, FrameGenreCase{u"(17)Rock", u"Rock"},
                      FrameGenreCase{u"Rock", u"Rock"}, FrameGenreCase{u"( 8)", u"Jazz"},
                      FrameGenreCase{u"(+8", u"Jazz"}, FrameGenreCase{u"(-3)", u"(-3)"},
                      FrameGenreCase{u"(148)", u"(148)"}, FrameGenreCase{u" (17)", u" (17)"},
                      FrameGenreCase{u"()", u"()"}, FrameGenreCase{u"", u""},
                      FrameGenreCase{u"(99999999999)", u"(99999999999)"}));

TEST(TagText, Utf16StopsAtZeroUnitAndDropsAnOddByte) {
    EXPECT_EQ(DecodeUtf16Le(std::string_view("A\0B\0\0\0C\0", 8)), u"AB");
    EXPECT_EQ(DecodeUtf16Le(std::string_view("A\0B", 3)), u"A");
    EXPECT_EQ(DecodeUtf16Le(std::string_view("\x3D\xD8", 2)), std::u16string(1, char16_t{0xD83D}));
}

TEST(TagText, TrimAndLeadingNumbers) {
    std::u16string text = u" \t Title \r\n";
    TrimWhiteSpace(text);
    EXPECT_EQ(text, u"Title");
    text = u"   ";
    TrimWhiteSpace(text);
    EXPECT_EQ(text, u"");
    EXPECT_EQ(LeadingNumber(std::string_view("42abc")), 42);
    EXPECT_EQ(LeadingNumber(std::string_view("x42")), 0);
    EXPECT_EQ(LeadingNumber(std::u16string_view(u"99999999999999")), 2147483647);
}

} // namespace
} // namespace zelvor
