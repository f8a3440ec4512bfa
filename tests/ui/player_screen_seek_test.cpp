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

// A playing 100 s track on a bar whose thumb travels from the bar's left to
// one thumb width short of its right.
class SeekBarTest : public ::testing::TestWithParam<ScreenOrientation> {
protected:
    SeekBarTest() : rig(GetParam()), bar(rig.Screen().Geometry().buttons[kButtonSeekBar]) {
        rig.PlayList({u"a.mp3"}, 100);
        rig.TapButton(kButtonPlay);
        mark = rig.factory.log.size();
    }
    const SeekBar& Bar() { return rig.GetPlayer().Position().Bar(); }
    // A position tick with the graph at 90 s.
    void Tick() {
        rig.Graph()->position = 90 * kSecond;
        rig.Screen().OnTimer(kTimerPosition);
    }

    ScreenRig rig;
    PixelRect bar;
    int thumbHalf = rig.Screen().Geometry().thumb.width / 2;
    int y = bar.top + 5;
    std::size_t mark = 0;
};

// The drop maps (X - L - 4) / (R - L - 4) to the track: half way is L + 4
// + half the span, and the finger holds the thumb by its middle. A tick
// leaves a dragged thumb alone.
TEST_P(SeekBarTest, DraggingTheThumbToTheMiddleSeeksToHalfTheTrack) {
    const int span = bar.right - rig.Screen().Geometry().thumb.width - bar.left - 4;
    const int dropX = bar.left + 4 + span / 2 + thumbHalf;
    rig.Press({bar.left + thumbHalf, y}); // on the thumb
    rig.MoveTo({dropX - 30, y});
    const int dragged = Bar().thumbX;
    Tick();
    EXPECT_EQ(Bar().thumbX, dragged);
    EXPECT_EQ(rig.ButtonState(kButtonSeekBar), kDisplayPressed);
    rig.MoveTo({dropX, y});
    rig.Release({dropX, y});
    EXPECT_EQ(rig.factory.LogSince(mark), Log{SeekTo(50)});
    EXPECT_EQ(rig.ButtonState(kButtonSeekBar), kDisplayNormal);
    EXPECT_EQ(Bar().drag, SeekDrag::kIdle);
}

// While the bar holds the mouse a tick does not move the thumb back, and a
// slide does not drag it.
TEST_P(SeekBarTest, APressOffTheThumbMovesItAndHoldsTheMouseButNeverSeeks) {
    rig.Press({bar.left + 60, y});
    EXPECT_EQ(Bar().thumbX, bar.left + 60 - thumbHalf);
    EXPECT_TRUE(Bar().captured);
    Tick();
    rig.MoveTo({bar.left + 80, y});
    EXPECT_EQ(Bar().thumbX, bar.left + 60 - thumbHalf);
    rig.Release({bar.left + 80, y});
    EXPECT_EQ(rig.factory.LogSince(mark), Log{});
    EXPECT_FALSE(Bar().captured);
}

TEST_P(SeekBarTest, ATapOnTheDigitsSwitchesElapsedAndRemainingTime) {
    rig.Graph()->position = 30 * kSecond;
    const QPoint digits =
        testing::Centre(ElementArea(rig.Screen().Geometry(), ScreenElement::TimeDigits));
    rig.Tap(digits);
    const PlayerPosition& position = rig.GetPlayer().Position();
    EXPECT_EQ(position.Time(), (TimeDisplay{0, 1, 10}));
    rig.Tap(digits);
    EXPECT_EQ(position.Time(), (TimeDisplay{0, 0, 30}));
}

ZELVOR_BOTH_ORIENTATIONS(SeekBarTest);

} // namespace
} // namespace zelvor
