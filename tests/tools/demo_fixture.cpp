#include "tests/tools/demo_fixture.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include <sys/wait.h>

namespace zelvor::testing {
namespace fs = std::filesystem;

ToolRun RunDemoTool(const std::vector<std::string>& args, const std::optional<std::string>& path) {
    TempDir dir;
    std::string command = path ? "env PATH='" + *path + "' " ZELVOR_DEMO_TOOL : ZELVOR_DEMO_TOOL;
    for (const std::string& arg : args)
        command += " '" + arg + "'";
    command += " >'" + (dir.Path() / "log").string() + "' 2>&1";
    const int raw = std::system(command.c_str());
    std::ifstream in(dir.Path() / "log");
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, std::string(std::istreambuf_iterator<char>(in), {})};
}

DemoDevice& Demo() {
    static std::unique_ptr<DemoDevice> demo = [] {
        auto made = std::make_unique<DemoDevice>();
        made->rootA = made->dir.Path() / "a";
        made->rootB = made->dir.Path() / "b";
        made->runA = RunDemoTool({"make", "--root", made->rootA.string()});
        // A stale device root for the --force run: the layout and a file that must go.
        fs::create_directories(made->rootB / "Storage Card" / "Old");
        fs::create_directories(made->rootB / "Flash Disk");
        std::ofstream(made->rootB / "Storage Card" / "Old" / "stale.mp3") << "stale";
        made->runB =
            RunDemoTool({"make", "--root", made->rootB.string(), "--force"});
        std::string error;
        made->device = Device::Open({made->rootA}, &error);
        if (!made->device) {
            std::fprintf(stderr, "cannot open the demo device: %s\n%s", error.c_str(),
                         made->runA.output.c_str());
            std::exit(1);
        }
        return made;
    }();
    return *demo;
}

} // namespace zelvor::testing
