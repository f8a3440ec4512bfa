#include "ui/rules/browser/browse_groups.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

std::unique_ptr<TrackRecord> Song(std::u16string_view album, std::u16string_view title = u"t") {
    auto r = std::make_unique<TrackRecord>();
    r->SetField(kFieldPath, u"\\Card\\" + std::u16string(title) + u".mp3");
    r->SetField(kFieldTitle, title);
    r->SetField(kFieldAlbum, album);
    r->SetField(kFieldArtist, u"Artist");
    r->SetField(kFieldTrackNumber, 40000);
    return r;
}

struct Built {
    PlaylistEntryList rows;
    std::vector<BrowseGroup> groups;
    std::vector<std::u16string> Texts() const {
        std::vector<std::u16string> out;
        for (const auto& r : rows)
            out.emplace_back(r->Text(1));
        return out;
    }
};

Built Group(std::initializer_list<std::u16string_view> albums, bool withAll) {
    TrackList library;
    for (auto a : albums)
        library.AddTrack(Song(a));
    Built b;
    BuildGroupRows(library, kFieldAlbum, withAll, {u"All", u"Unknown"}, b.rows, b.groups);
    return b;
}

TEST(BrowseGroups, NeighboursEqualIgnoringCaseShareAGroupAndEmptyValuesAreUnknown) {
    Built b = Group({u"", u"", u""}, true);
    EXPECT_EQ(b.Texts(), (std::vector<std::u16string>{u"All", u"Unknown"}));
    ASSERT_EQ(b.groups.size(), 2u);
    EXPECT_TRUE(b.groups[0].IsAll());
    EXPECT_EQ(b.rows.At(0)->LibraryIndex(), -1);
    EXPECT_EQ(b.groups[1].marker, kUnknownGroupMarker);
    EXPECT_EQ(b.groups[1].last, 2);
    b = Group({u"", u"Blue", u"BLUE", u"blue", u"Green", u"Greener"}, false);
    EXPECT_EQ(b.Texts(), (std::vector<std::u16string>{u"Unknown", u"Blue", u"Green", u"Greener"}));
    ASSERT_EQ(b.groups.size(), 4u);
    EXPECT_EQ(b.groups[1].first, 1);
    EXPECT_EQ(b.groups[1].last, 3);
    EXPECT_EQ(b.groups[1].marker, 0);
    EXPECT_EQ(b.rows.At(1)->ValueD(), 3); // its number of songs
    EXPECT_EQ(b.groups[3].first, 5);
    EXPECT_EQ(b.groups[3].last, 5);
    for (int i = 0; i < b.rows.Count(); ++i) {
        EXPECT_EQ(b.rows.At(i)->ValueC(), i); // rows find their group after a sort
        EXPECT_EQ(b.rows.At(i)->LibraryIndex(), b.groups[static_cast<size_t>(i)].first);
    }
}

TEST(BrowseGroups, SongRowsCarryTheirLibraryRowAndSortTexts) {
    TrackList library;
    library.AddTrack(Song(u"A", u"one"));
    library.AddTrack(Song(u"B", u""));
    library.AddTrack(Song(u"C", u"three"));
    library.TrackAt(1)->SetField(kFieldPath, u"\\Card\\b side.mp3");
    PlaylistEntryList rows;
    AppendSongRows(library, 1, 5, rows); // a last row beyond the library is cut
    ASSERT_EQ(rows.Count(), 2);
    EXPECT_EQ(rows.At(0)->Text(1), u"b side"); // no title: the file name without extension
    EXPECT_EQ(rows.At(0)->LibraryIndex(), 1);
    EXPECT_EQ(rows.At(1)->Text(1), u"three");
    EXPECT_EQ(rows.At(1)->LibraryIndex(), 2);
    EXPECT_EQ(rows.At(1)->ValueC(), 1);
    EXPECT_EQ(rows.At(1)->ValueD(), 32767); // track 40000 held as a 16-bit sort value
    AppendSongRows(library, -3, 0, rows);   // a first row before the library starts at 0
    ASSERT_EQ(rows.Count(), 3);
    EXPECT_EQ(rows.At(2)->Text(1), u"one");
}

} // namespace
} // namespace zelvor
