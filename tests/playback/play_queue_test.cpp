#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "library/library_file.h"
#include "platform/text.h"
#include "playback/player.h"
#include "playback/player_settings.h"
#include "playlists/playlist_names.h"
#include "tests/playback/fake_media_graph.h"
#include "tests/playback/recording_player_view.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using testing::FakeMediaGraphFactory;
using testing::RecordingPlayerView;
using testing::TestDevice;

const std::u16string kMusic = u"\\Storage Card\\Music\\";

// A player on the fake graph, in a fresh device, with its own generator so
// that every test draws the same numbers.
struct QueueRig {
    explicit QueueRig(PlayerSettings settings = {}) {
        SavePlayerSettings(settings);
        player = std::make_unique<Player>(factory, view, random);
    }

    // Music files (which exist) as a list to play; titles "Ta", "Tb"...
    TrackList Source(std::initializer_list<std::u16string_view> names) {
        TrackList list;
        for (auto name : names) {
            std::u16string path = kMusic + std::u16string(name);
            device.WriteFile(path, "audio");
            auto record = std::make_unique<TrackRecord>();
            record->SetField(kFieldPath, path);
            record->SetField(kFieldTitle, u"T" + std::u16string(name.substr(0, name.find(u'.'))));
            list.AddTrack(std::move(record));
        }
        return list;
    }
    void Play(std::initializer_list<std::u16string_view> names) {
        TrackList source = Source(names);
        Queue().ReplaceQueue(source);
    }

    PlayQueue& Queue() { return player->Queue(); }
    PlaybackEngine& Engine() { return player->Engine(); }
    std::string Current() const {
        auto path = player->Queue().CurrentPath();
        return ToUtf8(DeviceNameOf(path));
    }
    // The queue's files, in queue order.
    std::vector<std::string> Order() {
        std::vector<std::string> names;
        for (int i = 0; i < Queue().EntryCount(); ++i)
            names.push_back(ToUtf8(DeviceNameOf(Queue().Entry(i)->Text(kFieldPath))));
        return names;
    }
    // Ends the playing track as the graph would, and handles it.
    void EndTrack() {
        ASSERT_NE(factory.current, nullptr);
        factory.current->QueueEvent(kEcComplete);
        Engine().OnGraphNotify();
    }
    std::string Loaded() const { return factory.current ? factory.current->File() : ""; }

    TestDevice device;
    FakeMediaGraphFactory factory;
    RecordingPlayerView view;
    ShuffleRandom random;
    std::unique_ptr<Player> player;
};

TEST(ProgramRandom, IsTheUnseededRuntimeSequence) {
    ShuffleRandom random;
    std::vector<int> draws;
    for (int i = 0; i < 5; ++i)
        draws.push_back(random.Next());
    EXPECT_THAT(draws, ElementsAre(41, 18467, 6334, 26500, 19169));
}

// At the end of a track: repeat one replays it, repeat all wraps, repeat off
// stops on the last entry at its start.
TEST(AdvanceAtEnd, FollowsTheRepeatMode) {
    const struct {
        int mode, ends;
        const char* current;
        std::int32_t state;
    } cases[] = {{kRepeatOne, 1, "a.mp3", kPlayStatePlaying},
                 {kRepeatOff, 1, "b.mp3", kPlayStatePlaying},
                 {kRepeatOff, 2, "b.mp3", kPlayStateStopped},
                 {kRepeatAll, 2, "a.mp3", kPlayStatePlaying}};
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << "mode " << c.mode << " ends " << c.ends);
        QueueRig rig({false, c.mode, false, 5});
        rig.Play({u"a.mp3", u"b.mp3"});
        rig.Engine().PlayCommand(true);
        for (int i = 0; i < c.ends; ++i)
            rig.EndTrack();
        EXPECT_EQ(rig.Current(), c.current);
        EXPECT_EQ(rig.Loaded(), c.current);
        EXPECT_EQ(rig.Engine().State(), c.state);
        if (c.state == kPlayStatePlaying) {
            EXPECT_EQ(rig.factory.log.back(), "run");
        } else {
            EXPECT_EQ(rig.Queue().CounterText(), u"2/2");
            EXPECT_EQ(rig.factory.current->position, 0);
            EXPECT_EQ(rig.player->Position().Time(), TimeDisplay{});
        }
        if (c.mode == kRepeatOne) { // next still moves on
            rig.Queue().NextCommand();
            EXPECT_EQ(rig.Loaded(), "b.mp3");
            EXPECT_EQ(rig.Engine().State(), kPlayStatePlaying);
        }
    }
}

