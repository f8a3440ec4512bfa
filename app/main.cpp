// zelvor: the player.
//
//   zelvor [--root DIR] [--card DIR] [--flash DIR] [--program-dir PATH]
//          [--screen WxH] [--tour DIR] [WORDS...]
//
// --root is the host folder that stands for the device's "\" (default
// $ZELVOR_ROOT, else $XDG_DATA_HOME/zelvor/device); --card and --flash bind
// the storage card and the flash disk to other host folders (--card
// defaults to $ZELVOR_CARD: "zelvor --card ~/Music" is a desktop's whole
// set-up); --program-dir is the device path of the program directory
// (default \Flash Disk\Zelvor); --screen is the device screen (default
// 240x320): the window has that size on a desktop (QT_SCALE_FACTOR enlarges
// it) and covers a display of exactly that size. The remaining words are the
// command line the device would pass ("navigon" from the navigation
// application).
//
// --tour DIR walks through the player by itself (see demo_tour.h), saving a
// picture after each step into DIR, and ends; with QT_QPA_PLATFORM=offscreen
// it needs no display, and ZELVOR_AUDIO_SINK=wav:FILE keeps what it played.
//
// SIGINT and SIGTERM end the program as the shell's close request does, so
// the player's settings and queue are saved.
//
// ZELVOR_START_PROBE=1 is for the start-up benchmark: at the first paint of
// the player screen zelvor prints "first-paint-ms N" (since main began), a
// second later "rss-kb N" (its resident memory, the library loaded by then),
// and ends at once, saving nothing.

#include <QApplication>
#include <QElapsedTimer>
#include <QSocketNotifier>
#include <QTimer>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <unistd.h>

#include "app/application.h"
#include "config/application_values.h"
#include "res/window_messages.h"
#include "desktop/desktop_session.h"
#include "desktop/mpris_service.h"
#include "platform/device.h"
#include "host/gst_media_graph.h"
#include "platform/text.h"
#include "tags/build_track_record.h"
#include "app/program_cli.h"
#include "ui/widgets/browser/browser_screen.h"
#include "ui/widgets/main_frame/demo_tour.h"
#include "app/host_application.h"
#include "ui/widgets/player_screen/player_screen.h"

namespace {

using namespace zelvor;

struct ProgramOptions {
    DeviceConfig device;
    QSize screen{240, 320};
    std::optional<QString> tour;
    std::u16string commandLine;
};

constexpr ProgramUsage kProgram{
    "zelvor",
    "usage: zelvor [--root DIR] [--card DIR] [--flash DIR] [--program-dir PATH]"
    " [--screen WxH] [--tour DIR] [WORDS...]\n"
    "       zelvor --help | --version\n"};

std::optional<QSize> ParseScreen(const QString& text) {
    const QStringList parts = text.split(QLatin1Char('x'));
    bool wide = false, high = false;
    const int width = parts.size() == 2 ? parts[0].toInt(&wide) : 0;
    const int height = parts.size() == 2 ? parts[1].toInt(&high) : 0;
    if (!wide || !high || width < 64 || height < 64 || width > 8192 || height > 8192)
        return std::nullopt;
    return QSize(width, height);
}

std::optional<std::string> ParseOptions(const QStringList& args, ProgramOptions& o) {
    o.device.root = DefaultDeviceRoot();
    if (const char* card = std::getenv("ZELVOR_CARD"); card && *card)
        o.device.card = card;
    for (qsizetype i = 1; i < args.size(); ++i) {
        const QString& a = args[i];
        const bool takesValue = a == "--root" || a == "--card" || a == "--flash" ||
                                a == "--program-dir" || a == "--screen" || a == "--tour";
        if (!takesValue) {
            if (a.startsWith("--"))
                return "unknown option " + a.toStdString();
            if (!o.commandLine.empty())
                o.commandLine += u' ';
            o.commandLine += a.toStdU16String();
            continue;
        }
        if (i + 1 >= args.size())
            return a.toStdString() + " needs a value";
        const QString value = args[++i];
        if (a == "--root")
            o.device.root = value.toStdString();
        else if (a == "--card")
            o.device.card = value.toStdString();
        else if (a == "--flash")
            o.device.flash = value.toStdString();
        else if (a == "--program-dir")
            o.device.programDirectory = value.toStdU16String();
        else if (a == "--tour")
            o.tour = value;
        else if (auto screen = ParseScreen(value))
            o.screen = *screen;
        else
            return "--screen wants WIDTHxHEIGHT, e.g. 240x320";
    }
    return std::nullopt;
}

// Termination signals reach the event loop through a pipe; the handler
// itself only stops a running library update and writes one byte.
int g_signalPipe[2] = {-1, -1};
std::atomic<FrameLibrary*> g_library{nullptr};

void OnTerminationSignal(int) {
    if (FrameLibrary* library = g_library.load())
        library->RequestStop();
    const char byte = 1;
    [[maybe_unused]] auto written = ::write(g_signalPipe[1], &byte, 1);
}

void CloseOnTerminationSignals(HostApplicationShell& shell, QObject* owner) {
    if (::pipe(g_signalPipe) != 0)
        return;
    auto* notifier = new QSocketNotifier(g_signalPipe[0], QSocketNotifier::Read, owner);
    QObject::connect(notifier, &QSocketNotifier::activated, owner, [&shell] {
        char byte;
        [[maybe_unused]] auto got = ::read(g_signalPipe[0], &byte, 1);
        if (CMainFrame* frame = shell.Frame())
            frame->PostFrameMessage({kMsgClose, 0, 0});
    });
    g_library.store(&shell.Frame()->Rules().LibraryRules());
    std::signal(SIGINT, OnTerminationSignal);
    std::signal(SIGTERM, OnTerminationSignal);
}

// The start-up benchmark's probe (ZELVOR_START_PROBE): watches every event
// for the player screen's first paint.
class StartProbe final : public QObject {
public:
    StartProbe() { m_sinceMain.start(); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!m_painted && event->type() == QEvent::Paint &&
            dynamic_cast<CPlayerScreen*>(watched) != nullptr) {
            m_painted = true;
            // Queued, so that it runs once this paint is done.
            QTimer::singleShot(0, this, [this] {
                std::printf("first-paint-ms %lld\n", static_cast<long long>(m_sinceMain.elapsed()));
                std::fflush(stdout);
                QTimer::singleShot(1000, this, [] { ReportMemoryAndEnd(); });
            });
        }
        return false;
    }

private:
    static void ReportMemoryAndEnd() {
        std::ifstream status("/proc/self/status");
        for (std::string line; std::getline(status, line);) {
            if (line.rfind("VmRSS:", 0) == 0)
                std::printf("rss-kb %lld\n", std::atoll(line.c_str() + 6));
        }
        std::fflush(stdout);
        std::_Exit(0);
    }
    QElapsedTimer m_sinceMain;
    bool m_painted = false;
};

} // namespace

