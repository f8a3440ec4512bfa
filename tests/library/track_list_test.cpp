#include <functional>
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

TEST(TrackListItems, AddAtIndexOrEndAndReportWhere) {
    TrackList list;
    EXPECT_EQ(list.AddTrack(Rec(u"b")), 0);
    EXPECT_EQ(list.AddTrack(Rec(u"d"), -5), 1);
    EXPECT_EQ(list.AddTrack(Rec(u"a"), 0), 0);
    EXPECT_EQ(list.AddTrack(Rec(u"c"), 2), 2);
    EXPECT_EQ(list.AddTrack(Rec(u"e"), 99), 4);
    EXPECT_EQ(list.AddTrack(nullptr), -1);
    std::u16string order;
    for (const auto& r : list)
        order += r->Text(kFieldTitle);
    EXPECT_EQ(order, u"abcde");
    EXPECT_EQ(list.TrackAt(-1), nullptr);
    EXPECT_EQ(list.TrackAt(5), nullptr);
}

TEST(TrackListItems, RemoveOneOrAllAndHandOverOwnership) {
    TrackList list;
    for (auto t : {u"a", u"b", u"c"})
        list.AddTrack(Rec(t));
    EXPECT_FALSE(list.RemoveTrack(3));
    EXPECT_TRUE(list.RemoveTrack(1));
    EXPECT_EQ(list.TrackAt(1)->Text(kFieldTitle), u"c");
    TrackRecord* kept = list.TrackAt(0);
    auto released = list.RemoveAllTracks(false);
    EXPECT_EQ(list.Count(), 0);
    ASSERT_EQ(released.size(), 2u);
    EXPECT_EQ(released[0].get(), kept);
    list.AddTrack(std::move(released[0]));
    EXPECT_TRUE(list.RemoveAllTracks(true).empty());
    EXPECT_EQ(list.Count(), 0);
}

TEST(TrackListSort, NegativeArgumentsKeepTheKeptKeyAndOrder) {
    TrackList list;
    for (auto t : {u"b", u"c", u"a"})
        list.AddTrack(Rec(t));
    list.SortTracks(kFieldTitle, 0);
    EXPECT_EQ(list.SortKey(), kFieldTitle);
    EXPECT_EQ(list.SortOrder(), 0);
    EXPECT_EQ(list.TrackAt(0)->Text(kFieldTitle), u"c");
    list.SortTracks(-1, 1);
    EXPECT_EQ(list.SortKey(), kFieldTitle);
    EXPECT_EQ(list.TrackAt(0)->Text(kFieldTitle), u"a");
    list.SortTracks(kFieldAlbum, -1);
    EXPECT_EQ(list.SortOrder(), 1);
}

TEST(TrackListSort, KeyAndOrderArePackedAsSixteenBitsEach) {
    EXPECT_EQ(MakeSortParameter(13, 1), 0x1000Du);
    EXPECT_EQ(MakeSortParameter(0x10001, 0x10000), 0x1u); // order 0x10000 reads as 0
    TrackList list;
    for (auto t : {u"b", u"a", u"c"})
        list.AddTrack(Rec(t));
    list.SortTracks(kFieldTitle, 0x10000);
    EXPECT_EQ(list.TrackAt(0)->Text(kFieldTitle), u"c"); // descending, as order 0
    list.SortTracks(kFieldTitle, 2);
    EXPECT_EQ(list.TrackAt(0)->Text(kFieldTitle), u"a"); // any non-zero order ascends
}

// One row per case: two records, a key, an order and the sign CompareTracks gives.
struct CompareCase {
    const char* name;
    int key;
    int order;
    std::function<void(TrackRecord&, TrackRecord&)> setUp;
    int sign;
};

void Texts(TrackRecord& a, TrackRecord& b, int id, std::u16string_view ta, std::u16string_view tb) {
    a.SetField(id, ta);
    b.SetField(id, tb);
}

