#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include <sys/resource.h>
#include <sys/xattr.h>

#include "platform/device_fs.h"
#include "platform/text.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {
namespace fs = std::filesystem;
using testing::TempDir;
using testing::TestDevice;

std::set<std::u16string> ListNames(DeviceFileSystem& dfs, std::u16string_view pattern) {
    std::set<std::u16string> names;
    FindData data;
    auto handle = dfs.FindFirst(pattern, data);
    if (!handle)
        return names;
    do {
        names.insert(data.name);
    } while (handle->Next(data));
    return names;
}

TEST(DevicePaths, DotsNeverClimbAboveTheRootAndWildcardsIgnoreCase) {
    const std::pair<std::u16string_view, std::u16string_view> paths[] = {
        {u"\\..\\..\\Windows", u"\\Windows"}, {u"\\a\\.\\b\\..\\c\\", u"\\a\\c"},
        {u"", u"\\"}, {u"\\\\x//y", u"\\x\\y"}};
    for (auto [path, normal] : paths)
        EXPECT_EQ(DeviceFileSystem::NormalizePath(path), normal) << ToUtf8(path);
    EXPECT_EQ(DeviceFolderOf(u"\\Flash Disk\\a.mp3"), u"\\Flash Disk");
    EXPECT_EQ(DeviceNameOf(u"\\Flash Disk\\a.mp3"), u"a.mp3");
    EXPECT_EQ(DeviceFolderOf(u"a.mp3"), u"");
    const std::tuple<std::u16string_view, std::u16string_view, bool> matches[] = {
        {u"Song.MP3", u"*.mp3", true}, {u"anything", u"*.*", true}, {u"a.mp3x", u"*.mp3", false},
        {u"abc", u"a?c", true},        {u"ac", u"a?c", false}};
    for (auto [name, pattern, match] : matches)
        EXPECT_EQ(MatchesWildcard(name, pattern), match) << ToUtf8(name) << " " << ToUtf8(pattern);
    // No backtracking blow-up.
    EXPECT_FALSE(MatchesWildcard(std::u16string(2000, u'a'), u"*a*a*a*a*a*a*a*b"));
}

TEST(DevicePathResolution, IgnoresCaseComponentByComponent) {
    TestDevice dev;
    dev.WriteFile(u"\\Storage Card\\Music\\Song.MP3", "x");
    auto host = dev.Fs().ToHostPath(u"\\STORAGE CARD\\music\\song.mp3");
    ASSERT_TRUE(host);
    EXPECT_EQ(host->filename(), "Song.MP3");
    EXPECT_EQ(host->parent_path().filename(), "Music");
    // A missing last component keeps the caller's spelling (a file to create).
    EXPECT_EQ(dev.Fs().ToHostPath(u"\\storage card\\New.mpl")->filename(), "New.mpl");
    EXPECT_EQ(dev.Fs().ToHostPath(u"\\storage card\\New.mpl")->parent_path().filename(),
              "Storage Card");
}

TEST(DevicePathResolution, RefusesSymlinksThatLeaveTheRoot) {
    TestDevice dev;
    TempDir outside;
    std::ofstream(outside.Path() / "secret.mp3") << "x";
    fs::create_directory_symlink(outside.Path(), dev.Root() / "Storage Card" / "escape");
    fs::create_directory_symlink(dev.Root() / "Windows", dev.Root() / "Storage Card" / "inside");

    EXPECT_FALSE(dev.Fs().ToHostPath(u"\\Storage Card\\escape\\secret.mp3"));
    EXPECT_EQ(dev.Fs().GetAttributes(u"\\Storage Card\\escape\\secret.mp3"), kInvalidAttributes);
    EXPECT_FALSE(dev.Fs().OpenFile(u"\\Storage Card\\escape\\secret.mp3", FileMode::Read));
    EXPECT_FALSE(dev.Fs().ReplaceFile(u"\\Storage Card\\escape\\secret.mp3", testing::Bytes("y")));
    EXPECT_TRUE(dev.Fs().ToHostPath(u"\\Storage Card\\inside"));
}

TEST(DeviceBindings, MapAPrefixToAnotherHostFolderLikeAMount) {
    TempDir card;
    std::ofstream(card.Path() / "Track.wma") << "abc";
    DeviceConfig config;
    config.card = card.Path();
    TestDevice dev(config);

    EXPECT_EQ(*dev.Fs().ToHostPath(u"\\storage card\\track.WMA"), card.Path() / "Track.wma");
    EXPECT_EQ(ListNames(dev.Fs(), u"\\Storage Card\\*.*"), std::set<std::u16string>{u"Track.wma"});
    // The bound folder shows in the root listing once, as a folder.
    auto root = ListNames(dev.Fs(), u"\\*.*");
    EXPECT_EQ(root.count(u"Storage Card"), 1u);
    EXPECT_EQ(dev.Fs().GetAttributes(u"\\Storage Card") & kAttrDirectory, kAttrDirectory);
    // ".." out of a binding lands in the device root, not the host's parent.
    EXPECT_EQ(*dev.Fs().ToHostPath(u"\\Storage Card\\..\\Windows"), dev.Root() / "Windows");
}

