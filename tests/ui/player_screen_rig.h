#pragma once
// The real player screen on the fake graph, in a fresh test device, with
// fake host services that count what they were asked, a frame that records
// its messages, and helpers that tap and hold the screen's buttons and keys
// by sending the widget the events Qt would.

#include <QApplication>
#include <QImage>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "library/track_list.h"
#include "tests/playback/fake_media_graph.h"
#include "tests/support/test_device.h"
#include "ui/player_screen/player_screen.h"

namespace zelvor::testing {

// A QApplication on the offscreen platform, once for the whole program.
void EnsureWidgetApplication();

class RecordingFrame : public FrameMessages {
public:
    void PostToFrame(const WindowMessage& message) override { posted.push_back(message); }
    void ShowBrowser() override { ++browsers; }
    void ShowMenu() override { ++menus; }
    void HideFrame() override { ++hides; }

    std::vector<WindowMessage> posted;
    int browsers = 0;
    int menus = 0;
    int hides = 0;
};

struct FakeHost : SoundPlayer, IdleTimer, DisplayPower, PowerSource {
    void MessageBeep() override { ++beeps; }
    bool PlaySound(std::u16string_view path) override {
        sounds.emplace_back(path);
        return true;
    }
    void SystemIdleTimerReset() override { ++idleResets; }
    bool SetDisplayOff() override {
        ++displayOffs;
        return true;
    }
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

    int beeps = 0;
    std::vector<std::u16string> sounds;
    int idleResets = 0;
    int displayOffs = 0;
    SystemPowerStatus power{kAcLineOffline, kBatteryFlagHigh, 90};
    bool powerRead = true;
    std::uint32_t tick = 1000;
    LocalTime now{2024, 5, 3, 17, 9, 41, 0, 0};
};

class ScreenRig {
public:
    explicit ScreenRig(ScreenOrientation orientation = ScreenOrientation::Portrait);
    ~ScreenRig();

    // A new screen (the old one destroyed first, writing its settings).
    void MakeScreen(ScreenOrientation orientation);
    void DestroyScreen();
    CPlayerScreen& Screen() { return *m_screen; }
    Player& GetPlayer() { return m_screen->GetPlayer(); }

    // Music files that exist, handed to the queue; each lasts `seconds`.
    void PlayList(std::initializer_list<std::u16string_view> names, int seconds = 100);
    TrackList MakeList(std::initializer_list<std::u16string_view> names, int seconds);

    // Pointer events at screen pixels; the button helpers use the centre of
    // a button's hit rectangle.
    void Press(QPoint at);
    void MoveTo(QPoint at);
    void Release(QPoint at);
    void Tap(QPoint at);
    QPoint Centre(int button) const;
    void TapButton(int button) { Tap(Centre(button)); }
    // Keys as Qt reports them; returns whether the widget took the press.
    bool KeyPress(int qtKey, bool autoRepeat = false);
    void KeyRelease(int qtKey, bool autoRepeat = false);

    // The graph of the current track (nullptr when none).
    FakeMediaGraph* Graph() { return factory.current; }
    int State() { return GetPlayer().Engine().State(); }
    int ButtonState(int button) { return GetPlayer().Buttons().State(button); }

    TestDevice device;
    FakeMediaGraphFactory factory;
    RecordingFrame frame;
    FakeHost host;

private:
    std::unique_ptr<CPlayerScreen> m_screen;
};

// Where the tests leave pictures for people to look at: $TEST_OUTPUT_DIR,
// else the build's artifacts folder.
QString ArtifactPath(const QString& fileName);

// "Portrait" or "Landscape", for the names of parameterised tests.
std::string OrientationName(const ::testing::TestParamInfo<ScreenOrientation>& info);

// The colour of an image at a point, for comparing what was painted.
QRgb PixelAt(const QImage& image, QPoint at);

} // namespace zelvor::testing
