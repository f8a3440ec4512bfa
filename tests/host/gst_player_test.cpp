// The whole player below its screen on the GStreamer graph: a queue of real
// files played to its end, heard through the wav capture.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/host/gst_media_graph.h"
#include "platform/text.h"
#include "playback/graph_notify_waiter.h"
#include "playback/player.h"
#include "playback/player_settings.h"
#include "tests/host/test_media.h"
#include "tests/playback/recording_player_view.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {
using ::testing::ElementsAre;
using testing::Codec;

TEST(GstPlayer, EndsOfStreamAdvanceTheQueueAndTheCaptureHoldsEveryTrack) {
    testing::TestDevice device;
    TrackList album = testing::MakeAlbum(device, {Codec::Mp3, Codec::Wma, Codec::Aac});
    ASSERT_NE(album.Count(), 0);
    SavePlayerSettings({false, 0, false, 10});
    auto capture = device.Root() / "album.wav";
    AudioSinkChoice sink;
    sink.kind = AudioSinkChoice::Kind::Wav;
    sink.wavPath = capture;
    {
        GstGraphFactory factory(sink);
        testing::RecordingPlayerView view;
        GraphNotifyWaiter waiter;
        Player player(factory, view);
        player.SetNotifyHook(waiter.Hook());
        player.Queue().ReplaceQueue(album);
        player.Engine().PlayCommand(true);
        auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (player.Engine().State() == kPlayStatePlaying &&
               std::chrono::steady_clock::now() < deadline) {
            if (waiter.Wait(std::chrono::milliseconds(200)))
                player.Engine().OnGraphNotify();
        }
        EXPECT_EQ(player.Engine().State(), kPlayStateStopped);
        EXPECT_EQ(player.Queue().CurrentIndex(), 2);
        EXPECT_EQ(player.Queue().CounterText(), u"3/3");
        int playing = static_cast<int>(
            std::count(view.states.begin(), view.states.end(), kPlayStatePlaying));
        EXPECT_EQ(playing, 3);
        EXPECT_EQ(view.beeps, 0);
    }
    auto wav = testing::ReadWav(capture);
    ASSERT_TRUE(wav);
    EXPECT_NEAR(wav->Seconds(), 3.0, 3 * 0.05);
}

} // namespace
} // namespace zelvor
