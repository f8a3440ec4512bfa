#include "tests/tools/demo_fixture.h"

#include "platform/text.h"
#include "tools/zelvor_demo/process_runner.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

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
    if (!in) {
        demo.manifestError = "no manifest";
        return;
    }
    std::string line;
    int number = 0;
    while (std::getline(in, line)) {
        ++number;
        auto row = ToRow(line);
        if (!row) {
            demo.manifestError = "line " + std::to_string(number) + " is malformed: " + line;
            return;
        }
        demo.manifest.push_back(std::move(*row));
    }
}

// A stale device root for the --force run: the layout and a file that must go.
void MakeStaleRoot(const fs::path& root) {
    fs::create_directories(root / "Storage Card" / "Old");
    fs::create_directories(root / "Flash Disk");
    std::ofstream(root / "Storage Card" / "Old" / "stale.mp3") << "stale";
}

} // namespace

ToolRun RunDemoTool(const std::vector<std::string>& args, const std::optional<std::string>& path) {
    static TempDir logs;
    static int counter = 0;
    demo::ProcessJob job;
    if (path) {
        job.argv = {demo::FindProgram("env").value_or("/usr/bin/env").string(), "PATH=" + *path};
    }
    job.argv.push_back(ZELVOR_DEMO_TOOL);
    job.argv.insert(job.argv.end(), args.begin(), args.end());
    job.log = logs.Path() / ("run-" + std::to_string(++counter) + ".log");
    auto failure = demo::RunProcesses(std::span(&job, 1), 1);
    std::ifstream in(job.log);
    std::string output((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    return {failure ? failure->exitStatus : 0, output};
}

DemoDevice& Demo() {
    static std::unique_ptr<DemoDevice> demo = [] {
        auto made = std::make_unique<DemoDevice>();
        made->rootA = made->dir.Path() / "a";
        made->rootB = made->dir.Path() / "b";
        made->skins = made->dir.Path() / "skins";
        fs::create_directories(made->skins);
        std::ofstream(made->skins / "ZelvorBlue.rcc", std::ios::binary) << "blue skin";
        std::ofstream(made->skins / "ZelvorGreen.rcc", std::ios::binary) << "green skin";
        std::string skins = made->skins.string();
        made->runA = RunDemoTool({"make", "--root", made->rootA.string(), "--skins", skins});
        MakeStaleRoot(made->rootB);
        made->runB =
            RunDemoTool({"make", "--skins", skins, "--root", made->rootB.string(), "--force"});
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

std::vector<FoundFile> ListFiles(DeviceFileSystem& fs, const std::u16string& folder,
                                 std::vector<std::u16string>* emptyFolders) {
    std::vector<FoundFile> files;
    FindData entry;
    auto handle = fs.FindFirst(JoinDevicePath(folder, u"*.*"), entry);
    if (!handle) {
        if (emptyFolders)
            emptyFolders->push_back(folder);
        return files;
    }
    do {
        std::u16string path = JoinDevicePath(folder, entry.name);
        if (entry.attributes & kAttrDirectory) {
            auto inner = ListFiles(fs, path, emptyFolders);
            files.insert(files.end(), inner.begin(), inner.end());
        } else {
            files.push_back({path, entry.attributes, entry.size});
        }
    } while (handle->Next(entry));
    return files;
}

std::vector<std::byte> ReadDeviceFile(DeviceFileSystem& fs, std::u16string_view path) {
    return fs.ReadWholeFile(path).value_or(std::vector<std::byte>{});
}

} // namespace zelvor::testing