std::vector<CompareCase> CompareCases() {
    std::vector<CompareCase> cases;
    for (int key : {1, 2, 3, 4}) {
        auto texts = [key](std::u16string ta, std::u16string tb) {
            return [=](TrackRecord& a, TrackRecord& b) { Texts(a, b, key, ta, tb); };
        };
        cases.push_back({"text ascending", key, 1, texts(u"apple", u"Banana"), -1});
        cases.push_back({"text descending", key, 0, texts(u"apple", u"Banana"), 1});
        cases.push_back({"case ignored", key, 1, texts(u"ABBA", u"abba"), 0});
        cases.push_back({"empty first ascending", key, 1, texts(u"", u"a"), -1});
        cases.push_back({"empty last descending", key, 0, texts(u"", u"a"), 1});
        cases.push_back({"accents count", key, 1, texts(u"é", u"e"), 1});
    }
    for (int key : {7, 12}) {
        int id = key;
        auto numbers = [id](std::int64_t na, std::int64_t nb) {
            return [=](TrackRecord& a, TrackRecord& b) {
                a.SetField(id, na);
                b.SetField(id, nb);
            };
        };
        cases.push_back({"numbers upward", key, 1, numbers(3, 10), -1});
        cases.push_back({"numbers downward", key, 0, numbers(3, 10), 1});
        cases.push_back({"equal numbers", key, 1, numbers(5, 5), 0});
        cases.push_back({"32-bit difference", key, 1, numbers(0, 0x80000001), 1});
    }
    auto album = [](std::u16string aa, int ta, std::u16string titleA, std::u16string ab, int tb,
                    std::u16string titleB) {
        return [=](TrackRecord& a, TrackRecord& b) {
            Texts(a, b, kFieldAlbum, aa, ab);
            Texts(a, b, kFieldTitle, titleA, titleB);
            a.SetField(kFieldTrackNumber, std::int64_t{ta});
            b.SetField(kFieldTrackNumber, std::int64_t{tb});
        };
    };
    cases.push_back({"albums A to Z", 13, 1, album(u"Abc", 9, u"z", u"Bcd", 1, u"a"), -1});
    cases.push_back({"albums Z to A", 13, 0, album(u"Abc", 9, u"z", u"Bcd", 1, u"a"), 1});
    cases.push_back({"album case counts", 13, 1, album(u"abc", 1, u"", u"Abc", 1, u""), -1});
    cases.push_back({"empty album last", 13, 1, album(u"", 1, u"a", u"Zed", 9, u"z"), 1});
    cases.push_back({"empty album first", 13, 0, album(u"", 1, u"a", u"Zed", 9, u"z"), -1});
    cases.push_back({"other album empty", 13, 1, album(u"Zed", 9, u"z", u"", 1, u"a"), -1});
    cases.push_back({"track numbers", 13, 1, album(u"X", 2, u"a", u"X", 10, u"a"), -1});
    cases.push_back({"track numbers down", 13, 0, album(u"X", 2, u"a", u"X", 10, u"a"), 1});
    cases.push_back({"both empty: tracks", 13, 1, album(u"", 5, u"a", u"", 4, u"b"), 1});
    cases.push_back({"then titles", 13, 1, album(u"X", 1, u"b", u"X", 1, u"a"), 1});
    cases.push_back({"titles case-sensitive", 13, 0, album(u"X", 1, u"a", u"X", 1, u"A"), 1});
    cases.push_back({"full tie", 13, 1, album(u"X", 1, u"t", u"X", 1, u"t"), 0});
    cases.push_back({"full tie, no album", 13, 0, album(u"", 1, u"", u"", 1, u""), 0});
    return cases;
}

int Sign(int v) {
    return (v > 0) - (v < 0);
}

TEST(CompareTracksOrder, EachKeyAndOrder) {
    for (const CompareCase& c : CompareCases()) {
        TrackRecord a, b;
        c.setUp(a, b);
        SCOPED_TRACE(testing::Message() << c.name << " key " << c.key << " order " << c.order);
        EXPECT_EQ(Sign(CompareTracks(a, b, MakeSortParameter(c.key, c.order))), c.sign);
        // Swapping the records swaps the answer, except for a tie.
        EXPECT_EQ(Sign(CompareTracks(b, a, MakeSortParameter(c.key, c.order))), -c.sign);
    }
}

TEST(CompareTracksOrder, FieldsWithoutTextsTie) {
    TrackRecord a, b;
    a.SetField(kFieldDuration, std::int64_t{1});
    b.SetField(kFieldDuration, std::int64_t{2});
    for (int key : {5, 6, 9, 10, 11, 14, 0xFFFF})
        EXPECT_EQ(CompareTracks(a, b, MakeSortParameter(key, 1)), 0) << key;
}

