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

TEST(WmaHeaderObject, RefusedOnlyWhenBothReservedBytesAreWrong) {
    const std::string child = AsfContentDescription(u"T", u"A");
    struct Case {
        std::uint8_t r1, r2;
        int result;
    };
    for (Case c : {Case{1, 2, 1}, Case{0, 2, 1}, Case{1, 0, 1}, Case{0, 0, 0}, Case{2, 1, 0}}) {
        Analysis a = Analyse(AsfHeader(1, child, c.r1, c.r2));
        EXPECT_EQ(a.result, c.result) << int{c.r1} << "," << int{c.r2};
    }
    EXPECT_EQ(Analyse(AsfObject(kAsfContentDescriptionObject, "") + child).result, 0);
    EXPECT_EQ(Analyse("").result, 0);
}

TEST(WmaHeaderObject, ChildCountUsesItsLow16BitsAndEndsTheWalk) {
    std::string children =
        AsfContentDescription(u"First", u"") + AsfContentDescription(u"Second", u"");
    EXPECT_EQ(Analyse(AsfHeader(1, children)).info.title, u"First");
    EXPECT_EQ(Analyse(AsfHeader(0x10002, children)).info.title, u"Second");
    EXPECT_EQ(Analyse(AsfHeader(0x10000, children)).info.title, u"");
}

TEST(WmaHeaderObject, AChildThatLiesEndsTheWalkAndKeepsWhatCameBefore) {
    std::string good = AsfContentDescription(u"Kept", u"Who");
    for (std::uint64_t size :
         {std::uint64_t{0}, std::uint64_t{23}, std::uint64_t{0xFFFFFFFF}, std::uint64_t{1} << 40}) {
        std::string bad =
            std::string(kAsfFilePropertiesObject.begin(), kAsfFilePropertiesObject.end()) +
            Le64(size) + std::string(100, '\0');
        Analysis a = Analyse(AsfHeader(3, good + bad + AsfContentDescription(u"Never", u"")));
        EXPECT_EQ(a.result, 1) << size;
        EXPECT_EQ(a.info.title, u"Kept");
        EXPECT_EQ(a.info.artist, u"Who");
    }
}

TEST(WmaContentDescription, TitleAuthorAndCopyrightCutToTheBuffer) {
    std::u16string longTitle(300, u'L');
    Analysis a = Analyse(Wma({AsfContentDescription(longTitle, u"Author \u00C5", u"(c) Someone")}));
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
    EXPECT_EQ(Analyse(Wma({AsfFileProperties(3000000000ULL)})).info.duration, 300);
    EXPECT_EQ(Analyse(Wma({AsfFileProperties(6000000000ULL)})).info.duration, 170);
    EXPECT_EQ(Analyse(Wma({AsfFileProperties(3000000000ULL, 3)})).info.duration, 0); // broadcast
    std::string truncated = AsfFileProperties(3000000000ULL).substr(0, 90);
    truncated.replace(16, 8, Le64(90));
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

    a = Analyse(Wma({AsfExtendedContent({{u"WM/AlbumArtist", 0, AsfStringValue(u"Fallback")}})}));
    EXPECT_EQ(a.info.artist, u"Fallback");
}

TEST(WmaExtendedContent, ValueTypes) {
    struct Case {
        std::uint16_t type;
        std::string value;
        std::int32_t track;
    };
    for (Case c : {Case{3, Le32(11), 11}, Case{2, Le32(1), 1}, Case{4, Le64(0x100000005ULL), 5},
                   Case{5, Le16(9), 9}, Case{1, "12", 0}, Case{0, AsfStringValue(u"3rd"), 3},
                   Case{3, Le16(4), 4}}) {
        Analysis a = Analyse(Wma({AsfExtendedContent({{u"WM/TrackNumber", c.type, c.value}})}));
        EXPECT_EQ(a.info.track, c.track) << c.type;
    }
    // A numeric year leaves the text empty; a byte-array year formats its
    // (absent) number.
    EXPECT_EQ(Analyse(Wma({AsfExtendedContent({{u"WM/Year", 3, Le32(1999)}})})).info.year, u"");
    EXPECT_EQ(Analyse(Wma({AsfExtendedContent({{u"WM/Year", 1, "\x07\xCF"}})})).info.year, u"0");
    EXPECT_EQ(Analyse(Wma({AsfExtendedContent({{u"WM/AlbumTitle", 3, Le32(5)}})})).info.album, u"");
}

TEST(WmaExtendedContent, LongStringsKeepTheirFirst255Bytes) {
    std::u16string text(127, u'x');
    text += u'\u0141'; // its high byte falls beyond the 255 bytes
    text += u"tail";
    Analysis a = Analyse(Wma({AsfExtendedContent({{u"WM/Genre", 0, AsfStringValue(text)}})}));
    EXPECT_EQ(a.info.genre, std::u16string(127, u'x') + u"A");
    std::u16string fits(126, u'y'); // 252 bytes and the terminator: copied whole
    a = Analyse(Wma({AsfExtendedContent({{u"WM/Genre", 0, AsfStringValue(fits)}})}));
    EXPECT_EQ(a.info.genre, fits);
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
    // A count that lies stops at the entries that are there.
    std::string list = AsfCodecList({2});
    list.replace(24 + 16, 4, Le32(1000000));
    EXPECT_EQ(Analyse(Wma({list})).result, 1);
}

TEST(WmaReadAsfObject, SizesThatLieReadNothing) {
    std::vector<std::byte> out;
    MemoryFile file = MemoryFileOf(AsfContentDescription(u"T", u"") + std::string(10, '\0'));
    EXPECT_EQ(ReadAsfObject(file, 0, out), file.Size() - 10);
    EXPECT_EQ(out.size(), file.Size() - 10);
    EXPECT_EQ(ReadAsfObject(file, file.Size() - 10, out), 0u);
    EXPECT_TRUE(out.empty());
    EXPECT_EQ(ReadAsfObject(file, 1000, out), 0u);
}

TEST(WmaAnalysis, ByPathThroughTheDevice) {
    TestDevice device;
    device.WriteFile(u"\\Flash Disk\\t.wma", Wma({AsfContentDescription(u"On flash", u"")}));
    WmaFileInfo info;
    EXPECT_EQ(AnalyseWmaFile(info, u"\\Flash Disk\\T.WMA"), 1);
    EXPECT_EQ(info.title, u"On flash");
    EXPECT_EQ(info.path, u"\\Flash Disk\\T.WMA");
    EXPECT_EQ(AnalyseWmaFile(info, u"\\Flash Disk\\none.wma"), 0);
}

} // namespace
} // namespace zelvor
