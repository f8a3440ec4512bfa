// The player screen's rules that need no window: the scrolling title, the
// idle-timer rhythm, the clock text and where things are hit and repainted.

#include <gtest/gtest.h>

#include "tests/playback/recording_player_view.h"
#include "tests/ui/player_screen_rig.h"
#include "ui/rules/player_screen/idle_reset_gate.h"
#include "ui/rules/player_screen/player_screen_control.h"
#include "ui/rules/player_screen/screen_geometry.h"
#include "ui/rules/player_screen/title_scroll.h"

namespace zelvor {
namespace {

TEST(TitleScroll, RunsRoundTheTextOneCharacterATick) {
    const std::u16string title = u"abc  ";
    std::u16string shown;
    int offset = -3; // outside the text: from its start
    for (int tick = 0; tick < 6; ++tick) {
        shown += RotatedTitle(title, offset) + u"|";
        offset = NextTitleOffset(title, offset);
    }
    EXPECT_EQ(shown, u"abc  |bc  a|c  ab|  abc| abc |abc  |");
    EXPECT_EQ(RotatedTitle(u"abc", 7), u"abc");
    EXPECT_EQ(NextTitleOffset(u"", 0), 0);
}

// A surrogate pair (the lowest and the highest, and a G clef) is stepped over
// whole; the unit after the surrogates is a character of its own.
TEST(TitleScroll, StepsOverASurrogatePairWhole) {
    for (std::u16string title : {u"a\U00010000b", u"a\U0010FFFFb", u"a\U0001D11Eb"}) {
        EXPECT_EQ(NextTitleOffset(title, 0), 1);
        EXPECT_EQ(NextTitleOffset(title, 1), 3);
        EXPECT_EQ(NextTitleOffset(title, 3), 0);
        EXPECT_EQ(RotatedTitle(title, 3), u"b" + title.substr(0, 3));
    }
    EXPECT_EQ(NextTitleOffset(u"a\uE000b", 1), 2);
}
TEST(IdleResetGate, ResetsAtOnceThenAtMostEveryFiftySecondsAcrossTheWrap) {
    IdleResetGate gate;
    const std::uint32_t start = 0xFFFF0000u; // the tick count wraps 65 s later
    EXPECT_TRUE(gate.Due(start));
    EXPECT_FALSE(gate.Due(start + 1));
    EXPECT_FALSE(gate.Due(start + kIdleResetIntervalMs - 1));
    EXPECT_TRUE(gate.Due(start + kIdleResetIntervalMs));
    const std::uint32_t wrapped = start + 2 * kIdleResetIntervalMs; // past zero
    ASSERT_LT(wrapped, start);
    EXPECT_TRUE(gate.Due(wrapped));
    EXPECT_FALSE(gate.Due(wrapped + 10));
}

TEST(ClockText, IsHoursAndMinutesOfTwoDigits) {
    EXPECT_EQ(ClockText(LocalTime{2024, 1, 1, 1, 7, 5, 59, 0}), u"07:05");
    EXPECT_EQ(ClockText(LocalTime{2024, 1, 1, 1, 0, 0, 0, 0}), u"00:00");
    EXPECT_EQ(ClockText(LocalTime{2024, 1, 1, 1, 23, 59, 0, 0}), u"23:59");
    // Values no clock gives keep to two digits each.
    EXPECT_EQ(ClockText(LocalTime{2024, 1, 1, 1, 100, 160, 0, 0}), u"00:60");
}

class ScreenGeometryTest : public ::testing::TestWithParam<ScreenOrientation> {};

// Which button a press finds where buttons take turns is driven through the
// widget; here, a button whose image did not load is never hit.
TEST_P(ScreenGeometryTest, AButtonWhoseImageDidNotLoadIsNotHit) {
    const PlayerLayout& layout = PlayerLayoutFor(GetParam());
    std::array<PixelSize, kPlayerButtonCount> sizes{};
    for (std::size_t i = 0; i < sizes.size(); ++i)
        sizes[i] = i == kButtonLibrary ? PixelSize{} : layout.buttons[i].size;
    const ScreenGeometry geometry = MakeScreenGeometry(layout, sizes, kSeekThumbSize);
    const PixelRect place = ButtonRect(layout.buttons[kButtonLibrary]);
    testing::RecordingPlayerView view;
    const QPoint centre = testing::Centre(place);
    EXPECT_EQ(ButtonAt(geometry, PlayerButtons{view}, {centre.x(), centre.y()}), std::nullopt);
    EXPECT_EQ(ButtonArea(geometry, kButtonLibrary), place);
}

ZELVOR_BOTH_ORIENTATIONS(ScreenGeometryTest);

} // namespace
} // namespace zelvor
