// zelvor-skin: draws the skin's bitmaps from code.
//
//   zelvor-skin generate --colour N --out DIR [--prefix /PATH] [--qrc NAME]
//       every bitmap as DIR/<id>.png and a resource collection DIR/NAME
//       (default skin.qrc) listing them under PATH (default "/"), for rcc
//   zelvor-skin preview --colour N --out DIR
//       a contact sheet and mock-ups of the screens as PNGs
//   zelvor-skin icon --out DIR
//       the program's desktop icon: DIR/hicolor/<n>x<n>/apps/zelvor.png and
//       DIR/hicolor/scalable/apps/zelvor.svg
//
// Colours: 0 the program's own set, 1 Blue, 2 Red, 3 Orange, 4 Green.

#include <QGuiApplication>
#include <QStringList>
#include <cstdio>
#include <optional>

#include "app_icon.h"
#include "palette.h"
#include "preview.h"
#include "skin_set.h"
#include "app/program_cli.h"
#include "ui/rules/layout/skin_catalogue.h"

namespace {

using namespace zelvor;
using namespace zelvor::skin;

constexpr ProgramUsage kProgram{
    "zelvor-skin",
    "usage: zelvor-skin generate --colour 0-4 --out DIR [--prefix /PATH] [--qrc NAME]\n"
    "       zelvor-skin preview --colour 0-4 --out DIR\n"
    "       zelvor-skin icon --out DIR\n"
    "       zelvor-skin --help | --version\n"};

struct Options {
    QString command;
    int colour = -1;
    QString out;
    QString prefix = QStringLiteral("/");
    QString qrc = QStringLiteral("skin.qrc");
};

std::optional<Options> Parse(const QStringList& args) {
    if (args.size() < 2) {
        return std::nullopt;
    }
    Options o;
    o.command = args[1];
    for (qsizetype i = 2; i + 1 < args.size(); i += 2) {
        const QString& key = args[i];
        const QString& value = args[i + 1];
        if (key == QStringLiteral("--colour")) {
            bool ok = false;
            o.colour = value.toInt(&ok);
            if (!ok) {
                return std::nullopt;
            }
        } else if (key == QStringLiteral("--out")) {
            o.out = value;
        } else if (key == QStringLiteral("--prefix")) {
            o.prefix = value;
        } else if (key == QStringLiteral("--qrc")) {
            o.qrc = value;
        } else {
            return std::nullopt;
        }
    }
    if (args.size() % 2 != 0 || o.colour < 0 || o.colour >= kSkinColourCount || o.out.isEmpty()) {
        return std::nullopt;
    }
    return o;
}

// The drawing code and the catalogue must agree on every number and size.
bool MatchesCatalogue(const SkinImages& images) {
    bool ok = true;
    for (const SkinBitmapInfo& info : SkinBitmapCatalogue()) {
        const auto it = images.find(info.id);
        if (it == images.end()) {
            std::fprintf(stderr, "zelvor-skin: bitmap %u is not drawn\n", info.id);
            ok = false;
        } else if (it->second.width() != info.size.width ||
                   it->second.height() != info.size.height) {
            std::fprintf(stderr, "zelvor-skin: bitmap %u is %dx%d, not %dx%d\n", info.id,
                         it->second.width(), it->second.height(), info.size.width,
                         info.size.height);
            ok = false;
        }
    }
    if (images.size() != SkinBitmapCatalogue().size()) {
        std::fprintf(stderr, "zelvor-skin: %zu bitmaps drawn, the catalogue has %zu\n",
                     images.size(), SkinBitmapCatalogue().size());
        ok = false;
    }
    return ok;
}

} // namespace

int main(int argc, char** argv) {
    if (auto status = AnswerStandardOptions(kProgram, argc, argv)) {
        return *status;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() == 4 && args[1] == QStringLiteral("icon") &&
        args[2] == QStringLiteral("--out")) {
        QString error;
        if (!WriteAppIcons(args[3], &error)) {
            std::fprintf(stderr, "zelvor-skin: %s\n", qPrintable(error));
            return 1;
        }
        return 0;
    }
    const auto options = Parse(app.arguments());
    if (!options ||
        (options->command != QStringLiteral("generate") &&
         options->command != QStringLiteral("preview"))) {
        return UsageError(kProgram, "bad arguments");
    }
    const SkinImages images = RenderSkinSet(options->colour);
    if (!MatchesCatalogue(images)) {
        return kExitFailure;
    }
    QString error;
    const bool written =
        options->command == QStringLiteral("generate")
            ? WriteSkinSet(images, options->out, options->qrc, options->prefix, &error)
            : WritePreview(images, PaletteFor(options->colour).name, options->out, &error);
    if (!written) {
        return Failure(kProgram.name, error.toStdString());
    }
    return kExitSuccess;
}
