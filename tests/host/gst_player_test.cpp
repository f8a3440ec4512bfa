// The whole player below its screen on the GStreamer graph: a queue of real
// files played to its end, heard through the wav capture.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <optional>

#include "host/gst_media_graph.h"
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
// stopped on come back in the arguments, the capture as the result. A
// midway action runs once, half a second after the start.
std::optional<testing::WavData> PlayAlbum(testing::TestDevice& device, TrackList& album,
                                          int& playing, int& beeps, int& lastIndex,
                                          const std::function<void()>& midway = {}) {
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
        const auto start = std::chrono::steady_clock::now();
        auto deadline = start + std::chrono::seconds(30);
        bool midwayDone = !midway;
        while (player.Engine().State() == kPlayStatePlaying &&
               std::chrono::steady_clock::now() < deadline) {
            if (!midwayDone && std::chrono::steady_clock::now() - start > std::chrono::milliseconds(500)) {
                midway();
                midwayDone = true;
            }
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

// The card pulled while its first track plays, the second track on it too.
// A file deleted under the player is still open and plays to its end, and
// the next entry follows. A card gone (the file cut to nothing, the card's
// folder away) ends the track early; the next entry cannot be opened, so it
// is passed over as at any end of a track and the player stops at the end
// of the list: it never hangs and plays nothing more.
struct CardPull {
    const char* name;
    bool cardGone;
};

class GstCardPull : public ::testing::TestWithParam<CardPull> {};

TEST_P(GstCardPull, ThePlayerGoesOnOrStopsAsForAFailedTrack) {
    testing::TestDevice device;
    TrackList album = testing::MakeAlbum(device, {Codec::Mp3, Codec::Aac});
    ASSERT_NE(album.Count(), 0);
    const auto first = device.Host(album.TrackAt(0)->Text(kFieldPath));
    ASSERT_TRUE(testing::MakeAudioFile(first, Codec::Mp3, 3.0));
    const auto card = device.Host(u"\\Storage Card");
    int playing = 0, beeps = 0, last = -1;
    auto wav = PlayAlbum(device, album, playing, beeps, last, [&] {
        if (GetParam().cardGone) {
            std::filesystem::resize_file(first, 0);
            std::filesystem::rename(card, device.Root() / "pulled card");
        } else {
            std::filesystem::remove(first);
        }
    });
    ASSERT_TRUE(wav);
    if (GetParam().cardGone) {
        EXPECT_EQ(playing, 1);
        EXPECT_LT(wav->Seconds(), 2.5);
    } else {
        EXPECT_EQ(last, 1);
        EXPECT_EQ(playing, 2);
        EXPECT_EQ(beeps, 0);
        EXPECT_NEAR(wav->Seconds(), 4.0, 4 * 0.05);
    }
}

INSTANTIATE_TEST_SUITE_P(Pulls, GstCardPull,
                         ::testing::Values(CardPull{"FileDeleted", false},
                                           CardPull{"CardGone", true}),
                         [](const auto& info) { return std::string(info.param.name); });

void PrintTo(const CardPull& pull, std::ostream* out) {
    *out << pull.name;
}

} // namespace
} // namespace zelvor
