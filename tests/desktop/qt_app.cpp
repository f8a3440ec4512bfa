#include "tests/desktop/qt_app.h"

#include <QCoreApplication>

namespace zelvor::testing {

void EnsureCoreApplication() {
    if (QCoreApplication::instance() != nullptr)
        return;
    static int argc = 1;
    static char name[] = "zelvor_test_desktop";
    static char* argv[] = {name, nullptr};
    // Kept for the life of the program, like the other test programs' apps.
    static QCoreApplication* app = new QCoreApplication(argc, argv);
    (void)app;
}

} // namespace zelvor::testing
