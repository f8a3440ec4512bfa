// The player screen's buttons, tapped and held on the real widget over the
// fake graph: what each one asks of the engine and how the screen shows it.

#include <gtest/gtest.h>

#include "tests/ui/player_screen_rig.h"

namespace zelvor {
namespace {
using testing::ScreenRig;
using testing::SeekTo;

class PlayerButtonsTest : public ::testing::TestWithParam<ScreenOrientation> {};

TEST_P(PlayerButtonsTest, TransportButtonsPlayPauseStopAndStep) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3", u"b.mp3", u"c.mp3"});
    ASSERT_EQ(rig.State(), kPlayStateStopped);
    rig.TapButton(kButtonPlay);
    EXPECT_EQ(rig.State(), kPlayStatePlaying);
    EXPECT_EQ(rig.ButtonState(kButtonPlay), kDisplayHidden);
    EXPECT_EQ(rig.ButtonState(kButtonPause), kDisplayNormal);
    rig.TapButton(kButtonPause); // at the same place, now the one shown
    EXPECT_EQ(rig.State(), kPlayStatePaused);
    rig.TapButton(kButtonPlay);
    EXPECT_EQ(rig.State(), kPlayStatePlaying);
    rig.TapButton(kButtonStop);
    EXPECT_EQ(rig.State(), kPlayStateStopped);
    EXPECT_EQ(rig.ButtonState(kButtonStop), kDisplayHidden);

    rig.TapButton(kButtonNext);
    EXPECT_EQ(rig.GetPlayer().Queue().CounterText(), u"2/3");
    EXPECT_EQ(rig.Graph()->File(), "b.mp3");
    EXPECT_EQ(rig.State(), kPlayStateStopped);
    rig.TapButton(kButtonPrevious);
    rig.TapButton(kButtonPrevious); // wraps to the last
    EXPECT_EQ(rig.GetPlayer().Queue().CounterText(), u"3/3");
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerPressHold));
}

TEST_P(PlayerButtonsTest, HoldingNextWhilePlayingSeeksEveryTickAndDoesNotStep) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3", u"b.mp3"});
    rig.TapButton(kButtonPlay);
    rig.Graph()->position = 20 * testing::kSecond;
    rig.Press(rig.Centre(kButtonNext));
    EXPECT_EQ(rig.ButtonState(kButtonNext), kDisplayPressed);
    EXPECT_TRUE(rig.Screen().TimerRunning(kTimerPressHold));
    rig.Screen().OnTimer(kTimerPressHold);
    rig.Screen().OnTimer(kTimerPressHold);
    EXPECT_TRUE(rig.Logged(SeekTo(30)));
    EXPECT_TRUE(rig.Logged(SeekTo(40)));

    rig.Release(rig.Centre(kButtonNext));
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerPressHold));
    EXPECT_EQ(rig.ButtonState(kButtonNext), kDisplayNormal);
    EXPECT_EQ(rig.Graph()->File(), "a.mp3");
    EXPECT_EQ(rig.State(), kPlayStatePlaying);
    // The next tap steps again: the hold is forgotten on release.
    rig.TapButton(kButtonNext);
    EXPECT_EQ(rig.Graph()->File(), "b.mp3");
}

TEST_P(PlayerButtonsTest, HoldingPreviousPlaysFromStoppedThenSeeksBack) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3", u"b.mp3"});
    rig.Press(rig.Centre(kButtonPrevious));
    rig.Screen().OnTimer(kTimerPressHold);
    EXPECT_EQ(rig.State(), kPlayStatePlaying);
    rig.Graph()->position = 35 * testing::kSecond;
    rig.Screen().OnTimer(kTimerPressHold);
    EXPECT_TRUE(rig.Logged(SeekTo(25)));
    rig.Release(rig.Centre(kButtonPrevious));
    EXPECT_EQ(rig.GetPlayer().Queue().CurrentIndex(), 0);
}

