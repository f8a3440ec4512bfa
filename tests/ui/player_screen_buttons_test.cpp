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
    rig.TapButton(kButtonPlay);
    EXPECT_EQ(rig.State(), kPlayStatePlaying);
    EXPECT_EQ(rig.ButtonState(kButtonPlay), kDisplayHidden);
    rig.TapButton(kButtonPause); // at the same place, now the one shown
    EXPECT_EQ(rig.State(), kPlayStatePaused);
    rig.TapButton(kButtonPlay);
    rig.TapButton(kButtonStop);
    EXPECT_EQ(rig.State(), kPlayStateStopped);
    EXPECT_EQ(rig.ButtonState(kButtonStop), kDisplayHidden);

    rig.TapButton(kButtonPrevious); // wraps to the last
    EXPECT_EQ(rig.GetPlayer().Queue().CounterText(), u"3/3");
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerPressHold));
}

// Held while playing, Next seeks on every tick and does not step; held
// while stopped, Previous first plays and then seeks back.
TEST_P(PlayerButtonsTest, AHeldStepButtonSeeksEveryTick) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3", u"b.mp3"});
    rig.Press(rig.Centre(kButtonPrevious));
    rig.Screen().OnTimer(kTimerPressHold);
    EXPECT_EQ(rig.State(), kPlayStatePlaying);
    rig.Graph()->position = 35 * testing::kSecond;
    rig.Screen().OnTimer(kTimerPressHold);
    EXPECT_TRUE(rig.Logged(SeekTo(25)));
    rig.Release(rig.Centre(kButtonPrevious));

    rig.Press(rig.Centre(kButtonNext));
    EXPECT_EQ(rig.ButtonState(kButtonNext), kDisplayPressed);
    rig.Screen().OnTimer(kTimerPressHold);
    rig.Screen().OnTimer(kTimerPressHold);
    EXPECT_TRUE(rig.Logged(SeekTo(45)));
    rig.Release(rig.Centre(kButtonNext));
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerPressHold));
    EXPECT_EQ(rig.ButtonState(kButtonNext), kDisplayNormal);
    EXPECT_EQ(rig.Graph()->File(), "a.mp3");
    rig.TapButton(kButtonNext); // the hold is forgotten on release
    EXPECT_EQ(rig.Graph()->File(), "b.mp3");
}

// Released outside every button, or over another one, a press only unpresses.
TEST_P(PlayerButtonsTest, ReleasingAwayFromThePressedButtonOnlyUnpresses) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3", u"b.mp3"});
    const QPoint outside = rig.Centre(kButtonSeekBar) + QPoint(0, 40);
    ASSERT_EQ(ButtonAt(rig.Screen().Geometry(), rig.GetPlayer().Buttons(),
                       {outside.x(), outside.y()}),
              std::nullopt);
    const std::size_t mark = rig.factory.log.size();
    for (int button : {kButtonNext, kButtonVolumeUp, kButtonRepeatOff, kButtonRandomOff,
                       kButtonLibrary, kButtonDisplayOff}) {
        rig.Press(rig.Centre(button));
        ASSERT_EQ(rig.ButtonState(button), kDisplayPressed) << button;
        rig.Release(button == kButtonVolumeUp ? rig.Centre(kButtonVolumeDown) : outside);
        EXPECT_EQ(rig.ButtonState(button), kDisplayNormal) << button;
    }
    EXPECT_EQ(rig.factory.LogSince(mark), std::vector<std::string>{});
    EXPECT_EQ(rig.GetPlayer().Volume().Index(), kDefaultVolumeIndex);
    EXPECT_EQ(rig.GetPlayer().Queue().RepeatMode(), kRepeatOff);
    EXPECT_FALSE(rig.GetPlayer().Queue().Random());
    EXPECT_EQ(rig.frame.browsers + rig.host.displayOffs, 0);
}

TEST_P(PlayerButtonsTest, LibraryHideMenuAndDisplayOffGoToTheFrameAndHost) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3"});
    rig.TapButton(kButtonPlay);
    rig.KeyPress(Qt::Key_Period); // a held seek key runs its timer
    rig.TapButton(kButtonLibrary);
    EXPECT_EQ(rig.frame.browsers, 1);
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerSeekHold));
    for (int button : {kButtonHide, kButtonMenu, kButtonDisplayOff})
        rig.TapButton(button);
    EXPECT_EQ(std::tuple(rig.frame.hides, rig.frame.menus, rig.host.displayOffs),
              std::tuple(1, 1, 1));
}

ZELVOR_BOTH_ORIENTATIONS(PlayerButtonsTest);

} // namespace
} // namespace zelvor
