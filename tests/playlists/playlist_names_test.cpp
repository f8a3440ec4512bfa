#include <gtest/gtest.h>

#include "library/track_list.h"
#include "playlists/playlist_match.h"
#include "playlists/playlist_names.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {

using testing::TestDevice;

constexpr std::u16string_view kFolder = u"\\Flash Disk\\Zelvor\\My Playlists\\";

class PlaylistNames : public ::testing::Test {
protected:
    void Touch(std::u16string_view name) {
        device.WriteFile(std::u16string(kFolder) + std::u16string(name), "x");
    }
    TestDevice device;
};

TEST_F(PlaylistNames, NewNameTakesTheFirstFreeNumber) {
    EXPECT_EQ(MakeNewPlaylistName(), u"New Playlist 1.mpl"); // the folder does not even exist
    Touch(u"New Playlist 2.mpl");
    EXPECT_EQ(MakeNewPlaylistName(), u"New Playlist 1.mpl");
    Touch(u"new playlist 1.MPL"); // the device's names ignore case
    EXPECT_EQ(MakeNewPlaylistName(), u"New Playlist 3.mpl");
}

TEST_F(PlaylistNames, AllTwoHundredTakenFallsBackToTheFirst) {
    for (int n = 1; n <= 200; ++n) {
        std::string digits = std::to_string(n);
        Touch(u"New Playlist " + std::u16string(digits.begin(), digits.end()) + u".mpl");
    }
    EXPECT_EQ(MakeNewPlaylistName(), u"New Playlist 1.mpl");
}

TEST_F(PlaylistNames, FixedFiles) {
    EXPECT_EQ(GetFavoritesPath(0), u"\\Flash Disk\\Zelvor\\My Playlists\\My Favorites 1.mpl");
    EXPECT_EQ(GetFavoritesPath(4), u"\\Flash Disk\\Zelvor\\My Playlists\\My Favorites 5.mpl");
    EXPECT_EQ(GetCurrentPlaylistPath(), u"\\Flash Disk\\Zelvor\\~Playlist.qdx");
}

TEST_F(PlaylistNames, FollowTheProgramDirectory) {
    TestDevice other(DeviceConfig{.programDirectory = u"\\Apps\\Player"});
    EXPECT_EQ(GetCurrentPlaylistPath(), u"\\Apps\\Player\\~Playlist.qdx");
    EXPECT_EQ(GetFavoritesPath(1), u"\\Apps\\Player\\My Playlists\\My Favorites 2.mpl");
}

std::unique_ptr<TrackRecord> Rec(std::u16string_view path, std::u16string_view title) {
    auto r = std::make_unique<TrackRecord>();
    r->SetField(kFieldPath, path);
    r->SetField(kFieldTitle, title);
    return r;
}

TEST(PlaylistMatch, LinksEntriesToTheFirstRecordWithTheirPathIgnoringCase) {
    TrackList library;
    library.AddTrack(Rec(u"\\Card\\a.mp3", u"Song A"));
    library.AddTrack(Rec(u"\\Card\\B.mp3", u""));
    library.AddTrack(Rec(u"\\card\\A.MP3", u"Later duplicate"));
    PlaylistEntryList list;
    for (auto p : {u"\\CARD\\A.mp3", u"\\Card\\missing.mp3", u"\\card\\b.mp3", u"\\Card\\a.mp3"})
        list.Insert(std::make_unique<PlaylistEntry>(p));
    MatchPlaylistToLibrary(list, library);
    EXPECT_EQ(list.At(0)->Text(1), u"Song A");
    EXPECT_EQ(list.At(0)->LibraryIndex(), 0);
    EXPECT_EQ(list.At(1)->Text(1), u"\\Card\\missing.mp3");
    EXPECT_EQ(list.At(1)->LibraryIndex(), -1);
    EXPECT_EQ(list.At(2)->Text(1), u"B"); // no title: the file name without extension
    EXPECT_EQ(list.At(2)->LibraryIndex(), 1);
    EXPECT_EQ(list.At(3)->LibraryIndex(), 0);
}

TEST(PlaylistMatch, LinkedEntriesAreNotComparedAgain) {
    TrackList library;
    library.AddTrack(Rec(u"\\x.mp3", u"X"));
    PlaylistEntryList list;
    auto linked = std::make_unique<PlaylistEntry>(u"\\x.mp3");
    linked->SetLibraryIndex(5);
    list.Insert(std::move(linked));
    MatchPlaylistToLibrary(list, library);
    EXPECT_EQ(list.At(0)->Text(1), u"\\x.mp3");
    EXPECT_EQ(list.At(0)->LibraryIndex(), 5);

    TrackList empty;
    list.At(0)->SetLibraryIndex(-1);
    MatchPlaylistToLibrary(list, empty);
    EXPECT_EQ(list.At(0)->LibraryIndex(), -1);
}

} // namespace
} // namespace zelvor
