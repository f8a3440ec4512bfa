#pragma once
// The frame's rules on a fresh device: a fake window, fake panes, a fake
// outside world, free space that moves only when the test says so, and
// records made from the path alone.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <utility>

#include "config/application_values.h"
#include "config/settings.h"
#include "res/window_messages.h"
#include "tests/support/test_device.h"
#include "tests/ui/main_frame_fakes.h"
#include "ui/rules/main_frame/frame_controller.h"

namespace zelvor::testing {

class FakeWindow : public FrameWindow {
public:
    void PostToSelf(const WindowMessage& m) override { posted.push_back(m); }
    int ScreenWidth() override { return width; }
    int ScreenHeight() override { return height; }
    void PlaceFullScreen(int w, int h) override {
        calls.push_back("PlaceFullScreen " + std::to_string(w) + "x" + std::to_string(h));
    }
    void BringToFront() override { calls.push_back("BringToFront"); }
    PlayerPane* Player() override { return player; }
    BrowserPane* Browser() override { return browser; }
    bool PlayerVisible() override { return playerVisible; }
    bool BrowserVisible() override { return browserVisible; }
    bool PanelVisible() override { return panelVisible; }
    void ShowPlayerPane() override {
        playerVisible = true;
        browserVisible = false;
        calls.push_back("ShowPlayerPane");
    }
    void ShowBrowserPane() override {
        playerVisible = false;
        browserVisible = true;
        calls.push_back("ShowBrowserPane");
    }
    void ClosePanel() override {
        panelVisible = false;
        calls.push_back("ClosePanel");
    }
    void FocusBrowser() override { calls.push_back("FocusBrowser"); }
    void FocusPlayer() override { calls.push_back("FocusPlayer"); }
    void ReloadSkin(std::uint16_t colour) override {
        calls.push_back("ReloadSkin " + std::to_string(colour));
    }
    void BeginWaitCursor() override { calls.push_back("wait on"); }
    void EndWaitCursor() override { calls.push_back("wait off"); }
    void Sleep(int ms) override {
        sleeps.push_back(ms);
        if (onSleep)
            onSleep(static_cast<int>(sleeps.size()));
    }

    void RedoPanelLayout() override { calls.push_back("RedoPanelLayout"); }

    // Messages posted so far, taken away.
    std::vector<WindowMessage> TakePosted() { return std::exchange(posted, {}); }

    int width = 240, height = 320;
    PlayerPane* player = nullptr;
    BrowserPane* browser = nullptr;
    bool playerVisible = true, browserVisible = false, panelVisible = false;
    std::vector<WindowMessage> posted;
    std::vector<std::string> calls;
    std::vector<int> sleeps;
    std::function<void(int)> onSleep;
};

// Records made from the path alone; a file named "bad.mp3" cannot be read.
inline std::unique_ptr<TrackRecord> PathOnlyRecord(std::u16string_view path, int) {
    if (FileNameOfPath(path) == u"bad.mp3")
        return nullptr;
    auto record = std::make_unique<TrackRecord>();
    record->SetField(kFieldPath, path);
    record->SetField(kFieldAlbum, FileNameOfPath(path, true));
    return record;
}

class FrameRules : public ::testing::Test {
protected:
    FrameRules() : dev(Config()) {
        auto fixed = std::make_unique<FixedSpaceFileSystem>(dev.Root());
        fixed->Bind(u"\\Storage Card", card.Path() / "card");
        dev.Get().SetFileSystem(std::move(fixed));
        window.player = &player;
        window.browser = &browser;
        AppValues() = {};
    }
    DeviceConfig Config() {
        DeviceConfig c;
        c.card = card.Path() / "card";
        return c;
    }
    void InsertCard() { std::filesystem::create_directories(card.Path() / "card"); }
    void Music(std::u16string_view devicePath) { dev.WriteFile(devicePath, "not really music"); }
    void RecordBothFingerprints() {
        RecordFreeSpace(kStorageCard, GetStorageCardRoot());
        RecordFreeSpace(kStorageFlash, GetFlashDiskRoot());
    }
    std::int32_t Handle(std::uint32_t message, std::uint32_t wParam = 0, std::int32_t lParam = 0) {
        return rules.Handle({message, wParam, lParam});
    }
    // Handles every posted message, and what those post, in order.
    std::vector<std::uint32_t> RunPosted() {
        std::vector<std::uint32_t> handled;
        while (!window.posted.empty()) {
            WindowMessage m = window.posted.front();
            window.posted.erase(window.posted.begin());
            handled.push_back(m.message);
            rules.Handle(m);
        }
        return handled;
    }

    TempDir card;
    TestDevice dev;
    FakeWindow window;
    FakeOutside outside;
    RecordingPlayer player;
    RecordingBrowser browser;
    FrameController rules{window, outside, PathOnlyRecord};
};

} // namespace zelvor::testing
