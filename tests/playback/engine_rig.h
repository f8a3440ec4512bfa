#pragma once
// The engine with its slots, volume, buttons and position on a fake graph and
// a recording view, in a fresh test device whose music files exist (their
// contents do not matter to the fake graph). A scripted queue stands in for
// the play queue: it steps through a list of paths the way the queue does.

#include <memory>
#include <string>
#include <vector>

#include "platform/text.h"
#include "playback/playback_engine.h"
#include "playback/player_position.h"
#include "tests/support/fake_media_graph.h"
#include "tests/playback/recording_player_view.h"
#include "tests/support/test_device.h"

namespace zelvor::testing {

struct ScriptedQueue : EngineQueue {
    explicit ScriptedQueue(PlaybackEngine& owner) : engine(owner) {}
    int EntryCount() const override { return static_cast<int>(paths.size()); }
    std::u16string CurrentPath() const override {
        return current < EntryCount() ? paths[current] : std::u16string();
    }
    // Steps forward only, as the engine does.
    int StepTrack(bool, bool automatic) override {
        steps.push_back(automatic ? "auto" : "next");
        current = (current + 1) % EntryCount();
        engine.StopAndRelease(true);
        return engine.OpenTrack(paths[current]) ? 1 : -1;
    }
    void AdvanceAtEnd() override {
        ++advances;
        if (playOnAdvance && current + 1 < EntryCount() && StepTrack(true, true) > 0)
            engine.PlayCommand(true);
    }

    PlaybackEngine& engine;
    std::vector<std::u16string> paths;
    std::vector<std::string> steps;
    int current = 0, advances = 0;
    bool playOnAdvance = false;
};

struct EngineRig {
    explicit EngineRig(std::initializer_list<std::u16string_view> names = {}) {
        engine.Connect(queue, position);
        engine.SetTagStripper([this](std::u16string_view path) {
            factory.Strip(ToUtf8(DeviceNameOf(path)));
            return true;
        });
        AddTracks(names);
    }

    // Creates music files on the card and puts them in the queue.
    void AddTracks(std::initializer_list<std::u16string_view> names) {
        for (auto name : names) {
            std::u16string path = u"\\Storage Card\\Music\\" + std::u16string(name);
            device.WriteFile(path, "audio");
            queue.paths.push_back(path);
        }
    }
    std::u16string Path(int index) const { return queue.paths[index]; }
    // The graph calls one operation made.
    template <class Operation> std::vector<std::string> CallsOf(Operation operation) {
        auto mark = factory.log.size();
        operation();
        return factory.LogSince(mark);
    }

    TestDevice device;
    FakeMediaGraphFactory factory;
    RecordingPlayerView view;
    GraphSlots slots;
    PlayerButtons buttons{view};
    PlayerVolume volume{slots, view};
    PlaybackEngine engine{factory, slots, volume, buttons, view};
    PlayerPosition position{slots, engine, view};
    ScriptedQueue queue{engine};
};

} // namespace zelvor::testing
