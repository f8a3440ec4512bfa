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
using Paths = std::vector<std::u16string>;
using namespace std::string_literals;

constexpr std::u16string_view kFile = u"\\Flash Disk\\Zelvor\\My Playlists\\Road.mpl";
const std::u16string kMusic = u"\\Flash Disk\\Zelvor\\My Music";
const std::u16string kLongest = u"\\" + std::u16string(258, u'p'); // 520 bytes with its NUL
const std::u16string kTooLong = kLongest + u"p";                    // 522 bytes

PlaylistEntryList ListOf(const Paths& paths) {
    PlaylistEntryList list;
    for (const auto& p : paths) {
        list.Insert(std::make_unique<PlaylistEntry>());
        if (!p.empty())
            list.At(-1)->SetText(1, p);
    }
    return list;
}

Paths PathsOf(const PlaylistEntryList& list) {
    Paths out;
    for (const auto& e : list)
        out.emplace_back(e->Text(1));
    return out;
}

class PlaylistFile : public ::testing::Test {
protected:
    PlaylistFile() { device.Fs().CreateDirectory(u"\\Flash Disk\\Zelvor\\My Playlists"); }
    TestDevice device;
};

// The bytes of a file and what loading it gives; a written case also
// has the list it was written from.
struct FileCase {
    const char* name;
    std::string bytes;
    Paths loaded;
    Paths list = {};
};
template <class Case> std::string CaseName(const ::testing::TestParamInfo<Case>& info) {
    return info.param.name;
}

class WrittenFiles : public PlaylistFile, public ::testing::WithParamInterface<FileCase> {};
class CraftedFiles : public PlaylistFile, public ::testing::WithParamInterface<FileCase> {};

TEST_P(WrittenFiles, AreByteForByteAndLoadBack) {
    ASSERT_EQ(SavePlaylist(kFile, ListOf(GetParam().list)), 1);
    EXPECT_EQ(device.ReadFile(kFile), GetParam().bytes);
    PlaylistEntryList loaded = ListOf({u"\\old"});
    ASSERT_EQ(LoadPlaylist(kFile, loaded), 1);
    EXPECT_EQ(PathsOf(loaded), GetParam().loaded);
}

TEST_P(CraftedFiles, LoadWhatCanBeTrusted) {
    device.WriteFile(kFile, GetParam().bytes);
    PlaylistEntryList loaded = ListOf({u"\\old"});
    ASSERT_EQ(LoadPlaylist(kFile, loaded), 1);
    EXPECT_EQ(PathsOf(loaded), GetParam().loaded);
}

const std::u16string kA = u"\\Storage Card\\a.mp3", kB = u"\\Flash Disk\\ü b.wma";
INSTANTIATE_TEST_SUITE_P(
    Lists, WrittenFiles,
    ::testing::Values(
        FileCase{"TwoPaths", MplHeader(2) + MplEntry(kA) + MplEntry(kB), {kA, kB}, {kA, kB}},
        FileCase{"EmptyIsTheHeaderAlone", MplHeader(0), {}, {}},
        // Counted, yet not written: the reader meets the end early.
        FileCase{"EmptyPathsLeftOutButCounted", MplHeader(3) + MplEntry(kA) + MplEntry(kB),
                 {kA, kB}, {kA, u"", kB}},
        // 260 characters are written, though the reader passes over them.
        FileCase{"PathsOfUpTo260Characters", MplHeader(2) + MplEntry(kTooLong), {},
                 {kTooLong + u"p", kTooLong}}),
    CaseName<FileCase>);

