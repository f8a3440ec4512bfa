// zelvor-lib play: plays files through the player's engine and queue without
// a screen, printing each change of play state and of track as a JSON line:
//   {"event":"track","index":0,"counter":"1/3","title":"…","path":"…"}
//   {"event":"state","state":2,"name":"Playing"}
//   {"event":"beep"}  a playback action failed (as the player would beep)
//   {"event":"end","seconds":12.3}
//
// The files are host files. The command works on a throw-away device in a
// temporary folder, with the host's "/" bound at "\Host", so it neither
// reads nor changes the user's device (settings, current playlist). The
// volume is at its top step (0 dB), so a capture holds the files' own level.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <set>

#include <unistd.h>

#include "host/gst_media_graph.h"
#include "platform/text.h"
#include "playback/graph_notify_waiter.h"
#include "playback/player.h"
#include "playback/player_settings.h"
#include "tags/build_track_record.h"
#include "tools/zelvor_lib/command_line.h"
#include "tools/zelvor_lib/commands.h"
#include "tools/zelvor_lib/json_line.h"

namespace zelvor {
namespace {

constexpr std::u16string_view kHostPrefix = u"\\Host";
constexpr const char* kUsage =
    "usage: zelvor-lib play FILE... [--seconds N] [--sink auto|fake|wav:PATH] [--random] "
    "[--repeat 0|1|2]\n";

void Print(const JsonLine& line) {
    std::printf("%s\n", line.Str().c_str());
    std::fflush(stdout);
}

// The screen of the command: prints what changed, keeps the timers asked
// for (none of which needs to tick here) and never scrolls a title.
class JsonPlayerView final : public PlayerView {
public:
    void SetQueue(const PlayQueue* queue) { m_queue = queue; }

    void InvalidateButton(int) override {}
    void InvalidateSeekThumb() override {}
    void InvalidateTimeDisplay() override {}
    void InvalidateRemainingMarker() override {}
    void InvalidateVolume() override {}
    void InvalidateAll(bool) override {}
    void UpdateNow() override {}
    void TrackTextsChanged() override {
        if (!m_queue || m_queue->EntryCount() == 0)
            return;
        int index = m_queue->CurrentIndex();
        std::u16string path = m_queue->CurrentPath();
        if (index == m_lastIndex && path == m_lastPath)
            return;
        m_lastIndex = index;
        m_lastPath = path;
        Print(JsonLine()
                  .Add("event", "track")
                  .Add("index", index)
                  .Add("counter", std::u16string_view(m_queue->CounterText()))
                  .Add("title", std::u16string_view(m_queue->TitleText()))
                  .Add("path", HostPathOf(path)));
    }
    void PlayStateChanged(std::int32_t state) override {
        if (state == m_lastState)
            return;
        m_lastState = state;
        Print(JsonLine().Add("event", "state").Add("state", state).Add("name", PlayStateName(state)));
    }
    void Beep() override { Print(JsonLine().Add("event", "beep")); }
    void FocusPlayer() override {}
    void SetWaitCursor(bool) override {}
    int MeasureTitleText(std::u16string_view) override { return 0; }
    int TitleAreaWidth() override { return 1; }
    void StartTimer(int id, int) override { m_timers.insert(id); }
    void StopTimer(int id) override { m_timers.erase(id); }
    bool TimerRunning(int id) override { return m_timers.count(id) > 0; }
    void SetMouseCapture(bool) override {}

private:
    static std::string HostPathOf(std::u16string_view devicePath) {
        auto host = CurrentDevice().FileSystem().ToHostPath(devicePath);
        return host ? host->string() : ToUtf8(devicePath);
    }

