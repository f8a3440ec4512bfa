#include "tests/support/qt_app.h"

#include <QApplication>
#include <QElapsedTimer>

namespace zelvor::testing {

void EnsureQtApplication() {
    if (QCoreApplication::instance() != nullptr)
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "zelvor_test";
    static char* argv[] = {name, nullptr};
    // Kept for the life of the test program: destroying it during static
    // destruction would outlive the platform plugin.
    static QApplication* app = new QApplication(argc, argv);
    app->setQuitOnLastWindowClosed(false);
}

void SpinEvents(int milliseconds) {
    QElapsedTimer timer;
    timer.start();
    do
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    while (timer.elapsed() < milliseconds);
}

bool SpinUntil(const std::function<bool()>& condition, int timeoutMs) {
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < timeoutMs)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    return condition();
}

std::filesystem::path ArtifactDirOr(const std::filesystem::path& fallback) {
    const QByteArray fromEnvironment = qgetenv("TEST_OUTPUT_DIR");
    std::filesystem::path dir =
        fromEnvironment.isEmpty() ? fallback : std::filesystem::path(fromEnvironment.toStdString());
    std::filesystem::create_directories(dir);
    return dir;
}

} // namespace zelvor::testing