INSTANTIATE_TEST_SUITE_P(
    Files, CraftedFiles,
    ::testing::Values(
        FileCase{"RelativePathsAreInTheMusicFolder",
                 MplHeader(2) + MplEntry(u"Album\\track.mp3") + MplEntry(u"x.aac"),
                 {kMusic + u"\\Album\\track.mp3", kMusic + u"\\x.aac"}},
        FileCase{"WrongMagic",
                 testing::WideZ(u"zlv10") + testing::U32(1) + testing::Zeros(32) + MplEntry(kA), {}},
        FileCase{"NegativeCount", MplHeader(-1) + MplEntry(kA), {}},
        FileCase{"OverlongEntryIsPassedOver",
                 MplHeader(3) + MplEntry(kA) + MplEntry(kTooLong) + MplEntry(kB), {kA, kB}},
        FileCase{"LongestPath", MplHeader(1) + MplEntry(kLongest), {kLongest}},
        FileCase{"OddLengthEndsTheLoad",
                 MplHeader(3) + MplEntry(kA) + U16(5) + "\\\0b\0\0"s + MplEntry(kB), {kA}},
        // A path filling its length without a NUL is taken whole; a NUL
        // alone, or no bytes, is an entry with an empty path.
        FileCase{"PathWithoutNulOrEmpty",
                 MplHeader(4) + U16(4) + "\\\0x\0"s + U16(2) + U16(0) + U16(0) + MplEntry(kA),
                 {u"\\x", u"", u"", kA}}),
    CaseName<FileCase>);

TEST_F(PlaylistFile, AMissingFileGivesZeroAndAnEmptyList) {
    PlaylistEntryList list = ListOf({u"\\x"});
    EXPECT_EQ(LoadPlaylist(u"\\Flash Disk\\none.mpl", list), 0);
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(PlaylistFile, TruncationAtEveryOffsetKeepsTheWholeEntriesBeforeIt) {
    const std::string entries[] = {MplEntry(u"\\one.mp3"), MplEntry(u"two.mp3"),
                                   MplEntry(u"\\three.mp3")};
    const std::string whole = MplHeader(3) + entries[0] + entries[1] + entries[2];
    for (size_t cut = 0; cut <= whole.size(); ++cut) {
        SCOPED_TRACE(cut);
        device.WriteFile(kFile, whole.substr(0, cut));
        PlaylistEntryList list;
        ASSERT_EQ(LoadPlaylist(kFile, list), 1);
        size_t complete = 0, end = kPlaylistHeaderBytes;
        for (const std::string& e : entries)
            complete += (end += e.size()) <= cut;
        ASSERT_EQ(static_cast<size_t>(list.Count()), complete);
        auto file = CurrentDevice().FileSystem().OpenFile(kFile, FileMode::Read);
        EXPECT_EQ(ReadPlaylist(*file, kMusic, list), cut >= kPlaylistHeaderBytes);
    }
}

// A sink that takes a number of appends, then refuses.
struct RefusingSink : ByteSink {
    int appends = 0;
    bool Append(std::span<const std::byte>) override { return appends-- > 0; }
    bool Overwrite(std::uint64_t, std::span<const std::byte>) override { return false; }
};

// A list too long to count (a signed 16-bit number), a refused write or a
// full disk: the save fails and the old file stays as it was.
TEST_F(PlaylistFile, AFailedSaveKeepsTheOldFile) {
    for (int appends : {0, 1}) {
        RefusingSink refusing;
        refusing.appends = appends;
        EXPECT_FALSE(WritePlaylist(ListOf({kA, kB}), refusing)) << appends;
    }
    ASSERT_EQ(SavePlaylist(kFile, ListOf({kA})), 1);
    const std::string before = device.ReadFile(kFile);
    PlaylistEntryList list = ListOf(Paths(kMaxPlaylistEntries + 1, u"\\a"));
    MemorySink sink;
    EXPECT_FALSE(WritePlaylist(list, sink));
    EXPECT_EQ(SavePlaylist(kFile, list), 0);
    EXPECT_EQ(device.ReadFile(kFile), before);

    struct rlimit saved {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &saved), 0);
    auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit small = saved;
    small.rlim_cur = 512;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    list.Remove(list.At(0)); // the longest list that fits, too big for the disk
    int result = SavePlaylist(kFile, list);
    setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(device.ReadFile(kFile), before);
    EXPECT_EQ(SavePlaylist(u"\\Flash Disk\\missing folder\\x.mpl", list), 0);

    ASSERT_EQ(SavePlaylist(kFile, list), 1);
    ASSERT_EQ(LoadPlaylist(kFile, list), 1);
    EXPECT_EQ(list.Count(), kMaxPlaylistEntries);
}

} // namespace
} // namespace zelvor
