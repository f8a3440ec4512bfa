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
    EXPECT_EQ(std::count_if(rig.frame.posted.begin(), rig.frame.posted.end(),
                            [](const auto& m) { return m.message == kMsgStartupCheck; }),
              1);
    EXPECT_EQ(rig.frame.posted.front(), (WindowMessage{kMsgStartupCheck, 0, 0}));
}

TEST(PlayerScreenLifecycle, DestructionWritesTheSettingsAndTheQueueForTheNextStart) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3", u"b.mp3", u"c.mp3"});
    for (int button : {kButtonVolumeUp, kButtonVolumeUp, kButtonRepeatOff, kButtonRandomOff,
                       kButtonPlay})
        rig.TapButton(button);
    rig.DestroyScreen();
    PlayerSettings saved = LoadPlayerSettings();
    EXPECT_TRUE(saved.random);
    EXPECT_EQ(saved.repeatMode, kRepeatOne);
    EXPECT_FALSE(saved.muted);
    EXPECT_EQ(saved.volumeIndex, 7);
    EXPECT_EQ(rig.factory.liveGraphs, 0); // the graph was released

    rig.MakeScreen(ScreenOrientation::Portrait);
    EXPECT_EQ(rig.Screen().QueueCount(), 3);
    EXPECT_EQ(rig.State(), kPlayStateStopped); // the first entry loaded, silent
    EXPECT_EQ(rig.GetPlayer().Volume().Index(), 7);
    EXPECT_EQ(rig.ButtonState(kButtonRandomOn), kDisplayNormal);
    EXPECT_EQ(rig.ButtonState(kButtonRepeatOne), kDisplayNormal);
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
    EXPECT_EQ(rig.State(), kPlayStatePaused);
    rig.Screen().OnShellPlayerMessage(); // pauses, never toggles
    EXPECT_EQ(rig.State(), kPlayStatePaused);
}

TEST(PlayerScreenLifecycle, ARemovedCardReleasesTheTrackAndItsReturnPlaysItAgain) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3", u"b.mp3"});
    rig.TapButton(kButtonNext);
    rig.TapButton(kButtonPlay);
    rig.Screen().ReleaseCurrentTrack();
    EXPECT_EQ(rig.factory.liveGraphs, 0);
    EXPECT_EQ(rig.State(), kPlayStateStopped);
    rig.Screen().Resume();
    ASSERT_NE(rig.Graph(), nullptr);
    EXPECT_EQ(rig.Graph()->File(), "b.mp3");
    EXPECT_EQ(rig.State(), kPlayStatePlaying);
    rig.Screen().Resume(); // nothing was released since
    EXPECT_EQ(rig.factory.liveGraphs, 1);
}

TEST(PlayerScreenLifecycle, TheLayoutFollowsTheScreenShape) {
    ScreenRig rig;
    rig.PlayList({u"a.mp3"}, 100);
    rig.TapButton(kButtonPlay);
    rig.Graph()->position = 50 * testing::kSecond;
    rig.Screen().OnTimer(kTimerPosition);
    const double before = rig.GetPlayer().Position().Bar().thumbX;

    rig.Screen().resize(320, 240);
    EXPECT_EQ(rig.Screen().Orientation(), ScreenOrientation::Landscape);
    const auto& landscape = PlayerLayoutFor(ScreenOrientation::Landscape);
    EXPECT_EQ(rig.Screen().Geometry().buttons[kButtonNext].left,
              landscape.buttons[kButtonNext].position.x);
    const SeekBar& bar = rig.GetPlayer().Position().Bar();
    EXPECT_EQ(bar.left, landscape.buttons[kButtonSeekBar].position.x);
    EXPECT_GT(bar.thumbX, bar.left); // the thumb keeps its place along the track
    EXPECT_LT(bar.thumbX, bar.right);
    EXPECT_NE(bar.thumbX, before);
    rig.Screen().resize(240, 320);
    EXPECT_EQ(rig.Screen().Orientation(), ScreenOrientation::Portrait);
}