// The bound folder is kept open for speed; what counts is what its path
// names now: a card swapped in its place is read, not the one taken out.
TEST(DeviceBindings, AFolderReplacedUnderItsPathIsTheOneRead) {
    TempDir card;
    fs::create_directory(card.Path() / "card");
    std::ofstream(card.Path() / "card" / "old.mp3") << "old";
    DeviceConfig config;
    config.card = card.Path() / "card";
    TestDevice dev(config);
    ASSERT_EQ(ListNames(dev.Fs(), u"\\Storage Card\\*.*"), std::set<std::u16string>{u"old.mp3"});

    fs::rename(card.Path() / "card", card.Path() / "taken out");
    fs::create_directory(card.Path() / "card");
    std::ofstream(card.Path() / "card" / "new.mp3") << "new";
    std::ofstream(card.Path() / "card" / "old.mp3") << "swapped";
    EXPECT_EQ(ListNames(dev.Fs(), u"\\Storage Card\\*.*"),
              (std::set<std::u16string>{u"new.mp3", u"old.mp3"}));
    auto bytes = dev.Fs().ReadWholeFile(u"\\Storage Card\\old.mp3");
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->size(), 7u);
    auto file = dev.Fs().OpenFile(u"\\Storage Card\\old.mp3", FileMode::Read);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Size(), 7u);
}

TEST(DeviceBindings, AMissingHostFolderIsACardThatIsNotInserted) {
    TempDir gone;
    DeviceConfig config;
    config.card = gone.Path() / "not-there";
    TestDevice dev(config);
    EXPECT_EQ(dev.Fs().GetAttributes(u"\\Storage Card"), kInvalidAttributes);
    FindData data;
    EXPECT_FALSE(dev.Fs().FindFirst(u"\\Storage Card\\*.*", data));
    EXPECT_FALSE(dev.Fs().GetDiskFreeSpace(u"\\Storage Card"));
}

TEST(DeviceFind, WildcardsAndEntryData) {
    TestDevice dev;
    dev.WriteFile(u"\\Flash Disk\\a.mp3", "12345");
    dev.WriteFile(u"\\Flash Disk\\B.MP3", "1");
    dev.WriteFile(u"\\Flash Disk\\noext", "");
    ASSERT_TRUE(dev.Fs().CreateDirectory(u"\\Flash Disk\\Sub"));

    EXPECT_EQ(ListNames(dev.Fs(), u"\\Flash Disk\\*.mp3"),
              (std::set<std::u16string>{u"a.mp3", u"B.MP3"}));
    EXPECT_EQ(ListNames(dev.Fs(), u"\\Flash Disk\\?.mp3").size(), 2u);
    EXPECT_EQ(ListNames(dev.Fs(), u"\\Flash Disk\\*.*"),
              (std::set<std::u16string>{u"a.mp3", u"B.MP3", u"noext", u"Sub", u"Zelvor"}));
    EXPECT_EQ(ListNames(dev.Fs(), u"\\Flash Disk\\noext.*"), std::set<std::u16string>{u"noext"});

    FindData data;
    ASSERT_TRUE(dev.Fs().FindFirst(u"\\flash disk\\A.MP3", data));
    EXPECT_EQ(data.name, u"a.mp3");
    EXPECT_EQ(data.size, 5u);
    EXPECT_EQ(data.attributes & kAttrDirectory, 0u);
    EXPECT_GT(data.lastWriteTime, 116444736000000000ULL); // after 1970 in 1601-based units
    ASSERT_TRUE(dev.Fs().FindFirst(u"\\Flash Disk\\Sub", data));
    EXPECT_EQ(data.attributes & kAttrDirectory, kAttrDirectory);

    // More entries than one read of the folder brings.
    for (int i = 0; i < 600; ++i)
        dev.WriteFile(u"\\Flash Disk\\Many\\" + std::u16string(40, u'n') + FromUtf8(std::to_string(i)), "");
    EXPECT_EQ(ListNames(dev.Fs(), u"\\Flash Disk\\Many\\*.*").size(), 600u);
}

