#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "config/settings.h"
#include "platform/text.h"
#include "res/string_table.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {
using testing::TempDir;
using testing::FixedSpaceFileSystem;
using testing::TestDevice;

constexpr auto HKLM = RegistryRoot::LocalMachine;
constexpr auto HKCU = RegistryRoot::CurrentUser;

TEST(ShellSettings, LanguageAndColourUseTheLow16BitsAndDefaultToZero) {
    TestDevice dev;
    EXPECT_EQ(ReadLanguage(), 0);
    EXPECT_EQ(ReadGuiColor(), 0);
    dev.Registry().CreateKey(HKLM, u"OMBREL"); // key present, values absent
    EXPECT_EQ(ReadLanguage(), 0);
    dev.Registry().SetDword(HKLM, u"OMBREL", u"Language", 0x00010003);
    dev.Registry().SetDword(HKLM, u"OMBREL", u"GUI Color", 0xFFFF);
    EXPECT_EQ(ReadLanguage(), 3);
    EXPECT_EQ(ReadGuiColor(), 0xFFFF);
    dev.Registry().SetDword(HKLM, u"OMBREL", u"Language", 0xFFFF);
    EXPECT_EQ(ReadLanguage(), -1); // a 16-bit signed value
}

TEST(ProfileNumbers, AreKeptUnderTheApplicationKeyByTableNamesAndFlushed) {
    TestDevice dev;
    EXPECT_EQ(GetProfileNumber(kTextSectionMain, kTextEntryRepeat, 2), 2u);
    SetProfileNumber(kTextSectionMain, kTextEntryRepeat, 1);
    SetProfileNumber(kTextSectionStorageCard, kTextEntryFreeSpaceHigh, 9);
    SetProfileNumber(u"MP3", u"Volume", 6);
    // Flushed: a second store over the same folder sees the values at once.
    RegistryStore reread(RegistryFolderOf(dev.Root()));
    const std::u16string base = u"Software\\Quorrel Systems Inc.\\Zelvor\\";
    EXPECT_EQ(reread.QueryDword(HKCU, base + u"MainSection", u"Repeat"), 1u);
    EXPECT_EQ(reread.QueryDword(HKCU, base + u"StorageCard", u"FreeSapceHigh"), 9u);
    EXPECT_EQ(reread.QueryDword(HKCU, base + u"MP3", u"Volume"), 6u);
    EXPECT_EQ(GetProfileNumber(kTextSectionMain, kTextEntryRepeat, 0), 1u);
}

TEST(StorageLocations, TheCardFolderComesFromTheRegistry) {
    TestDevice dev;
    EXPECT_EQ(GetStorageCardRoot(), u"\\Storage Card");
    dev.Registry().CreateKey(HKLM, u"System\\StorageManager\\Profiles\\SDMMC");
    EXPECT_EQ(GetStorageCardRoot(), u"\\Storage Card"); // the value is missing
    dev.Registry().SetString(HKLM, u"System\\StorageManager\\Profiles\\SDMMC", u"Folder", u"SD Card");
    EXPECT_EQ(GetStorageCardRoot(), u"\\SD Card");
    // The value is read into 258 characters; with its backslash, a path.
    dev.Registry().SetString(HKLM, u"System\\StorageManager\\Profiles\\SDMMC", u"Folder",
                             std::u16string(300, u'c'));
    EXPECT_EQ(GetStorageCardRoot(), u"\\" + std::u16string(258, u'c'));
}

struct ClassifyCase {
    std::u16string_view path;
    int kind;
};

void PrintTo(const ClassifyCase& c, std::ostream* os) {
    *os << ToUtf8(c.path);
}

class StorageClassification : public ::testing::TestWithParam<ClassifyCase> {
protected:
    TestDevice dev;
};

TEST_P(StorageClassification, ByRootPrefixWithItsBackslashIgnoringCase) {
    EXPECT_EQ(ClassifyStoragePath(GetParam().path), GetParam().kind);
}

INSTANTIATE_TEST_SUITE_P(Paths, StorageClassification,
                         ::testing::Values(ClassifyCase{u"\\Storage Card\\x.mp3", 4},
                                           ClassifyCase{u"\\Storage Cardx\\a.mp3", 0},
                                           ClassifyCase{u"\\Storage Card", 0},
                                           ClassifyCase{u"\\flash disk\\a.mp3", 3},
                                           ClassifyCase{u"\\STORAGE CARD\\a\\b.wma", 4},
                                           ClassifyCase{u"\\Windows\\a.mp3", 0},
                                           ClassifyCase{u"", 0}));

TEST(PathExistsRule, RootWithoutSearchAndTrailingBackslashRemovedInPlace) {
    TestDevice dev;
    std::u16string root = u"\\";
    FindData record;
    record.size = 77;
    EXPECT_TRUE(PathExists(root, &record));
    EXPECT_EQ(record.name, u"\\");
    EXPECT_EQ(record.size, 0u); // cleared
    EXPECT_EQ(record.attributes & kAttrDirectory, kAttrDirectory);

    dev.Fs().CreateDirectory(u"\\My Music");
    std::u16string folder = u"\\My Music\\";
    EXPECT_TRUE(PathExists(folder, &record));
    EXPECT_EQ(folder, u"\\My Music");
    EXPECT_EQ(record.name, u"My Music");

    std::u16string missing = u"\\Nothing\\";
    EXPECT_FALSE(PathExists(missing));
    EXPECT_EQ(missing, u"\\Nothing");
    std::u16string empty;
    EXPECT_FALSE(PathExists(empty));
}

