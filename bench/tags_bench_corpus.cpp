#include "bench/tags_bench_corpus.h"

#include <cstdio>
#include <cstdlib>

namespace zelvor::bench {
namespace fs = std::filesystem;
namespace {

struct BaseFile {
    const char* format;
    const char* arguments;
};

// Pink noise, so the encoders spend the bit rates asked for.
constexpr BaseFile kBaseFiles[] = {
    {"mp3", "-t 20 -c:a libmp3lame -b:a 128k -id3v2_version 3 -write_id3v1 1"},
    {"mp3", "-t 30 -c:a libmp3lame -b:a 192k -id3v2_version 4"},
    {"mp3", "-t 12 -c:a libmp3lame -b:a 320k -id3v2_version 3"},
    {"mp3", "-t 25 -ac 1 -ar 22050 -c:a libmp3lame -b:a 64k -id3v2_version 4 -write_id3v1 1"},
    {"wma", "-t 20 -c:a wmav2 -b:a 128k"},
    {"wma", "-t 30 -c:a wmav2 -b:a 192k"},
    {"wma", "-t 12 -c:a wmav2 -b:a 64k -ac 1"},
    {"aac", "-t 20 -c:a aac -b:a 128k -f adts"},
    {"aac", "-t 30 -c:a aac -b:a 160k -f adts"},
    {"aac", "-t 12 -c:a aac -b:a 96k -f adts"},
};

bool Encode(const fs::path& target, const BaseFile& base, int index) {
    const std::string tags = " -metadata title='Title " + std::to_string(index) +
                             "' -metadata artist='Some Artist' -metadata album='The Album'"
                             " -metadata genre=Rock -metadata track=" +
                             std::to_string(index + 1) + "/12 ";
    const std::string command = "ffmpeg -v error -y -f lavfi -i anoisesrc=c=pink:a=0.2 " +
                                std::string(base.arguments) + tags + "'" + target.string() + "'";
    return std::system(command.c_str()) == 0;
}

} // namespace

bool PrepareCorpus(Corpus& corpus, int filesPerFormat) {
    corpus.folder = ZELVOR_BENCH_MEDIA_DIR;
    std::error_code ec;
    for (const char* format : {"mp3", "wma", "aac", "base"})
        fs::create_directories(corpus.folder / format, ec);

    std::vector<std::pair<std::string, fs::path>> bases;
    int index = 0;
    for (const BaseFile& base : kBaseFiles) {
        fs::path path = corpus.folder / "base" / (std::to_string(index) + "." + base.format);
        if (!fs::exists(path)) {
            std::fprintf(stderr, "encoding %s\n", path.c_str());
            if (!Encode(path, base, index))
                return false;
        }
        bases.emplace_back(base.format, path);
        ++index;
    }
    for (const char* format : {"mp3", "wma", "aac"}) {
        std::vector<fs::path> sources;
        for (const auto& [f, path] : bases) {
            if (f == format)
                sources.push_back(path);
        }
        auto& names = std::string(format) == "mp3"   ? corpus.mp3
                      : std::string(format) == "wma" ? corpus.wma
                                                     : corpus.aac;
        names.clear();
        for (int i = 0; i < filesPerFormat; ++i) {
            char name[32];
            std::snprintf(name, sizeof name, "%s/%04d.%s", format, i, format);
            fs::path target = corpus.folder / name;
            if (!fs::exists(target))
                fs::copy_file(sources[static_cast<std::size_t>(i) % sources.size()], target, ec);
            names.emplace_back(name);
        }
    }
    return true;
}

} // namespace zelvor::bench
