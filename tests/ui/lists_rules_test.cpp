// The list controls' arithmetic: widths, the heading-click rule, the rows a
// drag looks at and the scroll steps of a drag outside the list; and the
// playlist list's order: library link, texts 2 and 3, value D, text 1.
#include <gtest/gtest.h>

#include "playlists/playlist_compare.h"
#include "ui/rules/lists/list_rules.h"

namespace zelvor {
namespace {

TEST(ListRules, WidthsRowsPerPageHeadingClicksAndDragPages) {
    EXPECT_EQ(FiveColumnWidth(244, 13), 46);
    EXPECT_EQ(FiveColumnWidth(10, 13), 0); // -3 / 5 is 0, not -1
    EXPECT_EQ(OneColumnWidth(247, 10, 10, 13), 245); // no scroll bar until rows overflow
    EXPECT_EQ(OneColumnWidth(247, 11, 10, 13), 232);
    EXPECT_EQ(OneColumnWidth(1, 11, 10, 13), 0);
    EXPECT_EQ(RowsPerPage(105, 20, true), 5); // a part row counts from six pixels
    EXPECT_EQ(RowsPerPage(106, 20, true), 6);
    EXPECT_EQ(RowsPerPage(106, 20, false), 5);
    EXPECT_EQ(RowsPerPage(100, 0, true), 0);
    EXPECT_EQ(RowsPerPage(1, 1, false), 1);
    const TrackSortChoice first = HeadingClickSort(2, {-1, 0});
    EXPECT_EQ(first, (TrackSortChoice{2, 1}));
    EXPECT_EQ(HeadingClickSort(2, first), (TrackSortChoice{2, 0}));
    EXPECT_EQ(HeadingClickSort(2, {2, 0}), (TrackSortChoice{2, 1}));
    EXPECT_EQ(HeadingClickSort(3, {2, 0}), (TrackSortChoice{3, 1}));
    EXPECT_EQ(DragPageRows(4, 10, 12), (RowRange{4, 11}));
    EXPECT_EQ(DragPageRows(-3, 10, 100), (RowRange{0, 10}));
}

struct ScrollCase {
    const char* name;
    int x, y;
    bool vertical, horizontal;
    std::vector<ScrollStep> steps;
};

class AutoScroll : public ::testing::TestWithParam<ScrollCase> {};

TEST_P(AutoScroll, StepsFollowWhereTheStylusLeftTheList) {
    const ScrollCase& c = GetParam();
    EXPECT_EQ(AutoScrollSteps(c.x, c.y, 200, 100, c.vertical, c.horizontal), c.steps);
}

using enum ScrollStep;
INSTANTIATE_TEST_SUITE_P(
    Cases, AutoScroll,
    ::testing::Values(
        ScrollCase{"Inside", 199, 99, true, true, {}},
        ScrollCase{"TopEdgeIsNotAbove", 250, 0, true, true, {LineDown}},
        ScrollCase{"LeftEdgeIsNotLeft", 0, 120, true, true, {LineDown, LineDown}},
        ScrollCase{"Below", 10, 100, true, false, {LineDown}},
        ScrollCase{"Above", 10, -1, true, false, {LineUp}},
        ScrollCase{"BelowWithoutBar", 10, 150, false, false, {}},
        ScrollCase{"RightScrollsDown", 200, 50, false, true, {LineDown}},
        ScrollCase{"BelowWithBothBarsTwice", 10, 120, true, true, {LineDown, LineDown}},
        ScrollCase{"AboveAndRight", 250, -5, true, true, {LineUp, LineDown}},
        ScrollCase{"BelowAndLeft", -5, 120, true, true, {LineDown, LineUp}},
        ScrollCase{"RightOnlyVerticalBar", 250, 50, true, false, {}}),
    [](const auto& test) { return std::string(test.param.name); });


struct Entry {
    int library = 0;
    const char16_t* text1 = u"";
    const char16_t* text2 = u"";
    const char16_t* text3 = u"";
    int valueD = 0;
};

std::unique_ptr<PlaylistEntry> Make(const Entry& e) {
    auto entry = std::make_unique<PlaylistEntry>(e.text1);
    entry->SetText(2, e.text2);
    entry->SetText(3, e.text3);
    entry->SetLibraryIndex(e.library);
    entry->SetValueD(static_cast<std::int16_t>(e.valueD));
    return entry;
}

int Sign(int value) { return (value > 0) - (value < 0); }

struct CompareCase {
    const char* name;
    Entry a, b;
    int mode;
    int withoutFlag; // sign of the result, order flag clear
    int withFlag;    // and set
};

class ComparePlaylist : public ::testing::TestWithParam<CompareCase> {};

TEST_P(ComparePlaylist, GivesTheSignForBothOrders) {
    const CompareCase& c = GetParam();
    const auto a = Make(c.a), b = Make(c.b);
    EXPECT_EQ(Sign(ComparePlaylistEntries(*a, *b, c.mode, false)), c.withoutFlag);
    EXPECT_EQ(Sign(ComparePlaylistEntries(*a, *b, c.mode, true)), c.withFlag);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ComparePlaylist,
    ::testing::Values(
        // Texts: with the flag A to Z, without it Z to A, case-sensitively.
        CompareCase{"Text1", {0, u"Apple"}, {0, u"Banana"}, 0, 1, -1},
        CompareCase{"Text1Equal", {0, u"Same"}, {0, u"Same"}, 0, 0, 0},
        CompareCase{"Text1CaseCounts", {0, u"abc"}, {0, u"ABC"}, 0, 1, -1},
        CompareCase{"UnknownModeIsText1", {0, u"A", u"Z"}, {0, u"B", u"A"}, 7, 1, -1},
        CompareCase{"Mode0IgnoresValueD", {0, u"A", u"", u"", 9}, {0, u"B", u"", u"", 1}, 0, 1, -1},
        // Unlinked entries: last without the flag, first with it.
        CompareCase{"UnlinkedA", {-1, u"A"}, {0, u"B"}, 0, 1, -1},
        CompareCase{"UnlinkedB", {0, u"A"}, {-1, u"B"}, 0, -1, 1},
        CompareCase{"UnlinkedOnlyMinusOne", {-2, u"B"}, {0, u"A"}, 0, -1, 1},
        // Value D after the texts of the mode; then text 1.
        CompareCase{"ValueD", {0, u"B", u"", u"", 1}, {0, u"A", u"", u"", 2}, 1, 1, -1},
        CompareCase{"ValueDTieText1", {0, u"A", u"", u"", 3}, {0, u"B", u"", u"", 3}, 1, 1, -1},
        // Mode 2: text 2 first, empty text 2 at the tail with the flag.
        CompareCase{"Text2", {0, u"Z", u"A", u"", 5}, {0, u"A", u"B", u"", 1}, 2, 1, -1},
        CompareCase{"Text2EmptyA", {0, u"A", u""}, {0, u"B", u"X"}, 2, -1, 1},
        CompareCase{"Text2EmptyB", {0, u"A", u"X"}, {0, u"B", u""}, 2, 1, -1},
        CompareCase{"Text2BothEmptyValueD", {0, u"A", u"", u"", 2}, {0, u"B", u"", u"", 1}, 2, -1, 1},
        CompareCase{"Text2TieValueD", {0, u"A", u"S", u"", 2}, {0, u"B", u"S", u"", 1}, 2, -1, 1},
        CompareCase{"Mode2IgnoresText3", {0, u"A", u"S", u"Z", 1}, {0, u"B", u"S", u"A", 1}, 2, 1, -1},
        // Mode 3: text 3 after text 2.
        CompareCase{"Text3", {0, u"A", u"S", u"Z", 1}, {0, u"B", u"S", u"A", 1}, 3, -1, 1},
        CompareCase{"Text3EmptyB", {0, u"A", u"S", u"A", 1}, {0, u"B", u"S", u"", 1}, 3, 1, -1},
        CompareCase{"Text3TieValueD", {0, u"A", u"S", u"T", 1}, {0, u"B", u"S", u"T", 2}, 3, 1, -1}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(SortPlaylistEntries, IsStableAndKeepsUnlinkedEntriesInTheirOrder) {
    PlaylistEntryList list;
    for (const Entry& e : {Entry{-1, u"u1"}, Entry{0, u"b", u"1"}, Entry{-1, u"u2"},
                           Entry{0, u"a"}, Entry{-1, u"u3"}, Entry{0, u"b", u"2"}})
        list.Insert(Make(e));
    const auto texts = [&] {
        std::u16string all;
        for (const auto& entry : list)
            all += std::u16string(entry->Text(1)) + std::u16string(entry->Text(2)) + u",";
        return all;
    };
    SortPlaylistEntries(list, 0, true);
    EXPECT_EQ(texts(), u"u1,u2,u3,a,b1,b2,");
    SortPlaylistEntries(list, 0, false);
    EXPECT_EQ(texts(), u"b1,b2,a,u1,u2,u3,");
    EXPECT_FALSE(list.Changed());
}

} // namespace
} // namespace zelvor
