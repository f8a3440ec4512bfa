// The seek bar and the time area of the real player screen: dragging and
// tapping the bar seeks, and a tap on the digits switches elapsed and
// remaining time.

#include <algorithm>
#include <gtest/gtest.h>

#include "tests/ui/player_screen_rig.h"

namespace zelvor {
namespace {
using testing::ScreenRig;

constexpr std::int64_t kSecond = 10000000;

class SeekBarTest : public ::testing::TestWithParam<ScreenOrientation> {
protected:
    // The bar's ends as the thumb travels them: L at the bar's left, R one
    // thumb width short of its right.
    struct Travel {
        int left;
        int right;
        int thumbHalf;
        int top;
    };
    static Travel TravelOf(const CPlayerScreen& screen) {
        const ScreenGeometry& g = screen.Geometry();
        const PixelRect& bar = g.buttons[kButtonSeekBar];
        return {bar.left, bar.right - g.thumb.width, g.thumb.width / 2, bar.top};
    }
    static std::vector<std::string> Seeks(const ScreenRig& rig, std::size_t mark) {
        std::vector<std::string> seeks;
        for (const std::string& entry : rig.factory.LogSince(mark))
            if (entry.rfind("seek ", 0) == 0)
                seeks.push_back(entry);
        return seeks;
    }
};

TEST_P(SeekBarTest, DraggingTheThumbToTheMiddleSeeksToHalfTheTrack) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3"}, 100);
    rig.TapButton(kButtonPlay);
    const Travel travel = TravelOf(rig.Screen());
    // The drop maps (X - L - 4) / (R - L - 4) to the track: half way is
    // L + 4 + half the span, and the finger holds the thumb by its middle.
    const int span = travel.right - travel.left - 4;
    ASSERT_EQ(span % 2, 0);
    const int dropX = travel.left + 4 + span / 2 + travel.thumbHalf;
    const int y = travel.top + 5;

    rig.Press({travel.left + travel.thumbHalf, y}); // on the thumb
    rig.MoveTo({dropX - 30, y});
    const int dragged = rig.GetPlayer().Position().Bar().thumbX;
    rig.Graph()->position = 3 * kSecond;
    rig.Screen().OnTimer(kTimerPosition); // the tick leaves a dragged thumb alone
    EXPECT_EQ(rig.GetPlayer().Position().Bar().thumbX, dragged);
    EXPECT_EQ(rig.ButtonState(kButtonSeekBar), kDisplayPressed);

    const std::size_t mark = rig.factory.log.size();
    rig.MoveTo({dropX, y});
    rig.Release({dropX, y});
    EXPECT_EQ(Seeks(rig, mark), std::vector<std::string>{"seek " + std::to_string(50 * kSecond)});
    EXPECT_EQ(rig.ButtonState(kButtonSeekBar), kDisplayNormal);
    EXPECT_EQ(rig.GetPlayer().Position().Bar().drag, kDragIdle);
}

TEST_P(SeekBarTest, ATapOnTheBarSeeksWhereItLands) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3"}, 100);
    rig.TapButton(kButtonPlay);
    const Travel travel = TravelOf(rig.Screen());
    const PixelRect bar = rig.Screen().Geometry().buttons[kButtonSeekBar];
    const int y = travel.top + 5;

    std::size_t mark = rig.factory.log.size();
    rig.Tap({bar.right - 1, y}); // past the end of the travel: the end
    EXPECT_EQ(Seeks(rig, mark), std::vector<std::string>{"seek " + std::to_string(100 * kSecond)});

    // While the bar holds the mouse the position timer does not move the
    // thumb back.
    rig.Press({travel.left + 60, y});
    EXPECT_TRUE(rig.GetPlayer().Position().Bar().captured);
    const int pressedAt = rig.GetPlayer().Position().Bar().thumbX;
    rig.Graph()->position = 90 * kSecond;
    rig.Screen().OnTimer(kTimerPosition);
    EXPECT_EQ(rig.GetPlayer().Position().Bar().thumbX, pressedAt);
    mark = rig.factory.log.size();
    rig.Release({bar.left, y}); // dropped before the start
    EXPECT_EQ(Seeks(rig, mark), std::vector<std::string>{"seek 0"});
    EXPECT_FALSE(rig.GetPlayer().Position().Bar().captured);
}

TEST_P(SeekBarTest, WithNothingLoadedTheBarDoesNotSeek) {
    ScreenRig rig(GetParam());
    const Travel travel = TravelOf(rig.Screen());
    rig.Press({travel.left + 40, travel.top + 5});
    EXPECT_FALSE(rig.GetPlayer().Position().Bar().captured);
    EXPECT_EQ(rig.GetPlayer().Position().Bar().drag, kDragIdle);
    rig.Release({travel.left + 40, travel.top + 5});
    EXPECT_EQ(rig.factory.log, std::vector<std::string>{});
}

TEST_P(SeekBarTest, ATapOnTheDigitsSwitchesElapsedAndRemainingTime) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3"}, 59);
    rig.TapButton(kButtonPlay);
    rig.Graph()->position = 30 * kSecond;
    const PixelRect time = ElementArea(rig.Screen().Geometry(), ScreenElement::TimeDigits);
    const QPoint digits{(time.left + time.right) / 2, (time.top + time.bottom) / 2};

    rig.Tap(digits);
    const PlayerPosition& position = rig.GetPlayer().Position();
    EXPECT_TRUE(position.ShowsRemaining());
    EXPECT_EQ(position.Time(), (TimeDisplay{0, 0, 29}));
    rig.Screen().OnTimer(kTimerPosition);
    EXPECT_EQ(position.Time(), (TimeDisplay{0, 0, 29}));

    rig.Tap(digits);
    EXPECT_FALSE(position.ShowsRemaining());
    EXPECT_EQ(position.Time(), (TimeDisplay{0, 0, 30}));
}

INSTANTIATE_TEST_SUITE_P(BothOrientations, SeekBarTest,
                         ::testing::Values(ScreenOrientation::Portrait,
                                           ScreenOrientation::Landscape),
                         testing::OrientationName);

} // namespace
} // namespace zelvor