TEST(AdvanceAtEnd, RepeatAllWithRandomNeverStartsANewOrderWithTheTrackThatEnded) {
    QueueRig rig({true, kRepeatAll, false, 5});
    rig.Play({u"a.mp3", u"b.mp3", u"c.mp3"});
    rig.Engine().PlayCommand(true);
    int wraps = 0;
    for (int track = 0; track < 300; ++track) {
        bool last = rig.Queue().CurrentIndex() == rig.Queue().EntryCount() - 1;
        std::string ended = rig.Current();
        rig.EndTrack();
        if (last) {
            ++wraps;
            EXPECT_EQ(rig.Queue().CurrentIndex(), 0);
            EXPECT_NE(rig.Current(), ended) << "wrap " << wraps;
        }
    }
    EXPECT_EQ(wraps, 100);
}

TEST(AdvanceAtEnd, SkipsEntriesThatCannotBeOpenedAndStopsWhenNoneCan) {
    QueueRig rig({false, kRepeatAll, false, 5});
    rig.Play({u"a.mp3", u"b.wma", u"c.aac", u"d.mp3"});
    rig.factory.script.unrenderable = {"b.wma", "c.aac"};
    rig.Engine().PlayCommand(true);
    rig.EndTrack();
    EXPECT_EQ(rig.Current(), "d.mp3");
    EXPECT_EQ(rig.Engine().State(), kPlayStatePlaying);

    rig.factory.script.unrenderable = {"a.mp3", "b.wma", "c.aac", "d.mp3"};
    rig.EndTrack();
    EXPECT_EQ(rig.Engine().State(), kPlayStateStopped);
    EXPECT_TRUE(rig.player->Slots().Empty());
}

TEST(StepTrack, AManualStepOntoAnUnopenableEntryLeavesItSelectedAndNothingLoaded) {
    QueueRig rig;
    rig.Play({u"a.mp3", u"b.wma"});
    rig.factory.script.unrenderable = {"b.wma"};
    EXPECT_EQ(rig.Queue().StepTrack(true, false), -1);
    EXPECT_EQ(rig.Current(), "b.wma");
    EXPECT_TRUE(rig.player->Slots().Empty());
}

TEST(NextPrevious, WrapAroundByHandEvenWithRepeatOff) {
    QueueRig rig;
    rig.Play({u"a.mp3", u"b.mp3", u"c.mp3"});
    rig.Queue().PreviousCommand();
    EXPECT_EQ(rig.Current(), "c.mp3");
    rig.Queue().NextCommand();
    EXPECT_EQ(rig.Current(), "a.mp3");
    EXPECT_EQ(rig.Engine().State(), kPlayStateStopped);
    EXPECT_EQ(rig.view.beeps, 0);
}

TEST(NextPrevious, AnEmptyQueueOrASingleEntryOnlyBeeps) {
    QueueRig empty;
    empty.Engine().SetPlayState(kPlayStateStopped);
    empty.Queue().NextCommand();
    EXPECT_EQ(empty.view.beeps, 1);

    QueueRig rig;
    rig.Play({u"a.mp3"});
    rig.Engine().PlayCommand(true);
    auto mark = rig.factory.log.size();
    rig.Queue().NextCommand();
    rig.Queue().PreviousCommand();
    EXPECT_EQ(rig.view.beeps, 2);
    EXPECT_TRUE(rig.factory.LogSince(mark).empty());
}

TEST(NextPrevious, StoppedStepsBeepAfterAsManyAttemptsAsEntriesEvenWhenTheLastWorked) {
    QueueRig rig;
    rig.Play({u"a.mp3", u"b.wma", u"c.aac"});
    rig.factory.script.unrenderable = {"b.wma", "c.aac"};
    rig.Queue().NextCommand(); // b, c fail; a opens on the third attempt
    EXPECT_EQ(rig.Current(), "a.mp3");
    EXPECT_EQ(rig.Loaded(), "a.mp3");
    EXPECT_EQ(rig.Engine().State(), kPlayStateStopped);
    EXPECT_EQ(rig.view.beeps, 1);
    EXPECT_THAT(rig.view.waitCursor, ElementsAre(true, false));

    rig.factory.script.unrenderable.clear();
    rig.Queue().NextCommand(); // one attempt: no beep
    EXPECT_EQ(rig.view.beeps, 1);
}

