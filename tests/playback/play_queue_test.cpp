#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "library/library_file.h"
#include "platform/text.h"
#include "playback/player.h"
#include "playback/player_settings.h"
#include "playlists/playlist_names.h"
#include "tests/support/fake_media_graph.h"
#include "tests/playback/recording_player_view.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {
using ::testing::ElementsAre;
using testing::FakeMediaGraphFactory;
using testing::RecordingPlayerView;
using testing::TestDevice;
using Names = std::vector<std::string>;

const std::u16string kMusic = u"\\Storage Card\\Music\\";

// A player on the fake graph, in a fresh device, with its own generator so
// that every test draws the same numbers.
struct QueueRig {
    explicit QueueRig(PlayerSettings settings = {}) {
        SavePlayerSettings(settings);
        player = std::make_unique<Player>(factory, view, random);
    }
    // Music files (which exist) as a list to play; titles "Ta", "Tb"...
    TrackList Source(const Names& names) {
        TrackList list;
        for (const auto& name : names) {
            std::u16string path = kMusic + FromUtf8(name);
            device.WriteFile(path, "audio");
            auto record = std::make_unique<TrackRecord>();
            record->SetField(kFieldPath, path);
            record->SetField(kFieldTitle, FromUtf8("T" + name.substr(0, name.find('.'))));
            list.AddTrack(std::move(record));
        }
        return list;
    }
    // Plays a new list from the entry at start, in the given state.
    void Play(const Names& names, int start = 0, std::int32_t state = kPlayStateStopped) {
        Queue().ReplaceQueue(Source(names));
        if (start != 0) {
            Queue().SelectEntry(start);
            Engine().StopAndRelease(true);
            Engine().OpenTrack(Queue().CurrentPath());
        }
        if (state != kPlayStateStopped)
            Engine().PlayCommand(true);
        if (state == kPlayStatePaused)
            Engine().TogglePause();
    }
    PlayQueue& Queue() { return player->Queue(); }
    PlaybackEngine& Engine() { return player->Engine(); }
    std::string Current() const { return ToUtf8(DeviceNameOf(player->Queue().CurrentPath())); }
    Names Order() {
        Names names;
        for (int i = 0; i < Queue().EntryCount(); ++i)
            names.push_back(ToUtf8(DeviceNameOf(Queue().Entry(i)->Text(kFieldPath))));
        return names;
    }
    // Re-sorting by shuffle key keeps the head of the play order.
    bool HeadHoldsSmallestKey() {
        for (int i = 1; i < Queue().EntryCount(); ++i)
            if (Queue().Entry(i)->RunTimeD() < Queue().Entry(0)->RunTimeD())
                return false;
        return true;
    }
    // Ends the playing track as the graph would, and handles it.
    void EndTrack() {
        ASSERT_NE(factory.current, nullptr);
        factory.current->QueueEvent(kEcComplete);
        Engine().OnGraphNotify();
    }
    std::string Loaded() const { return factory.current ? factory.current->File() : ""; }
    long Graphs() const { return std::count(factory.log.begin(), factory.log.end(), "create"); }

    TestDevice device;
    FakeMediaGraphFactory factory;
    RecordingPlayerView view;
    ShuffleRandom random;
    std::unique_ptr<Player> player;
};

template <class Case> std::string Named(const ::testing::TestParamInfo<Case>& info) {
    return info.param.name;
}
constexpr std::int32_t kStopped = kPlayStateStopped, kPlaying = kPlayStatePlaying;
const Names kAbc = {"a.mp3", "b.mp3", "c.mp3"};

struct EndCase {
    const char* name;
    int mode, ends;
    const char* current;
    std::int32_t state;
};
class AtTheEndOfATrack : public ::testing::TestWithParam<EndCase> {};

