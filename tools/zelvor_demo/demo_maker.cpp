#include "tools/zelvor_demo/demo_maker.h"

#include "bytes/byte_sink.h"
#include "platform/device.h"
#include "platform/text.h"
#include "playlists/playlist_file.h"
#include "tools/zelvor_demo/device_output.h"
#include "tools/zelvor_demo/encoding.h"
#include "tools/zelvor_demo/manifest.h"
#include "tools/zelvor_demo/ombrel_file.h"
#include "tools/zelvor_demo/process_runner.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdlib.h>
#include <thread>
#include <vector>

namespace zelvor::demo {
namespace {
namespace fs = std::filesystem;

struct Chime {
    std::u16string_view name;
    double firstHz;
    double secondHz;
};

// A falling fourth for a deleted song, a rising third for a new favourite.
constexpr std::array kChimes{
    Chime{u"DeleteSong.wav", 880.0, 659.26},
    Chime{u"MyFavorite.wav", 1046.5, 1318.51},
};
constexpr std::u16string_view kWindowsFolder = u"\\Windows";
constexpr std::array<const char*, 4> kSkinFiles{"ZelvorBlue.rcc", "ZelvorRed.rcc",
                                                "ZelvorOrange.rcc", "ZelvorGreen.rcc"};
constexpr std::u16string_view kSdmmcKey = u"System\\StorageManager\\Profiles\\SDMMC";

// A private work folder for the encoder's output, removed with everything in it.
class ScratchFolder {
public:
    bool Create() {
        std::error_code ec;
        std::string pattern = (fs::temp_directory_path(ec) / "zelvor-demo-XXXXXX").string();
        if (ec || ::mkdtemp(pattern.data()) == nullptr)
            return false;
        m_path = pattern;
        return true;
    }
    ~ScratchFolder() {
        std::error_code ec;
        if (!m_path.empty())
            fs::remove_all(m_path, ec);
    }
    const fs::path& Path() const { return m_path; }

private:
    fs::path m_path;
};

// Removes a root this run made unless Keep() was called.
class RootGuard {
public:
    explicit RootGuard(fs::path root) : m_root(std::move(root)) {}
    ~RootGuard() {
        std::error_code ec;
        if (!m_keep)
            fs::remove_all(m_root, ec);
    }
    void Keep() { m_keep = true; }

private:
    fs::path m_root;
    bool m_keep = false;
};

bool Fail(std::string* error, std::string reason) {
    if (error)
        *error = std::move(reason);
    return false;
}

std::optional<Bytes> ReadHostFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return std::nullopt;
    std::vector<char> chars((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (in.bad())
        return std::nullopt;
    Bytes bytes(chars.size());
    std::transform(chars.begin(), chars.end(), bytes.begin(),
                   [](char c) { return static_cast<std::byte>(c); });
    return bytes;
}

bool LooksLikeDeviceRoot(const fs::path& root) {
    std::error_code ec;
    return fs::exists(root / "demo-manifest.jsonl", ec) ||
           (fs::is_directory(root / "Storage Card", ec) &&
            fs::is_directory(root / "Flash Disk", ec));
}

// Decides what may happen to an existing root before any work is done.
bool CheckRoot(const DemoOptions& options, std::string* error) {
    std::error_code ec;
    const fs::path& root = options.root;
    if (!fs::exists(root, ec))
        return true;
    if (!fs::is_directory(root, ec))
        return Fail(error, root.string() + " exists and is not a folder");
    bool empty = fs::is_empty(root, ec);
    if (empty)
        return true;
    if (!options.force)
        return Fail(error, root.string() + " already exists; use --force to remove and remake it");
    if (!LooksLikeDeviceRoot(root))
        return Fail(error, "refusing to remove " + root.string() +
                               ": it does not look like a device root");
    return true;
}

fs::path ScratchFile(const fs::path& scratch, std::size_t index) {
    char name[32];
    std::snprintf(name, sizeof name, "file-%03zu.out", index);
    return scratch / name;
}

struct EncodeRun {
    std::u16string name; // the folder or file it makes, for messages
    std::vector<EncodeTarget> targets;
};

// The files of one folder share an ffmpeg run. Each long file has a run of
// its own, and those go first, so that they encode beside the short ones
// rather than last and alone.
std::vector<EncodeRun> PlanRuns(const std::vector<DemoFile>& files, const fs::path& scratch) {
    std::vector<EncodeRun> longRuns, runs;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const DemoFile& file = files[i];
        if (!NeedsEncoder(file.kind))
            continue;
        if (file.kind == FileKind::AacLong) {
            longRuns.push_back({file.path, {TargetFor(file, ScratchFile(scratch, i), "o0")}});
            continue;
        }
        std::u16string folder(DeviceFolderOf(file.path));
        auto run = std::find_if(runs.begin(), runs.end(),
                                [&](const EncodeRun& r) { return r.name == folder; });
        if (run == runs.end())
            run = runs.insert(runs.end(), EncodeRun{folder, {}});
        run->targets.push_back(
            TargetFor(file, ScratchFile(scratch, i), "o" + std::to_string(run->targets.size())));
    }
    EncodeRun chimes{std::u16string(kWindowsFolder), {}};
    for (std::size_t i = 0; i < kChimes.size(); ++i) {
        chimes.targets.push_back(ChimeTarget(kChimes[i].firstHz, kChimes[i].secondHz,
                                             ScratchFile(scratch, files.size() + i),
                                             "o" + std::to_string(i)));
    }
    runs.push_back(std::move(chimes));
    longRuns.insert(longRuns.end(), runs.begin(), runs.end());
    return longRuns;
}

bool EncodeAll(const std::vector<DemoFile>& files, const fs::path& ffmpeg, const fs::path& scratch,
               int parallel, std::string* error) {
    std::vector<EncodeRun> runs = PlanRuns(files, scratch);
    std::vector<ProcessJob> jobs;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        jobs.push_back({EncodeCommand(ffmpeg, runs[i].targets),
                        scratch / ("run-" + std::to_string(i) + ".log")});
    }
    if (auto failure = RunProcesses(jobs, parallel))
        return Fail(error,
                    "ffmpeg failed on " + ToUtf8(runs[failure->job].name) + ": " + failure->reason);
    return true;
}

bool WriteCollection(DeviceFileSystem& deviceFs, const std::vector<DemoFile>& files,
                     const fs::path& scratch, std::string* error) {
    for (std::size_t i = 0; i < files.size(); ++i) {
        const DemoFile& file = files[i];
        std::optional<Bytes> bytes;
        if (NeedsEncoder(file.kind)) {
            auto encoded = ReadHostFile(ScratchFile(scratch, i));
            if (!encoded || encoded->empty())
                return Fail(error, "ffmpeg wrote nothing for " + ToUtf8(file.path));
            bytes = FinishFile(file, std::move(*encoded));
            if (!bytes)
                return Fail(error, "a tag value does not fit its field in " + ToUtf8(file.path));
        } else {
            bytes = NotesText();
        }
        if (!WriteDeviceFile(deviceFs, file.path, *bytes))
            return Fail(error, "cannot write " + ToUtf8(file.path));
        if (file.hidden && !deviceFs.SetAttributes(file.path, kAttrHidden | kAttrArchive))
            return Fail(error, "cannot set the hidden attribute of " + ToUtf8(file.path) +
                                   " (does the file system keep extended attributes?)");
    }
    for (const std::u16string& folder : DemoEmptyFolders()) {
        if (!CreateDeviceFolders(deviceFs, folder))
            return Fail(error, "cannot create " + ToUtf8(folder));
    }
    return true;
}

bool WriteSounds(DeviceFileSystem& deviceFs, std::size_t firstScratch, const fs::path& scratch,
                 std::string* error) {
    for (std::size_t i = 0; i < kChimes.size(); ++i) {
        std::u16string path = JoinDevicePath(kWindowsFolder, kChimes[i].name);
        auto bytes = ReadHostFile(ScratchFile(scratch, firstScratch + i));
        if (!bytes || bytes->empty() || !WriteDeviceFile(deviceFs, path, *bytes))
            return Fail(error, "cannot write " + ToUtf8(path));
    }
    return true;
}

// The program directory lies on the flash disk, a storage folder, so the
// manifest lists what the maker puts there too.
DemoFile ProgramFileEntry(std::u16string path) {
    DemoFile file;
    file.path = std::move(path);
    file.kind = FileKind::ProgramFile;
    file.excluded = "not-music";
    return file;
}

bool WriteShellSettings(Device& device, std::vector<DemoFile>& written, std::string* error) {
    auto text = BuildOmbrelText();
    std::u16string path = JoinDevicePath(device.ProgramDirectory(), kOmbrelFileName);
    if (!text)
        return Fail(error, "a translation does not fit the text file");
    if (!WriteDeviceFile(device.FileSystem(), path, *text))
        return Fail(error, "cannot write " + ToUtf8(path));
    written.push_back(ProgramFileEntry(path));

    RegistryStore& registry = device.Registry();
    registry.SetDword(RegistryRoot::LocalMachine, u"OMBREL", u"Language", 0);
    registry.SetDword(RegistryRoot::LocalMachine, u"OMBREL", u"GUI Color", 0);
    registry.SetString(RegistryRoot::LocalMachine, kSdmmcKey, u"Folder", u"Storage Card");
    if (!registry.Flush(RegistryRoot::LocalMachine))
        return Fail(error, "cannot write the registry hive " +
                               registry.HivePath(RegistryRoot::LocalMachine).string());
    return true;
}

// Two favourites lists and one playlist of the user, so that the browser has
// lists to open: each names music files of the collection by their paths,
// picked by their places in it, so every run writes the same bytes.
bool WritePlaylists(Device& device, std::vector<DemoFile>& written, std::string* error) {
    std::vector<std::u16string> music;
    for (const DemoFile& file : written)
        if (file.excluded.empty())
            music.push_back(file.path);
    struct Planned {
        const char16_t* name;
        std::vector<std::size_t> picks;
    };
    const Planned planned[] = {{u"My Favorites 1.mpl", {0, 4, 8}},
                               {u"My Favorites 3.mpl", {2, 6}},
                               {u"Road Trip.mpl", {1, 3, 5, 7, 9, 11}}};
    const std::u16string folder = JoinDevicePath(device.ProgramDirectory(), u"My Playlists");
    for (const Planned& playlist : planned) {
        PlaylistEntryList list;
        for (std::size_t pick : playlist.picks)
            if (pick < music.size())
                list.Insert(std::make_unique<PlaylistEntry>(music[pick]));
        MemorySink sink;
        WritePlaylist(list, sink);
        const std::u16string path = JoinDevicePath(folder, playlist.name);
        if (!WriteDeviceFile(device.FileSystem(), path, sink.Bytes()))
            return Fail(error, "cannot write " + ToUtf8(path));
        written.push_back(ProgramFileEntry(path));
    }
    return true;
}

// The skins are built by another target; copy those that exist.
bool CopySkins(Device& device, const std::optional<fs::path>& folder,
               std::vector<DemoFile>& written, std::string* error) {
    if (!folder)
        return true;
    for (const char* name : kSkinFiles) {
        std::error_code ec;
        fs::path source = *folder / name;
        if (!fs::is_regular_file(source, ec))
            continue;
        std::u16string target = JoinDevicePath(device.ProgramDirectory(), FromUtf8(name));
        auto bytes = ReadHostFile(source);
        if (!bytes)
            return Fail(error, "cannot read " + source.string());
        if (!WriteDeviceFile(device.FileSystem(), target, *bytes))
            return Fail(error, "cannot write " + ToUtf8(target));
        written.push_back(ProgramFileEntry(target));
    }
    return true;
}

bool WriteManifest(DeviceFileSystem& deviceFs, const std::vector<DemoFile>& files,
                   std::string* error) {
    std::string text;
    for (const DemoFile& file : files)
        text += ManifestLine(file);
    auto bytes = std::as_bytes(std::span(text.data(), text.size()));
    if (!deviceFs.ReplaceFile(kManifestPath, bytes))
        return Fail(error, "cannot write " + ToUtf8(kManifestPath));
    return true;
}

} // namespace