TEST(NextPrevious, StepsWhilePlayingOrPausedPlayTheNewEntry) {
    QueueRig rig;
    rig.Play({u"a.mp3", u"b.mp3", u"c.mp3"});
    rig.Engine().PlayCommand(true);
    rig.Queue().NextCommand();
    EXPECT_EQ(rig.Loaded(), "b.mp3");
    EXPECT_EQ(rig.Engine().State(), kPlayStatePlaying);
    rig.Engine().TogglePause();
    rig.Queue().PreviousCommand();
    EXPECT_EQ(rig.Loaded(), "a.mp3");
    EXPECT_EQ(rig.Engine().State(), kPlayStatePlaying);
}

// Where the draws alone put the entries: one number discarded, then one key
// per entry in index order, a stable sort by key.
std::vector<std::string> DrawnOrder(const std::vector<std::string>& before, ShuffleRandom draws,
                                    std::map<std::string, int>& keys) {
    draws.Next();
    for (const auto& name : before)
        keys[name] = draws.Next() % static_cast<int>(before.size());
    std::vector<std::string> drawn = before;
    std::stable_sort(drawn.begin(), drawn.end(),
                     [&](const auto& x, const auto& y) { return keys[x] < keys[y]; });
    return drawn;
}

TEST(Shuffle, DrawsOneDiscardedNumberThenOneKeyPerEntryInIndexOrder) {
    QueueRig rig;
    rig.Play({u"a.mp3", u"b.mp3", u"c.mp3", u"d.mp3", u"e.mp3"});
    std::map<std::string, int> keys;
    std::vector<std::string> drawn = DrawnOrder(rig.Order(), rig.random, keys);
    rig.Queue().Shuffle(true);
    EXPECT_EQ(rig.Order(), drawn);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(rig.Queue().Entry(i)->RunTimeD(), static_cast<std::uint32_t>(keys[drawn[i]]));
}

TEST(Shuffle, ASingleEntryIsNotReordered) {
    QueueRig rig;
    rig.Play({u"a.mp3"});
    rig.Queue().Shuffle(false);
    EXPECT_THAT(rig.Order(), ElementsAre("a.mp3"));
}

TEST(Shuffle, TheLastEntryIsNeverFirstUnlessTheOrderIsKept) {
    QueueRig rig;
    rig.Play({u"a.mp3", u"b.mp3", u"c.mp3"});
    int moved = 0;
    for (int i = 0; i < 200; ++i) {
        std::vector<std::string> before = rig.Order();
        std::map<std::string, int> keys;
        std::vector<std::string> drawn = DrawnOrder(before, rig.random, keys);
        rig.Queue().Shuffle(false);
        EXPECT_NE(rig.Order().front(), before.back());
        if (drawn.front() == before.back()) {
            // It plays second, with the key of the new first entry plus one.
            ++moved;
            EXPECT_EQ(rig.Order()[0], drawn[1]);
            EXPECT_EQ(rig.Order()[1], before.back());
            EXPECT_EQ(rig.Queue().Entry(1)->RunTimeD(), rig.Queue().Entry(0)->RunTimeD() + 1);
        } else {
            EXPECT_EQ(rig.Order(), drawn);
        }
    }
    EXPECT_GT(moved, 0);

    bool keptFirst = false;
    for (int i = 0; i < 200 && !keptFirst; ++i) {
        std::string last = rig.Order().back();
        rig.Queue().Shuffle(true);
        keptFirst = rig.Order().front() == last;
    }
    EXPECT_TRUE(keptFirst);
}

TEST(SelectEntry, TheCounterShowsThePlaylistOrderInRandomMode) {
    QueueRig rig({true, kRepeatOff, false, 5});
    rig.Play({u"1.mp3", u"2.mp3", u"3.mp3", u"4.mp3", u"5.mp3", u"6.mp3", u"7.mp3", u"8.mp3",
              u"9.mp3", u"10.mp3"});
    auto order = rig.Order();
    int index = static_cast<int>(std::find(order.begin(), order.end(), "3.mp3") - order.begin());
    rig.Queue().SelectEntry(index);
    EXPECT_EQ(rig.Queue().CounterText(), u"3/10");
}

