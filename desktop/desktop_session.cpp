#include "desktop/desktop_session.h"

#include <QGuiApplication>
#include <QFile>
#include <QIcon>

#include "config/settings.h"
#include "desktop/skin_bundle_install.h"
#include "platform/debug_print.h"
#include "platform/device.h"

namespace zelvor {

void ProvideDesktopSkins(const Device& device, const QString& programFolder) {
    const auto target = device.FileSystem().ToHostPath(device.ProgramDirectory());
    if (!target)
        return;
    const std::filesystem::path folder = programFolder.toStdString();
    if (const int copied = ProvideSkinBundles(*target, InstalledSkinFolders(folder)))
        DebugPrint(QStringLiteral("Zelvor: %1 colour bundles put in the program directory")
                       .arg(copied).toStdU16String());
}

std::unique_ptr<CardWatcher> WatchStorageCard(const Device& device, CardWatcher::Poster post) {
    const auto folder = device.FileSystem().ToHostPath(GetStorageCardRoot());
    if (!folder)
        return nullptr;
    return std::make_unique<CardWatcher>(*folder, std::move(post));
}

void SetDesktopIdentity(const QString& programFolder) {
    QGuiApplication::setDesktopFileName(QStringLiteral("zelvor"));
    QIcon icon = QIcon::fromTheme(QStringLiteral("zelvor"));
    if (icon.isNull()) {
        for (const char* tree : {"/../share/icons/hicolor", "/../skins/icons/hicolor"}) {
            const QString root = programFolder + QLatin1String(tree);
            for (int size : {16, 32, 48, 64, 128, 256}) {
                const QString file = QStringLiteral("%1/%2x%2/apps/zelvor.png").arg(root).arg(size);
                if (QFile::exists(file))
                    icon.addFile(file);
            }
            if (!icon.isNull())
                break;
        }
    }
    QGuiApplication::setWindowIcon(icon);
}

} // namespace zelvor