class PlayerScreenPicture : public ::testing::TestWithParam<ScreenOrientation> {
protected:
    static QString Name(const char* state) {
        return QStringLiteral("player_screen_%1_%2.png")
            .arg(GetParam() == ScreenOrientation::Portrait ? "portrait" : "landscape", state);
    }
    // The shot shows, at a drawn (not keyed-out) pixel of the button, its
    // normal image or its third (greyed) one.
    static void ExpectShows(ScreenRig& rig, const QImage& shot, int button, bool third) {
        SCOPED_TRACE(button);
        const PlayerLayout& layout = *rig.Screen().Geometry().layout;
        const PlayerScreenImages images = LoadPlayerScreenImages(SkinResourceHandle(), layout);
        const auto& pair = images.buttons[static_cast<std::size_t>(button)];
        const QImage& image = third ? pair.third : pair.normal;
        const PixelPoint origin = layout.buttons[static_cast<std::size_t>(button)].position;
        for (int y = image.height() / 2; y < image.height(); ++y)
            for (int x = image.width() / 2; x < image.width(); ++x)
                if (PixelAt(image, {x, y}) != 0xFFFF00FFu) {
                    EXPECT_EQ(PixelAt(shot, {origin.x + x, origin.y + y}), PixelAt(image, {x, y}));
                    return;
                }
        ADD_FAILURE() << "no drawn pixel";
    }
};

TEST_P(PlayerScreenPicture, WithNothingToPlayTheTransportIsGreyedOut) {
    ScreenRig rig(GetParam());
    const QImage shot = rig.Screen().RenderScreen();
    EXPECT_TRUE(shot.save(testing::ArtifactPath(Name("empty"))));
    for (int greyed : {kButtonNext, kButtonPrevious, kButtonPlay, kButtonStop})
        ExpectShows(rig, shot, greyed, true);
}

TEST_P(PlayerScreenPicture, PaintsTheStateItShowsAndIsSavedForPeople) {
    ScreenRig rig(GetParam());
    rig.PlayList({u"Salt and Cedar by the Lowland Choir, recorded live.mp3", u"b.mp3", u"c.mp3"},
                 3725);
    rig.TapButton(kButtonPlay);
    rig.Graph()->position = 1234 * testing::kSecond;
    rig.Screen().OnTimer(kTimerPosition);
    rig.TapButton(kButtonRepeatOff);
    rig.TapButton(kButtonVolumeUp);
    rig.host.now.hour = 21;
    rig.host.now.minute = 7;
    rig.host.power = {kAcLineOffline, kBatteryFlagHigh, 70};
    rig.Screen().OnTimer(kTimerClock);
    rig.Screen().SetShellStatus(1);
    const QImage shot = rig.Screen().RenderScreen();
    const PixelSize size = rig.Screen().Geometry().layout->screen;
    ASSERT_EQ(shot.size(), QSize(size.width, size.height));
    EXPECT_TRUE(shot.save(testing::ArtifactPath(Name("playing"))));
    // Pause shows where Play and Pause share their place; Repeat "one" where
    // the three Repeat images do.
    for (int shown : {kButtonPause, kButtonRepeatOne, kButtonNext})
        ExpectShows(rig, shot, shown, false);

    // Paused, the tapped time area shows the time left, with its marker.
    rig.TapButton(kButtonPause);
    rig.Tap(testing::Centre(ElementArea(rig.Screen().Geometry(), ScreenElement::TimeDigits)));
    rig.Screen().SetShellStatus(0);
    const QImage paused = rig.Screen().RenderScreen();
    EXPECT_TRUE(paused.save(testing::ArtifactPath(Name("paused"))));
    for (PixelRect r : {ElementArea(rig.Screen().Geometry(), ScreenElement::RemainingMarker),
                        ButtonArea(rig.Screen().Geometry(), kButtonPlay)}) {
        const QRect rect(r.left, r.top, r.Width(), r.Height());
        EXPECT_NE(paused.copy(rect), shot.copy(rect));
    }
}

ZELVOR_BOTH_ORIENTATIONS(PlayerScreenPicture);

} // namespace
} // namespace zelvor