TEST(SelectEntry, BuildsTheTitleFromTitleArtistAndAlbum) {
    QueueRig rig;
    TrackList source = rig.Source({u"a.mp3", u"Some Song.wma", u"c.mp3"});
    source.TrackAt(0)->SetField(kFieldArtist, u"Artist");
    source.TrackAt(0)->SetField(kFieldAlbum, u"Album");
    source.TrackAt(1)->SetField(kFieldTitle, u"");
    source.TrackAt(1)->SetField(kFieldAlbum, u"Album");
    rig.view.titleAreaWidth = 1000;
    rig.Queue().ReplaceQueue(source);
    EXPECT_EQ(rig.Queue().TitleText(), u"Ta    Artist    Album");
    EXPECT_EQ(rig.Queue().CounterText(), u"1/3");
    rig.Queue().SelectEntry(1);
    EXPECT_EQ(rig.Queue().TitleText(), u"Some Song    Album");
    EXPECT_FALSE(rig.Queue().TitleScrolls());
}

TEST(SelectEntry, ATitleWiderThanItsAreaGetsTwentySpacesAndScrolls) {
    QueueRig rig;
    TrackList source = rig.Source({u"abcdefghij.mp3", u"abcdefghijk.mp3"});
    rig.view.titleAreaWidth = 66; // 11 characters of 6 pixels
    rig.Queue().ReplaceQueue(source);
    EXPECT_EQ(rig.Queue().TitleText(), u"Tabcdefghij"); // exactly as wide: no scrolling
    EXPECT_FALSE(rig.Queue().TitleScrolls());
    rig.Queue().SetTitleScrollOffset(5);
    rig.Queue().SelectEntry(1);
    EXPECT_EQ(rig.Queue().TitleText(), u"Tabcdefghijk" + std::u16string(20, u' '));
    EXPECT_TRUE(rig.Queue().TitleScrolls());
    EXPECT_EQ(rig.Queue().TitleScrollOffset(), 0);
}

TEST(SelectEntry, AnEmptyQueueShowsASpaceForTitleAndCounter) {
    QueueRig rig;
    rig.Play({u"a.mp3"});
    rig.Queue().ReplaceQueue(TrackList{});
    EXPECT_EQ(rig.Queue().TitleText(), u" ");
    EXPECT_EQ(rig.Queue().CounterText(), u" ");
    EXPECT_EQ(rig.player->Buttons().State(kButtonPlay), kDisplayHidden);
    EXPECT_EQ(rig.player->Buttons().State(kButtonNext), kDisplayHidden);
}

TEST(ToggleRandom, ThePlayingTrackHeadsTheNewOrderAndKeepsPlaying) {
    QueueRig rig;
    rig.Play({u"a.mp3", u"b.mp3", u"c.mp3", u"d.mp3", u"e.mp3"});
    rig.Queue().SelectEntry(3);
    rig.Engine().StopAndRelease(true);
    rig.Engine().OpenTrack(rig.Queue().CurrentPath());
    rig.Engine().PlayCommand(true);
    int graphs = static_cast<int>(std::count(rig.factory.log.begin(), rig.factory.log.end(), "create"));
    rig.Queue().ToggleRandom();
    EXPECT_TRUE(rig.Queue().Random());
    EXPECT_EQ(rig.Order().front(), "d.mp3");
    EXPECT_EQ(rig.Queue().CurrentIndex(), 0);
    EXPECT_EQ(rig.Queue().Entry(0)->RunTimeD(), 0u);
    EXPECT_EQ(rig.player->Buttons().State(kButtonRandomOn), kDisplayNormal);
    EXPECT_EQ(rig.player->Buttons().State(kButtonRandomOff), kDisplayHidden);
    EXPECT_EQ(std::count(rig.factory.log.begin(), rig.factory.log.end(), "create"), graphs);

    rig.Queue().ToggleRandom();
    EXPECT_THAT(rig.Order(), ElementsAre("a.mp3", "b.mp3", "c.mp3", "d.mp3", "e.mp3"));
    EXPECT_EQ(rig.Current(), "d.mp3");
    EXPECT_EQ(rig.Engine().State(), kPlayStatePlaying);
}

TEST(ToggleRandom, WhenStoppedTheFirstEntryOfTheNewOrderIsLoaded) {
    QueueRig rig;
    rig.Play({u"a.mp3", u"b.mp3", u"c.mp3", u"d.mp3"});
    rig.Queue().SelectEntry(2);
    rig.Queue().ToggleRandom();
    EXPECT_EQ(rig.Queue().CurrentIndex(), 0);
    EXPECT_EQ(rig.Loaded(), rig.Order().front());
    EXPECT_EQ(rig.Engine().State(), kPlayStateStopped);
}