// A card of its own whose free space the test sets: either half of the
// 64-bit count differing is a change, a card gone after a record too.
TEST(Fingerprint, FollowsTheFreeByteCountOfACardOfItsOwn) {
    TempDir holder;
    const auto card = holder.Path() / "card";
    DeviceConfig config;
    config.card = card;
    TestDevice dev(config);
    auto fixed = std::make_unique<FixedSpaceFileSystem>(dev.Root());
    fixed->Bind(u"\\Storage Card", card);
    FixedSpaceFileSystem* space = fixed.get();
    dev.Get().SetFileSystem(std::move(fixed));
    auto changed = [] { return StorageChanged(kStorageCard, u"\\Storage Card"); };
    EXPECT_FALSE(changed()); // nothing stored, no card

    std::filesystem::create_directories(card);
    RecordFreeSpace(kStorageCard, u"\\Storage Card");
    EXPECT_EQ(GetProfileNumber(kTextSectionStorageCard, kTextEntryFreeSpaceHigh, 0), 1u);
    EXPECT_EQ(GetProfileNumber(kTextSectionStorageCard, kTextEntryFreeSpaceLow, 0), 0x23456789u);
    EXPECT_FALSE(changed());
    space->free ^= 1; // low half differs
    EXPECT_TRUE(changed());
    space->free = 0x2'2345'6789; // high half differs
    EXPECT_TRUE(changed());
    space->free = 0x1'2345'6789;
    EXPECT_FALSE(changed());
    // Each kind keeps its own section: nothing is recorded for the flash disk,
    // whose free bytes are not zero.
    EXPECT_EQ(GetProfileNumber(kTextSectionFlashDisk, kTextEntryFreeSpaceLow, 5), 5u);
    EXPECT_TRUE(StorageChanged(kStorageFlash, u"\\Flash Disk"));

    space->free = 0x1'0000'0000; // a low half of zero
    RecordFreeSpace(kStorageCard, u"\\Storage Card");
    std::filesystem::remove_all(card);
    EXPECT_TRUE(changed());
    // Recording with no card stores zero, which then reads as unchanged.
    RecordFreeSpace(kStorageCard, u"\\Storage Card");
    EXPECT_EQ(GetProfileNumber(kTextSectionStorageCard, kTextEntryFreeSpaceLow, 1), 0u);
    EXPECT_FALSE(changed());
}

// A card folder that shares the host's file system: its fingerprint follows
// the music below it, not the disk's free space.
TEST(SharedDiskFingerprint, ChangesWithTheMusicAndWithNothingElse) {
    TempDir host;
    DeviceConfig config;
    config.card = host.Path() / "card";
    TestDevice dev(config);
    dev.WriteFile(u"\\Storage Card\\Album\\a.mp3", "one");
    dev.WriteFile(u"\\Flash Disk\\b.wma", "two");
    auto recordBoth = [] {
        RecordFreeSpace(kStorageCard, GetStorageCardRoot());
        RecordFreeSpace(kStorageFlash, GetFlashDiskRoot());
    };
    auto changed = [] {
        return std::pair(StorageChanged(kStorageCard, GetStorageCardRoot()),
                         StorageChanged(kStorageFlash, GetFlashDiskRoot()));
    };
    recordBoth();
    // Writes that are not music, on the card, the flash disk and the disk
    // they share: the library, the registry, a cover, a dot folder's music.
    dev.WriteFile(u"\\Flash Disk\\Zelvor\\MusicLib.qdx", std::string(4096, 'x'));
    SetProfileNumber(u"MP3", u"Volume", 7);
    dev.WriteFile(u"\\Storage Card\\Album\\cover.jpg", "jpg");
    dev.WriteFile(u"\\Storage Card\\.trash\\c.mp3", "old");
    std::ofstream(host.Path() / "elsewhere.bin") << "unrelated";
    EXPECT_EQ(changed(), std::pair(false, false));

    dev.WriteFile(u"\\Storage Card\\Album\\new.mp3", "three");
    EXPECT_EQ(changed(), std::pair(true, false));
    recordBoth();
    std::filesystem::rename(dev.Host(u"\\Storage Card\\Album"), host.Path() / "card" / "Renamed");
    EXPECT_EQ(changed(), std::pair(true, false));
    recordBoth();
    dev.WriteFile(u"\\Flash Disk\\b.wma", "two!"); // rewritten in place
    EXPECT_EQ(changed(), std::pair(false, true));

    // Linked folders count as the scan enters them: within the device root,
    // not leading back to their own path, not out of the root.
    TempDir outside;
    std::filesystem::create_directory_symlink(outside.Path(), dev.Host(u"\\Flash Disk\\Out"));
    dev.WriteFile(u"\\Shared\\d.aac", "four");
    std::filesystem::create_directory_symlink(dev.Host(u"\\Shared"), dev.Host(u"\\Flash Disk\\In"));
    std::filesystem::create_directory_symlink(dev.Host(u"\\Flash Disk"), dev.Host(u"\\Shared\\Back"));
    EXPECT_EQ(changed(), std::pair(false, true));
    recordBoth();
    std::ofstream(outside.Path() / "e.mp3") << "five";
    EXPECT_EQ(changed(), std::pair(false, false));
    dev.WriteFile(u"\\Shared\\f.mp3", "six");
    EXPECT_EQ(changed(), std::pair(false, true));
}

} // namespace
} // namespace zelvor