TEST_P(AtTheEndOfATrack, TheRepeatModeDecidesWhatPlays) {
    const EndCase& c = GetParam();
    QueueRig rig({false, c.mode, false, 5});
    rig.Play({"a.mp3", "b.mp3"}, 0, kPlaying);
    for (int i = 0; i < c.ends; ++i)
        rig.EndTrack();
    EXPECT_EQ(rig.Current() + " " + rig.Loaded(), c.current + (" " + std::string(c.current)));
    EXPECT_EQ(rig.Engine().State(), c.state);
    if (c.state == kStopped) { // on the last entry, at its start
        EXPECT_EQ(std::tuple(rig.Queue().CounterText(), rig.factory.current->position,
                             rig.player->Position().Time()),
                  std::tuple(u"2/2", 0, TimeDisplay{}));
    }
    EXPECT_EQ(rig.Queue().StepTrack(true, true), c.mode == kRepeatOff ? 0 : 1);
}

INSTANTIATE_TEST_SUITE_P(
    Modes, AtTheEndOfATrack,
    ::testing::Values(EndCase{"RepeatOneReplays", kRepeatOne, 1, "a.mp3", kPlaying},
                      EndCase{"RepeatOffMovesOn", kRepeatOff, 1, "b.mp3", kPlaying},
                      EndCase{"RepeatOffStopsAtTheLast", kRepeatOff, 2, "b.mp3", kStopped},
                      EndCase{"RepeatAllWraps", kRepeatAll, 2, "a.mp3", kPlaying}),
    Named<EndCase>);

struct StepCase {
    const char* name;
    Names names;
    int start;
    std::int32_t state;
    bool forward;
    std::set<std::string> unrenderable; // from the step on
    std::string current, loaded;
    std::int32_t stateAfter;
    int beeps;
    bool waited; // the wait cursor showed while entries failed
    int mode = kRepeatOff;
};
class NextPrevious : public ::testing::TestWithParam<StepCase> {};

TEST_P(NextPrevious, StepByHand) {
    const StepCase& c = GetParam();
    QueueRig rig({false, c.mode, false, 5});
    rig.Play(c.names, c.start, c.state);
    rig.factory.script.unrenderable = c.unrenderable;
    c.forward ? rig.Queue().NextCommand() : rig.Queue().PreviousCommand();
    EXPECT_EQ(rig.Current(), c.current);
    EXPECT_EQ(rig.Loaded(), c.loaded);
    EXPECT_EQ(rig.Engine().State(), c.stateAfter);
    EXPECT_EQ(rig.view.beeps, c.beeps);
    EXPECT_EQ(rig.view.waitCursor, (c.waited ? std::vector{true, false} : std::vector<bool>{}));
}

const Names kAwc = {"a.mp3", "b.wma", "c.aac"};
INSTANTIATE_TEST_SUITE_P(
    Cases, NextPrevious,
    ::testing::Values(
        StepCase{"PreviousWraps", kAbc, 0, kStopped, false, {}, "c.mp3", "c.mp3", kStopped, 0, 0},
        StepCase{"NextWraps", kAbc, 2, kStopped, true, {}, "a.mp3", "a.mp3", kStopped, 0, 0},
        StepCase{"PlayingPlays", kAbc, 0, kPlaying, true, {}, "b.mp3", "b.mp3", kPlaying, 0, 0},
        StepCase{"PausedPlays", kAbc, 1, kPlayStatePaused, false, {}, "a.mp3", "a.mp3", kPlaying,
                 0, 0},
        StepCase{"RepeatOneMovesOn", kAbc, 0, kPlaying, true, {}, "b.mp3", "b.mp3", kPlaying, 0,
                 0, kRepeatOne},
        StepCase{"SingleBeeps", {"a.mp3"}, 0, kPlaying, true, {}, "a.mp3", "a.mp3", kPlaying, 1, 0},
        StepCase{"EmptyBeeps", {}, 0, kStopped, true, {}, "", "", kPlayStateEmpty, 1, 0},
        // Stopped: a beep after as many attempts as entries, even when the last worked.
        StepCase{"StoppedFailuresBeep", kAwc, 0, kStopped, true, {"b.wma", "c.aac"}, "a.mp3",
                 "a.mp3", kStopped, 1, 1},
        // Nothing plays, so nothing shows as playing.
        StepCase{"NothingOpens", {"a.mp3", "b.wma"}, 0, kPlaying, true, {"a.mp3", "b.wma"},
                 "a.mp3", "", kStopped, 1, 1}),
    Named<StepCase>);

