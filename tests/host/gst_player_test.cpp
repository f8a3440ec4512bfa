// The whole player below its screen on the GStreamer graph: a queue of real
// files played to its end, heard through the wav capture.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

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

// Plays the album from its first entry until the player stops, into a WAV
// capture: how many times it showed Playing, its beeps and the entry it
// stopped on come back in the arguments, the capture as the result.
std::optional<testing::WavData> PlayAlbum(testing::TestDevice& device, TrackList& album,
                                          int& playing, int& beeps, int& lastIndex) {
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
        lastIndex = player.Queue().CurrentIndex();
        playing = static_cast<int>(
            std::count(view.states.begin(), view.states.end(), kPlayStatePlaying));
        beeps = view.beeps;
    }
    return testing::ReadWav(capture);
}

TEST(GstPlayer, EndsOfStreamAdvanceTheQueueAndTheCaptureHoldsEveryTrack) {
    testing::TestDevice device;
    TrackList album = testing::MakeAlbum(device, {Codec::Mp3, Codec::Wma, Codec::Aac});
    ASSERT_NE(album.Count(), 0);
    int playing = 0, beeps = 0, last = -1;
    auto wav = PlayAlbum(device, album, playing, beeps, last);
    EXPECT_EQ(last, 2);
    EXPECT_EQ(playing, 3);
    EXPECT_EQ(beeps, 0);
    ASSERT_TRUE(wav);
    EXPECT_NEAR(wav->Seconds(), 3.0, 3 * 0.05);
}

// A file cut in the middle (its header still gives the whole length) plays
// up to the cut; GStreamer ends it as a stream, not as a failure, so the next
// entry follows without a beep.
TEST(GstPlayer, AFileCutInTheMiddlePlaysToTheCutAndTheNextEntryFollows) {
    testing::TestDevice device;
    TrackList album = testing::MakeAlbum(device, {Codec::Wma, Codec::Mp3});
    ASSERT_NE(album.Count(), 0);
    auto cut = device.Host(album.TrackAt(0)->Text(kFieldPath));
    ASSERT_TRUE(testing::MakeAudioFile(cut, Codec::Wma, 2.0));
    std::filesystem::resize_file(cut, std::filesystem::file_size(cut) / 2);
    int playing = 0, beeps = 0, last = -1;
    auto wav = PlayAlbum(device, album, playing, beeps, last);
    EXPECT_EQ(last, 1);
    EXPECT_EQ(playing, 2);
    EXPECT_EQ(beeps, 0);
    ASSERT_TRUE(wav);
    EXPECT_LT(wav->Seconds(), 2.6); // about one second of each, not two of the first
    EXPECT_GT(wav->Seconds(), 1.5);
}

} // namespace
} // namespace zelvor
