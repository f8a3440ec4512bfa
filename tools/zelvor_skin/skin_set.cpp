#include "skin_set.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

#include "browser_art.h"
#include "palette.h"
#include "player_art.h"

namespace zelvor::skin {

SkinImages RenderSkinSet(int colour) {
    const Palette palette = PaletteFor(colour);
    SkinImages images;
    AddPlayerArt(images, palette);
    AddBrowserArt(images, palette);
    return images;
}

bool WriteSkinSet(const SkinImages& images, const QString& folder, const QString& qrcName,
                  const QString& prefix, QString* error) {
    const auto fail = [error](const QString& reason) {
        if (error != nullptr) {
            *error = reason;
        }
        return false;
    };
    QDir dir(folder);
    if (!dir.mkpath(QStringLiteral("."))) {
        return fail(QStringLiteral("cannot create ") + folder);
    }
    QString qrc;
    QTextStream out(&qrc);
    out << "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n<qresource prefix=\"" << prefix << "\">\n";
    for (const auto& [id, image] : images) {
        const QString name = QString::number(id) + QStringLiteral(".png");
        if (!image.save(dir.filePath(name), "PNG")) {
            return fail(QStringLiteral("cannot write ") + dir.filePath(name));
        }
        out << "  <file>" << name << "</file>\n";
    }
    out << "</qresource>\n</RCC>\n";
    out.flush();
    QFile file(dir.filePath(qrcName));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(qrc.toUtf8()) != qrc.toUtf8().size()) {
        return fail(QStringLiteral("cannot write ") + file.fileName());
    }
    return true;
}

} // namespace zelvor::skin