TEST(Shuffle, IsAPermutationThatNeverPutsTheLastEntryFirstUnlessTheOrderIsKept) {
    for (const Names& names : {Names{"a.mp3", "b.mp3"}, kAbc, Names{"a", "b", "c", "d", "e"}}) {
        QueueRig rig;
        rig.Play(names);
        std::set<Names> orders;
        for (int i = 0; i < 40; ++i) {
            const Names before = rig.Order();
            rig.Queue().Shuffle(false);
            orders.insert(rig.Order());
            ASSERT_TRUE(std::is_permutation(names.begin(), names.end(), rig.Order().begin()));
            ASSERT_NE(rig.Order().front(), before.back());
            ASSERT_TRUE(rig.HeadHoldsSmallestKey());
        }
        EXPECT_GT(orders.size(), names.size() > 2 ? 2u : 0u) << names.size();
        bool lastCameFirst = false;
        for (int i = 0; i < 40; ++i) {
            const std::string last = rig.Order().back();
            rig.Queue().Shuffle(true);
            lastCameFirst |= rig.Order().front() == last;
            for (int e = 1; e < rig.Queue().EntryCount(); ++e) // sorted by the keys
                ASSERT_LE(rig.Queue().Entry(e - 1)->RunTimeD(), rig.Queue().Entry(e)->RunTimeD());
        }
        EXPECT_TRUE(lastCameFirst);
    }
}

// Playing or paused, the track plays on at the head of the new order;
// stopped, the new order's first entry is loaded.
TEST(ToggleRandom, ThePlayingTrackHeadsTheNewOrder) {
    QueueRig rig;
    const Names own = {"a", "b", "c", "d", "e"};
    for (int round = 0; round < 12; ++round) {
        SCOPED_TRACE(round);
        const std::int32_t state = round % 3 == 2 ? kStopped : kPlaying;
        rig.view.waitCursor.clear();
        rig.Play(own, round % 5, state);
        const std::string current = rig.Current();
        const long graphs = rig.Graphs();
        rig.Queue().ToggleRandom();
        EXPECT_EQ(rig.Queue().CurrentIndex(), 0);
        EXPECT_EQ(rig.Loaded(), rig.Order().front());
        EXPECT_EQ(rig.Graphs() - graphs, state == kStopped ? 1 : 0); // reloaded when stopped
        EXPECT_TRUE(rig.HeadHoldsSmallestKey());
        EXPECT_EQ(rig.Queue().CounterText(), // the playlist's own order
                  FromUtf8(std::to_string(rig.Current()[0] - 'a' + 1) + "/5"));
        EXPECT_THAT(rig.view.waitCursor, ElementsAre(true, false));
        rig.Queue().ToggleRandom();
        EXPECT_EQ(rig.Order(), own);
        EXPECT_EQ(rig.Engine().State(), state);
        EXPECT_EQ(rig.Current() == current, state == kPlaying || current == "a");
    }
}

void WriteQueueFile(QueueRig& rig, const Names& names) {
    ASSERT_EQ(SaveTrackList(GetCurrentPlaylistPath(), rig.Source(names), 1), 1);
}

Names QueueFileOrder() {
    TrackList list;
    LoadTrackList(GetCurrentPlaylistPath(), list);
    Names names;
    for (const auto& record : list)
        names.push_back(ToUtf8(DeviceNameOf(record->Text(kFieldPath))));
    return names;
}

