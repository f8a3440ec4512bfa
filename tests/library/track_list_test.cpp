#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "library/track_list.h"
#include "library/track_sort.h"
#include "platform/text.h"

namespace zelvor {
namespace {

std::unique_ptr<TrackRecord> Rec(std::u16string_view title, std::u16string_view album = {},
                                 int track = 0) {
    auto r = std::make_unique<TrackRecord>();
    r->SetField(kFieldPath, std::u16string(u"\\m\\") + std::u16string(title) + u".mp3");
    if (!title.empty())
        r->SetField(kFieldTitle, title);
    if (!album.empty())
        r->SetField(kFieldAlbum, album);
    r->SetField(kFieldTrackNumber, std::int64_t{track});
    return r;
}

std::u16string Titles(const TrackList& list) {
    std::u16string out;
    for (const auto& r : list)
        out += r->Text(kFieldTitle);
    return out;
}

TrackList ListOf(std::u16string_view titles) {
    TrackList list;
    for (char16_t c : titles)
        list.AddTrack(Rec(std::u16string(1, c)));
    return list;
}

TEST(TrackListItems, IndexesOutsideTheListAppendOrAreRefused) {
    TrackList list;
    for (auto [title, at, index] : {std::tuple{u"b", 0x7FFF, 0}, {u"d", -5, 1}, {u"a", 0, 0},
                                    {u"c", 2, 2}, {u"e", 4, 4}, {u"f", 99, 5}})
        EXPECT_EQ(at == 0x7FFF ? list.AddTrack(Rec(title)) : list.AddTrack(Rec(title), at), index);
    EXPECT_EQ(list.AddTrack(nullptr), -1);
    EXPECT_EQ(list.TrackAt(-1), nullptr);
    EXPECT_EQ(list.TrackAt(6), nullptr);
    for (auto [at, removed] : {std::pair{6, false}, {-1, false}, {0, true}, {2, true}})
        EXPECT_EQ(list.RemoveTrack(at), removed) << at;
    EXPECT_EQ(Titles(list), u"bcef");
    TrackRecord* kept = list.TrackAt(0);
    auto released = list.RemoveAllTracks(false);
    ASSERT_EQ(released.size(), 4u);
    EXPECT_EQ(released[0].get(), kept);
    EXPECT_EQ(list.Count(), 0);
}

// A clone shares its original's texts until one of them changes a text:
// neither may then see the other's change.
TEST(TrackRecordClone, TextsStayApartOnceEitherChanges) {
    auto original = Rec(u"Song", u"Album");
    original->SetField(kFieldFileName, u"other.mp3");
    auto clone = original->Clone();
    EXPECT_EQ(clone->Text(kFieldFileName), u"Song.mp3"); // derived from the path again
    EXPECT_EQ(original->Text(kFieldFileName), u"other.mp3");
    auto second = clone->Clone();
    second->SetField(kFieldTitle, u"A much longer title than before");
    clone->ClearText(kFieldAlbum);
    original->ReserveText(400);
    original->SetField(kFieldArtist, u"Artist");
    EXPECT_EQ(second->Text(kFieldTitle), u"A much longer title than before");
    EXPECT_EQ(second->Text(kFieldAlbum), u"Album");
    EXPECT_EQ(clone->Text(kFieldTitle), u"Song");
    EXPECT_FALSE(clone->HasText(kFieldAlbum));
    EXPECT_EQ(clone->Text(kFieldPath), u"\\m\\Song.mp3");
    EXPECT_EQ(original->Text(kFieldAlbum), u"Album");
    EXPECT_EQ(original->Text(kFieldArtist), u"Artist");
    EXPECT_FALSE(second->HasText(kFieldArtist));
    EXPECT_EQ(original->TextBytes(), (9 + 11 + 4 + 5 + 6) * sizeof(char16_t));
}

// Negative arguments keep the kept key and order; key and order are packed
// as 16 bits each (order 0x10000 reads as 0); any other non-zero order ascends.
TEST(TrackListSort, ArgumentsOutsideTheirRange) {
    TrackList list = ListOf(u"bca");
    for (auto [key, order, titles, keptKey, keptOrder] :
         {std::tuple{int{kFieldTitle}, 0, u"cba", int{kFieldTitle}, 0}, {-1, 1, u"abc", kFieldTitle, 1},
          {kFieldFileName, -1, u"abc", kFieldFileName, 1}, {kFieldTitle, 0x10000, u"cba", kFieldTitle, 1},
          {kFieldTitle, 2, u"abc", kFieldTitle, 2}}) {
        list.SortTracks(key, order);
        EXPECT_EQ(Titles(list), titles) << key << " " << order;
        EXPECT_EQ(list.SortKey(), keptKey);
        EXPECT_EQ(list.SortOrder() != 0, keptOrder != 0);
    }
    // Albums that differ keep their order when titles would swap them.
    TrackList albums;
    for (auto [title, album] : {std::pair{u"b", u"X"}, {u"a", u"Y"}, {u"c", u"Z"}})
        albums.AddTrack(Rec(title, album, 1));
    albums.SortTracks(kSortAlbumOrder, 1);
    EXPECT_EQ(Titles(albums), u"bac");
    // Texts ignore case; each run time sorts by its own number, unsigned.
    TrackList mixed = ListOf(u"bAc");
    for (auto [i, a, d] : {std::tuple{0, 2, 1}, {1, 0x80000001, 3}, {2, 1, 2}}) {
        mixed.TrackAt(i)->SetField(kFieldRunTimeA, std::int64_t{a});
        mixed.TrackAt(i)->SetField(kFieldRunTimeD, std::int64_t{d});
    }
    mixed.SortTracks(kFieldTitle, 1);
    EXPECT_EQ(Titles(mixed), u"Abc");
    mixed.SortTracks(kFieldRunTimeA, 1);
    EXPECT_EQ(Titles(mixed), u"cbA");
    mixed.SortTracks(kFieldRunTimeD, 1);
    EXPECT_EQ(Titles(mixed), u"bcA");
    EXPECT_EQ(MakeSortParameter(13, 1), 0x1000Du);
    EXPECT_EQ(MakeSortParameter(0x10001, 0x10000), 0x1u);
}

int Sign(int v) {
    return (v > 0) - (v < 0);
}

// Two records, a key, an order and the sign CompareTracks gives; swapping
// the records must swap the sign.
void ExpectSign(const TrackRecord& a, const TrackRecord& b, int key, int order, int sign) {
    SCOPED_TRACE(::testing::Message() << "key " << key << " order " << order);
    EXPECT_EQ(Sign(CompareTracks(a, b, MakeSortParameter(key, order))), sign);
    EXPECT_EQ(Sign(CompareTracks(b, a, MakeSortParameter(key, order))), -sign);
}

TEST(CompareTracksOrder, AlbumOrderThenTrackThenTitle) {
    // Name; album, track, title of a, then of b; order and sign.
    using Row = std::tuple<const char*, const char16_t*, int, const char16_t*, const char16_t*, int,
                           const char16_t*, int, int>;
    const Row rows[] = {
        {"albums A to Z", u"Abc", 9, u"z", u"Bcd", 1, u"a", 1, -1},
        {"albums Z to A", u"Abc", 9, u"z", u"Bcd", 1, u"a", 0, 1},
        {"album case counts", u"abc", 1, u"", u"Abc", 1, u"", 1, -1},
        {"empty album last", u"", 1, u"a", u"Zed", 9, u"z", 1, 1},
        {"empty album first", u"", 1, u"a", u"Zed", 9, u"z", 0, -1},
        {"track numbers", u"X", 2, u"a", u"X", 10, u"a", 1, -1},
        {"track numbers down", u"X", 2, u"a", u"X", 10, u"a", 0, 1},
        {"both empty: tracks", u"", 5, u"a", u"", 4, u"b", 1, 1},
        {"then titles", u"X", 1, u"b", u"X", 1, u"a", 1, 1},
        {"titles case-sensitive", u"X", 1, u"a", u"X", 1, u"A", 0, 1},
        {"full tie", u"X", 1, u"t", u"X", 1, u"t", 1, 0},
        {"full tie, no album", u"", 1, u"", u"", 1, u"", 0, 0},
    };
    for (const auto& [name, albumA, trackA, titleA, albumB, trackB, titleB, order, sign] : rows) {
        SCOPED_TRACE(name);
        TrackRecord a, b;
        for (auto [r, album, track, title] : {std::tuple{&a, albumA, trackA, titleA}, {&b, albumB, trackB, titleB}}) {
            r->SetField(kFieldAlbum, album);
            r->SetField(kFieldTitle, title);
            r->SetField(kFieldTrackNumber, std::int64_t{track});
        }
        ExpectSign(a, b, kSortAlbumOrder, order, sign);
    }
}

// Random records drawn from small pools, so that every kind of tie occurs:
// the keyed sort must give what a stable sort with CompareTracks gives.
TEST(TrackListSort, MatchesAStableSortByCompareTracks) {
    const std::u16string pool[] = {u"",     u"alpha", u"Alpha", u"ALPHA", u"beta", u"B\u00E9ta",
                                   u"b\u00E9ta", u"Zulu",  u"zulu",  u"10",    u"9",    u"a b"};
    std::mt19937 rng(12345);
    auto pick = [&] { return pool[rng() % std::size(pool)]; };
    for (int key : {0, 1, 2, 3, 4, 7, 8, 12, 13, 6}) {
        for (int order : {0, 1}) {
            TrackList list;
            std::vector<TrackRecord*> reference;
            for (int i = 0; i < 300; ++i) {
                auto r = std::make_unique<TrackRecord>();
                r->SetField(kFieldPath, pick() + u"\\" + pick());
                for (int text : {kFieldTitle, kFieldAlbum, kFieldArtist, kFieldGenre})
                    r->SetField(text, pick());
                for (int number : {kFieldTrackNumber, kFieldRunTimeA, kFieldRunTimeD})
                    r->SetField(number, static_cast<std::int64_t>(rng() % (number == kFieldTrackNumber ? 3 : 5)));
                reference.push_back(r.get());
                list.AddTrack(std::move(r));
            }
            std::stable_sort(reference.begin(), reference.end(), [&](auto* a, auto* b) {
                return CompareTracks(*a, *b, MakeSortParameter(key, order)) < 0;
            });
            list.SortTracks(key, order);
            for (int i = 0; i < list.Count(); ++i)
                ASSERT_EQ(list.TrackAt(i), reference[static_cast<size_t>(i)])
                    << "key " << key << " order " << order << " at " << i;
        }
    }
}

} // namespace
} // namespace zelvor
