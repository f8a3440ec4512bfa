// Every program answers --help on standard output and --version with the
// project's version, refuses an unknown option with its usage on standard
// error and status 2, and fails with a non-zero status when it could not do
// its work.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include <sys/wait.h>

#include "tests/support/test_device.h"

namespace zelvor {
namespace {

struct ProgramRun {
    int status = -1;
    std::string out;
    std::string err;
};

ProgramRun RunProgram(const std::string& program, const std::string& arguments) {
    testing::TempDir dir;
    const auto out = dir.Path() / "out", err = dir.Path() / "err";
    const std::string command = program + " " + arguments + " >" + out.string() + " 2>" + err.string();
    const int raw = std::system(command.c_str());
    auto read = [](const std::filesystem::path& path) {
        std::ifstream in(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    };
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, read(out), read(err)};
}

struct Program {
    const char* name;
    const char* path;
};

void PrintTo(const Program& program, std::ostream* out) {
    *out << program.name;
}

class ProgramCli : public ::testing::TestWithParam<Program> {};

TEST_P(ProgramCli, HelpVersionAndUnknownOptions) {
    const ProgramRun help = RunProgram(GetParam().path, "--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.out.rfind("usage: " + std::string(GetParam().name), 0), 0u) << help.out;
    EXPECT_EQ(help.err, "");

    const ProgramRun version = RunProgram(GetParam().path, "--version");
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, std::string(GetParam().name) + " " ZELVOR_VERSION "\n");

    const ProgramRun wrong = RunProgram(GetParam().path, "--no-such-option");
    EXPECT_EQ(wrong.status, 2);
    EXPECT_EQ(wrong.out, "");
    EXPECT_NE(wrong.err.find("usage: "), std::string::npos) << wrong.err;
}

INSTANTIATE_TEST_SUITE_P(Programs, ProgramCli,
                         ::testing::Values(Program{"zelvor", ZELVOR_PLAYER_PATH},
                                           Program{"zelvor-lib", ZELVOR_LIB_PATH},
                                           Program{"zelvor-send", ZELVOR_SEND_PATH},
                                           Program{"zelvor-demo", ZELVOR_DEMO_PATH},
                                           Program{"zelvor-skin", ZELVOR_SKIN_PATH}),
                         [](const auto& test) {
                             std::string name = test.param.name;
                             std::erase(name, '-');
                             return name;
                         });

// A scan that cannot save the library (its name taken by a folder) prints
// its figures, says why and fails.
TEST(ZelvorLibScan, WriteThatCannotSaveFails) {
    testing::TestDevice device;
    std::filesystem::create_directories(device.Host(u"\\\\Flash Disk\\\\Zelvor\\\\MusicLib.qdx"));
    const ProgramRun scan = RunProgram(ZELVOR_LIB_PATH, "scan --write --root " + device.Root().string());
    EXPECT_EQ(scan.status, 1);
    EXPECT_NE(scan.out.find("\"found\""), std::string::npos) << scan.out;
    EXPECT_NE(scan.err.find("could not be saved"), std::string::npos) << scan.err;
}

} // namespace
} // namespace zelvor
