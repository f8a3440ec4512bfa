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
#include "tests/support/test_media.h"
#include "tests/playback/recording_player_view.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {
using testing::Codec;

struct AlbumPlayed {
    int playing = 0;   // times the view was told Playing
    int beeps = 0;
    int lastIndex = -1; // the entry the player stopped on
    std::optional<testing::WavData> heard;
};

// Plays the album from its first entry until the player stops, into a WAV
// capture. A midway action runs once, half a second after the start.
AlbumPlayed PlayAlbum(testing::TestDevice& device, TrackList& album,
                      const std::function<void()>& midway) {
    SavePlayerSettings({false, 0, false, 10});
    auto capture = device.Root() / "album.wav";
    AlbumPlayed played;
    {
        GstGraphFactory factory(AudioSinkChoice{AudioSinkChoice::Kind::Wav, capture, false});
        testing::RecordingPlayerView view;
        GraphNotifyWaiter waiter;
        Player player(factory, view);
        player.SetNotifyHook(waiter.Hook());
        player.Queue().ReplaceQueue(album);
        player.Engine().PlayCommand(true);
        const auto start = std::chrono::steady_clock::now();
        std::function<void()> pending = midway;
        while (player.Engine().State() == kPlayStatePlaying &&
               std::chrono::steady_clock::now() < start + std::chrono::seconds(30)) {
            if (pending && std::chrono::steady_clock::now() - start > std::chrono::milliseconds(500))
                std::exchange(pending, nullptr)();
            if (waiter.Wait(std::chrono::milliseconds(200)))
                player.Engine().OnGraphNotify();
        }
        EXPECT_EQ(player.Engine().State(), kPlayStateStopped);
        played.lastIndex = player.Queue().CurrentIndex();
        played.playing = static_cast<int>(
            std::count(view.states.begin(), view.states.end(), kPlayStatePlaying));
        played.beeps = view.beeps;
    }
    played.heard = testing::ReadWav(capture);
    return played;
}

// The first file (3 s of MP3, or 2 s of WMA cut in half: its header still
// gives the whole length) meets a fault half a second in; an AAC follows.
// A file deleted under the player is still open and plays to its end; a
// cut file plays up to the cut, which GStreamer ends as a stream, not as a
// failure: in both the next entry follows without a beep. A card gone (the
// file cut to nothing, the card's folder away) ends the track early; the
// next entry cannot be opened, so it is passed over as at any end of a
// track and the player stops at the end of the list: it never hangs.
struct Fault {
    const char* name;
    Codec first;
    bool cardGone;
    double minSeconds, maxSeconds;
};

void PrintTo(const Fault& fault, std::ostream* out) {
    *out << fault.name;
}

class GstPlayerFault : public ::testing::TestWithParam<Fault> {};

TEST_P(GstPlayerFault, ThePlayerGoesOnOrStopsAsForAFailedTrack) {
    const Fault& fault = GetParam();
    testing::TestDevice device;
    TrackList album = testing::MakeAlbum(device, {fault.first, Codec::Aac});
    ASSERT_NE(album.Count(), 0);
    const auto first = device.Host(album.TrackAt(0)->Text(kFieldPath));
    ASSERT_TRUE(testing::MakeAudioFile(first, fault.first, fault.first == Codec::Mp3 ? 3.0 : 2.0));
    if (fault.first == Codec::Wma)
        std::filesystem::resize_file(first, std::filesystem::file_size(first) / 2);
    AlbumPlayed played = PlayAlbum(device, album, [&] {
        if (fault.cardGone) {
            std::filesystem::resize_file(first, 0);
            std::filesystem::rename(device.Host(u"\\Storage Card"), device.Root() / "pulled card");
        } else if (fault.first == Codec::Mp3) {
            std::filesystem::remove(first);
        }
    });
    ASSERT_TRUE(played.heard);
    EXPECT_GT(played.heard->Seconds(), fault.minSeconds);
    EXPECT_LT(played.heard->Seconds(), fault.maxSeconds);
    EXPECT_EQ(played.playing, fault.cardGone ? 1 : 2);
    if (!fault.cardGone) {
        EXPECT_EQ(played.lastIndex, 1);
        EXPECT_EQ(played.beeps, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Faults, GstPlayerFault,
                         ::testing::Values(Fault{"FileDeleted", Codec::Mp3, false, 3.8, 4.2},
                                           Fault{"FileCut", Codec::Wma, false, 1.5, 2.6},
                                           Fault{"CardGone", Codec::Mp3, true, 0.0, 2.5}),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
} // namespace zelvor
