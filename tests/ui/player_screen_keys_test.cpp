// The player screen's keys: each device key's action on the player, the
// keys of a keyboard and the media keys that stand for them, the seek keys
// held down, and keys the screen leaves to the frame.

#include <gtest/gtest.h>

#include "tests/ui/player_screen_rig.h"
#include "ui/widgets/player_screen/device_keys.h"
#include "ui/rules/player_screen/player_keys.h"

namespace zelvor {
namespace {
using testing::kSecond;
using testing::ScreenRig;

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
