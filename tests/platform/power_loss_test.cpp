// Power lost while a file is saved: a child process saves one of the
// program's files in a loop, alternating an old and a new content, and is
// killed with SIGKILL after a random delay (seeded, so a failure can be
// replayed). Every load afterwards must find the whole old file or the whole
// new one, and the next save must leave no temporary file behind.

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

#include "config/settings.h"
#include "library/library_file.h"
#include "platform/durable_file.h"
#include "platform/registry_store.h"
#include "playlists/playlist_file.h"
#include "playlists/playlist_names.h"
#include "tests/support/test_device.h"

// Under AddressSanitizer freed memory waits in a quarantine that grows to
// hundreds of megabytes, which every fork copies and every kill tears down;
// a small one keeps eight hundred kills to seconds.
extern "C" const char* __asan_default_options() {
    return "quarantine_size_mb=8";
}

namespace zelvor {
namespace {
namespace fs = std::filesystem;

constexpr int kKills = 200;
constexpr int kMaxDelayMicroseconds = 20000;

// One kind of file: how to save either content, where it lands and what the
// program's own loader makes of it (an entry count, or -1 for no file).
struct SavedFile {
    std::function<void(bool newContent)> save;
    fs::path hostPath;
    std::function<int()> load;
};

struct KindCase {
    const char* name;
    std::function<SavedFile(testing::TestDevice&, testing::TempDir&)> make;
};

void PrintTo(const KindCase& kind, std::ostream* out) {
    *out << kind.name;
}

std::string ReadBytes(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return in ? std::string(std::istreambuf_iterator<char>(in), {}) : std::string("<missing>");
}

int Temporaries(const fs::path& target) {
    const std::string prefix = "." + target.filename().string() + ".tmp-";
    int n = 0;
    for (const auto& entry : fs::directory_iterator(target.parent_path()))
        n += entry.path().filename().string().starts_with(prefix) ? 1 : 0;
    return n;
}

TrackList Tracks(int count, std::u16string_view title) {
    TrackList list;
    for (int i = 0; i < count; ++i) {
        auto record = std::make_unique<TrackRecord>();
        record->SetField(kFieldPath, u"\\Storage Card\\Music\\track " + std::u16string(title) + u".mp3");
        record->SetField(kFieldTitle, title);
        record->SetField(kFieldDuration, std::int64_t{i});
        list.AddTrack(std::move(record));
    }
    return list;
}

SavedFile TrackFile(testing::TestDevice& device, std::u16string path, int hidden) {
    auto lists = std::make_shared<std::pair<TrackList, TrackList>>(Tracks(600, u"old"),
                                                                   Tracks(400, u"new"));
    return {[=](bool fresh) { SaveTrackList(path, fresh ? lists->second : lists->first, hidden); },
            device.Host(path), [=] {
                TrackList loaded;
                return LoadTrackList(path, loaded) == 1 ? loaded.Count() : -1;
            }};
}

SavedFile PlaylistFile(testing::TestDevice& device, testing::TempDir&) {
    const std::u16string path = GetFavoritesPath(1);
    device.Fs().CreateDirectory(GetPlaylistFolder());
    auto lists = std::make_shared<std::pair<PlaylistEntryList, PlaylistEntryList>>();
    for (int i = 0; i < 1500; ++i)
        lists->first.Insert(std::make_unique<PlaylistEntry>(u"\\Storage Card\\old.mp3"));
    for (int i = 0; i < 1000; ++i)
        lists->second.Insert(std::make_unique<PlaylistEntry>(u"\\Flash Disk\\new.mp3"));
    return {[=](bool fresh) { SavePlaylist(path, fresh ? lists->second : lists->first); },
            device.Host(path), [=] {
                PlaylistEntryList loaded;
                return LoadPlaylist(path, loaded) == 1 ? loaded.Count() : -1;
            }};
}

SavedFile HiveFile(testing::TestDevice&, testing::TempDir& dir) {
    auto stores = std::make_shared<std::pair<RegistryStore, RegistryStore>>(dir.Path(), dir.Path());
    for (int i = 0; i < 300; ++i) {
        const std::u16string key = u"Software\\Zelvor\\K" + std::u16string(1, char16_t(u'A' + i % 26));
        const std::u16string name = u"V" + std::u16string(1, static_cast<char16_t>(0x100 + i));
        stores->first.SetDword(RegistryRoot::CurrentUser, key, name, 1);
        if (i % 2 == 0)
            stores->second.SetDword(RegistryRoot::CurrentUser, key, u"W", 2);
    }
    const fs::path hive = stores->first.HivePath(RegistryRoot::CurrentUser);
    return {[=](bool fresh) { (fresh ? stores->second : stores->first).Flush(RegistryRoot::CurrentUser); },
            hive, [=] {
                // The old hive has no "W" values, the new one has them.
                RegistryStore reader(hive.parent_path());
                if (!reader.KeyExists(RegistryRoot::CurrentUser, u"Software\\Zelvor\\KA"))
                    return -1;
                return static_cast<int>(reader.QueryDword(RegistryRoot::CurrentUser,
                                                          u"Software\\Zelvor\\KA", u"W")
                                            .value_or(0)) + 1;
            }};
}

// A killed process loses nothing the kernel already holds, so what is tested
// is that no reader ever meets a half-made file; a memory file system gives
// the same answer without waiting for a disk to sync some two thousand times.
class PowerLoss : public ::testing::TestWithParam<KindCase> {
protected:
    void SetUp() override {
        if (fs::is_directory("/dev/shm"))
            ::setenv("TMPDIR", "/dev/shm", 1);
    }
};

TEST_P(PowerLoss, EveryLoadFindsTheWholeOldOrNewFileAndNoTemporaryStays) {
    testing::TestDevice device;
    testing::TempDir hives;
    const SavedFile file = GetParam().make(device, hives);
    file.save(true);
    const std::string newBytes = ReadBytes(file.hostPath);
    const int newCount = file.load();
    file.save(false);
    const std::string oldBytes = ReadBytes(file.hostPath);
    const int oldCount = file.load();
    ASSERT_NE(oldBytes, newBytes);
    ASSERT_GT(oldCount, 0);

    std::mt19937 random(20261123);
    std::uniform_int_distribution<int> delay(0, kMaxDelayMicroseconds);
    int broken = 0, foundNew = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        const pid_t writer = ::fork();
        ASSERT_GE(writer, 0);
        if (writer == 0) {
            for (;;) {
                file.save(true);
                file.save(false);
            }
        }
        ::usleep(static_cast<useconds_t>(delay(random)));
        ::kill(writer, SIGKILL);
        int status = 0;
        ::waitpid(writer, &status, 0);
        const std::string bytes = ReadBytes(file.hostPath);
        const bool isNew = bytes == newBytes;
        foundNew += isNew ? 1 : 0;
        if ((!isNew && bytes != oldBytes) || file.load() != (isNew ? newCount : oldCount))
            ++broken;
    }
    EXPECT_EQ(broken, 0) << "of " << kKills << " kills";
    EXPECT_GT(foundNew, 0) << "no kill came after a whole save";
    file.save(false);
    EXPECT_EQ(Temporaries(file.hostPath), 0);
    std::printf("%s: %d kills, %d broken loads, %d found the new file\n", GetParam().name, kKills,
                broken, foundNew);
}

// Only what a writer that no longer runs left of the same file goes: a
// live writer may still rename its temporary into place.
TEST(DurableFile, WriteRemovesTheStaleTemporariesOfItsFileOnly) {
    testing::TempDir dir;
    const pid_t gone = ::fork();
    if (gone == 0)
        ::_exit(0);
    ::waitpid(gone, nullptr, 0);
    const std::string dead = ".MusicLib.qdx.tmp-" + std::to_string(gone) + "-0";
    const std::string kept[] = {".MusicLib.qdx.tmp-" + std::to_string(::getppid()) + "-0",
                                ".MusicLib.qdx.tmp-" + std::to_string(::getpid()) + "-7",
                                ".Other.mpl.tmp-" + std::to_string(gone) + "-0",
                                ".MusicLib.qdx.tmp-x-0"};
    for (const std::string& name : kept)
        std::ofstream(dir.Path() / name) << "x";
    std::ofstream(dir.Path() / dead) << "x";
    ASSERT_TRUE(WriteFileDurably(dir.Path() / "MusicLib.qdx", testing::Bytes("new")));
    EXPECT_FALSE(fs::exists(dir.Path() / dead));
    for (const std::string& name : kept)
        EXPECT_TRUE(fs::exists(dir.Path() / name)) << name;
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, PowerLoss,
    ::testing::Values(
        KindCase{"Library",
                 [](testing::TestDevice& d, testing::TempDir&) {
                     return TrackFile(d, GetLibraryPath(), 0);
                 }},
        KindCase{"CurrentPlaylist",
                 [](testing::TestDevice& d, testing::TempDir&) {
                     return TrackFile(d, GetCurrentPlaylistPath(), 1);
                 }},
        KindCase{"Playlist", PlaylistFile}, KindCase{"RegistryHive", HiveFile}),
    [](const auto& test) { return std::string(test.param.name); });

} // namespace
} // namespace zelvor