    const PlayQueue* m_queue = nullptr;
    std::int32_t m_lastState = -1;
    int m_lastIndex = -1;
    std::u16string m_lastPath;
    std::set<int> m_timers;
};

// The device path under "\Host" of an existing host file.
std::optional<std::u16string> HostFileOnDevice(const std::string& arg) {
    std::error_code error;
    auto path = std::filesystem::canonical(arg, error);
    if (error || !std::filesystem::is_regular_file(path, error))
        return std::nullopt;
    std::u16string device(kHostPrefix);
    for (char16_t c : FromUtf8(path.string()))
        device += c == u'/' ? u'\\' : c;
    return device;
}

// Handles the graph's notifications until the queue stops playing, or stops
// it after the given number of seconds.
void PlayUntilStopped(Player& player, GraphNotifyWaiter& waiter, std::optional<long long> seconds) {
    auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(seconds.value_or(0));
    auto active = [&] {
        auto state = player.Engine().State();
        return state == kPlayStatePlaying || state == kPlayStatePaused;
    };
    while (active()) {
        auto wait = std::chrono::milliseconds(500);
        if (seconds) {
            auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                limit - std::chrono::steady_clock::now());
            if (left.count() <= 0) {
                player.Engine().StopCommand();
                return;
            }
            wait = std::min(wait, left);
        }
        if (waiter.Wait(wait))
            player.Engine().OnGraphNotify();
    }
}

int Fail(const std::string& message) {
    std::fprintf(stderr, "zelvor-lib play: %s\n%s", message.c_str(), kUsage);
    return 2;
}

// The files on the command line as records, each on the host binding of a
// temporary device; nullopt (after saying why) when a file is missing. The
// tags name a track when they can be read; a file the readers refuse is
// still played, under its file name.
std::optional<TrackList> TracksOfArguments(const std::vector<std::string>& args) {
    TrackList files;
    for (const std::string& arg : args) {
        auto path = HostFileOnDevice(arg);
        if (!path) {
            Fail("no such file: " + arg);
            return std::nullopt;
        }
        auto record = BuildTrackRecord(*path);
        if (!record) {
            record = std::make_unique<TrackRecord>();
            record->SetField(kFieldPath, *path);
        }
        files.AddTrack(std::move(record));
    }
    return files;
}

// Plays the list as the player screen does, printing the player's events,
// until it stops or the seconds run out; 1 when playing did not start.
int PlayTracks(const TrackList& files, AudioSinkChoice sink, std::optional<long long> seconds) {
    GstGraphFactory factory(sink);
    JsonPlayerView view;
    GraphNotifyWaiter waiter;
    Player player(factory, view);
    view.SetQueue(&player.Queue());
    player.SetNotifyHook(waiter.Hook());

    auto start = std::chrono::steady_clock::now();
    player.Queue().ReplaceQueue(files);
    player.Engine().PlayCommand(true);
    const int status = player.Engine().State() == kPlayStatePlaying ? 0 : 1;
    PlayUntilStopped(player, waiter, seconds);
    std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    player.Engine().StopAndRelease(false);
    Print(JsonLine().Add("event", "end").Add("seconds", took.count()));
    return status;
}

} // namespace

int RunPlayCommand(const Arguments& args) {
    CommandLine cmd(args, {"--seconds", "--sink", "--repeat"}, {"--random"});
    auto seconds = cmd.Number("--seconds");
    auto repeat = cmd.Number("--repeat");
    if (!cmd.Ok())
        return Fail(cmd.Error());
    if (cmd.Positional().empty())
        return Fail("give at least one file");
    if (repeat && (*repeat < 0 || *repeat > 2))
        return Fail("--repeat takes 0, 1 or 2");
    if (seconds && *seconds < 0)
        return Fail("--seconds takes a number of seconds");
    AudioSinkChoice sink = AudioSinkFromEnvironment();
    if (auto text = cmd.Value("--sink")) {
        auto parsed = ParseAudioSinkChoice(*text);
        if (!parsed)
            return Fail("unknown sink '" + *text + "'");
        sink = *parsed;
    }

    // A device of its own in a temporary folder, with the host's files bound
    // under one prefix, so that any file on the host can be played.
    std::error_code error;
    auto root = std::filesystem::temp_directory_path() /
                ("zelvor-play-" + std::to_string(::getpid()));
    std::filesystem::remove_all(root, error);
    std::string reason;
    DeviceConfig config;
    config.root = root;
    auto device = Device::Open(config, &reason);
    if (!device)
        return Fail(reason);
    ScopedCurrentDevice current(*device);
    device->FileSystem().Bind(kHostPrefix, "/");

    std::optional<TrackList> files = TracksOfArguments(cmd.Positional());
    int status = 2; // a missing file is a usage error, said by TracksOfArguments
    if (files) {
        SavePlayerSettings({cmd.Has("--random"), static_cast<int>(repeat.value_or(0)), false, 10});
        status = PlayTracks(*files, sink, seconds);
    }
    device.reset();
    std::filesystem::remove_all(root, error);
    return status;
}

} // namespace zelvor
