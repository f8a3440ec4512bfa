#include <array>

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
    using Texts = std::array<const char16_t*, 3>; // texts 2 and 3, text 2 of the copy; nullptr: none
    for (Texts c : {Texts{u"two", u"three", u"three"}, Texts{u"two", nullptr, u"two"},
                    Texts{nullptr, u"three", u"three"}, Texts{nullptr, nullptr, nullptr}}) {
        PlaylistEntry e(u"\\path.mp3");
        for (int which : {2, 3})
            if (c[which - 2])
                e.SetText(which, c[which - 2]);
        e.SetTypeCode(2);
        e.SetLibraryIndex(7);
        e.SetValueC(8);
        e.SetValueD(-9);
        auto copy = e.Copy();
        EXPECT_EQ(copy->Text(1), u"\\path.mp3");
        EXPECT_EQ(copy->HasText(2), c[2] != nullptr);
        EXPECT_EQ(copy->Text(2), c[2] ? c[2] : u"");
        EXPECT_FALSE(copy->HasText(3));
        EXPECT_EQ(std::make_tuple(copy->TypeCode(), copy->LibraryIndex(), copy->ValueC(),
                                  copy->ValueD()),
                  std::make_tuple(2, 7, 8, std::int16_t{-9}));
    }
}

} // namespace
} // namespace zelvor
