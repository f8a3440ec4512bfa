#include <gtest/gtest.h>

#include <atomic>

#include "config/local_text.h"
#include "config/settings.h"
#include "res/string_table.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {
using testing::TestDevice;
using testing::Utf16Le;

constexpr std::u16string_view kOmbrelPath = u"\\Flash Disk\\Zelvor\\Ombrel.txt";

// Counts whole-file reads, to prove that language 0 never opens the file.
class CountingFileSystem : public DeviceFileSystem {
public:
    using DeviceFileSystem::DeviceFileSystem;
    std::optional<std::vector<std::byte>> ReadWholeFile(std::u16string_view path,
                                                        std::uint64_t maxBytes) const override {
        ++reads;
        return DeviceFileSystem::ReadWholeFile(path, maxBytes);
    }
    mutable std::atomic<int> reads{0};
};

class LocalText : public ::testing::Test {
protected:
    void WriteOmbrel(std::u16string_view body) { dev.WriteFile(kOmbrelPath, Utf16Le(body, true)); }
    std::u16string Text(std::int16_t language, std::uint16_t id) {
        return std::u16string(LoadLocalText(kLocalTextFileName, language, id));
    }
    TestDevice dev;
};

TEST_F(LocalText, LanguageZeroIsTheBuiltInTableAndNeverOpensTheFile) {
    auto counting = std::make_unique<CountingFileSystem>(dev.Root());
    CountingFileSystem* fs = counting.get();
    dev.Get().SetFileSystem(std::move(counting));
    WriteOmbrel(u"All Music\tAlle Musik\r\n");
    EXPECT_EQ(Text(0, kTextAllMusic), u"All Music");
    EXPECT_EQ(fs->reads, 0);
    EXPECT_EQ(Text(1, kTextAllMusic), u"Alle Musik");
    EXPECT_EQ(fs->reads, 1);
    EXPECT_EQ(Text(1, kTextAllMusic), u"Alle Musik");
    EXPECT_EQ(fs->reads, 2); // nothing cached
}

TEST_F(LocalText, FallsBackToEnglishWhenTheFileCannotHelp) {
    EXPECT_EQ(Text(2, kTextArtists), u"Artists"); // no file
    dev.WriteFile(kOmbrelPath, "");
    EXPECT_EQ(Text(2, kTextArtists), u"Artists");
    dev.WriteFile(kOmbrelPath, "\xFF\xFE"); // a bare byte-order mark
    EXPECT_EQ(Text(2, kTextArtists), u"Artists");
    WriteOmbrel(u"Albums\tAlben\tAlbums FR\r\n");
    EXPECT_EQ(Text(2, kTextArtists), u"Artists"); // no line for it
    EXPECT_EQ(Text(25, kTextAlbums), u"Albums");  // no such column
    EXPECT_EQ(Text(-1, kTextAlbums), u"Albums");
    EXPECT_EQ(Text(1, 999), u"");                 // no such entry
    EXPECT_EQ(Text(0, 127), u"");
}

TEST_F(LocalText, KeyIgnoresCaseAndTheFirstMatchingLineWins) {
    WriteOmbrel(u"ALL MUSIC\tErste\r\nAll Music\tZweite\r\n");
    EXPECT_EQ(Text(1, kTextAllMusic), u"Erste");
}

TEST_F(LocalText, ALastLineWithoutCrIsNeverConsidered) {
    WriteOmbrel(u"Genres\tGenres DE\r\nArtists\tInterpreten");
    EXPECT_EQ(Text(1, kTextArtists), u"Artists");
    EXPECT_EQ(Text(1, kTextGenres), u"Genres DE");
    WriteOmbrel(u"Artists\tInterpreten\r");
    EXPECT_EQ(Text(1, kTextArtists), u"Interpreten"); // a CR as the very last unit still ends it
}

