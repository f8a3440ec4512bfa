#pragma once
// What every command-line program of the project does alike: --help prints
// the usage on standard output and succeeds, --version prints the program's
// name and the project version, a usage error prints the problem and the
// usage on standard error, and any failure ends with a non-zero status.

#include <optional>
#include <string_view>

namespace zelvor {

constexpr int kExitSuccess = 0;
constexpr int kExitFailure = 1; // the program could not do what it was asked
constexpr int kExitUsage = 2;   // the command line was wrong

struct ProgramUsage {
    std::string_view name;  // as the user types it, e.g. "zelvor-lib"
    std::string_view usage; // whole lines, each ending in a newline
};

// The project version the programs report.
std::string_view ProgramVersion();

// Answers --help or -h and --version, wherever they stand among the
// arguments (argv[0] excluded), with the exit status to end with; nullopt
// when neither is there and the program goes on.
std::optional<int> AnswerStandardOptions(const ProgramUsage& program, int argc,
                                         const char* const* argv);

// "name: problem" and the usage on standard error; returns kExitUsage.
int UsageError(const ProgramUsage& program, std::string_view problem);

// "name: problem" on standard error; returns kExitFailure.
int Failure(std::string_view name, std::string_view problem);

} // namespace zelvor