std::vector<std::u16string> TitlesOf(const TrackList& list) {
    std::vector<std::u16string> out;
    for (const auto& r : list)
        out.emplace_back(r->Text(kFieldTitle));
    return out;
}

TEST(TrackListSort, AlbumOrderPutsEmptyAlbumsAtTheTailThenTheHead) {
    TrackList list;
    list.AddTrack(Rec(u"n1"));
    list.AddTrack(Rec(u"b2", u"B", 2));
    list.AddTrack(Rec(u"a1", u"A", 1));
    list.AddTrack(Rec(u"n0"));
    list.AddTrack(Rec(u"b1", u"B", 1));
    list.SortTracks(kSortAlbumOrder, 1);
    EXPECT_EQ(TitlesOf(list), (std::vector<std::u16string>{u"a1", u"b1", u"b2", u"n0", u"n1"}));
    list.SortTracks(-1, 0);
    EXPECT_EQ(TitlesOf(list), (std::vector<std::u16string>{u"n1", u"n0", u"b2", u"b1", u"a1"}));
}

// Random records drawn from small pools, so that every kind of tie occurs:
// the keyed sort must give what a stable sort with CompareTracks gives.
TEST(TrackListSort, MatchesAStableSortByCompareTracks) {
    const std::u16string pool[] = {u"",     u"alpha", u"Alpha", u"ALPHA", u"beta", u"Béta",
                                   u"béta", u"Zulu",  u"zulu",  u"10",    u"9",    u"a b"};
    std::mt19937 rng(12345);
    auto pick = [&] { return pool[rng() % std::size(pool)]; };
    for (int key : {0, 1, 2, 3, 4, 7, 8, 12, 13, 6}) {
        for (int order : {0, 1}) {
            TrackList list;
            std::vector<TrackRecord*> reference;
            for (int i = 0; i < 300; ++i) {
                auto r = std::make_unique<TrackRecord>();
                r->SetField(kFieldPath, pick() + u"\\" + pick());
                r->SetField(kFieldTitle, pick());
                r->SetField(kFieldAlbum, pick());
                r->SetField(kFieldArtist, pick());
                r->SetField(kFieldGenre, pick());
                r->SetField(kFieldTrackNumber, std::int64_t{static_cast<int>(rng() % 3)});
                r->SetField(kFieldRunTimeA, std::int64_t{static_cast<int>(rng() % 5)});
                r->SetField(kFieldRunTimeD, std::int64_t{static_cast<int>(rng() % 5)});
                reference.push_back(r.get());
                list.AddTrack(std::move(r));
            }
            const std::uint32_t param = MakeSortParameter(key, order);
            std::stable_sort(reference.begin(), reference.end(),
                             [&](const TrackRecord* a, const TrackRecord* b) {
                                 return CompareTracks(*a, *b, param) < 0;
                             });
            list.SortTracks(key, order);
            for (int i = 0; i < list.Count(); ++i)
                ASSERT_EQ(list.TrackAt(i), reference[static_cast<size_t>(i)])
                    << "key " << key << " order " << order << " at " << i;
        }
    }
}

TEST(RankTextsOrder, EqualRanksExactlyWhereTheCollatorSeesEqualTexts) {
    // Long texts that differ only after their keys' first sixteen bytes, or
    // where one begins another, or only in case there.
    const std::vector<std::u16string_view> texts = {
        u"b", u"B", u"a", u"", u"á", u"A", u"b", u"river of stones b", u"river of stones",
        u"river of stones a", u"River of stones a", u"river of stones á", u"river of stones b"};
    for (bool ignoreCase : {false, true}) {
        auto ranks = RankTexts(texts, ignoreCase);
        for (size_t i = 0; i < texts.size(); ++i) {
            for (size_t j = 0; j < texts.size(); ++j) {
                int cmp = ignoreCase ? CompareTextIgnoreCase(texts[i], texts[j])
                                     : CompareText(texts[i], texts[j]);
                EXPECT_EQ(Sign(cmp), Sign(int(ranks[i]) - int(ranks[j]))) << i << " " << j;
            }
        }
    }
}

} // namespace
} // namespace zelvor
