#include <gtest/gtest.h>

#include "platform/text.h"
#include "playlists/playlist_names.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {

using testing::TestDevice;

TEST(PlaylistNames, ANewNameTakesTheFirstFreeNumberAndTheFirstWhenAllAreTaken) {
    TestDevice device;
    auto touch = [&](int n) {
        device.WriteFile(u"\\Flash Disk\\Zelvor\\My Playlists\\" +
                             FromUtf8("New Playlist " + std::to_string(n) + ".mpl"), "x");
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

} // namespace
} // namespace zelvor
