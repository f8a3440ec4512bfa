// The player screen's buttons, tapped and held on the real widget over the
// fake graph: what each one asks of the engine and how the screen shows it;
// the seek bar and the time digits; then its keys.

#include <gtest/gtest.h>

#include "tests/ui/player_screen_rig.h"
#include "ui/widgets/player_screen/device_keys.h"
#include "ui/rules/player_screen/player_keys.h"

namespace zelvor {
namespace {
using testing::kSecond;
using testing::ScreenRig;
using testing::SeekTo;

class PlayerButtonsTest : public ::testing::TestWithParam<ScreenOrientation> {};

// A tap acts through the button shown at its place: Pause where Play was,
// the repeat buttons in turn; Previous wraps to the last. Library (which
// ends a held seek key's timer), Hide, Menu and display off go to the frame
// and the host.
TEST_P(PlayerButtonsTest, TapsActThroughTheButtonShownAtTheirPlace) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3", u"b.mp3", u"c.mp3"});
    rig.TapButton(kButtonPlay);
    EXPECT_EQ(rig.State(), kPlayStatePlaying);
    rig.TapButton(kButtonPause);
    EXPECT_EQ(rig.State(), kPlayStatePaused);
    rig.TapButton(kButtonStop);
    EXPECT_EQ(rig.State(), kPlayStateStopped);
    rig.TapButton(kButtonPrevious);
    EXPECT_EQ(rig.GetPlayer().Queue().CounterText(), u"3/3");
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerPressHold));
    for (int button : {kButtonRepeatOff, kButtonRepeatOne, kButtonRepeatAll})
        rig.TapButton(button);
    EXPECT_EQ(rig.GetPlayer().Queue().RepeatMode(), kRepeatOff);

    rig.TapButton(kButtonPlay);
    rig.KeyPress(Qt::Key_Period);
    rig.TapButton(kButtonLibrary);
    EXPECT_EQ(rig.frame.browsers, 1);
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerSeekHold));
    for (int button : {kButtonHide, kButtonMenu, kButtonDisplayOff})
        rig.TapButton(button);
    EXPECT_EQ(std::tuple(rig.frame.hides, rig.frame.menus, rig.host.displayOffs),
              std::tuple(1, 1, 1));
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
    rig.Screen().OnTimer(kTimerPressHold);
    rig.Screen().OnTimer(kTimerPressHold);
    EXPECT_TRUE(rig.Logged(SeekTo(45)));
    rig.Release(rig.Centre(kButtonNext));
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerPressHold));
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

// The thumb, held by its middle and dropped half way along its travel
// (from the bar's left + 4 to one thumb short of its right), seeks to half
// the track. A press off the thumb only
// moves it; a tap on the digits switches elapsed and remaining time.
TEST_P(PlayerButtonsTest, TheSeekBarAndTheTimeDigits) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"a.mp3"}, 100);
    rig.TapButton(kButtonPlay);
    const ScreenGeometry& geometry = rig.Screen().Geometry();
    const PixelRect bar = geometry.buttons[kButtonSeekBar];
    const int half = geometry.thumb.width / 2, y = bar.top + 5;
    const int dropX = bar.left + 4 + (bar.right - geometry.thumb.width - bar.left - 4) / 2 + half;
    const SeekBar& seekBar = rig.GetPlayer().Position().Bar();
    const std::size_t mark = rig.factory.log.size();
    rig.Press({bar.left + half, y});
    rig.MoveTo({dropX - 30, y});
    rig.MoveTo({dropX, y});
    rig.Release({dropX, y});
    rig.Press({bar.left + 40, y});
    EXPECT_EQ(seekBar.thumbX, bar.left + 40 - half);
    rig.MoveTo({bar.left + 60, y});
    rig.Release({bar.left + 60, y});
    EXPECT_EQ(seekBar.thumbX, bar.left + 40 - half);
    EXPECT_EQ(rig.factory.LogSince(mark), std::vector<std::string>{SeekTo(50)});

    rig.Graph()->position = 30 * kSecond;
    const QPoint digits = testing::Centre(ElementArea(geometry, ScreenElement::TimeDigits));
    rig.Tap(digits);
    EXPECT_EQ(rig.GetPlayer().Position().Time(), (TimeDisplay{0, 1, 10}));
    rig.Tap(digits);
    EXPECT_EQ(rig.GetPlayer().Position().Time(), (TimeDisplay{0, 0, 30}));
}

ZELVOR_BOTH_ORIENTATIONS(PlayerButtonsTest);

// The player screen's keys: each device key's action on the player, the
// keys of a keyboard and the media keys that stand for them, the seek keys
// held down, and keys the screen leaves to the frame.

constexpr std::int32_t kPlaying = kPlayStatePlaying, kPaused = kPlayStatePaused,
                       kStopped = kPlayStateStopped;

struct KeyCase {
    const char* name;
    int qtKey;
    int deviceKey;
    bool playingFirst;
    std::int32_t state; // afterwards
    int index;          // the queue's current entry afterwards
    int volume;         // afterwards
};

class PlayerKeyTest : public ::testing::TestWithParam<KeyCase> {};

