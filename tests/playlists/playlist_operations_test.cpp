#include "playlists/playlist_file.h"
#include "playlists/playlist_operations.h"
#include "tests/playlists/recording_feedback.h"
#include "tests/support/test_device.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

using testing::RecordingFeedback;
using Paths = std::vector<std::u16string>;
using Texts = std::vector<std::string>;

const std::u16string kFolder = u"\\Flash Disk\\Zelvor\\My Playlists";

std::u16string InFolder(std::u16string_view name) {
    return kFolder + u"\\" + std::u16string(name) + u".mpl";
}

void Write(std::u16string_view path, const Paths& songs) {
    PlaylistEntryList list;
    for (const auto& s : songs)
        list.Insert(std::make_unique<PlaylistEntry>(s));
    CurrentDevice().FileSystem().CreateDirectory(kFolder);
    ASSERT_EQ(SavePlaylist(path, list), 1);
}

Paths Read(std::u16string_view path) {
    PlaylistEntryList list;
    LoadPlaylist(path, list);
    Paths out;
    for (const auto& e : list)
        out.emplace_back(e->Text(1));
    return out;
}

bool Exists(std::u16string_view path) {
    return CurrentDevice().FileSystem().GetAttributes(path) != kInvalidAttributes;
}

class PlaylistOperations : public ::testing::Test {
protected:
    std::vector<PlaylistRow> Rows(std::initializer_list<const char16_t*> names) {
        std::vector<PlaylistRow> rows;
        for (const char16_t* name : names) {
            Write(InFolder(name), {});
            rows.push_back({name, InFolder(name), static_cast<int>(rows.size())});
        }
        return rows;
    }
    testing::TestDevice device;
    RecordingFeedback feedback;
};

TEST_F(PlaylistOperations, RenameMovesTheFileUnlessTheNameIsTakenOrUnusable) {
    auto rows = Rows({u"Road", u"Morning"});
    EXPECT_FALSE(FinishRename(rows, 0, u"MORNING", true, feedback)); // names ignore case
    EXPECT_FALSE(FinishRename(rows, 0, u"road", false, feedback));   // not reported
    for (std::u16string_view name : {u"", u"a\\b"})
        EXPECT_FALSE(FinishRename(rows, 0, name, true, feedback));
    EXPECT_FALSE(FinishRename(rows, 2, u"Nowhere", true, feedback));
    EXPECT_EQ(feedback.messages, (Texts{"Rename Failed !\nA playlist named 'MORNING' already exists.",
                                        "Rename Failed !", "Rename Failed !", "Rename Failed !"}));
    EXPECT_EQ(feedback.types[0], kMbOk);
    EXPECT_TRUE(FinishRename(rows, 0, u"Drive", true, feedback));
    EXPECT_EQ(std::tie(rows[0].name, rows[0].path), std::make_tuple(u"Drive", InFolder(u"Drive")));
    EXPECT_TRUE(Exists(InFolder(u"Drive")) && !Exists(InFolder(u"Road")));
    CurrentDevice().FileSystem().DeleteFile(InFolder(u"Drive"));
    EXPECT_FALSE(FinishRename(rows, 0, u"Gone", true, feedback)); // the move fails
    EXPECT_EQ(feedback.messages.back(), "Rename Failed !");
}

TEST_F(PlaylistOperations, DeleteSelectsTheSamePositionOrTheNewLastRow) {
    for (auto [rowCount, deleted, selected] : {std::tuple{3, 2, 1}, {1, 0, -1}, {3, 0, 0}, {3, 1, 1}}) {
        std::vector<PlaylistRow> rows = Rows({u"A", u"B", u"C"});
        rows.resize(static_cast<size_t>(rowCount));
        const std::u16string doomed = rows[static_cast<size_t>(deleted)].path;
        const RowsAfterDeletion result = DeletePlaylist(rows, deleted, feedback);
        EXPECT_TRUE(result.deleted && !Exists(doomed));
        EXPECT_EQ(result.selectRow, selected) << rowCount << " rows, deleted " << deleted;
        for (size_t i = 0; i < rows.size(); ++i)
            EXPECT_EQ(rows[i].number, static_cast<int>(i)); // numbers stay in step
    }
    EXPECT_EQ(feedback.messages[0], "'C'\nDo you want to delete this playlist ?");
    EXPECT_EQ(feedback.types[0], kMbYesNo);

    auto rows = Rows({u"Road"});
    feedback.answers = {kIdCancel};
    EXPECT_FALSE(DeletePlaylist(rows, 0, feedback).deleted);
    EXPECT_TRUE(Exists(InFolder(u"Road")));
    EXPECT_FALSE(DeletePlaylist(rows, 1, feedback).deleted);
    EXPECT_EQ(feedback.beeps, 1);
}