TEST(DeviceAttributes, HiddenAndSystemSurviveAndReadOnlyMapsToPermissions) {
    TestDevice dev;
    dev.WriteFile(u"\\Storage Card\\h.mp3", "x");
    // Skipped only where the host cannot keep a word at all, so that a word
    // this program fails to write is a failure, not a skip.
    if (::setxattr(dev.Host(u"\\Storage Card").c_str(), "user.probe", "1", 1, 0) != 0)
        GTEST_SKIP() << "this host file system keeps no extended attributes";
    ASSERT_TRUE(dev.Fs().SetAttributes(u"\\Storage Card\\h.mp3", kAttrHidden | kAttrSystem));
    EXPECT_EQ(dev.Fs().GetAttributes(u"\\Storage Card\\h.mp3") & (kAttrHidden | kAttrSystem),
              kAttrHidden | kAttrSystem);
    FindData data;
    ASSERT_TRUE(dev.Fs().FindFirst(u"\\Storage Card\\h.mp3", data));
    EXPECT_EQ(data.attributes & kAttrHidden, kAttrHidden);
    // A listing reads words only in folders that hold some: moved into a
    // folder that held none, the file must still be seen hidden there.
    dev.WriteFile(u"\\Storage Card\\Plain\\p.mp3", "x");
    ASSERT_TRUE(dev.Fs().MoveFile(u"\\Storage Card\\h.mp3", u"\\Storage Card\\Plain\\h.mp3"));
    ASSERT_TRUE(dev.Fs().FindFirst(u"\\Storage Card\\Plain\\h.mp3", data, FindDetail::Attributes));
    EXPECT_EQ(data.attributes & kAttrHidden, kAttrHidden);
    ASSERT_TRUE(dev.Fs().MoveFile(u"\\Storage Card\\Plain\\h.mp3", u"\\Storage Card\\h.mp3"));

    ASSERT_TRUE(dev.Fs().SetAttributes(u"\\Storage Card\\h.mp3", kAttrReadOnly));
    EXPECT_EQ(dev.Fs().GetAttributes(u"\\Storage Card\\h.mp3") & (kAttrReadOnly | kAttrHidden),
              kAttrReadOnly);
    EXPECT_EQ(fs::status(dev.Host(u"\\Storage Card\\h.mp3")).permissions() & fs::perms::owner_write,
              fs::perms::none);
}

// Without stored attributes: a file is archive, a folder a folder, at every
// detail of a listing; only a full look adds read-only from the permissions.
TEST(DeviceAttributes, DefaultsAtEveryDetailAndReadOnlyFromPermissions) {
    TestDevice dev;
    dev.WriteFile(u"\\Flash Disk\\Sub\\x", "");
    dev.WriteFile(u"\\Flash Disk\\a.mp3", "1");
    for (auto [detail, file] : {std::pair{FindDetail::Full, kAttrArchive},
                                {FindDetail::Attributes, kAttrArchive}, {FindDetail::TypeOnly, 0u}}) {
        std::map<std::u16string, std::uint32_t> seen;
        FindData data;
        auto handle = dev.Fs().FindFirst(u"\\Flash Disk\\*.*", data, detail);
        ASSERT_TRUE(handle);
        do {
            seen[data.name] = data.attributes;
        } while (handle->Next(data));
        EXPECT_EQ(seen[u"Sub"], kAttrDirectory);
        EXPECT_EQ(seen[u"a.mp3"], file);
    }
    fs::permissions(dev.Host(u"\\Flash Disk\\a.mp3"), fs::perms::owner_write, fs::perm_options::remove);
    EXPECT_EQ(dev.Fs().GetAttributes(u"\\Flash Disk\\a.mp3"), kAttrArchive | kAttrReadOnly);
}

TEST(DeviceFileOperations, CreateMoveDeleteAndRefusals) {
    TestDevice dev;
    DeviceFileSystem& dfs = dev.Fs();
    EXPECT_TRUE(dfs.CreateDirectory(u"\\Flash Disk\\Zelvor\\My Music"));
    EXPECT_FALSE(dfs.CreateDirectory(u"\\Flash Disk\\Zelvor\\My Music")); // exists
    dev.WriteFile(u"\\Flash Disk\\a.mpl", "1");
    dev.WriteFile(u"\\Flash Disk\\b.mpl", "2");
    EXPECT_FALSE(dfs.MoveFile(u"\\Flash Disk\\a.mpl", u"\\Flash Disk\\b.mpl")); // never replaces
    EXPECT_TRUE(dfs.MoveFile(u"\\Flash Disk\\a.mpl", u"\\Flash Disk\\A.MPL"));  // a case change
    EXPECT_EQ(ListNames(dfs, u"\\Flash Disk\\*.mpl"), (std::set<std::u16string>{u"A.MPL", u"b.mpl"}));
    EXPECT_FALSE(dfs.DeleteFile(u"\\Flash Disk\\Zelvor"));   // a folder
    EXPECT_FALSE(dfs.RemoveDirectory(u"\\Flash Disk\\Zelvor")); // not empty
    EXPECT_FALSE(dfs.RemoveDirectory(u"\\"));
    EXPECT_TRUE(dfs.DeleteFile(u"\\Flash Disk\\b.mpl"));
    EXPECT_EQ(dfs.GetAttributes(u"\\Flash Disk\\b.mpl"), kInvalidAttributes);
    auto space = dfs.GetDiskFreeSpace(u"\\Flash Disk");
    ASSERT_TRUE(space);
    EXPECT_GT(space->totalBytes, 0u);
    EXPECT_LE(space->freeBytesAvailableToCaller, space->totalFreeBytes);
}

