// The seek bar and the time area of the real player screen: dragging the
// thumb seeks, a press elsewhere on the bar only moves it, and a tap on the
// digits switches elapsed and remaining time.

#include <gtest/gtest.h>

#include "tests/ui/player_screen_rig.h"

namespace zelvor {
namespace {
using testing::kSecond;
using testing::ScreenRig;
using testing::SeekTo;
using Log = std::vector<std::string>;

// A playing 100 s track; the bar's ends as the thumb travels them: left at
// the bar's left, right one thumb width short of its right.
class SeekBarTest : public ::testing::TestWithParam<ScreenOrientation> {
protected:
    SeekBarTest() : rig(GetParam()) {
        const ScreenGeometry& g = rig.Screen().Geometry();
        bar = g.buttons[kButtonSeekBar];
        right = bar.right - g.thumb.width;
        thumbHalf = g.thumb.width / 2;
        y = bar.top + 5;
    }
    void Play() {
        rig.PlayList({u"a.mp3"}, 100);
        rig.TapButton(kButtonPlay);
    }
    Log SeeksSince(std::size_t mark) const {
        Log seeks;
        for (const std::string& entry : rig.factory.LogSince(mark))
            if (entry.rfind("seek ", 0) == 0)
                seeks.push_back(entry);
        return seeks;
    }
    const SeekBar& Bar() { return rig.GetPlayer().Position().Bar(); }

    ScreenRig rig;
    PixelRect bar;
    int right, thumbHalf, y;
};

TEST_P(SeekBarTest, DraggingTheThumbToTheMiddleSeeksToHalfTheTrack) {
    Play();
    // The drop maps (X - L - 4) / (R - L - 4) to the track: half way is
    // L + 4 + half the span, and the finger holds the thumb by its middle.
    const int span = right - bar.left - 4;
    ASSERT_EQ(span % 2, 0);
    const int dropX = bar.left + 4 + span / 2 + thumbHalf;
    rig.Press({bar.left + thumbHalf, y}); // on the thumb
    rig.MoveTo({dropX - 30, y});
    const int dragged = Bar().thumbX;
    rig.Graph()->position = 3 * kSecond;
    rig.Screen().OnTimer(kTimerPosition); // the tick leaves a dragged thumb alone
    EXPECT_EQ(Bar().thumbX, dragged);
    EXPECT_EQ(rig.ButtonState(kButtonSeekBar), kDisplayPressed);

    const std::size_t mark = rig.factory.log.size();
    rig.MoveTo({dropX, y});
    rig.Release({dropX, y});
    EXPECT_EQ(SeeksSince(mark), Log{SeekTo(50)});
    EXPECT_EQ(rig.ButtonState(kButtonSeekBar), kDisplayNormal);
    EXPECT_EQ(Bar().drag, kDragIdle);
}

TEST_P(SeekBarTest, APressOffTheThumbMovesItAndHoldsTheMouseButNeverSeeks) {
    Play();
    const std::size_t mark = rig.factory.log.size();
    rig.Press({bar.left + 60, y});
    EXPECT_EQ(Bar().thumbX, bar.left + 60 - thumbHalf);
    EXPECT_TRUE(Bar().captured);
    EXPECT_EQ(Bar().drag, kDragIdle);
    // While the bar holds the mouse the position timer does not move the
    // thumb back, and a slide does not drag it.
    rig.Graph()->position = 90 * kSecond;
    rig.Screen().OnTimer(kTimerPosition);
    rig.MoveTo({bar.left + 80, y});
    EXPECT_EQ(Bar().thumbX, bar.left + 60 - thumbHalf);
    rig.Release({bar.left + 80, y});
    EXPECT_EQ(SeeksSince(mark), Log{});
    EXPECT_FALSE(Bar().captured);
}

TEST_P(SeekBarTest, WithNothingLoadedTheBarDoesNotSeek) {
    rig.Press({bar.left + 40, y});
    EXPECT_FALSE(Bar().captured);
    EXPECT_EQ(Bar().drag, kDragIdle);
    rig.Release({bar.left + 40, y});
    EXPECT_EQ(rig.factory.log, Log{});
}

TEST_P(SeekBarTest, ATapOnTheDigitsSwitchesElapsedAndRemainingTime) {
    rig.PlayList({u"a.mp3"}, 59);
    rig.TapButton(kButtonPlay);
    rig.Graph()->position = 30 * kSecond;
    const QPoint digits =
        testing::Centre(ElementArea(rig.Screen().Geometry(), ScreenElement::TimeDigits));
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

ZELVOR_BOTH_ORIENTATIONS(SeekBarTest);

} // namespace
} // namespace zelvor
