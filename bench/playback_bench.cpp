// Playback through the engine, against bare playbin.
//
//   TrackChangeGap  two tracks of a steady tone played through the player
//                   into a capture that keeps the silence between graphs;
//                   gap_ms is the silent stretch where one track ends and
//                   the next begins. PCM tracks show the engine's own cost;
//                   MP3 tracks add the encoder's delay and padding.
//   PlayCpu         CPU time of `zelvor-lib play FILE --sink fake` and of
//                   `gst-launch-1.0 playbin` with the same timed fake sink on
//                   the same file, each a child process, in the same run.
//
// Build and run (release preset only):
//   cmake --preset release && cmake --build --preset release --target zelvor_bench_playback zelvor-lib
//   build/release/bin/zelvor_bench_playback

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "host/gst_media_graph.h"
#include "platform/text.h"
#include "playback/graph_notify_waiter.h"
#include "playback/player.h"
#include "playback/player_settings.h"
#include "tests/support/test_media.h"
#include "tests/playback/recording_player_view.h"
#include "tests/support/test_device.h"

extern char** environ;

namespace zelvor {
namespace {
namespace fs = std::filesystem;

const testing::TempDir& MediaDir() {
    static testing::TempDir dir;
    return dir;
}

// A file of a steady tone, made once per run.
fs::path ToneFile(const std::string& name, double seconds) {
    fs::path path = MediaDir().Path() / name;
    if (fs::exists(path))
        return path;
    if (path.extension() == ".wav") {
        std::string command = "ffmpeg -nostdin -hide_banner -loglevel error -y -f lavfi -i "
                              "\"sine=frequency=440:sample_rate=44100:duration=" +
                              std::to_string(seconds) + "\" -ac 2 '" + path.string() + "'";
        if (std::system(command.c_str()) != 0)
            return {};
    } else if (!testing::MakeAudioFile(path, testing::Codec::Mp3, seconds)) {
        return {};
    }
    return path;
}

// The longest run of silent frames in the capture, in milliseconds.
double LongestSilenceMs(const testing::WavData& wav) {
    std::size_t longest = 0;
    std::size_t run = 0;
    for (std::size_t frame = 0; frame * wav.channels < wav.samples.size(); ++frame) {
        bool silent = wav.Peak(frame, frame + 1) <= 64;
        run = silent ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    // A sine crosses zero too, but never for more than a frame or two.
    return longest < 8 ? 0.0 : 1000.0 * static_cast<double>(longest) / wav.rate;
}

void TrackChangeGap(benchmark::State& state, const char* extension) {
    double total = 0;
    double worst = 0;
    for (auto _ : state) {
        testing::TestDevice device;
        device.Get().FileSystem().Bind(u"\\Media", MediaDir().Path());
        TrackList tracks;
        for (int i = 0; i < 2; ++i) {
            fs::path file = ToneFile(std::string("tone") + extension, 1.0);
            if (file.empty()) {
                state.SkipWithError("ffmpeg failed");
                return;
            }
            auto record = std::make_unique<TrackRecord>();
            record->SetField(kFieldPath, u"\\Media\\" + FromUtf8(file.filename().string()));
            tracks.AddTrack(std::move(record));
        }
        SavePlayerSettings({false, 0, false, 10});
        AudioSinkChoice sink{AudioSinkChoice::Kind::Wav, device.Root() / "gap.wav", true};
        {
            GstGraphFactory factory(sink);
            testing::RecordingPlayerView view;
            GraphNotifyWaiter waiter;
            Player player(factory, view);
            player.SetNotifyHook(waiter.Hook());
            player.Queue().ReplaceQueue(tracks);
            player.Engine().PlayCommand(true);
            while (player.Engine().State() == kPlayStatePlaying) {
                if (waiter.Wait(std::chrono::milliseconds(200)))
                    player.Engine().OnGraphNotify();
            }
        }
        auto wav = testing::ReadWav(sink.wavPath);
        double gap = wav ? LongestSilenceMs(*wav) : -1;
        total += gap;
        worst = std::max(worst, gap);
    }
    state.counters["gap_ms"] = total / static_cast<double>(state.iterations());
    state.counters["worst_gap_ms"] = worst;
}

// CPU seconds (user + system) of a child process run to its end.
double ChildCpuSeconds(const std::vector<std::string>& argv) {
    std::vector<char*> args;
    for (const auto& a : argv)
        args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    int spawned = posix_spawnp(&pid, args[0], &actions, nullptr, args.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (spawned != 0)
        return -1;
    int status = 0;
    struct rusage usage {};
    if (wait4(pid, &status, 0, &usage) != pid || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return -1;
    auto seconds = [](const timeval& t) { return t.tv_sec + t.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

fs::path ZelvorLib() {
    return fs::read_symlink("/proc/self/exe").parent_path() / "zelvor-lib";
}

void PlayCpu(benchmark::State& state, const char* name) {
    fs::path file = ToneFile(name, 30.0);
    if (file.empty() || !fs::exists(ZelvorLib())) {
        state.SkipWithError("needs ffmpeg and zelvor-lib beside this program");
        return;
    }
    double engine = 0;
    double bare = 0;
    for (auto _ : state) {
        engine += ChildCpuSeconds({ZelvorLib().string(), "play", file.string(), "--sink", "fake"});
        bare += ChildCpuSeconds({"gst-launch-1.0", "-q", "playbin", "uri=file://" + file.string(),
                                 "audio-sink=fakesink sync=true"});
    }
    auto runs = static_cast<double>(state.iterations());
    state.counters["engine_cpu_ms"] = 1000 * engine / runs;
    state.counters["playbin_cpu_ms"] = 1000 * bare / runs;
    state.counters["engine_over_playbin"] = bare > 0 ? engine / bare : 0;
}

BENCHMARK_CAPTURE(TrackChangeGap, pcm, ".wav")->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TrackChangeGap, mp3, ".mp3")->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PlayCpu, mp3_30s, "long.mp3")->Iterations(3)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zelvor

BENCHMARK_MAIN();
