#include <gtest/gtest.h>

#include "tags/genre_names.h"
#include "tags/tag_text.h"

namespace zelvor {
namespace {

TEST(GenreTable, HoldsTheProgramsOwnSpellingsInBothForms) {
    ASSERT_EQ(GenreNames.size(), 148u);
    for (auto [index, name] : {std::pair{0, "Blues"}, {67, "Psychadelic"}, {147, "SynthPop"}})
        EXPECT_EQ(GenreName(index), name);
    for (int i = 0; i < kGenreCount; ++i) {
        std::string_view narrow = GenreNames[static_cast<size_t>(i)];
        EXPECT_EQ(std::u16string(narrow.begin(), narrow.end()),
                  GenreNamesUtf16[static_cast<size_t>(i)]);
    }
    EXPECT_EQ(GenreName(-1), "");
    EXPECT_EQ(GenreName(148), "");
    EXPECT_FALSE(GenreOfId3v1Byte(148).has_value());
    EXPECT_EQ(GenreOfId3v2(148, "raw"), "raw");
    EXPECT_EQ(GenreOfAacId3v1(255), u"Other");
}

TEST(GenreLookups, AacFrameScansAParenthesisedNumber) {
    const std::pair<std::u16string_view, std::u16string_view> cases[] = {
        {u"(17)Rock", u"Rock"}, {u"Rock", u"Rock"},   {u"( 8)", u"Jazz"},  {u"(+8", u"Jazz"},
        {u"(-3)", u"(-3)"},     {u"(148)", u"(148)"}, {u" (17)", u" (17)"}, {u"()", u"()"},
        {u"(99999999999)", u"(99999999999)"}};
    for (auto [text, genre] : cases)
        EXPECT_EQ(GenreOfAacFrame(text), genre);
}

TEST(TagText, Utf16TrimAndLeadingNumbers) {
    EXPECT_EQ(DecodeUtf16Le(std::string_view("A\0B\0\0\0C\0", 8)), u"AB");
    EXPECT_EQ(DecodeUtf16Le(std::string_view("A\0B", 3)), u"A");
    std::u16string text = u" \t Title \r\n";
    TrimWhiteSpace(text);
    EXPECT_EQ(text, u"Title");
    EXPECT_EQ(LeadingNumber(std::string_view("42abc")), 42);
    EXPECT_EQ(LeadingNumber(std::string_view("x42")), 0);
    EXPECT_EQ(LeadingNumber(std::u16string_view(u"99999999999999")), 2147483647);
}

} // namespace
} // namespace zelvor
