// The player screen's keys on the real widget: a keyboard's Return and
// arrows, the media keys standing in for the device's buttons, the seek keys
// held down, and keys the screen leaves to the frame.

#include <gtest/gtest.h>

#include "tests/ui/player_screen_rig.h"

namespace zelvor {
namespace {
using testing::kSecond;
using testing::ScreenRig;

TEST(PlayerKeys, EachKeyActsOnThePlayer) {
    struct Case {
        const char* name;
        int qtKey;
        bool playingFirst;
        std::int32_t state; // afterwards
        int index;          // the queue's current entry afterwards
        int volume;         // afterwards
    };
    // Stepping while stopped leaves the new entry stopped; while playing, it plays.
    const Case cases[] = {
        {"ReturnPlays", Qt::Key_Return, false, kPlayStatePlaying, 0, 5},
        {"ReturnPauses", Qt::Key_Return, true, kPlayStatePaused, 0, 5},
        {"EnterPauses", Qt::Key_Enter, true, kPlayStatePaused, 0, 5},
        {"PlayPauseKeyPlays", Qt::Key_MediaTogglePlayPause, false, kPlayStatePlaying, 0, 5},
        {"MediaPauseKeyPauses", Qt::Key_MediaPause, true, kPlayStatePaused, 0, 5},
        {"RightSteps", Qt::Key_Right, false, kPlayStateStopped, 1, 5},
        {"NextKeyStepsAndPlays", Qt::Key_MediaNext, true, kPlayStatePlaying, 1, 5},
        {"LeftWrapsToTheLast", Qt::Key_Left, false, kPlayStateStopped, 2, 5},
        {"PreviousKeyWraps", Qt::Key_MediaPrevious, true, kPlayStatePlaying, 2, 5},
        {"UpRaisesTheVolume", Qt::Key_Up, false, kPlayStateStopped, 0, 6},
        {"VolumeUpKey", Qt::Key_VolumeUp, true, kPlayStatePlaying, 0, 6},
        {"DownLowersTheVolume", Qt::Key_Down, false, kPlayStateStopped, 0, 4},
        {"VolumeDownKey", Qt::Key_VolumeDown, true, kPlayStatePlaying, 0, 4},
        {"StopKey", Qt::Key_MediaStop, true, kPlayStateStopped, 0, 5},
        {"TheOtherStopKey", Qt::Key_Stop, true, kPlayStateStopped, 0, 5},
        {"SeekKeyPlaysFromStopped", Qt::Key_Period, false, kPlayStatePlaying, 0, 5},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ScreenRig rig;
        rig.PlayList({u"a.mp3", u"b.mp3", u"c.mp3"});
        if (c.playingFirst)
            rig.TapButton(kButtonPlay);
        EXPECT_TRUE(rig.KeyPress(c.qtKey));
        rig.KeyRelease(c.qtKey);
        EXPECT_EQ(rig.State(), c.state);
        EXPECT_EQ(rig.GetPlayer().Queue().CurrentIndex(), c.index);
        EXPECT_EQ(rig.GetPlayer().Volume().Index(), c.volume);
        EXPECT_EQ(rig.GetPlayer().Position().HeldKey(), 0); // forgotten on key up
    }
}

TEST(PlayerKeys, AHeldSeekKeySeeksEveryTickUntilReleased) {
    const std::pair<int, int> keys[] = {{Qt::Key_Period, +10}, {Qt::Key_AudioRewind, -10}};
    for (auto [key, step] : keys) {
        SCOPED_TRACE(key);
        ScreenRig rig;
        rig.PlayList({u"a.mp3"}, 100);
        rig.TapButton(kButtonPlay);
        rig.Graph()->position = 50 * kSecond;
        rig.KeyPress(key);
        EXPECT_EQ(rig.Graph()->position, (50 + step) * kSecond);
        EXPECT_TRUE(rig.Screen().TimerRunning(kTimerSeekHold));
        // Auto-repeat does not seek again: the timer does.
        rig.KeyRelease(key, true);
        rig.KeyPress(key, true);
        EXPECT_EQ(rig.Graph()->position, (50 + step) * kSecond);
        rig.Screen().OnTimer(kTimerSeekHold);
        EXPECT_EQ(rig.Graph()->position, (50 + 2 * step) * kSecond);
        rig.KeyRelease(key);
        EXPECT_FALSE(rig.Screen().TimerRunning(kTimerSeekHold));
    }
}

TEST(PlayerKeys, OnlyTheVolumeKeysRepeatWhileHeld) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3", u"b.mp3", u"c.mp3"});
    rig.KeyPress(Qt::Key_Up);
    rig.KeyPress(Qt::Key_Up, true);
    rig.KeyPress(Qt::Key_Up, true);
    rig.KeyRelease(Qt::Key_Up);
    EXPECT_EQ(rig.GetPlayer().Volume().Index(), 8);
    rig.KeyPress(Qt::Key_Right);
    rig.KeyPress(Qt::Key_Right, true);
    rig.KeyRelease(Qt::Key_Right);
    EXPECT_EQ(rig.GetPlayer().Queue().CurrentIndex(), 1);
}

TEST(PlayerKeys, OtherKeysAreLeftToTheFrame) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3"});
    const std::size_t mark = rig.factory.log.size();
    for (int key : {Qt::Key_Escape, Qt::Key_A, Qt::Key_F1, Qt::Key_Space}) {
        EXPECT_FALSE(rig.KeyPress(key)) << key;
        rig.KeyRelease(key);
    }
    EXPECT_EQ(rig.factory.LogSince(mark), std::vector<std::string>{});
}

} // namespace
} // namespace zelvor
