#include "tests/tools/demo_fixture.h"

#include "platform/text.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include <sys/wait.h>

namespace zelvor::testing {
namespace fs = std::filesystem;
namespace {

// A manifest line is a flat JSON object of exactly these twelve keys, each of
// its own type; "excluded" is a string or null.
std::optional<ManifestRow> ToRow(const std::string& line) {
    QJsonParseError error;
    QJsonObject o = QJsonDocument::fromJson(QByteArray::fromStdString(line), &error).object();
    bool ok = error.error == QJsonParseError::NoError && o.size() == 12;
    auto text = [&](const char* key) {
        ok = ok && o.value(key).isString();
        return o.value(key).toString().toStdU16String();
    };
    auto number = [&](const char* key) {
        QJsonValue v = o.value(key);
        ok = ok && v.isDouble() && v.toDouble() == static_cast<double>(v.toInteger());
        return static_cast<long long>(v.toInteger());
    };
    QJsonValue hidden = o.value("hidden"), excluded = o.value("excluded");
    ManifestRow row{text("path"),   ToUtf8(text("type")), ToUtf8(text("tags")), text("title"),
                    text("artist"), text("album"),        text("genre"),        text("year"),
                    number("track"), number("seconds"),   hidden.toBool(),
                    excluded.toString().toStdString()};
    ok = ok && hidden.isBool() && (excluded.isString() || excluded.isNull());
    return ok ? std::optional(row) : std::nullopt;
}

void LoadManifest(DemoDevice& demo) {
    std::ifstream in(demo.rootA / "demo-manifest.jsonl", std::ios::binary);
    demo.manifestError = in ? "" : "no manifest";
    std::string line;
    while (in && std::getline(in, line)) {
        auto row = ToRow(line);
        if (!row) {
            demo.manifestError = "malformed line: " + line;
            return;
        }
        demo.manifest.push_back(std::move(*row));
    }
}

} // namespace

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
        LoadManifest(*made);
        return made;
    }();
    return *demo;
}

} // namespace zelvor::testing