// Released outside every button, or over another one, a press only unpresses.
TEST_P(PlayerButtonsTest, ReleasingAwayFromThePressedButtonOnlyUnpresses) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3", u"b.mp3"});
    rig.TapButton(kButtonPlay);
    QPoint outside{-1, -1}; // a point that no button's rectangle holds
    const PixelSize size = rig.Screen().Geometry().layout->screen;
    for (int y = size.height - 1; y >= 0 && outside.x() < 0; --y)
        for (int x = 0; x < size.width && outside.x() < 0; ++x)
            if (std::none_of(rig.Screen().Geometry().buttons.begin(),
                             rig.Screen().Geometry().buttons.end(),
                             [&](const PixelRect& r) { return r.Contains(PixelPoint{x, y}); }))
                outside = {x, y};
    ASSERT_GE(outside.x(), 0);
    const std::size_t logMark = rig.factory.log.size();
    for (int button : {kButtonNext, kButtonStop, kButtonVolumeUp, kButtonRepeatOff,
                       kButtonRandomOff, kButtonLibrary, kButtonHide, kButtonDisplayOff,
                       kButtonMenu}) {
        SCOPED_TRACE(button);
        rig.Press(rig.Centre(button));
        ASSERT_EQ(rig.ButtonState(button), kDisplayPressed);
        rig.Release(outside);
        EXPECT_EQ(rig.ButtonState(button), kDisplayNormal);
    }
    rig.Press(rig.Centre(kButtonVolumeUp));
    rig.Release(rig.Centre(kButtonVolumeDown));
    EXPECT_EQ(rig.ButtonState(kButtonVolumeUp), kDisplayNormal);

    EXPECT_EQ(rig.factory.LogSince(logMark), std::vector<std::string>{});
    EXPECT_EQ(rig.State(), kPlayStatePlaying);
    EXPECT_EQ(rig.GetPlayer().Volume().Index(), kDefaultVolumeIndex);
    EXPECT_EQ(rig.GetPlayer().Queue().RepeatMode(), kRepeatOff);
    EXPECT_FALSE(rig.GetPlayer().Queue().Random());
    EXPECT_EQ(rig.frame.browsers + rig.frame.hides + rig.frame.menus, 0);
    EXPECT_EQ(rig.host.displayOffs, 0);
}

TEST_P(PlayerButtonsTest, RepeatAndRandomShowTheImageOfTheirMode) {
    ScreenRig rig(GetParam());
    for (int expected : {kButtonRepeatOne, kButtonRepeatAll, kButtonRepeatOff}) {
        rig.TapButton(kButtonRepeatOff); // whichever image shows is the one under the finger
        for (int b = kButtonRepeatOff; b <= kButtonRepeatAll; ++b)
            EXPECT_EQ(rig.ButtonState(b), b == expected ? kDisplayNormal : kDisplayHidden);
    }
    EXPECT_EQ(rig.GetPlayer().Queue().RepeatMode(), kRepeatOff);
    rig.TapButton(kButtonRandomOff);
    EXPECT_TRUE(rig.GetPlayer().Queue().Random());
    EXPECT_EQ(rig.ButtonState(kButtonRandomOff), kDisplayHidden);
    EXPECT_EQ(rig.ButtonState(kButtonRandomOn), kDisplayNormal);
    rig.TapButton(kButtonRandomOn);
    EXPECT_FALSE(rig.GetPlayer().Queue().Random());
}

TEST_P(PlayerButtonsTest, VolumeButtonsStepWithinTheTable) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3"});
    rig.TapButton(kButtonVolumeUp);
    EXPECT_EQ(rig.GetPlayer().Volume().Index(), 6);
    EXPECT_EQ(rig.Graph()->volume, kVolumeTable[6]);
    for (int i = 0; i < 8; ++i)
        rig.TapButton(kButtonVolumeDown);
    EXPECT_EQ(rig.GetPlayer().Volume().Index(), 0);
    EXPECT_EQ(rig.Graph()->volume, kSilence);
}

TEST_P(PlayerButtonsTest, LibraryHideMenuAndDisplayOffGoToTheFrameAndHost) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3"});
    rig.TapButton(kButtonPlay);
    rig.KeyPress(Qt::Key_Period); // a held seek key runs its timer
    ASSERT_TRUE(rig.Screen().TimerRunning(kTimerSeekHold));
    rig.TapButton(kButtonLibrary);
    EXPECT_EQ(rig.frame.browsers, 1);
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerSeekHold));
    rig.TapButton(kButtonHide);
    rig.TapButton(kButtonMenu);
    rig.TapButton(kButtonDisplayOff);
    EXPECT_EQ(rig.frame.hides, 1);
    EXPECT_EQ(rig.frame.menus, 1);
    EXPECT_EQ(rig.host.displayOffs, 1);
}

TEST_P(PlayerButtonsTest, DisabledButtonsCannotBePressed) {
    ScreenRig rig(GetParam()); // nothing to play: Next, Previous, Play hidden
    rig.TapButton(kButtonNext);
    rig.TapButton(kButtonPlay);
    EXPECT_EQ(rig.host.beeps, 0);
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerPressHold));
    EXPECT_EQ(rig.ButtonState(kButtonNext), kDisplayHidden);
}

ZELVOR_BOTH_ORIENTATIONS(PlayerButtonsTest);

} // namespace
} // namespace zelvor
