#include <gtest/gtest.h>

#include "playlists/playlist_entry_list.h"

namespace zelvor {
namespace {

TEST(PlaylistEntry, TextsOneToThreeAreKeptApartAndOtherNumbersIgnored) {
    PlaylistEntry e;
    EXPECT_EQ(e.LibraryIndex(), -1); // unmatched until linked
    e.SetText(2, u"");
    e.SetText(1, u"one");
    e.SetText(3, u"three");
    e.ClearText(1);
    EXPECT_FALSE(e.HasText(1));
    EXPECT_EQ(e.Text(1), u"");
    EXPECT_TRUE(e.HasText(2)); // an empty text is still a text
    EXPECT_EQ(e.Text(3), u"three");
    for (int outside : {0, 4}) {
        e.SetText(outside, u"ignored");
        EXPECT_FALSE(e.HasText(outside));
        EXPECT_EQ(e.Text(outside), u"");
    }
}

// The copy keeps text 1 and the numbers; text 3, when there is one, becomes
// text 2, and the copy has no text 3.
TEST(PlaylistEntry, CopyMovesTextThreeIntoTextTwo) {
    struct Case {
        const char16_t *t2, *t3, *copiedT2; // nullptr: none
    };
    for (Case c : {Case{u"two", u"three", u"three"}, Case{u"two", nullptr, u"two"},
                   Case{nullptr, u"three", u"three"}, Case{nullptr, nullptr, nullptr}}) {
        PlaylistEntry e(u"\\path.mp3");
        if (c.t2)
            e.SetText(2, c.t2);
        if (c.t3)
            e.SetText(3, c.t3);
        e.SetTypeCode(2);
        e.SetLibraryIndex(7);
        e.SetValueC(8);
        e.SetValueD(-9);
        auto copy = e.Copy();
        EXPECT_EQ(copy->Text(1), u"\\path.mp3");
        EXPECT_EQ(copy->HasText(2), c.copiedT2 != nullptr);
        EXPECT_EQ(copy->Text(2), c.copiedT2 ? c.copiedT2 : u"");
        EXPECT_FALSE(copy->HasText(3));
        EXPECT_EQ(std::make_tuple(copy->TypeCode(), copy->LibraryIndex(), copy->ValueC(),
                                  copy->ValueD()),
                  std::make_tuple(2, 7, 8, std::int16_t{-9}));
    }
}

TEST(PlaylistEntryList, InsertsBeforeAnIndexOrAppends) {
    PlaylistEntryList list;
    for (auto [text, index] : {std::pair{u"b", 0}, {u"a", 0}, {u"d", 2}, {u"c", 2}, {u"e", -7}})
        EXPECT_EQ(list.Insert(std::make_unique<PlaylistEntry>(text), index), 1);
    EXPECT_EQ(list.Insert(nullptr, 0), -1);
    std::u16string order;
    for (const auto& e : list)
        order += e->Text(1);
    EXPECT_EQ(order, u"abcde");
    EXPECT_EQ(list.At(-1)->Text(1), u"e"); // -1: the last
}

} // namespace
} // namespace zelvor
