// The player screen from creation to destruction: the start-up message
// after its first paint, what the frame hands it, the settings and queue it
// leaves behind, its two orientations and what it paints in them.

#include <gtest/gtest.h>

#include "res/window_messages.h"
#include "playback/player_settings.h"
#include "tests/ui/player_screen_rig.h"

namespace zelvor {
namespace {
using testing::PixelAt;
using testing::ScreenRig;

TEST(PlayerScreenLifecycle, TheFirstPaintAsksTheFrameOnceToCheckTheLibrary) {
    ScreenRig rig;
    rig.Screen().repaint();
    rig.Screen().update();
    QApplication::processEvents();
    EXPECT_EQ(rig.frame.posted, (std::vector<WindowMessage>{{kMsgStartupCheck, 0, 0}}));
}

TEST(PlayerScreenLifecycle, DestructionWritesTheSettingsAndTheQueueForTheNextStart) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3", u"b.mp3", u"c.mp3"});
    for (int button : {kButtonVolumeUp, kButtonVolumeUp, kButtonRepeatOff, kButtonRandomOff,
                       kButtonPlay})
        rig.TapButton(button);
    rig.DestroyScreen();
    const PlayerSettings saved = LoadPlayerSettings();
    EXPECT_TRUE(saved.random);
    EXPECT_EQ(saved.repeatMode, kRepeatOne);
    EXPECT_EQ(saved.volumeIndex, 7);
    EXPECT_EQ(rig.factory.liveGraphs, 0); // the graph was released

    rig.MakeScreen(ScreenOrientation::Portrait);
    EXPECT_EQ(rig.Screen().QueueCount(), 3);
    EXPECT_EQ(rig.State(), kPlayStateStopped); // the first entry loaded, silent
    EXPECT_EQ(rig.GetPlayer().Volume().Index(), 7);
    EXPECT_EQ(rig.ButtonState(kButtonRandomOn), kDisplayNormal);
}

TEST(PlayerScreenLifecycle, TheShellStatusShowsTheIndicatorAndItsMessagePausesPlayback) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3"});
    rig.Screen().SetShellStatus(9999);
    EXPECT_TRUE(rig.Screen().Control().IndicatorShown());
    rig.Screen().SetShellStatus(0);
    EXPECT_FALSE(rig.Screen().Control().IndicatorShown());
    rig.Screen().OnShellPlayerMessage(); // stopped: nothing
    EXPECT_EQ(rig.State(), kPlayStateStopped);
    rig.TapButton(kButtonPlay);
    rig.Screen().OnShellPlayerMessage();
    rig.Screen().OnShellPlayerMessage(); // pauses, never toggles
    EXPECT_EQ(rig.State(), kPlayStatePaused);
}

// The card's return opens the current entry again, playing only if it was.
TEST(PlayerScreenLifecycle, ARemovedCardReleasesTheTrackAndItsReturnOpensItAgain) {
    for (bool playing : {true, false}) {
        ScreenRig rig;
        if (playing) { // the second of two entries, playing
            rig.PlayList({u"a.mp3", u"b.mp3"});
            rig.TapButton(kButtonNext);
            rig.TapButton(kButtonPlay);
        } else {
            rig.PlayList({u"b.mp3"});
        }
        rig.Screen().Resume(); // nothing was released: nothing happens
        EXPECT_EQ(rig.factory.liveGraphs, 1);
        rig.Screen().ReleaseCurrentTrack();
        EXPECT_EQ(rig.factory.liveGraphs, 0);
        EXPECT_EQ(rig.State(), kPlayStateStopped);
        rig.Screen().ReleaseCurrentTrack(); // nothing held: remembers the first
        rig.Screen().Resume();
        ASSERT_NE(rig.Graph(), nullptr);
        EXPECT_EQ(rig.Graph()->File(), "b.mp3");
        EXPECT_EQ(rig.State(), playing ? kPlayStatePlaying : kPlayStateStopped);
    }
    // An entry opened in between is left as it is.
    ScreenRig rig;
    rig.PlayList({u"a.mp3", u"b.mp3"});
    rig.TapButton(kButtonPlay);
    rig.Screen().ReleaseCurrentTrack();
    rig.TapButton(kButtonNext);
    rig.Screen().Resume();
    EXPECT_EQ(rig.Graph()->File(), "b.mp3");
    EXPECT_EQ(rig.State(), kPlayStateStopped);
}

