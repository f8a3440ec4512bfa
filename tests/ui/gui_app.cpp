#include "gui_app.h"

#include <QGuiApplication>

namespace zelvor::testing {

void EnsureGuiApplication() {
    if (QGuiApplication::instance() != nullptr) {
        return;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "zelvor_test_ui";
    static char* argv[] = {name, nullptr};
    // Kept for the life of the test program; destroying it during static
    // destruction would outlive the platform plugin.
    static QGuiApplication* app = new QGuiApplication(argc, argv);
    (void)app;
}

} // namespace zelvor::testing
