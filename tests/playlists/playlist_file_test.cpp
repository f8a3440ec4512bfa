#include <csignal>
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "playlists/playlist_file.h"
#include "tests/library/format_bytes.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {

using testing::MplEntry;
using testing::MplHeader;
using testing::TestDevice;
using testing::U16;
using testing::WideZ;

constexpr std::u16string_view kFile = u"\\Flash Disk\\Zelvor\\My Playlists\\Road.mpl";
constexpr std::u16string_view kMusic = u"\\Flash Disk\\Zelvor\\My Music";

PlaylistEntryList ListOf(std::initializer_list<std::u16string_view> paths) {
    PlaylistEntryList list;
    for (auto p : paths) {
        auto entry = std::make_unique<PlaylistEntry>();
        if (!p.empty())
            entry->SetText(1, p);
        list.Insert(std::move(entry));
    }
    return list;
}

std::vector<std::u16string> PathsOf(const PlaylistEntryList& list) {
    std::vector<std::u16string> out;
    for (const auto& e : list)
        out.emplace_back(e->Text(1));
    return out;
}

using Paths = std::vector<std::u16string>;
using namespace std::string_literals;

class PlaylistFile : public ::testing::Test {
protected:
    PlaylistFile() { device.Fs().CreateDirectory(u"\\Flash Disk\\Zelvor\\My Playlists"); }
    TestDevice device;
};

TEST_F(PlaylistFile, SavesTheFormatByteForByteAndLoadsItBack) {
    auto list = ListOf({u"\\Storage Card\\a.mp3", u"\\Flash Disk\\ü b.wma"});
    ASSERT_EQ(SavePlaylist(kFile, list), 1);
    EXPECT_EQ(device.ReadFile(kFile),
              MplHeader(2) + MplEntry(u"\\Storage Card\\a.mp3") + MplEntry(u"\\Flash Disk\\ü b.wma"));
    PlaylistEntryList loaded = ListOf({u"\\old"});
    ASSERT_EQ(LoadPlaylist(kFile, loaded), 1);
    EXPECT_EQ(PathsOf(loaded), (Paths{u"\\Storage Card\\a.mp3", u"\\Flash Disk\\ü b.wma"}));
    EXPECT_EQ(loaded.At(0)->LibraryIndex(), -1);
}

TEST_F(PlaylistFile, EmptyPlaylistIsA48ByteHeader) {
    ASSERT_EQ(SavePlaylist(kFile, PlaylistEntryList{}), 1);
    EXPECT_EQ(device.ReadFile(kFile), MplHeader(0));
    EXPECT_EQ(device.ReadFile(kFile).size(), 48u);
    PlaylistEntryList loaded = ListOf({u"\\x"});
    EXPECT_EQ(LoadPlaylist(kFile, loaded), 1);
    EXPECT_EQ(loaded.Count(), 0);
}

TEST_F(PlaylistFile, EmptyEntriesAreSkippedButStillCounted) {
    auto list = ListOf({u"\\a.mp3", u"", u"\\c.mp3"});
    ASSERT_EQ(SavePlaylist(kFile, list), 1);
    EXPECT_EQ(device.ReadFile(kFile), MplHeader(3) + MplEntry(u"\\a.mp3") + MplEntry(u"\\c.mp3"));
    PlaylistEntryList loaded;
    ASSERT_EQ(LoadPlaylist(kFile, loaded), 1);
    EXPECT_EQ(PathsOf(loaded), (Paths{u"\\a.mp3", u"\\c.mp3"}));
}

TEST_F(PlaylistFile, RelativePathsAreInTheMusicFolder) {
    device.WriteFile(kFile, MplHeader(2) + MplEntry(u"Album\\track.mp3") + MplEntry(u"x.aac"));
    PlaylistEntryList loaded;
    ASSERT_EQ(LoadPlaylist(kFile, loaded), 1);
    EXPECT_EQ(PathsOf(loaded), (Paths{std::u16string(kMusic) + u"\\Album\\track.mp3",
                                      std::u16string(kMusic) + u"\\x.aac"}));
}

