#include "tests/ui/player_screen_rig.h"

#include <QDir>
#include <QKeyEvent>
#include <QMouseEvent>

#include "platform/text.h"

namespace zelvor::testing {
namespace {

const std::u16string kMusic = u"\\Storage Card\\Music\\";

void SendMouse(QWidget& widget, QEvent::Type type, QPoint at, Qt::MouseButton button,
               Qt::MouseButtons held) {
    QMouseEvent event(type, QPointF(at), widget.mapToGlobal(QPointF(at)), button, held,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

void EnsureWidgetApplication() {
    if (QApplication::instance() != nullptr)
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "zelvor_test_player_screen";
    static char* argv[] = {name, nullptr};
    // Kept for the life of the program: destroying it during static
    // destruction would outlive the platform plugin.
    static QApplication* app = new QApplication(argc, argv);
    (void)app;
}

ScreenRig::ScreenRig(ScreenOrientation orientation) {
    EnsureWidgetApplication();
    MakeScreen(orientation);
}

ScreenRig::~ScreenRig() {
    DestroyScreen();
}

void ScreenRig::MakeScreen(ScreenOrientation orientation) {
    DestroyScreen();
    m_screen = std::make_unique<CPlayerScreen>(frame, factory, orientation, host.Services());
    m_screen->show();
    QApplication::processEvents();
}

void ScreenRig::DestroyScreen() {
    m_screen.reset();
}

TrackList ScreenRig::MakeList(std::initializer_list<std::u16string_view> names, int seconds) {
    TrackList list;
    for (auto name : names) {
        std::u16string path = kMusic + std::u16string(name);
        device.WriteFile(path, "audio");
        factory.script.durations[ToUtf8(name)] = std::int64_t{seconds} * 10000000;
        auto record = std::make_unique<TrackRecord>();
        record->SetField(kFieldPath, path);
        record->SetField(kFieldTitle, std::u16string(name.substr(0, name.find(u'.'))));
        list.AddTrack(std::move(record));
    }
    return list;
}

void ScreenRig::PlayList(std::initializer_list<std::u16string_view> names, int seconds) {
    TrackList list = MakeList(names, seconds);
    m_screen->ReplaceQueue(list);
}

void ScreenRig::Press(QPoint at) {
    SendMouse(*m_screen, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
}

void ScreenRig::MoveTo(QPoint at) {
    SendMouse(*m_screen, QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton);
}

void ScreenRig::Release(QPoint at) {
    SendMouse(*m_screen, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
}

void ScreenRig::Tap(QPoint at) {
    Press(at);
    Release(at);
}

QPoint ScreenRig::Centre(int button) const {
    const PixelRect& r = m_screen->Geometry().buttons[static_cast<std::size_t>(button)];
    return {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
}

bool ScreenRig::KeyPress(int qtKey, bool autoRepeat) {
    QKeyEvent event(QEvent::KeyPress, qtKey, Qt::NoModifier, QString(), autoRepeat);
    QApplication::sendEvent(m_screen.get(), &event);
    return event.isAccepted();
}

void ScreenRig::KeyRelease(int qtKey, bool autoRepeat) {
    QKeyEvent event(QEvent::KeyRelease, qtKey, Qt::NoModifier, QString(), autoRepeat);
    QApplication::sendEvent(m_screen.get(), &event);
}

QString ArtifactPath(const QString& fileName) {
    QString folder = qEnvironmentVariable("TEST_OUTPUT_DIR");
    if (folder.isEmpty())
        folder = QStringLiteral(ZELVOR_ARTIFACT_DIR);
    QDir().mkpath(folder);
    return QDir(folder).filePath(fileName);
}

std::string OrientationName(const ::testing::TestParamInfo<ScreenOrientation>& info) {
    return info.param == ScreenOrientation::Portrait ? "Portrait" : "Landscape";
}

QRgb PixelAt(const QImage& image, QPoint at) {
    return image.pixel(at) | 0xFF000000u;
}

} // namespace zelvor::testing