TEST(LoadQueue, DropsVanishedFilesNumbersTheRestAndLoadsTheFirstStopped) {
    QueueRig rig;
    rig.Queue().LoadQueue(); // no file: an empty queue
    EXPECT_TRUE(rig.Queue().EntryCount() == 0 && rig.factory.log.empty());
    WriteQueueFile(rig, {"a.mp3", "gone.mp3", "b.mp3"});
    std::filesystem::remove(rig.device.Host(kMusic + u"gone.mp3"));
    rig.Queue().LoadQueue();
    EXPECT_THAT(rig.Order(), ElementsAre("a.mp3", "b.mp3"));
    EXPECT_EQ(rig.Loaded(), "a.mp3");
    EXPECT_EQ(rig.Engine().State(), kPlayStateStopped);
    EXPECT_EQ(rig.Queue().CounterText(), u"1/2");
    rig.player.reset();
    EXPECT_THAT(QueueFileOrder(), ElementsAre("a.mp3", "b.mp3"));
}

TEST(SavedQueue, IsWrittenHiddenInThePlaylistsOwnOrderWhenRandom) {
    const Names own = {"a", "b", "c", "d", "e", "f"};
    QueueRig rig({true, kRepeatOff, false, 5});
    rig.Play(own);
    ASSERT_NE(rig.Order(), own);
    rig.player.reset();
    EXPECT_EQ(QueueFileOrder(), own);
    EXPECT_NE(rig.device.Fs().GetAttributes(GetCurrentPlaylistPath()) & kAttrHidden, 0u);
}

// The play list panel's round trip: the queue copied in its own order, rows
// removed from the copy (by own-order index), the copy handed back.
struct HandOverCase {
    const char* name;
    std::vector<int> removed;
    std::string current, next; // what is loaded afterwards, and what Next loads then
    bool playing, sameGraph;   // sameGraph: the current track was not reopened
};
class HandOver : public ::testing::TestWithParam<HandOverCase> {};

TEST_P(HandOver, TheHandedListIsWhatPlaysNextAndIsSavedAtOnce) {
    const HandOverCase& c = GetParam();
    QueueRig rig;
    rig.Play({"a.mp3", "b.mp3", "c.mp3", "d.mp3", "e.mp3"}, 2,
             c.playing ? kPlaying : kPlayStateStopped);
    TrackList copy;
    rig.Queue().CopyEntries(copy);
    for (auto it = c.removed.rbegin(); it != c.removed.rend(); ++it)
        copy.RemoveTrack(*it);
    const long graphs = rig.Graphs();
    rig.Queue().ReplaceQueueKeepingCurrent(copy);
    EXPECT_EQ(rig.Current() + " " + rig.Loaded(), c.current + " " + c.current);
    EXPECT_EQ(rig.Engine().State(), c.playing ? kPlaying : kPlayStateStopped);
    EXPECT_EQ(rig.Graphs() == graphs, c.sameGraph);
    EXPECT_EQ(QueueFileOrder(), rig.Order());
    EXPECT_FALSE(rig.Queue().Dirty());
    rig.Queue().NextCommand();
    EXPECT_EQ(rig.Loaded(), c.next);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, HandOver,
    ::testing::Values(HandOverCase{"KeptWhilePlaying", {1, 3}, "c.mp3", "e.mp3", true, true},
                      HandOverCase{"KeptStopped", {3}, "c.mp3", "e.mp3", false, true},
                      HandOverCase{"RemovedWhilePlaying", {2, 3}, "e.mp3", "a.mp3", true, false},
                      HandOverCase{"RemovedStopped", {2}, "d.mp3", "e.mp3", false, false},
                      HandOverCase{"RemovedWithNoneAfter", {2, 3, 4}, "a.mp3", "b.mp3", true, false},
                      HandOverCase{"RemovedWithAllBefore", {0, 1, 2}, "d.mp3", "e.mp3", true, false}),
    Named<HandOverCase>);

} // namespace
} // namespace zelvor