TEST(CycleRepeat, GoesOffOneAllOffAndShowsOneImage) {
    QueueRig rig;
    std::vector<int> modes;
    for (int i = 0; i < 4; ++i) {
        rig.Queue().CycleRepeat();
        modes.push_back(rig.Queue().RepeatMode());
        int shown = 0;
        for (int b : {kButtonRepeatOff, kButtonRepeatOne, kButtonRepeatAll})
            shown += rig.player->Buttons().State(b) == kDisplayNormal ? 1 : 0;
        EXPECT_EQ(shown, 1);
        EXPECT_EQ(rig.player->Buttons().State(kButtonRepeatOff + modes.back()), kDisplayNormal);
    }
    EXPECT_THAT(modes, ElementsAre(1, 2, 0, 1));
}

// Writes the current-playlist file with these entries, as a run before did.
void WriteQueueFile(QueueRig& rig, std::initializer_list<std::u16string_view> names) {
    TrackList list = rig.Source(names);
    ASSERT_EQ(SaveTrackList(GetCurrentPlaylistPath(), list, 1), 1);
}

std::vector<std::string> QueueFileOrder() {
    TrackList list;
    LoadTrackList(GetCurrentPlaylistPath(), list);
    std::vector<std::string> names;
    for (const auto& record : list)
        names.push_back(ToUtf8(DeviceNameOf(record->Text(kFieldPath))));
    return names;
}

TEST(LoadQueue, DropsVanishedFilesNumbersTheRestAndLoadsTheFirstStopped) {
    auto rig = std::make_unique<QueueRig>();
    WriteQueueFile(*rig, {u"a.mp3", u"gone.mp3", u"b.mp3"});
    std::filesystem::remove(rig->device.Host(kMusic + u"gone.mp3"));
    rig->Queue().LoadQueue();
    EXPECT_THAT(rig->Order(), ElementsAre("a.mp3", "b.mp3"));
    EXPECT_EQ(rig->Queue().Entry(1)->RunTimeA(), 1u);
    EXPECT_TRUE(rig->Queue().Dirty());
    EXPECT_EQ(rig->Loaded(), "a.mp3");
    EXPECT_EQ(rig->Engine().State(), kPlayStateStopped);
    EXPECT_EQ(rig->Queue().CounterText(), u"1/2");
    rig->player.reset();
    EXPECT_THAT(QueueFileOrder(), ElementsAre("a.mp3", "b.mp3"));
}

TEST(LoadQueue, AnUnchangedQueueIsNotWrittenAgain) {
    QueueRig rig;
    WriteQueueFile(rig, {u"a.mp3", u"b.mp3"});
    auto host = rig.device.Host(GetCurrentPlaylistPath());
    auto stamp = std::filesystem::last_write_time(host) - std::chrono::hours(1);
    std::filesystem::last_write_time(host, stamp);
    rig.Queue().LoadQueue();
    rig.Queue().NextCommand();
    EXPECT_FALSE(rig.Queue().Dirty());
    rig.player.reset();
    EXPECT_EQ(std::filesystem::last_write_time(host), stamp);
}

TEST(LoadQueue, AMissingFileLeavesTheQueueEmpty) {
    QueueRig rig;
    rig.Queue().LoadQueue();
    EXPECT_EQ(rig.Queue().EntryCount(), 0);
    EXPECT_EQ(rig.Engine().State(), kPlayStateEmpty);
    EXPECT_TRUE(rig.factory.log.empty());
}

TEST(SavedQueue, IsWrittenHiddenInThePlaylistsOwnOrderWhenRandom) {
    const std::vector<std::string> own = {"a.mp3", "b.mp3", "c.mp3", "d.mp3", "e.mp3", "f.mp3"};
    QueueRig rig({true, kRepeatOff, false, 5});
    rig.Play({u"a.mp3", u"b.mp3", u"c.mp3", u"d.mp3", u"e.mp3", u"f.mp3"});
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
    bool playing;
    std::string current; // what is loaded afterwards
    std::string next;    // what Next loads then
    bool sameGraph;      // the current track was not reopened
};

class HandOver : public ::testing::TestWithParam<HandOverCase> {};

