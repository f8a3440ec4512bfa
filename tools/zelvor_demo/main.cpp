// zelvor-demo: makes a demo device for the player, for scripts and tests.
//
//   zelvor-demo make --root DIR [--skins DIR] [--force]
//
// Exit status: 0 made, 1 failed (one line on standard error), 2 bad usage.

#include "app/program_cli.h"
#include "tools/zelvor_demo/demo_maker.h"

#include <cstdio>
#include <string>
#include <string_view>

namespace {

constexpr const char* kUsage =
    "usage: zelvor-demo make --root DIR [--skins DIR] [--force]\n"
    "  Makes a demo device at DIR: music on the storage card and the flash disk,\n"
    "  Ombrel.txt, the registry values, the two sounds and a manifest\n"
    "  (DIR/demo-manifest.jsonl). --skins copies Zelvor*.rcc from DIR when present;\n"
    "  --force removes an existing device root first.\n"
    "       zelvor-demo --help | --version\n";
constexpr zelvor::ProgramUsage kProgram{"zelvor-demo", kUsage};

int Usage(std::string_view problem) {
    return zelvor::UsageError(kProgram, problem);
}

} // namespace

int main(int argc, char** argv) {
    if (auto status = zelvor::AnswerStandardOptions(kProgram, argc, argv))
        return *status;
    if (argc < 2 || std::string_view(argv[1]) != "make")
        return Usage(argc < 2 ? "missing command" : "unknown command");

    zelvor::demo::DemoOptions options;
    for (int i = 2; i < argc; ++i) {
        std::string_view arg = argv[i];
        if (arg == "--force") {
            options.force = true;
        } else if ((arg == "--root" || arg == "--skins") && i + 1 < argc) {
            (arg == "--root" ? options.root : options.skins.emplace()) = argv[++i];
        } else {
            return Usage("unexpected argument " + std::string(arg));
        }
    }
    if (options.root.empty())
        return Usage("--root DIR is required");

    std::string error;
    if (!zelvor::demo::MakeDemoDevice(options, &error))
        return zelvor::Failure(kProgram.name, error);
    std::printf("demo device made at %s\n", options.root.c_str());
    return 0;
}
