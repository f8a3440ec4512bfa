#include <gtest/gtest.h>

#include "tags/asf/analyse_wma_file.h"
#include "tags/asf/asf_guid.h"
#include "tags/asf/asf_object.h"
#include "tests/support/test_device.h"
#include "tests/tags/tag_builders.h"

namespace zelvor {
namespace {

using namespace zelvor::testing;

struct Analysis {
    int result = 0;
    WmaFileInfo info;
};

Analysis Analyse(const std::string& bytes) {
    Analysis a;
    MemoryFile file = MemoryFileOf(bytes);
    a.result = AnalyseWmaFile(a.info, file, u"x.wma");
    return a;
}

// A header whose count matches its children, and some data after it.
std::string Wma(std::initializer_list<std::string> children) {
    std::string all;
    for (const std::string& c : children)
        all += c;
    return AsfHeader(static_cast<std::uint32_t>(children.size()), all) + std::string(64, '\x5A');
}

WmaFileInfo Described(std::u16string name, std::uint16_t type, std::string value) {
    return Analyse(Wma({AsfExtendedContent({{std::move(name), type, std::move(value)}})})).info;
}

TEST(WmaContentDescription, TitleAuthorAndCopyrightCutToTheBuffer) {
    Analysis a = Analyse(
        Wma({AsfContentDescription(std::u16string(300, u'L'), u"Author \u00C5", u"(c) Someone")}));
    EXPECT_EQ(a.info.title, std::u16string(255, u'L'));
    EXPECT_EQ(a.info.artist, u"Author \u00C5");
    EXPECT_EQ(a.info.comment, u"(c) Someone");
    // Lengths that run past the object keep the strings before them.
    std::string body = Le16(4) + Le16(400) + Le16(0) + Le16(0) + Le16(0) + Utf16Le(u"Hi");
    a = Analyse(Wma({AsfObject(kAsfContentDescriptionObject, body)}));
    EXPECT_EQ(a.info.title, u"Hi");
    EXPECT_EQ(a.info.artist, u"");
}

TEST(WmaFileProperties, LowThirtyTwoBitsOfThePlayDuration) {
    // Broadcast files (flag 1) have no duration.
    for (auto [ticks, flags, seconds] : {std::tuple{3000000000ULL, 2, 300}, {6000000000ULL, 2, 170}, {3000000000ULL, 3, 0}})
        EXPECT_EQ(Analyse(Wma({AsfFileProperties(ticks, flags)})).info.duration, seconds);
    std::string truncated = AsfFileProperties(3000000000ULL).substr(0, 92);
    truncated.replace(16, 8, Le64(92));
    EXPECT_EQ(Analyse(Wma({truncated})).info.duration, 300);
    truncated = truncated.substr(0, 91);
    truncated.replace(16, 8, Le64(91));
    EXPECT_EQ(Analyse(Wma({truncated})).info.duration, 0);
}

TEST(WmaExtendedContent, NamesMatchAsSubstringsInTheFixedOrder) {
    Analysis a = Analyse(Wma({AsfContentDescription(u"T", u"Author"),
                              AsfExtendedContent({
                                  {u"WM/AlbumTitle", 0, AsfStringValue(u"Album")},
                                  {u"WM/AlbumArtist", 0, AsfStringValue(u"Album artist")},
                                  {u"WM/Genre", 0, AsfStringValue(u"Jazz")},
                                  {u"WM/GenreID", 0, AsfStringValue(u"(8)")},
                                  {u"MyYearOfBirth", 0, AsfStringValue(u"1970")},
                                  {u"WM/TrackNumber", 0, AsfStringValue(u"07/12")},
                                  {u"wm/genre", 0, AsfStringValue(u"lower case is no match")},
                              })}));
    EXPECT_EQ(a.info.album, u"Album");
    EXPECT_EQ(a.info.artist, u"Author"); // the content description's author wins
    EXPECT_EQ(a.info.genre, u"(8)");     // a later matching name replaces
    EXPECT_EQ(a.info.year, u"1970");
    EXPECT_EQ(a.info.track, 7);
    EXPECT_EQ(Described(u"WM/AlbumArtist", 0, AsfStringValue(u"Fallback")).artist, u"Fallback");
}

TEST(WmaExtendedContent, ValueTypesAndWidths) {
    for (auto [type, value, track] :
         {std::tuple{3, Le32(0x10B), 0x10B}, {2, Le32(1), 1}, {4, Le64(0x100000005ULL), 5},
          {4, Le64(6) + "\x01", 6}, {5, Le32(0x10009), 9}, {1, std::string("12"), 0},
          {0, AsfStringValue(u"3rd"), 3}, {3, Le16(4), 4}, {6, Le32(8), 0}})
        EXPECT_EQ(Described(u"WM/TrackNumber", std::uint16_t(type), value).track, track) << type;
    // A numeric year leaves the text empty; a byte-array year formats its
    // (absent) number.
    EXPECT_EQ(Described(u"WM/Year", 3, Le32(1999)).year, u"");
    EXPECT_EQ(Described(u"WM/Year", 1, "\x07\xCF").year, u"0");
    EXPECT_EQ(Described(u"WM/AlbumTitle", 3, Le32(5)).album, u"");
    // Strings keep their first 255 bytes: the last character its low byte.
    std::u16string text = std::u16string(127, u'x') + u"\u0141tail";
    EXPECT_EQ(Described(u"WM/Genre", 0, AsfStringValue(text)).genre,
              std::u16string(127, u'x') + u"A");
    std::u16string fits(126, u'y'); // 252 bytes and the terminator: copied whole
    EXPECT_EQ(Described(u"WM/Genre", 0, AsfStringValue(fits)).genre, fits);
}

TEST(WmaExtendedContent, ADescriptorThatLiesEndsTheList) {
    std::string body = Le16(3) + Le16(18) + Utf16Le(u"WM/Genre") + std::string(2, '\0') + Le16(0) +
                       Le16(10) + AsfStringValue(u"Rock") + Le16(0xFFFF) + "WM";
    Analysis a = Analyse(Wma({AsfObject(kAsfExtendedContentDescriptionObject, body)}));
    EXPECT_EQ(a.result, 1);
    EXPECT_EQ(a.info.genre, u"Rock");
}

TEST(WmaCodecList, ANonAudioCodecRefusesTheFile) {
    EXPECT_EQ(Analyse(Wma({AsfCodecList({2, 2})})).result, 1);
    for (std::uint16_t other : {1, 0, 0xFFFF}) {
        Analysis a = Analyse(Wma({AsfContentDescription(u"Video", u""), AsfCodecList({2, other})}));
        EXPECT_EQ(a.result, 0) << other;
        EXPECT_TRUE(a.info.nonAudioCodec);
    }
    // A count that lies stops at the entries that are there; a list too
    // short to hold its count is taken as audio.
    std::string list = AsfCodecList({2});
    list.replace(24 + 16, 4, Le32(1000000));
    EXPECT_EQ(Analyse(Wma({list})).result, 1);
    EXPECT_EQ(Analyse(Wma({AsfObject(kAsfCodecListObject, std::string(18, '\0'))})).result, 1);
}

} // namespace
} // namespace zelvor
