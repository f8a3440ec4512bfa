#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "platform/text.h"

namespace zelvor {
namespace {

TEST(TextConversion, SingleByteTextUsesWindows1252AndStopsAtNul) {
    EXPECT_EQ(DecodeSingleByte(std::string_view("Caf\xE9 \x80\x92\x99", 8)), u"Café €’™");
    EXPECT_EQ(DecodeSingleByte(std::string_view("ab\0cd", 5)), u"ab");
    EXPECT_FALSE(SetDeviceCodePage("no-such-code-page"));
    ASSERT_TRUE(SetDeviceCodePage("ISO-8859-7"));
    EXPECT_EQ(DecodeSingleByte(std::string_view("\xE1", 1)), u"α");
    // A code page whose low bytes are not ASCII (EBCDIC): plain ASCII bytes
    // go through it too.
    ASSERT_TRUE(SetDeviceCodePage("ibm-037"));
    EXPECT_EQ(DecodeSingleByte(std::string_view("\xC1\xC2", 2)), u"AB");
    EXPECT_NE(DecodeSingleByte(std::string_view("AB", 2)), u"AB");
    ASSERT_TRUE(SetDeviceCodePage("windows-1252"));
    EXPECT_EQ(DecodeSingleByte(std::string_view("AB", 2)), u"AB");
}

TEST(TextComparison, SortKeysOrderLikeTheComparisons) {
    std::vector<std::u16string> words{u"zebra", u"Äpfel", u"apfel", u"Apfel", u"", u"b", u"B",
                                      u"10", u"9", u"éclair", u"eclair"};
    for (const auto& a : words) {
        for (const auto& b : words) {
            int byKey = TextSortKey(a) < TextSortKey(b) ? -1 : (TextSortKey(b) < TextSortKey(a));
            EXPECT_EQ(byKey, CompareText(a, b));
        }
    }
}

TEST(TextFormatting, SubstitutesOneDirectiveAndLeavesTheRest) {
    EXPECT_EQ(FormatText(u"Total :  %d  songs", 12), u"Total :  12  songs");
    EXPECT_EQ(FormatText(u"%d file(s) found", -3), u"-3 file(s) found");
    EXPECT_EQ(FormatText(u"Add to '%s' .", u"Mix"), u"Add to 'Mix' .");
    EXPECT_EQ(FormatText(u"100%% %d %d", 5), u"100% 5 %d");
    EXPECT_EQ(FormatText(u"%s ends with %", u"x"), u"x ends with %");
    EXPECT_EQ(FormatText(u"no directive", 1), u"no directive");
}

} // namespace
} // namespace zelvor