TEST_P(HandOver, TheHandedListIsWhatPlaysNextAndIsSavedAtOnce) {
    const HandOverCase& c = GetParam();
    QueueRig rig;
    rig.Play({u"a.mp3", u"b.mp3", u"c.mp3", u"d.mp3", u"e.mp3"});
    rig.Queue().NextCommand();
    rig.Queue().NextCommand(); // c, stopped
    if (c.playing)
        rig.Engine().PlayCommand(true);
    TrackList copy;
    rig.Queue().CopyEntries(copy);
    for (auto it = c.removed.rbegin(); it != c.removed.rend(); ++it)
        copy.RemoveTrack(*it);
    const auto graphs = rig.factory.log.size();

    rig.Queue().ReplaceQueueKeepingCurrent(copy);
    EXPECT_EQ(rig.Current(), c.current);
    EXPECT_EQ(rig.Loaded(), c.current);
    EXPECT_EQ(rig.Engine().State(), c.playing ? kPlayStatePlaying : kPlayStateStopped);
    EXPECT_EQ(rig.factory.log.size() == graphs, c.sameGraph);
    EXPECT_EQ(QueueFileOrder(), rig.Order());
    EXPECT_FALSE(rig.Queue().Dirty());
    rig.Queue().NextCommand();
    EXPECT_EQ(rig.Loaded(), c.next);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, HandOver,
    ::testing::Values(HandOverCase{"KeptWhilePlaying", {1, 3}, true, "c.mp3", "e.mp3", true},
                      HandOverCase{"KeptStopped", {3}, false, "c.mp3", "e.mp3", true},
                      HandOverCase{"RemovedWhilePlaying", {2, 3}, true, "e.mp3", "a.mp3", false},
                      HandOverCase{"RemovedStopped", {2}, false, "d.mp3", "e.mp3", false},
                      HandOverCase{"RemovedWithNoneAfter", {2, 3, 4}, true, "a.mp3", "b.mp3",
                                   false},
                      HandOverCase{"RemovedWithAllBefore", {0, 1, 2}, true, "d.mp3", "e.mp3",
                                   false}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(HandOverRandom, TheCopyIsInOwnOrderAndTheKeptTrackHeadsTheNewOrder) {
    QueueRig rig({true, kRepeatOff, false, 5});
    rig.Play({u"a.mp3", u"b.mp3", u"c.mp3", u"d.mp3", u"e.mp3", u"f.mp3"});
    rig.Queue().NextCommand();
    const std::string playing = rig.Current();
    TrackList copy;
    rig.Queue().CopyEntries(copy);
    std::vector<std::string> copied;
    for (const auto& record : copy)
        copied.push_back(ToUtf8(DeviceNameOf(record->Text(kFieldPath))));
    EXPECT_THAT(copied, ElementsAre("a.mp3", "b.mp3", "c.mp3", "d.mp3", "e.mp3", "f.mp3"));
    rig.Queue().ReplaceQueueKeepingCurrent(copy);
    EXPECT_EQ(rig.Queue().CurrentIndex(), 0);
    EXPECT_EQ(rig.Queue().Entry(0)->RunTimeD(), 0u);
    EXPECT_EQ(rig.Current(), playing);
    EXPECT_EQ(QueueFileOrder(), copied);
}

TEST(PlayerSettingsLifetime, AreReadAtStartAndWrittenAtTheEnd) {
    QueueRig rig({true, kRepeatAll, true, 9});
    EXPECT_TRUE(rig.Queue().Random());
    EXPECT_EQ(rig.Queue().RepeatMode(), kRepeatAll);
    EXPECT_TRUE(rig.player->Volume().Muted());
    EXPECT_EQ(rig.player->Buttons().State(kButtonRepeatAll), kDisplayNormal);
    rig.Queue().CycleRepeat();
    rig.player->Volume().VolumeStep(true);
    rig.player.reset();
    PlayerSettings saved = LoadPlayerSettings();
    EXPECT_EQ(saved.repeatMode, kRepeatOff);
    EXPECT_FALSE(saved.muted);
    EXPECT_EQ(saved.volumeIndex, 10);
    EXPECT_TRUE(saved.random);
}

TEST(PlayerLifetime, TheEndStopsTheTimerAndReleasesThePlayingGraph) {
    QueueRig rig;
    rig.Play({u"a.mp3"});
    rig.Engine().PlayCommand(true);
    ASSERT_TRUE(rig.view.TimerRunning(kTimerPosition));
    rig.player.reset();
    EXPECT_FALSE(rig.view.TimerRunning(kTimerPosition));
    EXPECT_EQ(rig.factory.liveGraphs, 0);
    EXPECT_EQ(rig.factory.log.back(), "destroy a.mp3");
}

} // namespace
} // namespace zelvor