TEST_F(LocalText, AShortMatchingLineYieldsWhatAnEarlierLineLeftInThatColumn) {
    WriteOmbrel(u"Genres\tGenres\tGenres FR\tGéneros\r\nAlbums\tAlben\r\n");
    EXPECT_EQ(Text(1, kTextAlbums), u"Alben");
    EXPECT_EQ(Text(3, kTextAlbums), u"Géneros");
    // A column no line reached reads as empty.
    EXPECT_EQ(Text(4, kTextAlbums), u"");
}

TEST_F(LocalText, UnitsAfterCrAreSkippedAndStrayLineFeedsBelongToTheField) {
    WriteOmbrel(u"Albums\ta\nb\r\nArtists\tX\rYGenres\tG\r\n");
    EXPECT_EQ(Text(1, kTextAlbums), u"a\nb");
    // The unit after a CR is skipped whatever it is: "Y" is lost, "Genres" starts the line.
    EXPECT_EQ(Text(1, kTextGenres), u"G");
}

TEST_F(LocalText, AnOddByteCountIgnoresTheLastByte) {
    const std::string image = Utf16Le(u"Albums\tAlben\r\n", true);
    dev.WriteFile(kOmbrelPath, image + "\x41");
    EXPECT_EQ(Text(1, kTextAlbums), u"Alben");
    // The scan on its own: the key column and negative numbers are no language.
    EXPECT_EQ(FindTranslation(testing::Bytes(image), u"albums", 1), u"Alben");
    EXPECT_FALSE(FindTranslation(testing::Bytes(image), u"Albums", 0));
    EXPECT_FALSE(FindTranslation(testing::Bytes(image), u"Albums", -1));
}

TEST_F(LocalText, OverlongFieldsAreCutAndSurplusFieldsDropped) {
    std::u16string longField(400, u'x');
    std::u16string manyFields = u"Genres";
    for (int i = 1; i <= 40; ++i)
        manyFields += u"\t" + std::u16string(1, static_cast<char16_t>(u'@' + i));
    WriteOmbrel(u"Albums\t" + longField + u"\r\n" + manyFields + u"\r\n");
    EXPECT_EQ(Text(1, kTextAlbums), std::u16string(255, u'x'));
    EXPECT_EQ(Text(24, kTextGenres), u"X"); // '@' + 24
    EXPECT_EQ(Text(1, kTextGenres), u"A");
}

TEST_F(LocalText, FormatsKeepTheirPlaceholders) {
    WriteOmbrel(u"Total :  %d  songs\tGesamt: %d Titel\r\n");
    EXPECT_EQ(Text(1, kTextTotalSongs), u"Gesamt: %d Titel");
}

TEST(BuiltInText, RingOfFourBuffersKeepsATextUntilFourMoreAreLoaded) {
    const char16_t* first = LoadBuiltInText(kTextArtists);
    ASSERT_NE(first, nullptr);
    LoadBuiltInText(kTextAlbums);
    LoadBuiltInText(kTextGenres);
    LoadBuiltInText(kTextAll);
    EXPECT_EQ(std::u16string_view(first), u"Artists");
    LoadBuiltInText(kTextUnknown);
    EXPECT_EQ(std::u16string_view(first), u"Unknown");
    EXPECT_EQ(LoadBuiltInText(200), nullptr);
}

TEST(BuiltInText, TableHoldsEveryIdAndTheProfileNamesExactly) {
    for (std::uint16_t id = kFirstTextId; id <= kLastTextId; ++id)
        EXPECT_TRUE(FindBuiltInText(id).has_value()) << id;
    EXPECT_EQ(FindBuiltInText(kTextEntryFreeSpaceHigh), u"FreeSapceHigh");
    EXPECT_EQ(FindBuiltInText(kTextEntryFreeSpaceLow), u"FreeSpaceLow");
    EXPECT_EQ(FindBuiltInText(kTextTotalSongs), u"Total :  %d  songs");
    EXPECT_EQ(FindBuiltInText(kTextDeletePlaylistQuestion),
              u"'%s'\nDo you want to delete this playlist ?");
}

} // namespace
} // namespace zelvor