TEST_F(PlaylistFile, MissingFileGivesZeroAndEmptiesTheList) {
    PlaylistEntryList list = ListOf({u"\\x"});
    EXPECT_EQ(LoadPlaylist(u"\\Flash Disk\\none.mpl", list), 0);
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(PlaylistFile, WrongMagicOrNegativeCountLoadsNothing) {
    const std::string entry = MplEntry(u"\\a.mp3");
    std::string lower = WideZ(u"zlv10") + testing::U32(1) + testing::Zeros(32);
    for (const std::string& file : {lower + entry, MplHeader(-1) + entry}) {
        device.WriteFile(kFile, file);
        PlaylistEntryList list = ListOf({u"\\x"});
        EXPECT_EQ(LoadPlaylist(kFile, list), 1);
        EXPECT_EQ(list.Count(), 0);
    }
}

TEST_F(PlaylistFile, TruncationAtEveryOffsetKeepsTheWholeEntriesBeforeIt) {
    const std::string entries[] = {MplEntry(u"\\one.mp3"), MplEntry(u"two.mp3"),
                                   MplEntry(u"\\three.mp3")};
    const std::string whole = MplHeader(3) + entries[0] + entries[1] + entries[2];
    for (size_t cut = 0; cut <= whole.size(); ++cut) {
        device.WriteFile(kFile, whole.substr(0, cut));
        PlaylistEntryList list;
        ASSERT_EQ(LoadPlaylist(kFile, list), 1) << cut;
        size_t complete = 0, end = 48;
        for (const std::string& e : entries) {
            end += e.size();
            complete += end <= cut;
        }
        ASSERT_EQ(static_cast<size_t>(list.Count()), complete) << "cut at " << cut;
        if (complete > 0) {
            EXPECT_EQ(list.At(0)->Text(1), u"\\one.mp3");
        }
    }
}

TEST_F(PlaylistFile, OverlongEntryIsSkippedAndTheNextOnesLoad) {
    const std::u16string longPath = u"\\" + std::u16string(260, u'p'); // 522 bytes with its NUL
    device.WriteFile(kFile, MplHeader(3) + MplEntry(u"\\a") + MplEntry(longPath) + MplEntry(u"\\c"));
    PlaylistEntryList list;
    LoadPlaylist(kFile, list);
    EXPECT_EQ(PathsOf(list), (Paths{u"\\a", u"\\c"}));

    const std::u16string longest = u"\\" + std::u16string(258, u'p'); // exactly 520 bytes
    device.WriteFile(kFile, MplHeader(1) + MplEntry(longest));
    LoadPlaylist(kFile, list);
    EXPECT_EQ(PathsOf(list), (Paths{longest}));
}

TEST_F(PlaylistFile, OddLengthEndsTheLoad) {
    device.WriteFile(kFile, MplHeader(3) + MplEntry(u"\\a") + U16(5) + "\\\0b\0\0"s + MplEntry(u"\\c"));
    PlaylistEntryList list;
    LoadPlaylist(kFile, list);
    EXPECT_EQ(PathsOf(list), (Paths{u"\\a"}));
}

TEST_F(PlaylistFile, PathWithoutNulOrEmptyPathIsHandled) {
    // A path that fills its length without a NUL is taken whole; an entry of
    // a NUL alone (or of no bytes) is an entry with an empty path.
    device.WriteFile(kFile, MplHeader(4) + U16(4) + "\\\0x\0"s + U16(2) + U16(0) + U16(0) +
                                MplEntry(u"\\d"));
    PlaylistEntryList list;
    LoadPlaylist(kFile, list);
    EXPECT_EQ(PathsOf(list), (Paths{u"\\x", u"", u"", u"\\d"}));
}

TEST_F(PlaylistFile, WriterKeepsPathsOfUpTo260Characters) {
    const std::u16string longest = u"\\" + std::u16string(259, u'p');
    auto list = ListOf({longest + u"p", longest});
    ASSERT_EQ(SavePlaylist(kFile, list), 1);
    EXPECT_EQ(device.ReadFile(kFile), MplHeader(2) + MplEntry(longest));
}

// The count is a signed 16-bit number: the longest list that fits is
// saved whole, one more entry is refused and the old file stays.
TEST_F(PlaylistFile, ListTooLongToStoreIsRefusedAndTheOldFileKept) {
    ASSERT_EQ(SavePlaylist(kFile, ListOf({u"\\keep.mp3"})), 1);
    const std::string before = device.ReadFile(kFile);
    PlaylistEntryList list;
    for (int i = 0; i < kMaxPlaylistEntries + 1; ++i)
        list.Insert(std::make_unique<PlaylistEntry>(u"\\a"));
    MemorySink sink;
    EXPECT_FALSE(WritePlaylist(list, sink));
    EXPECT_EQ(SavePlaylist(kFile, list), 0);
    EXPECT_EQ(device.ReadFile(kFile), before);

    list.Remove(list.At(0));
    ASSERT_EQ(SavePlaylist(kFile, list), 1);
    PlaylistEntryList loaded;
    ASSERT_EQ(LoadPlaylist(kFile, loaded), 1);
    EXPECT_EQ(loaded.Count(), kMaxPlaylistEntries);
}

TEST_F(PlaylistFile, FailedSaveLeavesThePreviousFileIntact) {
    ASSERT_EQ(SavePlaylist(kFile, ListOf({u"\\keep.mp3"})), 1);
    const std::string before = device.ReadFile(kFile);
    PlaylistEntryList bigger;
    for (int i = 0; i < 100; ++i)
        bigger.Insert(std::make_unique<PlaylistEntry>(u"\\Storage Card\\Music\\some song.mp3"));

    struct rlimit saved {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &saved), 0);
    auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit small = saved;
    small.rlim_cur = 512;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    int result = SavePlaylist(kFile, bigger);
    setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, oldHandler);

    EXPECT_EQ(result, 0);
    EXPECT_EQ(device.ReadFile(kFile), before);
    EXPECT_EQ(SavePlaylist(u"\\Flash Disk\\missing folder\\x.mpl", bigger), 0);
}

} // namespace
} // namespace zelvor