// Only a file system of its own ("/" is its own parent) is a mount point.
TEST(DeviceFileOperations, OnlyAFileSystemOfItsOwnIsAMountPoint) {
    TestDevice dev;
    EXPECT_TRUE(DeviceFileSystem("/").IsOwnMount(u"\\"));
    EXPECT_FALSE(dev.Fs().IsOwnMount(u"\\Storage Card"));
    EXPECT_FALSE(dev.Fs().IsOwnMount(u"\\No Card"));
    EXPECT_FALSE(dev.Fs().TreeSignature(u"\\No Card", [](std::u16string_view) { return true; }));
}

TEST(DeviceFileOperations, RandomAccessReadWriteAndTruncate) {
    TestDevice dev;
    dev.WriteFile(u"\\Flash Disk\\f.bin", "0123456789");
    auto file = dev.Fs().OpenFile(u"\\Flash Disk\\f.bin", FileMode::ReadWrite);
    ASSERT_TRUE(file);
    std::byte buffer[4];
    EXPECT_EQ(file->ReadAt(8, buffer), 2u); // short read at the end
    EXPECT_TRUE(file->WriteAt(2, testing::Bytes("ab")));
    EXPECT_TRUE(file->Truncate(5));
    EXPECT_TRUE(file->WriteAt(7, testing::Bytes("z"))); // a file open for writing grows
    EXPECT_EQ(file->Size(), 8u);
    EXPECT_TRUE(file->Truncate(5));
    file.reset();
    EXPECT_EQ(dev.ReadFile(u"\\Flash Disk\\f.bin"), "01ab4");
    EXPECT_FALSE(dev.Fs().ReadWholeFile(u"\\Flash Disk\\missing.bin")); // not read as empty
    EXPECT_FALSE(dev.Fs().OpenFile(u"\\Flash Disk", FileMode::Read)); // a folder is no file
    EXPECT_FALSE(dev.Fs().OpenFile(u"\\Flash Disk\\new.bin", FileMode::Read));
    EXPECT_TRUE(dev.Fs().OpenFile(u"\\Flash Disk\\new.bin", FileMode::ReadWrite, true));
}

TEST(DeviceReplaceFile, KeepsTheOldFileWhenTheWriteFailsHalfWay) {
    TestDevice dev;
    dev.WriteFile(u"\\Flash Disk\\MusicLib.qdx", "old library");
    bool hidden = dev.Fs().SetAttributes(u"\\Flash Disk\\MusicLib.qdx", kAttrHidden);

    // A file-size limit makes the write fail part-way, like a full card.
    std::vector<std::byte> big(64 * 1024, std::byte{'n'});
    struct rlimit saved {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &saved), 0);
    auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit small = saved;
    small.rlim_cur = 4096;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    bool replaced = dev.Fs().ReplaceFile(u"\\Flash Disk\\MusicLib.qdx", big);
    ::setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, previousHandler);

    EXPECT_FALSE(replaced);
    EXPECT_EQ(dev.ReadFile(u"\\Flash Disk\\MusicLib.qdx"), "old library");
    EXPECT_EQ(ListNames(dev.Fs(), u"\\Flash Disk\\*.*").count(u".MusicLib.qdx.tmp"), 0u);
    for (auto& entry : fs::directory_iterator(dev.Root() / "Flash Disk"))
        EXPECT_EQ(entry.path().filename().string().find(".tmp-"), std::string::npos);

    ASSERT_TRUE(dev.Fs().ReplaceFile(u"\\Flash Disk\\MusicLib.qdx", testing::Bytes("new")));
    EXPECT_EQ(dev.ReadFile(u"\\Flash Disk\\MusicLib.qdx"), "new");
    if (hidden) { // the replacement keeps the attributes of the file it replaced
        EXPECT_EQ(dev.Fs().GetAttributes(u"\\Flash Disk\\MusicLib.qdx") & kAttrHidden, kAttrHidden);
    }
}

} // namespace
} // namespace zelvor