bool MakeDemoDevice(const DemoOptions& options, std::string* error) {
    if (!CheckRoot(options, error))
        return false;
    auto ffmpeg = FindProgram("ffmpeg");
    if (!ffmpeg)
        return Fail(error, "ffmpeg not found in PATH; install it (Debian package ffmpeg)");

    std::vector<DemoFile> files = DemoCollection();
    ScratchFolder scratch;
    if (!scratch.Create())
        return Fail(error, "cannot create a work folder in the temporary folder ($TMPDIR)");
    int parallel = options.parallelJobs;
    if (parallel <= 0)
        parallel = static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1u, 4u));
    if (!EncodeAll(files, *ffmpeg, scratch.Path(), parallel, error))
        return false;

    std::error_code ec;
    fs::remove_all(options.root, ec); // checked above: absent, empty, or a device root with force
    if (ec)
        return Fail(error, "cannot remove " + options.root.string() + ": " + ec.message());
    RootGuard guard(options.root);
    std::string openError;
    std::unique_ptr<Device> device = Device::Open({options.root}, &openError);
    if (!device)
        return Fail(error, openError);
    DeviceFileSystem& deviceFs = device->FileSystem();
    std::size_t collectionSize = files.size();
    if (!WriteCollection(deviceFs, files, scratch.Path(), error) ||
        !WriteSounds(deviceFs, collectionSize, scratch.Path(), error) ||
        !WriteShellSettings(*device, files, error) || !WritePlaylists(*device, files, error) ||
        !CopySkins(*device, options.skins, files, error) || !WriteManifest(deviceFs, files, error))
        return false;
    guard.Keep();
    return true;
}

} // namespace zelvor::demo
