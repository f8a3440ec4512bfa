// The player screen on the real GStreamer graph: tapping Play on the widget
// plays a queue of real files to its end, the ends of stream reaching the
// screen as posted events, and the WAV capture holds what was heard.

#include <chrono>
#include <gtest/gtest.h>

#include "host/gst_media_graph.h"
#include "platform/text.h"
#include "tests/support/test_media.h"
#include "tests/ui/player_screen_rig.h"

namespace zelvor {
namespace {
using testing::Codec;

TEST(PlayerScreenPlayback, PlaysTheQueueToItsEndThroughTheWidget) {
    testing::EnsureQtApplication();
    testing::TestDevice device;
    TrackList album = testing::MakeAlbum(device, {Codec::Mp3, Codec::Aac});
    ASSERT_NE(album.Count(), 0);
    const auto capture = device.Root() / "played.wav";
    {
        GstGraphFactory factory(AudioSinkChoice{AudioSinkChoice::Kind::Wav, capture, false});
        testing::RecordingFrame frame;
        testing::FakeHost host;
        CPlayerScreen screen(frame, factory, ScreenOrientation::Portrait, host.Services());
        screen.show();
        screen.ReplaceQueue(album);
        const QPoint play = testing::Centre(screen.Geometry().buttons[kButtonPlay]);
        testing::SendMouse(screen, QEvent::MouseButtonPress, play);
        testing::SendMouse(screen, QEvent::MouseButtonRelease, play);
        ASSERT_EQ(screen.GetPlayer().Engine().State(), kPlayStatePlaying);

        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (screen.GetPlayer().Engine().State() == kPlayStatePlaying &&
               std::chrono::steady_clock::now() < deadline)
            QApplication::processEvents(QEventLoop::AllEvents, 50);
        EXPECT_EQ(screen.GetPlayer().Engine().State(), kPlayStateStopped);
        EXPECT_EQ(screen.GetPlayer().Queue().CounterText(), u"2/2");
        EXPECT_EQ(host.beeps, 0);
    }
    auto wav = testing::ReadWav(capture);
    ASSERT_TRUE(wav);
    EXPECT_NEAR(wav->Seconds(), 2.0, 2 * 0.05);
}

} // namespace
} // namespace zelvor
