#include <gtest/gtest.h>

#include "playlists/playlist_entry_list.h"

namespace zelvor {
namespace {

TEST(PlaylistEntryTexts, NoneReadsEmptyAndClearing) {
    PlaylistEntry e;
    e.SetText(2, u"");
    EXPECT_TRUE(e.HasText(2));
    EXPECT_FALSE(e.HasText(1));
    EXPECT_EQ(e.Text(1), u"");
    e.SetText(1, u"one");
    e.SetText(1, u"uno");
    EXPECT_EQ(e.Text(1), u"uno");
    e.ClearText(1);
    EXPECT_FALSE(e.HasText(1));
    e.SetText(4, u"ignored");
    e.SetText(0, u"ignored");
    EXPECT_EQ(e.Text(4), u"");
    EXPECT_EQ(e.Text(0), u"");
    EXPECT_EQ(e.LibraryIndex(), -1);
    EXPECT_EQ(e.TypeCode(), -1);
    EXPECT_EQ(e.ValueC(), -1);
    EXPECT_EQ(e.ValueD(), -1);
}

TEST(PlaylistEntryCopy, TextThreeMovesIntoTextTwo) {
    struct Case {
        const char16_t* t2;
        const char16_t* t3;
        const char16_t* copiedT2; // nullptr: none
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
        EXPECT_EQ(copy->TypeCode(), 2);
        EXPECT_EQ(copy->LibraryIndex(), 7);
        EXPECT_EQ(copy->ValueC(), 8);
        EXPECT_EQ(copy->ValueD(), -9);
    }
}

std::u16string Joined(const PlaylistEntryList& list) {
    std::u16string out;
    for (const auto& e : list)
        out += e->Text(1);
    return out;
}

TEST(PlaylistEntryListOrder, InsertBeforeIndexOrAppend) {
    PlaylistEntryList list;
    EXPECT_EQ(list.At(-1), nullptr);
    EXPECT_EQ(list.Insert(std::make_unique<PlaylistEntry>(u"b")), 1);
    EXPECT_EQ(list.Insert(std::make_unique<PlaylistEntry>(u"a"), 0), 1);
    EXPECT_EQ(list.Insert(std::make_unique<PlaylistEntry>(u"d"), 2), 1); // index == count: append
    EXPECT_EQ(list.Insert(std::make_unique<PlaylistEntry>(u"c"), 2), 1);
    EXPECT_EQ(list.Insert(std::make_unique<PlaylistEntry>(u"e"), -7), 1);
    EXPECT_EQ(list.Insert(nullptr, 0), -1);
    EXPECT_EQ(Joined(list), u"abcde");
    EXPECT_EQ(list.At(-1)->Text(1), u"e");
    EXPECT_EQ(list.At(5), nullptr);
    EXPECT_EQ(list.At(-2), nullptr);
}

TEST(PlaylistEntryListFlags, RemoveSetsChangedAndEmptyingClearsIt) {
    PlaylistEntryList list;
    for (auto t : {u"a", u"b", u"c"})
        list.Insert(std::make_unique<PlaylistEntry>(t));
    list.SetCurrentIndex(2);
    PlaylistEntry stranger;
    EXPECT_EQ(list.Remove(&stranger), 0);
    EXPECT_EQ(list.Remove(nullptr), 0);
    EXPECT_FALSE(list.Changed());
    EXPECT_EQ(list.Remove(list.At(1)), 1);
    EXPECT_TRUE(list.Changed());
    EXPECT_EQ(Joined(list), u"ac");
    EXPECT_EQ(list.CurrentIndex(), 2); // removing does not move it

    PlaylistEntry* first = list.At(0);
    auto released = list.RemoveAll(false);
    EXPECT_FALSE(list.Changed());
    EXPECT_EQ(list.CurrentIndex(), -1);
    ASSERT_EQ(released.size(), 2u);
    EXPECT_EQ(released[0].get(), first);

    // An empty list keeps its flag when emptied again.
    list.Insert(std::move(released[0]));
    list.Remove(list.At(0));
    ASSERT_TRUE(list.Changed());
    list.SetCurrentIndex(0);
    EXPECT_TRUE(list.RemoveAll(true).empty());
    EXPECT_TRUE(list.Changed());
    EXPECT_EQ(list.CurrentIndex(), -1);
}

} // namespace
} // namespace zelvor
