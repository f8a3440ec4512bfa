#pragma once
// Stand-ins for the frame's panes and for the world outside the program,
// recording what the frame asks of them.

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <QWidget>

#include "library/track_list.h"
#include "platform/text.h"
#include "ui/rules/main_frame/browser_pane.h"
#include "ui/rules/main_frame/frame_window.h"
#include "ui/rules/main_frame/player_pane.h"

namespace zelvor::testing {

class RecordingPlayer : public PlayerPane {
public:
    QWidget* Widget() override { return nullptr; }
    void RedoLayout() override { calls.push_back("RedoLayout"); }
    void RedoTextLayout() override { calls.push_back("RedoTextLayout"); }
    void SetShellStatus(std::int32_t value) override {
        status = value;
        calls.push_back("SetShellStatus");
    }
    void OnShellPlayerMessage() override { calls.push_back("OnShellPlayerMessage"); }
    void ReleaseCurrentTrack() override { calls.push_back("ReleaseCurrentTrack"); }
    void Resume() override { calls.push_back("Resume"); }
    int QueueCount() override { return static_cast<int>(queue.size()); }
    void ReplaceQueue(const TrackList& list) override {
        queue.clear();
        for (const auto& record : list)
            queue.push_back(ToUtf8(record->Text(kFieldPath)));
        calls.push_back("ReplaceQueue");
    }
    void CancelHoldTimers() override { calls.push_back("CancelHoldTimers"); }
    void PlayFromBrowser(const TrackList& list, int start) override {
        ReplaceQueue(list);
        calls.push_back("PlayFromBrowser " + std::to_string(start));
    }
    void CopyQueue(TrackList& into) override {
        for (const auto& path : queue) {
            auto record = std::make_unique<TrackRecord>();
            record->SetField(kFieldPath, FromUtf8(path));
            into.AddTrack(std::move(record));
        }
    }
    void ReplaceQueueKeepingCurrent(const TrackList& list) override {
        ReplaceQueue(list);
        calls.back() = "ReplaceQueueKeepingCurrent";
    }

    bool Called(const std::string& name) const {
        return std::find(calls.begin(), calls.end(), name) != calls.end();
    }

    std::vector<std::string> calls;
    std::vector<std::string> queue; // paths, in queue order
    std::int32_t status = -1;
};

class RecordingBrowser : public BrowserPane {
public:
    QWidget* Widget() override { return nullptr; }
    void DropContents() override { calls.push_back("DropContents"); }
    void Reload() override { calls.push_back("Reload"); }
    void ReloadTexts() override { calls.push_back("ReloadTexts"); }
    void RedoLayout() override { calls.push_back("RedoLayout"); }
    void ShowStatusText(std::u16string_view text) override {
        calls.push_back("ShowStatusText " + ToUtf8(text));
    }
    std::vector<std::string> calls;
};

// The widget forms, for the frame itself; filled, so that pictures of the
// frame never show unpainted memory.
template <typename Pane>
class FakeScreen final : public QWidget, public Pane {
public:
    explicit FakeScreen(QWidget* parent) : QWidget(parent) { setAutoFillBackground(true); }
    ~FakeScreen() override {
        if (onDestroy)
            onDestroy();
    }
    QWidget* Widget() override { return this; }
    std::function<void()> onDestroy; // keys are left to the frame, as Escape is
};
using FakePlayerScreen = FakeScreen<RecordingPlayer>;
using FakeBrowserScreen = FakeScreen<RecordingBrowser>;

class FakeOutside : public OutsideWindows {
public:
    bool Exists(const EndpointAddress& address) override {
        return answers.count(ToUtf8(address.name)) > 0;
    }
    std::optional<std::int32_t> Send(const EndpointAddress& address,
                                     const WindowMessage& message) override {
        sent.push_back({ToUtf8(address.name), message});
        auto found = answers.find(ToUtf8(address.name));
        if (found == answers.end())
            return std::nullopt;
        return found->second;
    }
    // Titles of the windows that exist, with what each answers.
    std::map<std::string, std::int32_t> answers;
    std::vector<std::pair<std::string, WindowMessage>> sent;
};

} // namespace zelvor::testing
