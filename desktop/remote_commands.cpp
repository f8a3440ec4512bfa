#include "desktop/remote_commands.h"

#include <cmath>

#include "playback/play_state.h"

namespace zelvor {
namespace {

const TrackRecord* CurrentEntry(Player& player) {
    PlayQueue& queue = player.Queue();
    return queue.EntryCount() > 0 ? queue.Entry(queue.CurrentIndex()) : nullptr;
}

bool CanSeek(Player& player) {
    return player.Slots().Seeking() != nullptr && !player.Engine().SeekDisabled();
}

std::int64_t ToMicroseconds(double seconds) {
    return static_cast<std::int64_t>(std::llround(seconds * kMicrosecondsPerSecond));
}

} // namespace

void RemotePlay(Player& player) {
    if (player.Engine().State() != kPlayStatePlaying)
        player.Engine().PlayCommand(true);
}

void RemotePause(Player& player) {
    if (player.Engine().State() == kPlayStatePlaying)
        player.Engine().TogglePause();
}

void RemotePlayPause(Player& player) {
    if (player.Engine().State() == kPlayStatePlaying)
        player.Engine().TogglePause();
    else
        player.Engine().PlayCommand(true);
}

void RemoteStop(Player& player) {
    if (player.Engine().State() != kPlayStateDisplay)
        player.Engine().StopCommand();
}

void RemoteNext(Player& player) {
    player.Queue().NextCommand();
}

void RemotePrevious(Player& player) {
    player.Queue().PreviousCommand();
}

void RemoteSetVolume(Player& player, double level) {
    PlayerVolume& volume = player.Volume();
    const VolumePlan plan = PlanVolume(level, volume.Index(), volume.Muted());
    if (plan.toggleMute)
        volume.ToggleMute();
    for (int i = 0; i < std::abs(plan.steps); ++i)
        volume.VolumeStep(plan.steps > 0);
}

void RemoteSetRandom(Player& player, bool on) {
    if (player.Queue().Random() != on)
        player.Queue().ToggleRandom();
}

void RemoteSetRepeat(Player& player, int repeatMode) {
    for (int i = RepeatPresses(player.Queue().RepeatMode(), repeatMode); i > 0; --i)
        player.Queue().CycleRepeat();
}

bool RemoteSeekTo(Player& player, std::int64_t positionUs) {
    if (!CanSeek(player))
        return false;
    PlayerPosition& position = player.Position();
    const double seconds = double(positionUs) / kMicrosecondsPerSecond;
    if (player.Engine().State() != kPlayStatePlaying)
        position.SetTimeDisplay(static_cast<std::int64_t>(seconds), false);
    position.SeekToSeconds(seconds);
    position.UpdatePosition();
    return true;
}

void RemoteSeekBy(Player& player, std::int64_t offsetUs) {
    if (!CanSeek(player))
        return;
    const SeekPlan plan =
        PlanSeek(RemotePositionUs(player), RemoteLengthUs(player), offsetUs);
    if (plan.next)
        RemoteNext(player);
    else
        RemoteSeekTo(player, plan.targetUs);
}

std::int64_t RemotePositionUs(Player& player) {
    double seconds = 0;
    player.Position().GetPositionSeconds(seconds);
    return ToMicroseconds(seconds);
}

std::int64_t RemoteLengthUs(Player& player) {
    double seconds = 0;
    if (player.Position().GetDurationSeconds(seconds) && seconds > 0)
        return ToMicroseconds(seconds);
    // No graph yet: what the library read from the file.
    const TrackRecord* entry = CurrentEntry(player);
    return entry ? std::int64_t{entry->Duration()} * kMicrosecondsPerSecond : 0;
}

MprisState ReadMprisState(Player& player, const TrackUrlOf& urlOf) {
    MprisState state;
    state.playState = player.Engine().State();
    state.volumeStep = player.Volume().Index();
    state.muted = player.Volume().Muted();
    state.random = player.Queue().Random();
    state.repeatMode = player.Queue().RepeatMode();
    state.hasEntries = player.Queue().EntryCount() > 0;
    state.canSeek = CanSeek(player);
    const TrackRecord* entry = CurrentEntry(player);
    state.track.trackId = TrackObjectPath(entry ? std::optional(entry->RunTimeA()) : std::nullopt);
    if (!entry)
        return state;
    MprisTrack& track = state.track;
    track.title = entry->Text(kFieldTitle);
    // A desktop shows the title alone; an untagged file goes by its name.
    if (track.title.empty())
        track.title = entry->Text(kFieldFileName);
    track.artist = entry->Text(kFieldArtist);
    track.album = entry->Text(kFieldAlbum);
    track.genre = entry->Text(kFieldGenre);
    track.trackNumber = entry->TrackNumber();
    track.lengthUs = RemoteLengthUs(player);
    track.url = urlOf ? urlOf(entry->Text(kFieldPath)) : std::string();
    return state;
}

} // namespace zelvor
