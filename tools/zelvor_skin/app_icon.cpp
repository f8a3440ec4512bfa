#include "app_icon.h"

#include <QDir>
#include <QFile>

#include "palette.h"
#include "ui/widgets/drawing/program_icon.h"

namespace zelvor::skin {

const std::vector<int>& AppIconSizes() {
    static const std::vector<int> sizes = {16, 22, 24, 32, 48, 64, 128, 256};
    return sizes;
}

bool WriteAppIcons(const QString& folder, QString* error) {
    const QDir root(folder);
    for (int size : AppIconSizes()) {
        const QString dir = QStringLiteral("hicolor/%1x%1/apps").arg(size);
        const QString path = root.filePath(dir + QStringLiteral("/zelvor.png"));
        if (!root.mkpath(dir) || !PaintProgramIcon(size, PaletteFor(0).accent).save(path, "PNG")) {
            *error = QStringLiteral("cannot write ") + path;
            return false;
        }
    }
    const QString dir = QStringLiteral("hicolor/scalable/apps");
    QFile svg(root.filePath(dir + QStringLiteral("/zelvor.svg")));
    if (!root.mkpath(dir) || !svg.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        svg.write(ProgramIconSvg(PaletteFor(0).accent).toUtf8()) < 0) {
        *error = QStringLiteral("cannot write ") + svg.fileName();
        return false;
    }
    return true;
}

} // namespace zelvor::skin
