#pragma once
// The real player screen on the fake graph, in a fresh test device, with
// fake host services that count what they were asked, a frame that records
// its messages, and helpers that tap and hold the screen's buttons and keys
// by sending the widget the events Qt would.

#include <QApplication>
#include <QImage>
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "library/track_list.h"
#include "tests/support/fake_media_graph.h"
#include "tests/support/test_device.h"
#include "tests/support/qt_app.h"
#include "tests/ui/lists_sink.h"
#include "ui/widgets/player_screen/player_screen.h"

namespace zelvor::testing {

constexpr std::int64_t kSecond = 10000000; // media time units

class RecordingFrame : public FrameMessages {
public:
    void PostToFrame(const WindowMessage& message) override { posted.push_back(message); }
    void ShowBrowser() override { ++browsers; }
    void ShowMenu() override { ++menus; }
    void HideFrame() override { ++hides; }
    void ShowPlayer() override {}
    void PlayFromBrowser(const TrackList&, int) override {}

    std::vector<WindowMessage> posted;
    int browsers = 0, menus = 0, hides = 0;
};

struct FakeHost : SoundPlayer, IdleTimer, DisplayPower, PowerSource {
    void MessageBeep() override { ++beeps; }
    bool PlaySound(std::u16string_view path) override {
        sounds.emplace_back(path);
        return true;
    }
    void SystemIdleTimerReset() override { ++idleResets; }
    bool SetDisplayOff() override { return ++displayOffs > 0; }
    bool GetSystemPowerStatusEx(SystemPowerStatus& out) override {
        out = power;
        return powerRead;
    }
    PlayerScreenHost Services() {
        PlayerScreenHost host{this, this, this, this, {}, {}};
        host.tickCount = [this] { return tick; };
        host.localTime = [this] { return now; };
        return host;
    }

    int beeps = 0, idleResets = 0, displayOffs = 0;
    std::vector<std::u16string> sounds;
    SystemPowerStatus power{kAcLineOffline, kBatteryFlagHigh, 90};
    bool powerRead = true;
    std::uint32_t tick = 1000;
    LocalTime now{2024, 5, 3, 17, 9, 41, 0, 0};
};

// The centre of a rectangle, as a widget point.
inline QPoint Centre(const PixelRect& r) {
    return {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
}

class ScreenRig {
public:
    explicit ScreenRig(ScreenOrientation orientation = ScreenOrientation::Portrait) {
        EnsureQtApplication();
        MakeScreen(orientation);
    }

    // A new screen (the old one destroyed first, writing its settings).
    void MakeScreen(ScreenOrientation orientation);
    void DestroyScreen() { m_screen.reset(); }
    CPlayerScreen& Screen() { return *m_screen; }
    Player& GetPlayer() { return m_screen->GetPlayer(); }

    // Music files that exist, handed to the queue; each lasts `seconds`.
    void PlayList(std::initializer_list<std::u16string_view> names, int seconds = 100);

    // Pointer events at widget pixels, as Qt sends them.
    void Press(QPoint at) { SendMouse(m_screen.get(), QEvent::MouseButtonPress, at); }
    void MoveTo(QPoint at) { SendMouse(m_screen.get(), QEvent::MouseMove, at); }
    void Release(QPoint at) {
        SendMouse(m_screen.get(), QEvent::MouseButtonRelease, at, Qt::NoButton);
    }
    void Tap(QPoint at) { Press(at), Release(at); }
    QPoint Centre(int button) const {
        return testing::Centre(m_screen->Geometry().buttons[static_cast<std::size_t>(button)]);
    }
    void TapButton(int button) { Tap(Centre(button)); }
    // Keys as Qt reports them; returns whether the widget took the press.
    bool KeyPress(int qtKey, bool autoRepeat = false);
    void KeyRelease(int qtKey, bool autoRepeat = false) {
        SendKey(m_screen.get(), QEvent::KeyRelease, qtKey, autoRepeat);
    }

    // The graph of the current track (nullptr when none).
    FakeMediaGraph* Graph() { return factory.current; }
    int State() { return GetPlayer().Engine().State(); }
    int ButtonState(int button) { return GetPlayer().Buttons().State(button); }
    bool Logged(const std::string& entry) const {
        return std::count(factory.log.begin(), factory.log.end(), entry) > 0;
    }

    TestDevice device;
    FakeMediaGraphFactory factory;
    RecordingFrame frame;
    FakeHost host;

private:
    std::unique_ptr<CPlayerScreen> m_screen;
};

inline std::string SeekTo(std::int64_t seconds) {
    return "seek " + std::to_string(seconds * kSecond);
}

// Both orientations, named "Portrait" and "Landscape", for parameterised tests.
#define ZELVOR_BOTH_ORIENTATIONS(Suite)                                                     \
    INSTANTIATE_TEST_SUITE_P(                                                               \
        BothOrientations, Suite,                                                            \
        ::testing::Values(ScreenOrientation::Portrait, ScreenOrientation::Landscape),       \
        [](const auto& p) { return p.param == ScreenOrientation::Portrait ? "Portrait" : "Landscape"; })

} // namespace zelvor::testing
