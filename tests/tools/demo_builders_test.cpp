// The demo maker's builders on their own: ID3 tags at their limits, the
// translations file read back by the player's reader and the manifest's JSON
// strings. (The process runner's failure report is checked through the
// program, with an encoder that fails.)

#include "config/local_text.h"
#include "res/string_table.h"
#include "tags/mpeg/analyse_mp3_file.h"
#include "tests/support/test_device.h"
#include "tools/zelvor_demo/id3_builder.h"
#include "tools/zelvor_demo/manifest.h"
#include "tools/zelvor_demo/ombrel_file.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace zelvor::testing {
namespace {
using demo::TagFields;

TagFields Fields(std::u16string title) {
    return {std::move(title), u"Artist", u"Album", u"Rock", u"1999", 7};
}

std::string AsText(const demo::Bytes& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

struct Id3v2Layout {
    const char* name;
    std::optional<demo::Bytes> (*build)(const TagFields&);
    // The title frame's header before its 302-byte body (size as a plain
    // big-endian number) and the whole genre frame.
    std::string titleHeader, genreFrame;
};

class Id3v2Builder : public ::testing::TestWithParam<Id3v2Layout> {};

TEST_P(Id3v2Builder, SyncsafeTagSizeAndExactFrameSizes) {
    const std::string title(300, 'x'); // frame body 302 bytes: needs more than 7 bits
    const std::string tag =
        AsText(GetParam().build(Fields(std::u16string(title.begin(), title.end()))).value());
    std::uint32_t size = 0;
    for (char c : tag.substr(6, 4)) {
        EXPECT_LT(static_cast<unsigned char>(c), 0x80u);
        size = size << 7 | static_cast<unsigned char>(c);
    }
    EXPECT_EQ(size + 10, tag.size());
    const std::string& header = GetParam().titleHeader;
    EXPECT_EQ(tag.substr(10, header.size() + 302), header + '\0' + title + '\0');
    EXPECT_NE(tag.find(GetParam().genreFrame), std::string::npos);
    // Text outside Latin-1: encoding byte 1, then FF FE and UTF-16LE.
    const std::u16string wide = u"夜明け Łódź";
    const std::string body = '\1' + Utf16Le(wide, true) + std::string(2, '\0');
    EXPECT_EQ(AsText(GetParam().build(Fields(wide)).value()).substr(10 + header.size(), body.size()),
              body);
}

using namespace std::string_literals;
INSTANTIATE_TEST_SUITE_P(
    Versions, Id3v2Builder,
    ::testing::Values(Id3v2Layout{"V22", &demo::BuildId3v22Tag, "TT2\0\x01\x2E"s,
                                  "TCO\0\0\x06\0(17)\0"s},
                      Id3v2Layout{"V23", &demo::BuildId3v23Tag, "TIT2\0\0\x01\x2E\0\0"s,
                                  "TCON\0\0\0\x06\0\0\0(17)\0"s}),
    [](const auto& testCase) { return std::string(testCase.param.name); });

struct Id3v1Case {
    const char* name;
    TagFields fields;
    bool fits;
};

class Id3v1Limits : public ::testing::TestWithParam<Id3v1Case> {};

TEST_P(Id3v1Limits, RefusesWhatDoesNotFitInsteadOfCutting) {
    auto tag = demo::BuildId3v1Tag(GetParam().fields);
    ASSERT_EQ(tag.has_value(), GetParam().fits);
    if (!tag)
        return;
    ASSERT_EQ(tag->size(), demo::kId3v1Size);
    Mp3FileInfo read; // by the player's own reader
    ASSERT_TRUE(ReadMp3Id3v1(read, *tag));
    EXPECT_EQ(read.title, GetParam().fields.title);
    EXPECT_EQ(read.track, GetParam().fields.track);
    EXPECT_EQ(read.genreIndex, GetParam().fields.genre == u"Rock" ? 17 : 255);
}

INSTANTIATE_TEST_SUITE_P(
    Fields, Id3v1Limits,
    ::testing::Values(Id3v1Case{"Thirty", Fields(std::u16string(30, u'a')), true},
                      Id3v1Case{"ThirtyOne", Fields(std::u16string(31, u'a')), false},
                      Id3v1Case{"Latin1", Fields(u"Crème Brûlée Señal"), true},
                      Id3v1Case{"Polish", Fields(u"Łódź"), false},
                      Id3v1Case{"Euro", Fields(u"5 €"), false}, // differs between 8859-1 and 1252
                      Id3v1Case{"Track255GenreWithoutNumber", {u"t", u"a", u"b", u"Shoegaze", u"2000", 255}, true},
                      Id3v1Case{"Track256", {u"t", u"a", u"b", u"Pop", u"2000", 256}, false},
                      Id3v1Case{"LongYear", {u"t", u"a", u"b", u"Pop", u"20001", 1}, false}),
    [](const auto& testCase) { return std::string(testCase.param.name); });

// Every text the user sees has its line, read back by the player's own
// reader with the same placeholders; the profile names have none.
TEST(OmbrelFile, ThePlayerFindsEveryTranslationAndNoProfileName) {
    const auto file = demo::BuildOmbrelText().value();
    auto placeholders = [](std::u16string_view text) {
        std::u16string found;
        for (std::size_t at = text.find(u'%'); at != text.npos; at = text.find(u'%', at + 2))
            found += text.substr(at, 2);
        return found;
    };
    std::size_t translated = 0;
    for (const auto& t : demo::Translations()) {
        const std::u16string english(FindBuiltInText(t.id).value());
        SCOPED_TRACE(t.id);
        for (auto [language, text] : {std::pair{1, t.german}, {2, t.french}, {3, t.spanish}}) {
            EXPECT_EQ(FindTranslation(file, english, static_cast<std::int16_t>(language)), text);
            EXPECT_EQ(placeholders(text), placeholders(english));
        }
        ++translated;
    }
    for (std::uint16_t profileName : {146, 147, 148, 158, 160, 161, 162, 163})
        EXPECT_FALSE(FindTranslation(file, FindBuiltInText(profileName).value(), 1)) << profileName;
    EXPECT_EQ(translated, kLastTextId - kFirstTextId + 1u - 8u);
}

TEST(ManifestLine, RoundTripsThroughAJsonReader) {
    demo::DemoFile file;
    file.path = u"\\Storage Card\\\"Quoted\" Ça\tva.mp3";
    file.fields = {u"Line\nbreak \\ back", u"Niño", u"", u"Pop", u"2020", 3};
    file.tags = demo::TagStyle::Id3v24;
    file.seconds = 9;
    file.excluded = "hidden";
    file.hidden = true;
    std::string line = demo::ManifestLine(file);
    ASSERT_TRUE(line.ends_with("}\n"));
    EXPECT_EQ(line.find('\t'), std::string::npos);
    QJsonParseError error;
    QJsonObject object =
        QJsonDocument::fromJson(QByteArray::fromStdString(line), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << line;
    EXPECT_EQ(object["path"].toString().toStdString(), "\\Storage Card\\\"Quoted\" Ça\tva.mp3");
    EXPECT_EQ(object["title"].toString().toStdString(), "Line\nbreak \\ back");
    EXPECT_EQ(object["track"].toInteger(), 3);
    EXPECT_EQ(object["hidden"], QJsonValue(true));
    EXPECT_EQ(object["excluded"].toString(), "hidden");
    EXPECT_EQ(demo::JsonString(std::string("\x01", 1)), "\"\\u0001\"");
}

} // namespace
} // namespace zelvor::testing
