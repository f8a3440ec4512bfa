#include "playlists/playlist_file.h"
#include "playlists/playlist_operations.h"
#include "tests/playlists/recording_feedback.h"
#include "tests/support/test_device.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

using testing::RecordingFeedback;
using testing::TestDevice;

const std::u16string kFolder = u"\\Flash Disk\\Zelvor\\My Playlists";

std::u16string InFolder(std::u16string_view name) {
    return kFolder + u"\\" + std::u16string(name) + u".mpl";
}

void Write(std::u16string_view path, std::vector<std::u16string> songs) {
    PlaylistEntryList list;
    for (const auto& s : songs)
        list.Insert(std::make_unique<PlaylistEntry>(s));
    CurrentDevice().FileSystem().CreateDirectory(kFolder);
    ASSERT_EQ(SavePlaylist(path, list), 1);
}

std::vector<std::u16string> Read(std::u16string_view path) {
    PlaylistEntryList list;
    LoadPlaylist(path, list);
    std::vector<std::u16string> out;
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
    TestDevice device;
    RecordingFeedback feedback;
};

TEST_F(PlaylistOperations, RenameRefusesAnExistingNameIgnoringCase) {
    auto rows = Rows({u"Road", u"Morning"});
    EXPECT_FALSE(FinishRename(rows, 0, u"MORNING", true, feedback));
    ASSERT_EQ(feedback.messages.size(), 1u);
    EXPECT_EQ(feedback.messages[0], "Rename Failed !\nA playlist named 'MORNING' already exists.");
    EXPECT_EQ(feedback.types[0], kMessageBoxOk);
    EXPECT_EQ(rows[0].path, InFolder(u"Road"));
    EXPECT_TRUE(Exists(InFolder(u"Road")));

    EXPECT_FALSE(FinishRename(rows, 0, u"road", false, feedback)); // its own name, other case
    EXPECT_EQ(feedback.messages.size(), 1u);                       // not asked to report
}

TEST_F(PlaylistOperations, RenameMovesTheFileAndUpdatesTheRow) {
    auto rows = Rows({u"Road"});
    EXPECT_TRUE(FinishRename(rows, 0, u"Drive", true, feedback));
    EXPECT_EQ(rows[0].name, u"Drive");
    EXPECT_EQ(rows[0].path, InFolder(u"Drive"));
    EXPECT_TRUE(Exists(InFolder(u"Drive")));
    EXPECT_FALSE(Exists(InFolder(u"Road")));
    EXPECT_TRUE(feedback.messages.empty());
}

TEST_F(PlaylistOperations, RenameThatCannotMoveReportsTheShortText) {
    auto rows = Rows({u"Road"});
    CurrentDevice().FileSystem().DeleteFile(InFolder(u"Road"));
    for (std::u16string_view name : {u"Gone", u"", u"a\\b"})
        EXPECT_FALSE(FinishRename(rows, 0, name, true, feedback));
    EXPECT_FALSE(FinishRename(rows, 1, u"Nowhere", true, feedback));
    EXPECT_EQ(feedback.messages, std::vector<std::string>(4, "Rename Failed !"));
}

struct DeleteCase {
    const char* name;
    int rowCount;
    int deleted;
    int selected;
};

class PlaylistDeletion : public PlaylistOperations,
                         public ::testing::WithParamInterface<DeleteCase> {};

TEST_P(PlaylistDeletion, SelectsTheSamePositionOrTheNewLastRow) {
    std::vector<PlaylistRow> rows = Rows({u"A", u"B", u"C"});
    rows.resize(static_cast<size_t>(GetParam().rowCount));
    const std::u16string doomed = rows[static_cast<size_t>(GetParam().deleted)].path;
    const RowsAfterDeletion result = DeletePlaylist(rows, GetParam().deleted, feedback);
    EXPECT_TRUE(result.deleted);
    EXPECT_EQ(result.selectRow, GetParam().selected);
    EXPECT_EQ(static_cast<int>(rows.size()), GetParam().rowCount - 1);
    EXPECT_FALSE(Exists(doomed));
    for (size_t i = 0; i < rows.size(); ++i)
        EXPECT_EQ(rows[i].number, static_cast<int>(i)); // numbers stay in step
}

INSTANTIATE_TEST_SUITE_P(Rows, PlaylistDeletion,
                         ::testing::Values(DeleteCase{"Last", 3, 2, 1},
                                           DeleteCase{"Only", 1, 0, -1},
                                           DeleteCase{"First", 3, 0, 0},
                                           DeleteCase{"Middle", 3, 1, 1}),
                         [](const auto& param) { return param.param.name; });

TEST_F(PlaylistOperations, DeleteAsksAndKeepsEverythingOnNo) {
    auto rows = Rows({u"Road"});
    feedback.answers = {kMessageBoxOk};
    EXPECT_FALSE(DeletePlaylist(rows, 0, feedback).deleted);
    EXPECT_EQ(feedback.messages[0], "'Road'\nDo you want to delete this playlist ?");
    EXPECT_EQ(feedback.types[0], kMessageBoxYesNo);
    EXPECT_EQ(rows.size(), 1u);
    EXPECT_TRUE(Exists(InFolder(u"Road")));
    EXPECT_FALSE(DeletePlaylist(rows, 1, feedback).deleted);
    EXPECT_EQ(feedback.beeps, 1);
}

PlaylistEntryList ShownRows(int count) {
    PlaylistEntryList rows;
    for (int i = 0; i < count; ++i) {
        auto row = std::make_unique<PlaylistEntry>(u"title");
        row->SetValueC(i);
        rows.Insert(std::move(row));
    }
    return rows;
}

