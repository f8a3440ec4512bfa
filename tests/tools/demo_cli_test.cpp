// How zelvor-demo behaves as a command: the same bytes on every run, a
// refused or kept root, and one clear line when ffmpeg is missing or fails.

#include "tests/tools/demo_fixture.h"

#include <fstream>
#include <gtest/gtest.h>
#include <map>

namespace zelvor::testing {
namespace {
namespace fs = std::filesystem;

std::map<std::string, std::string> AllFiles(const fs::path& root) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        std::ifstream in(entry.path(), std::ios::binary);
        if (entry.is_regular_file())
            files[fs::relative(entry.path(), root).string()] =
                std::string(std::istreambuf_iterator<char>(in), {});
    }
    return files;
}

// A refusal is exit status 1 and one line that names the cause.
void ExpectOneLineFailure(const ToolRun& run, const std::string& cause) {
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(std::count(run.output.begin(), run.output.end(), '\n'), 1) << run.output;
    EXPECT_NE(run.output.find(cause), std::string::npos) << run.output;
}

TEST(DemoCli, SameBytesOnEveryRunAndForceReplacesAStaleRoot) {
    const DemoDevice& demo = Demo();
    ASSERT_EQ(demo.runA.exitStatus, 0) << demo.runA.output;
    ASSERT_EQ(demo.runB.exitStatus, 0) << demo.runB.output;
    auto a = AllFiles(demo.rootA), b = AllFiles(demo.rootB);
    EXPECT_FALSE(b.count("Storage Card/Old/stale.mp3"));
    ASSERT_EQ(a.size(), b.size());
    for (const auto& [path, bytes] : a)
        EXPECT_TRUE(b[path] == bytes) << path << " differs between two runs";
}

TEST(DemoCli, ExistingRootIsRefusedWithoutForce) {
    const DemoDevice& demo = Demo();
    auto before = fs::last_write_time(demo.rootA / "demo-manifest.jsonl");
    ExpectOneLineFailure(RunDemoTool({"make", "--root", demo.rootA.string()}), "--force");
    EXPECT_EQ(fs::last_write_time(demo.rootA / "demo-manifest.jsonl"), before);
}

TEST(DemoCli, ForceRefusesAFolderThatIsNoDeviceRoot) {
    TempDir dir;
    std::ofstream(dir.Path() / "thesis.tex") << "precious";
    ExpectOneLineFailure(RunDemoTool({"make", "--root", dir.Path().string(), "--force"}), "");
    EXPECT_TRUE(fs::exists(dir.Path() / "thesis.tex"));
}

// With no ffmpeg on the path nothing is made; with one that fails, its last
// line is the cause and the old root stays.
TEST(DemoCli, MissingOrFailingEncoderIsOneLineAndKeepsTheOldRoot) {
    TempDir emptyPath, bin, out;
    ExpectOneLineFailure(RunDemoTool({"make", "--root", (out.Path() / "none").string()},
                                     emptyPath.Path().string()),
                         "ffmpeg");
    EXPECT_FALSE(fs::exists(out.Path() / "none"));
    std::ofstream(bin.Path() / "ffmpeg") << "#!/bin/sh\necho 'Unknown encoder libmp3lame' >&2\nexit 1\n";
    fs::permissions(bin.Path() / "ffmpeg", fs::perms::owner_all);
    const fs::path root = out.Path() / "device";
    fs::create_directories(root / "Flash Disk");
    fs::create_directories(root / "Storage Card");
    std::ofstream(root / "Storage Card" / "keep.mp3") << "old";
    ExpectOneLineFailure(RunDemoTool({"make", "--root", root.string(), "--force"}, bin.Path().string()),
                         "Unknown encoder libmp3lame");
    EXPECT_TRUE(fs::exists(root / "Storage Card" / "keep.mp3"));
}

} // namespace
} // namespace zelvor::testing
