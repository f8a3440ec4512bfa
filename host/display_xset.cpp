#include "host/display_xset.h"

#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>

namespace zelvor {

QString FindXsetForDisplay() {
    if (QGuiApplication::platformName() != QStringLiteral("xcb"))
        return {};
    return QStandardPaths::findExecutable(QStringLiteral("xset"));
}

bool RunXset(const QString& xset, const QStringList& arguments) {
    return !xset.isEmpty() && QProcess::startDetached(xset, arguments);
}

} // namespace zelvor