// Stepping while stopped leaves the new entry stopped; while playing, it plays.
TEST_P(PlayerKeyTest, ActsOnThePlayer) {
    const KeyCase& c = GetParam();
    EXPECT_EQ(DeviceKeyOf(c.qtKey), c.deviceKey);
    ScreenRig rig;
    rig.PlayList({u"a.mp3", u"b.mp3", u"c.mp3"});
    if (c.playingFirst)
        rig.TapButton(kButtonPlay);
    Player& player = rig.GetPlayer();
    EXPECT_TRUE(PlayerKeyDown(player, c.deviceKey));
    const bool seek = c.deviceKey == kKeySeekForward || c.deviceKey == kKeySeekBack;
    const bool play = KeyActionOf(c.deviceKey) == KeyAction::PlayPause;
    // Play is held as Return whichever key it was; a key up forgets it.
    EXPECT_EQ(player.Position().HeldKey(), seek ? c.deviceKey : play ? kKeyReturn : 0);
    PlayerKeyUp(player);
    EXPECT_EQ(player.Position().HeldKey(), 0);
    EXPECT_EQ(rig.State(), c.state);
    EXPECT_EQ(player.Queue().CurrentIndex(), c.index);
    EXPECT_EQ(player.Volume().Index(), c.volume);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, PlayerKeyTest,
    ::testing::Values(
        KeyCase{"ReturnPlays", Qt::Key_Return, kKeyReturn, false, kPlaying, 0, 5},
        KeyCase{"EnterPauses", Qt::Key_Enter, kKeyReturn, true, kPaused, 0, 5},
        KeyCase{"PlayKeyPlays", Qt::Key_MediaPlay, kKeyHardPlay, false, kPlaying, 0, 5},
        KeyCase{"RightSteps", Qt::Key_Right, kKeyRight, false, kStopped, 1, 5},
        KeyCase{"NextKeyStepsAndPlays", Qt::Key_MediaNext, kKeyHardNext, true, kPlaying,
                1, 5},
        KeyCase{"LeftWrapsToTheLast", Qt::Key_Left, kKeyLeft, false, kStopped, 2, 5},
        KeyCase{"Up", Qt::Key_Up, kKeyUp, false, kStopped, 0, 6},
        KeyCase{"VolumeDownKey", Qt::Key_VolumeDown, kKeyHardVolumeDown, true, kPlaying,
                0, 4},
        KeyCase{"StopKey", Qt::Key_MediaStop, kKeyHardStop, true, kStopped, 0, 5},
        KeyCase{"TheOtherStopKey", Qt::Key_Stop, kKeyStopButton, true, kStopped, 0, 5},
        KeyCase{"SeekPlaysFromStopped", Qt::Key_Period, kKeySeekForward, false,
                kPlaying, 0, 5}),
    [](const auto& param) { return std::string(param.param.name); });

// The widget's wiring: an auto-repeated key acts again only for the volume,
// the releases in between end no hold (the timer seeks), and keys the
// screen has no use for are left to the frame.
TEST(PlayerKeys, TheWidgetRepeatsOnlyTheVolumeAndLeavesOtherKeysToTheFrame) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3", u"b.mp3", u"c.mp3"}, 100);
    rig.TapButton(kButtonPlay);
    rig.Graph()->position = 50 * kSecond;
    EXPECT_TRUE(rig.KeyPress(Qt::Key_AudioRewind));
    rig.KeyRelease(Qt::Key_AudioRewind, true);
    rig.KeyPress(Qt::Key_AudioRewind, true);
    EXPECT_EQ(rig.Graph()->position, 40 * kSecond);
    rig.Screen().OnTimer(kTimerSeekHold);
    EXPECT_EQ(rig.Graph()->position, 30 * kSecond);
    rig.KeyRelease(Qt::Key_AudioRewind);
    EXPECT_FALSE(rig.Screen().TimerRunning(kTimerSeekHold));
    // Each key down once and auto-repeated `repeats` times.
    for (auto [key, repeats] : {std::pair{Qt::Key_Up, 3}, {Qt::Key_VolumeDown, 1}, {Qt::Key_Right, 2}}) {
        rig.KeyPress(key);
        for (int i = 0; i < repeats; ++i)
            rig.KeyPress(key, true);
        rig.KeyRelease(key);
    }
    EXPECT_EQ(rig.GetPlayer().Volume().Index(), kDefaultVolumeIndex + 4 - 2);
    EXPECT_EQ(rig.GetPlayer().Queue().CurrentIndex(), 1);
    const std::size_t mark = rig.factory.log.size();
    for (int key : {Qt::Key_Escape, Qt::Key_A, Qt::Key_F1, Qt::Key_Space}) {
        EXPECT_FALSE(rig.KeyPress(key)) << key;
        rig.KeyRelease(key);
    }
    EXPECT_EQ(rig.factory.LogSince(mark), std::vector<std::string>{});
    EXPECT_FALSE(PlayerKeyDown(rig.GetPlayer(), DeviceKeyOf(Qt::Key_Space)));
}

} // namespace
} // namespace zelvor
