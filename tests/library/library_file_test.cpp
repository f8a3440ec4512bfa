#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <csignal>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "library/library_file.h"
#include "tests/library/format_bytes.h"
#include "tests/support/test_device.h"
#include "bytes/memory_file.h"

namespace zelvor {
namespace {

using testing::QdxHeader;
using testing::QdxRecord;
using testing::StoredTrack;
using testing::TestDevice;
using testing::U16;
using testing::U32;
using testing::WideZ;

constexpr std::u16string_view kLib = u"\\Flash Disk\\Zelvor\\MusicLib.qdx";

std::unique_ptr<TrackRecord> RecordOf(const StoredTrack& t) {
    auto r = std::make_unique<TrackRecord>();
    r->SetField(kFieldPath, t.path);
    for (auto [id, text] : {std::pair{kFieldTitle, &t.title}, std::pair{kFieldAlbum, &t.album},
                            std::pair{kFieldArtist, &t.artist}, std::pair{kFieldGenre, &t.genre}}) {
        if (!text->empty())
            r->SetField(id, *text);
    }
    r->SetField(kFieldDuration, std::int64_t{t.duration});
    r->SetField(kFieldTrackNumber, std::int64_t{t.track});
    return r;
}

const StoredTrack kFirst{u"\\Storage Card\\Music\\a.mp3", u"Alpha", u"Album", u"Artist", u"Rock",
                         215, 3};
const StoredTrack kBare{u"\\Flash Disk\\b.wma", u"", u"", u"", u"", 0, 0};
const StoredTrack kThird{u"\\Storage Card\\ç\\c.aac", u"Ça", u"", u"Ünï", u"", 0xFFFFFFFF, 0xFFFF};

TrackList ListOf(std::initializer_list<StoredTrack> tracks) {
    TrackList list;
    for (const StoredTrack& t : tracks)
        list.AddTrack(RecordOf(t));
    return list;
}

// Loads a file that must count as read.
TrackList Loaded(std::u16string_view path = kLib) {
    TrackList list;
    EXPECT_EQ(LoadTrackList(path, list), 1);
    return list;
}

void ExpectStored(const TrackRecord& r, const StoredTrack& t) {
    EXPECT_EQ(r.Text(kFieldPath), t.path);
    EXPECT_EQ(r.Text(kFieldFileName), FileNameOfPath(t.path));
    EXPECT_EQ(r.Text(kFieldTitle), t.title);
    EXPECT_EQ(r.Text(kFieldAlbum), t.album);
    EXPECT_EQ(r.Text(kFieldArtist), t.artist);
    EXPECT_EQ(r.Text(kFieldGenre), t.genre);
    EXPECT_EQ(r.Duration(), t.duration);
    EXPECT_EQ(r.TrackNumber(), t.track);
}

class LibraryFile : public ::testing::Test {
protected:
    TestDevice device;
};

TEST_F(LibraryFile, SavesTheFormatByteForByteAndLoadsIt) {
    TrackList list = ListOf({kFirst, kBare, kThird});
    list.TrackAt(2)->SetField(kFieldRunTimeA, std::int64_t{77}); // never stored
    ASSERT_EQ(SaveTrackList(GetLibraryPath(), list, 0), 1); // in the program directory
    EXPECT_EQ(device.ReadFile(kLib),
              QdxHeader(3) + QdxRecord(kFirst) + QdxRecord(kBare) + QdxRecord(kThird));
    TrackList loaded = Loaded();
    ASSERT_EQ(loaded.Count(), 3);
    ExpectStored(*loaded.TrackAt(0), kFirst);
    ExpectStored(*loaded.TrackAt(1), kBare);
    ExpectStored(*loaded.TrackAt(2), kThird);
    EXPECT_FALSE(loaded.TrackAt(1)->HasText(kFieldTitle)); // a zero length stays none
    EXPECT_EQ(loaded.TrackAt(2)->RunTimeA(), 0u);
    // The empty list is a header alone and loads empty.
    ASSERT_EQ(SaveTrackList(kLib, TrackList{}, 0), 1);
    EXPECT_EQ(device.ReadFile(kLib), QdxHeader(0));
    EXPECT_EQ(LoadTrackList(kLib, loaded), 1);
    EXPECT_EQ(loaded.Count(), 0);
}

TEST_F(LibraryFile, TextsLongerThan255CharactersAreStoredCut) {
    std::u16string longTitle(300, u'x');
    longTitle[254] = 0xD83D; // a pair split by the cut is not left half-stored
    longTitle[255] = 0xDE00;
    TrackList list = ListOf({{u"\\a.mp3", longTitle, u"", u"", u"", 1, 1}});
    std::array<std::uint16_t, 7> lengths{};
    EXPECT_EQ(MeasureRecord(*list.TrackAt(0), lengths), 14 + 255 * 2 + 4 + 2);
    EXPECT_EQ(lengths[1], 255 * 2);
    ASSERT_EQ(SaveTrackList(kLib, list, 0), 1);
    TrackList loaded = Loaded();
    ASSERT_EQ(loaded.Count(), 1);
    EXPECT_EQ(loaded.TrackAt(0)->Text(kFieldTitle), std::u16string(254, u'x'));
}

TEST_F(LibraryFile, RelativePathsJoinTheLibraryFolder) {
    device.WriteFile(kLib, QdxHeader(2) + QdxRecord({u"Music\\x.mp3"}) + QdxRecord({u"y.mp3"}));
    device.WriteFile(u"\\Root.qdx", QdxHeader(1) + QdxRecord({u"z.mp3"}));
    TrackList list = Loaded(), root = Loaded(u"\\Root.qdx");
    ASSERT_EQ(list.Count() + root.Count(), 3);
    EXPECT_EQ(list.TrackAt(0)->Text(kFieldPath), u"\\Flash Disk\\Zelvor\\Music\\x.mp3");
    EXPECT_EQ(list.TrackAt(0)->Text(kFieldFileName), u"x.mp3");
    EXPECT_EQ(list.TrackAt(1)->Text(kFieldPath), u"\\Flash Disk\\Zelvor\\y.mp3");
    EXPECT_EQ(root.TrackAt(0)->Text(kFieldPath), u"\\z.mp3");
}

// A missing file loads nothing and fails; a wrong magic loads nothing but
// counts as read (only the text up to its NUL counts, as a string
// comparison sees it); a short header is not read.
TEST_F(LibraryFile, MissingShortOrForeignFilesGiveAnEmptyList) {
    TrackList list = ListOf({kFirst});
    EXPECT_EQ(LoadTrackList(u"\\Nowhere\\MusicLib.qdx", list), 0);
    EXPECT_EQ(list.Count(), 0);
    std::string shortHeader = QdxHeader(0).substr(0, 55);
    MemoryFile file(std::as_bytes(std::span(shortHeader)));
    EXPECT_FALSE(ReadTrackList(file, u"\\", list));
    std::string nulled = QdxHeader(1);
    nulled[14] = 'x';
    for (auto [header, count] :
         {std::pair{WideZ(u"QDX101") + testing::Zeros(2) + U32(1) + U16(7), 0},
          {WideZ(u"qdx100") + testing::Zeros(2) + U32(1) + U16(7), 0},
          {std::string("QDX100") + testing::Zeros(10) + U32(1) + U16(7), 0}, {nulled, 1}}) {
        header.resize(56, '\0');
        device.WriteFile(kLib, header + QdxRecord(kFirst));
        list = ListOf({kBare});
        EXPECT_EQ(LoadTrackList(kLib, list), 1);
        EXPECT_EQ(list.Count(), count);
    }
}

TEST_F(LibraryFile, QueueFileIsTheSameFormatButHidden) {
    TrackList list = ListOf({kFirst});
    const std::u16string queue = u"\\Flash Disk\\Zelvor\\~Playlist.qdx";
    // Saving over the hidden file without the flag makes it a plain file.
    for (auto [path, hidden] : {std::pair{queue, 1}, {std::u16string(kLib), 0}, {queue, 0}}) {
        ASSERT_EQ(SaveTrackList(path, list, hidden), 1);
        EXPECT_EQ((device.Fs().GetAttributes(path) & kAttrHidden) != 0, hidden != 0);
    }
    EXPECT_EQ(device.ReadFile(queue), device.ReadFile(kLib));
}

// Truncated anywhere, a file yields the whole records before the cut and
// nothing else; the sanitizers check that no read goes past a buffer.
TEST_F(LibraryFile, TruncationAtEveryOffsetKeepsTheWholeRecordsBeforeIt) {
    const std::string header = QdxHeader(3), first = QdxRecord(kFirst);
    const std::string whole = header + first + QdxRecord(kBare) + QdxRecord(kThird);
    const size_t ends[] = {header.size() + first.size(), whole.size() - QdxRecord(kThird).size(),
                           whole.size()};
    for (size_t cut = 0; cut <= whole.size(); ++cut) {
        device.WriteFile(kLib, whole.substr(0, cut));
        TrackList list;
        ASSERT_EQ(LoadTrackList(kLib, list), 1) << cut;
        const auto complete = std::count_if(ends, ends + 3, [&](size_t e) { return e <= cut; });
        ASSERT_EQ(list.Count(), static_cast<int>(complete)) << "cut at " << cut;
        if (list.Count() > 0)
            ExpectStored(*list.TrackAt(0), kFirst);
    }
}

// Nine fields: the two unknown slots carry bytes that must be passed over;
// no fields read nothing; 255 characters and the NUL are the most a slot
// holds, one more is passed over.
TEST_F(LibraryFile, RecordsOfOtherShapes) {
    const std::string nine = U16(8) + U16(4) + U16(0) + U16(0) + U16(0) + U16(4) + U16(2) + U16(6) +
                             U16(0) + WideZ(u"\\a.") + WideZ(u"T") + U32(9) + U16(4) + "extra!";
    device.WriteFile(kLib, QdxHeader(2, 9) + nine + nine);
    TrackList list = Loaded();
    ASSERT_EQ(list.Count(), 2);
    EXPECT_EQ(list.TrackAt(1)->Text(kFieldTitle), u"T");
    EXPECT_EQ(list.TrackAt(1)->TrackNumber(), 4);
    device.WriteFile(kLib, QdxHeader(0xFFFFFFFF, 0));
    EXPECT_EQ(Loaded().Count(), 0);
    const std::u16string most(255, u'm'), over(256, u'o');
    device.WriteFile(kLib, QdxHeader(3) + QdxRecord({u"\\a", most, u"", u"", u"", 5, 1}) +
                               QdxRecord({u"\\b", over, u"", u"", u"", 6, 2}) + QdxRecord(kFirst));
    list = Loaded();
    ASSERT_EQ(list.Count(), 3);
    EXPECT_EQ(list.TrackAt(0)->Text(kFieldTitle), most);
    EXPECT_FALSE(list.TrackAt(1)->HasText(kFieldTitle));
    EXPECT_EQ(list.TrackAt(1)->Duration(), 6u);
    ExpectStored(*list.TrackAt(2), kFirst);
}

// A sink that refuses chosen appends, as a full disk refuses a write.
class RefusingSink final : public ByteSink {
public:
    explicit RefusingSink(std::set<int> refused, bool refuseOverwrite = false)
        : m_refused(std::move(refused)), m_refuseOverwrite(refuseOverwrite) {}
    bool Append(std::span<const std::byte> data) override {
        if (m_refused.count(m_calls++))
            return false;
        return m_inner.Append(data);
    }
    bool Overwrite(std::uint64_t offset, std::span<const std::byte> data) override {
        return !m_refuseOverwrite && m_inner.Overwrite(offset, data);
    }
    const std::vector<std::byte>& Bytes() const { return m_inner.Bytes(); }

private:
    MemorySink m_inner;
    std::set<int> m_refused;
    bool m_refuseOverwrite;
    int m_calls = 0;
};

std::string AsString(const std::vector<std::byte>& bytes) {
    return std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

TEST(LibraryWriter, RefusedRecordsAreLeftOutAndTheCountRewritten) {
    TrackList list = ListOf({kFirst, kBare, kThird});
    RefusingSink sink({2}); // append 0 is the header, 2 the second record
    EXPECT_TRUE(WriteTrackList(list, sink));
    EXPECT_EQ(AsString(sink.Bytes()), QdxHeader(2) + QdxRecord(kFirst) + QdxRecord(kThird));

    RefusingSink noRewrite({1}, true);
    EXPECT_FALSE(WriteTrackList(list, noRewrite));
    RefusingSink noHeader({0});
    EXPECT_FALSE(WriteTrackList(list, noHeader));
    EXPECT_TRUE(noHeader.Bytes().empty());
}

TEST_F(LibraryFile, FailedSaveLeavesThePreviousFileIntact) {
    TrackList old = ListOf({kFirst});
    ASSERT_EQ(SaveTrackList(kLib, old, 0), 1);
    const std::string before = device.ReadFile(kLib);

    TrackList bigger;
    for (int i = 0; i < 200; ++i)
        bigger.AddTrack(RecordOf({u"\\Storage Card\\Music\\a long enough path.mp3", u"Title"}));
    // The disk fills up half-way through the new file.
    struct rlimit saved {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &saved), 0);
    auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit small = saved;
    small.rlim_cur = before.size() + 1000;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    int result = SaveTrackList(kLib, bigger, 0);
    setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, oldHandler);

    EXPECT_EQ(result, 0);
    EXPECT_EQ(device.ReadFile(kLib), before);
    TrackList loaded = Loaded();
    ASSERT_EQ(loaded.Count(), 1);
    ExpectStored(*loaded.TrackAt(0), kFirst);
    // No temporary file is left behind beside it.
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(device.Host(kLib).parent_path()))
        files += entry.is_regular_file();
    EXPECT_EQ(files, 1);
    EXPECT_EQ(SaveTrackList(u"\\Flash Disk\\no such folder\\MusicLib.qdx", old, 0), 0);
}

} // namespace
} // namespace zelvor