TEST(PlayerScreenLifecycle, TheLayoutFollowsTheScreenShape) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3"}, 100);
    rig.TapButton(kButtonPlay);
    rig.Graph()->position = 50 * testing::kSecond;
    rig.Screen().OnTimer(kTimerPosition);
    const int before = rig.GetPlayer().Position().Bar().thumbX;

    rig.Screen().resize(320, 240);
    EXPECT_EQ(rig.Screen().Orientation(), ScreenOrientation::Landscape);
    const auto& landscape = PlayerLayoutFor(ScreenOrientation::Landscape);
    const SeekBar& bar = rig.GetPlayer().Position().Bar();
    EXPECT_EQ(bar.left, landscape.buttons[kButtonSeekBar].position.x);
    EXPECT_GT(bar.thumbX, bar.left); // the thumb keeps its place along the track
    EXPECT_LT(bar.thumbX, bar.right);
    EXPECT_NE(bar.thumbX, before);
}

class PlayerScreenPicture : public ::testing::TestWithParam<ScreenOrientation> {
protected:
    void Save(const QImage& shot, const char* state) {
        const char* shape = GetParam() == ScreenOrientation::Portrait ? "portrait" : "landscape";
        EXPECT_TRUE(shot.save(QString::fromStdString(
            (testing::ArtifactDir() / ("player_screen_" + std::string(shape) + "_" + state + ".png"))
                .string())));
    }
    // The shot shows, at the first drawn (not keyed-out) pixel of the
    // button's lower right quarter, its normal image or its third (greyed) one.
    static void ExpectShows(ScreenRig& rig, const QImage& shot, int button, bool third) {
        const PlayerLayout& layout = *rig.Screen().Geometry().layout;
        const PlayerScreenImages images = LoadPlayerScreenImages(SkinResourceHandle(), layout);
        const auto& pair = images.buttons[std::size_t(button)];
        const QImage& image = third ? pair.third : pair.normal;
        const PixelPoint origin = layout.buttons[std::size_t(button)].position;
        for (int y = image.height() / 2; y < image.height(); ++y)
            for (int x = image.width() / 2; x < image.width(); ++x)
                if (PixelAt(image, {x, y}) != 0xFFFF00FFu) {
                    EXPECT_EQ(PixelAt(shot, {origin.x + x, origin.y + y}), PixelAt(image, {x, y}))
                        << button;
                    return;
                }
        ADD_FAILURE() << "no drawn pixel in " << button;
    }
};

// Greyed with nothing to play; playing, Pause shows where Play and Pause
// share their place, Repeat "one" where the three Repeat images do.
TEST_P(PlayerScreenPicture, PaintsTheStateItShowsAndIsSavedForPeople) {
    ScreenRig rig(GetParam());
    const QImage empty = rig.Screen().RenderScreen();
    Save(empty, "empty");
    for (int greyed : {kButtonNext, kButtonPrevious, kButtonPlay, kButtonStop})
        ExpectShows(rig, empty, greyed, true);

    rig.PlayList({u"Salt and Cedar by the Lowland Choir, recorded live.mp3", u"b.mp3"}, 3725);
    for (int button : {kButtonPlay, kButtonRepeatOff, kButtonVolumeUp})
        rig.TapButton(button);
    rig.Graph()->position = 1234 * testing::kSecond;
    rig.Screen().OnTimer(kTimerPosition);
    rig.Screen().SetShellStatus(1);
    const QImage shot = rig.Screen().RenderScreen();
    Save(shot, "playing");
    for (int shown : {kButtonPause, kButtonRepeatOne, kButtonNext})
        ExpectShows(rig, shot, shown, false);
}

ZELVOR_BOTH_ORIENTATIONS(PlayerScreenPicture);

} // namespace
} // namespace zelvor
