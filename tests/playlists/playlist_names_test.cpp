#include <gtest/gtest.h>

#include "library/track_list.h"
#include "playlists/playlist_match.h"
#include "playlists/playlist_names.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {

using testing::TestDevice;

TEST(PlaylistNames, ANewNameTakesTheFirstFreeNumberAndTheFirstWhenAllAreTaken) {
    TestDevice device;
    auto touch = [&](int n) {
        std::string name = "New Playlist " + std::to_string(n) + ".mpl";
        device.WriteFile(u"\\Flash Disk\\Zelvor\\My Playlists\\" +
                             std::u16string(name.begin(), name.end()), "x");
    };
    EXPECT_EQ(MakeNewPlaylistName(), u"New Playlist 1.mpl"); // the folder does not even exist
    touch(2);
    EXPECT_EQ(MakeNewPlaylistName(), u"New Playlist 1.mpl");
    device.WriteFile(u"\\Flash Disk\\Zelvor\\My Playlists\\new playlist 1.MPL", "x");
    EXPECT_EQ(MakeNewPlaylistName(), u"New Playlist 3.mpl"); // names ignore case
    for (int n = 3; n < 200; ++n)
        touch(n);
    EXPECT_EQ(MakeNewPlaylistName(), u"New Playlist 200.mpl");
    touch(200);
    EXPECT_EQ(MakeNewPlaylistName(), u"New Playlist 1.mpl");
}

TEST(PlaylistNames, FixedFilesFollowTheProgramDirectory) {
    TestDevice device;
    EXPECT_EQ(GetFavoritesPath(0), u"\\Flash Disk\\Zelvor\\My Playlists\\My Favorites 1.mpl");
    EXPECT_EQ(GetCurrentPlaylistPath(), u"\\Flash Disk\\Zelvor\\~Playlist.qdx");
    TestDevice other(DeviceConfig{.programDirectory = u"\\Apps\\Player"});
    EXPECT_EQ(GetCurrentPlaylistPath(), u"\\Apps\\Player\\~Playlist.qdx");
    EXPECT_EQ(GetFavoritesPath(4), u"\\Apps\\Player\\My Playlists\\My Favorites 5.mpl");
}

// Entries link to the first record with their path, ignoring case; a linked
// entry shows the record's title, or its file name without extension.
TEST(PlaylistMatch, LinksEntriesToTheFirstRecordWithTheirPath) {
    TrackList library;
    for (auto [path, title] : {std::pair{u"\\Card\\a.mp3", u"Song A"}, {u"\\Card\\B.mp3", u""},
                               {u"\\card\\A.MP3", u"Later duplicate"}, {u"\\x.mp3", u"X"}}) {
        auto record = std::make_unique<TrackRecord>();
        record->SetField(kFieldPath, path);
        record->SetField(kFieldTitle, title);
        library.AddTrack(std::move(record));
    }
    PlaylistEntryList list;
    for (auto p : {u"\\CARD\\A.mp3", u"\\Card\\missing.mp3", u"\\card\\b.mp3", u"\\x.mp3", u"\\Card\\a.mp3"})
        list.Insert(std::make_unique<PlaylistEntry>(p));
    list.At(3)->SetLibraryIndex(5); // already linked: not compared again
    MatchPlaylistToLibrary(list, library);
    std::vector<std::pair<std::u16string, int>> shown;
    for (const auto& e : list)
        shown.emplace_back(e->Text(1), e->LibraryIndex());
    EXPECT_EQ(shown, (std::vector<std::pair<std::u16string, int>>{
                         {u"Song A", 0}, {u"\\Card\\missing.mp3", -1}, {u"B", 1}, {u"\\x.mp3", 5},
                         {u"Song A", 0}}));
}

} // namespace
} // namespace zelvor
