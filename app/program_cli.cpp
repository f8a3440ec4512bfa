#include "app/program_cli.h"

#include <cstdio>

namespace zelvor {
namespace {

void Write(std::FILE* out, std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), out);
}

} // namespace

std::string_view ProgramVersion() {
    return ZELVOR_VERSION;
}

std::optional<int> AnswerStandardOptions(const ProgramUsage& program, int argc,
                                         const char* const* argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        if (arg == "--help" || arg == "-h") {
            Write(stdout, program.usage);
            return kExitSuccess;
        }
        if (arg == "--version") {
            std::printf("%.*s %.*s\n", static_cast<int>(program.name.size()), program.name.data(),
                        static_cast<int>(ProgramVersion().size()), ProgramVersion().data());
            return kExitSuccess;
        }
    }
    return std::nullopt;
}

int UsageError(const ProgramUsage& program, std::string_view problem) {
    std::fprintf(stderr, "%.*s: %.*s\n", static_cast<int>(program.name.size()),
                 program.name.data(), static_cast<int>(problem.size()), problem.data());
    Write(stderr, program.usage);
    return kExitUsage;
}

int Failure(std::string_view name, std::string_view problem) {
    std::fprintf(stderr, "%.*s: %.*s\n", static_cast<int>(name.size()), name.data(),
                 static_cast<int>(problem.size()), problem.data());
    return kExitFailure;
}

} // namespace zelvor