TEST_F(PlaylistOperations, DeleteSongsTakesThemFromTheRowsAndTheFile) {
    const std::u16string file = InFolder(u"My Favorites 1");
    PlaylistEntryList rows;
    for (int entry : {3, 1, 2, 0}) { // sorted since they were listed
        rows.Insert(std::make_unique<PlaylistEntry>(u"title"));
        rows.At(-1)->SetValueC(entry);
    }
    EXPECT_FALSE(DeleteSongsFromPlaylist(file, rows, std::vector<int>{0}, feedback).deleted);
    Write(file, {u"\\a", u"\\b", u"\\c", u"\\d"});
    EXPECT_FALSE(DeleteSongsFromPlaylist(file, rows, std::vector<int>{4}, feedback).deleted);
    const RowsAfterDeletion result =
        DeleteSongsFromPlaylist(file, rows, std::vector<int>{0, 1}, feedback);
    EXPECT_EQ(Read(file), (Paths{u"\\a", u"\\c"}));
    ASSERT_EQ(rows.Count(), 2);
    EXPECT_EQ(std::make_pair(rows.At(0)->ValueC(), rows.At(1)->ValueC()), std::pair(1, 0)); // 2 moved up
    EXPECT_EQ(result.selectRow, 0); // min(2 - 1, 1 - 2 + 1)
    EXPECT_EQ(feedback.sounds, Texts{"\\Windows\\DeleteSong.wav"});
    EXPECT_EQ(feedback.beeps, 2);
    EXPECT_EQ(DeleteSongsFromPlaylist(file, rows, std::vector<int>{1}, feedback).selectRow, 0);
    EXPECT_EQ(DeleteSongsFromPlaylist(file, rows, std::vector<int>{0}, feedback).selectRow, -1);
    EXPECT_TRUE(Read(file).empty());
}

TEST_F(PlaylistOperations, AddToNewPlaylistTakesTheFirstFreeNameAndSaysSo) {
    Write(InFolder(u"New Playlist 1"), {});
    const Paths songs{u"\\Storage Card\\a.mp3", u"\\Storage Card\\b.mp3"};
    EXPECT_EQ(AddToNewPlaylist(songs, feedback), InFolder(u"New Playlist 2"));
    EXPECT_EQ(Read(InFolder(u"New Playlist 2")), songs);
    EXPECT_EQ(feedback.messages, Texts{"Add to 'New Playlist 2' ."});
    EXPECT_EQ(AddToNewPlaylist({}, feedback), u"");
    EXPECT_EQ(feedback.beeps, 1);
}

TEST_F(PlaylistOperations, AddingASongTwiceListsItTwice) {
    const std::u16string file = InFolder(u"My Favorites 1"); // the folder does not exist yet
    const Paths song{u"\\Storage Card\\a.mp3"};
    EXPECT_TRUE(AddToPlaylistFile(file, song, feedback));
    EXPECT_TRUE(AddToPlaylistFile(file, song, feedback));
    EXPECT_EQ(Read(file), (Paths(2, song[0])));
    EXPECT_EQ(feedback.sounds, Texts(2, "\\Windows\\MyFavorite.wav"));
    CurrentDevice().FileSystem().CreateDirectory(InFolder(u"Odd")); // unreadable: a folder
    EXPECT_FALSE(AddToPlaylistFile(InFolder(u"Odd"), song, feedback));
    EXPECT_FALSE(AddToPlaylistFile(file, {}, feedback));
    EXPECT_EQ(feedback.beeps, 2);
}

} // namespace
} // namespace zelvor