TEST_F(PlaylistOperations, DeleteSongsTakesThemFromTheRowsAndTheFile) {
    const std::u16string file = InFolder(u"My Favorites 1");
    Write(file, {u"\\a", u"\\b", u"\\c", u"\\d"});
    PlaylistEntryList rows = ShownRows(4);
    rows.At(0)->SetValueC(3); // sorted since: row 0 shows entry 3, row 3 entry 0
    rows.At(3)->SetValueC(0);
    const std::vector<int> selected{0, 1};
    const RowsAfterDeletion result = DeleteSongsFromPlaylist(file, rows, selected, feedback);
    EXPECT_TRUE(result.deleted);
    EXPECT_EQ(Read(file), (std::vector<std::u16string>{u"\\a", u"\\c"}));
    ASSERT_EQ(rows.Count(), 2);
    EXPECT_EQ(rows.At(0)->ValueC(), 1); // entry 2 moved up to 1
    EXPECT_EQ(rows.At(1)->ValueC(), 0);
    EXPECT_EQ(result.selectRow, 0); // min(2 - 1, 1 - 2 + 1)
    EXPECT_EQ(feedback.sounds, std::vector<std::string>{"\\Windows\\DeleteSong.wav"});

    EXPECT_EQ(DeleteSongsFromPlaylist(file, rows, std::vector<int>{1}, feedback).selectRow, 0);
    EXPECT_EQ(DeleteSongsFromPlaylist(file, rows, std::vector<int>{0}, feedback).selectRow, -1);
    EXPECT_TRUE(Read(file).empty());
}

TEST_F(PlaylistOperations, DeleteSongsRefusalsOnlyBeep) {
    const std::u16string file = InFolder(u"My Favorites 2");
    PlaylistEntryList rows = ShownRows(2);
    EXPECT_FALSE(DeleteSongsFromPlaylist(file, rows, std::vector<int>{0}, feedback).deleted);
    Write(file, {u"\\a", u"\\b"});
    EXPECT_FALSE(DeleteSongsFromPlaylist(file, rows, std::vector<int>{}, feedback).deleted);
    EXPECT_FALSE(DeleteSongsFromPlaylist(file, rows, std::vector<int>{2}, feedback).deleted);
    EXPECT_EQ(feedback.beeps, 3);
    EXPECT_EQ(rows.Count(), 2);
    EXPECT_TRUE(feedback.sounds.empty());
}

TEST_F(PlaylistOperations, AddToNewPlaylistTakesTheFirstFreeNameAndSaysSo) {
    Write(InFolder(u"New Playlist 1"), {});
    const std::vector<std::u16string> songs{u"\\Storage Card\\a.mp3", u"\\Storage Card\\b.mp3"};
    EXPECT_EQ(AddToNewPlaylist(songs, feedback), InFolder(u"New Playlist 2"));
    EXPECT_EQ(Read(InFolder(u"New Playlist 2")), songs);
    EXPECT_EQ(feedback.messages, std::vector<std::string>{"Add to 'New Playlist 2' ."});
    EXPECT_EQ(AddToNewPlaylist({}, feedback), u"");
    EXPECT_EQ(feedback.beeps, 1);
}

TEST_F(PlaylistOperations, AddingASongTwiceListsItTwice) {
    const std::u16string file = InFolder(u"My Favorites 1"); // the folder does not exist yet
    const std::vector<std::u16string> song{u"\\Storage Card\\a.mp3"};
    EXPECT_TRUE(AddToPlaylistFile(file, song, feedback));
    EXPECT_TRUE(AddToPlaylistFile(file, song, feedback));
    EXPECT_EQ(Read(file), (std::vector<std::u16string>(2, song[0])));
    EXPECT_EQ(feedback.sounds, std::vector<std::string>(2, "\\Windows\\MyFavorite.wav"));
}

TEST_F(PlaylistOperations, AddToAnUnreadableFileOrWithoutSongsBeeps) {
    const std::u16string file = InFolder(u"My Favorites 3");
    CurrentDevice().FileSystem().CreateDirectory(kFolder);
    CurrentDevice().FileSystem().CreateDirectory(file); // a folder of that name
    EXPECT_FALSE(AddToPlaylistFile(file, std::vector<std::u16string>{u"\\a"}, feedback));
    EXPECT_FALSE(AddToPlaylistFile(InFolder(u"X"), {}, feedback));
    EXPECT_EQ(feedback.beeps, 2);
    EXPECT_TRUE(feedback.sounds.empty());
}

TEST(PlaylistSongPaths, LibraryPathForLinkedRowsAndTheStoredPathOtherwise) {
    TrackList library;
    auto record = std::make_unique<TrackRecord>();
    record->SetField(kFieldPath, u"\\Card\\a.mp3");
    record->SetField(kFieldTitle, u"A");
    library.AddTrack(std::move(record));
    PlaylistEntryList rows;
    rows.Insert(std::make_unique<PlaylistEntry>(u"A"));
    rows.At(0)->SetLibraryIndex(0);
    rows.Insert(std::make_unique<PlaylistEntry>(u"\\Card\\gone.mp3"));
    rows.Insert(std::make_unique<PlaylistEntry>(u"stale"));
    rows.At(2)->SetLibraryIndex(7);
    EXPECT_EQ(SongPaths(rows, std::vector<int>{2, 1, 0, -1, 9}, library),
              (std::vector<std::u16string>{u"\\Card\\gone.mp3", u"\\Card\\a.mp3"}));
}

} // namespace
} // namespace zelvor