int main(int argc, char** argv) {
    if (auto status = AnswerStandardOptions(kProgram, argc, argv))
        return *status;
    std::optional<StartProbe> probe;
    if (const char* wanted = std::getenv("ZELVOR_START_PROBE"); wanted && *wanted == '1')
        probe.emplace();
    QApplication qtApp(argc, argv);
    if (probe)
        qtApp.installEventFilter(&*probe);
    qtApp.setQuitOnLastWindowClosed(false);
    ProgramOptions options;
    if (auto why = ParseOptions(qtApp.arguments(), options))
        return UsageError(kProgram, *why);

    std::string error;
    auto device = Device::Open(options.device, &error);
    if (!device)
        return Failure(kProgram.name, error);
    ScopedCurrentDevice current(*device);
    ProvideDesktopSkins(*device, QCoreApplication::applicationDirPath());
    SetDesktopIdentity(QCoreApplication::applicationDirPath());

    // Every track plays through one factory's graphs (ZELVOR_AUDIO_SINK
    // chooses where the sound goes); it outlives the frame and its player.
    GstGraphFactory graphs;
    HostApplicationOptions hostOptions;
    hostOptions.deviceRoot = device->Root();
    hostOptions.screen = options.screen;
    hostOptions.builder = [](std::u16string_view path, int typeCode) {
        return BuildTrackRecord(path, typeCode);
    };
    hostOptions.panes.player = [&graphs](QWidget* parent, FrameMessages& frame) {
        const auto orientation =
            AppValues().portrait ? ScreenOrientation::Portrait : ScreenOrientation::Landscape;
        return std::make_unique<CPlayerScreen>(frame, graphs, orientation, PlayerScreenHost{},
                                               parent);
    };
    hostOptions.panes.browser = [builder = hostOptions.builder](
                                    QWidget* parent, FrameMessages& frame, TrackList& library) {
        return std::make_unique<CBrowserScreen>(frame, library, builder, nullptr, parent);
    };
    HostApplicationShell shell(std::move(hostOptions));
    EndpointInstanceEnvironment environment(device->Root(), options.screen);
    CZelvorApp app(environment, shell);
    if (!app.InitInstance(options.commandLine))
        return app.ExitInstance();

    CloseOnTerminationSignals(shell, &qtApp);
    const auto postToFrame = [&shell](const WindowMessage& message) {
        if (CMainFrame* frame = shell.Frame())
            frame->PostFrameMessage(message);
    };
    // A desktop mounts and unmounts the card; the frame hears of it as it
    // hears of the device shell's card.
    const auto cardWatcher = WatchStorageCard(*device, postToFrame);
    // The desktop's remote control, while a session bus is there.
    const auto remoteControl = MprisService::Start(
        {[&shell]() -> Player* {
             CMainFrame* frame = shell.Frame();
             PlayerPane* pane = frame ? frame->PlayerScreen() : nullptr;
             return pane ? pane->RemoteControlPlayer() : nullptr;
         },
         postToFrame});
    std::optional<DemoTour> tour;
    if (options.tour) {
        tour.emplace(*shell.Frame(), *options.tour);
        tour->Start();
    }
    const int result = qtApp.exec();
    g_library.store(nullptr);
    tour.reset();
    app.ExitInstance();
    return result;
}
