// How far the AAC reader's jump-ahead estimate lands from the true frame
// count on files over 1 MB: raw AAC files of 1 to 5 minutes at 96 to 192
// kbit/s made by ffmpeg, with a steady signal (pink noise) and one whose
// loudness swings and drops to near silence (so frame sizes vary widely).
// The true count walks every ADTS frame of the file. Run from the release
// preset: build/release/bin/tags_aac_estimate

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/device.h"
#include "platform/text.h"
#include "tags/adts/read_aac_file.h"

namespace {

namespace fs = std::filesystem;

std::uint64_t WalkFrames(const std::string& file) {
    std::uint64_t frames = 0;
    for (std::size_t i = 0; i + 6 < file.size();) {
        auto b = [&](std::size_t k) {
            return static_cast<std::uint32_t>(static_cast<unsigned char>(file[i + k]));
        };
        if (b(0) != 0xFF || (b(1) & 0xF0) != 0xF0)
            break;
        std::size_t length = ((b(3) & 3) << 11) | (b(4) << 3) | (b(5) >> 5);
        if (length < 7)
            break;
        ++frames;
        i += length;
    }
    return frames;
}

} // namespace

int main() {
    using namespace zelvor;
    const fs::path folder = fs::path(ZELVOR_BENCH_MEDIA_DIR) / "aac_estimate";
    fs::create_directories(folder);
    const char* signals[] = {
        "anoisesrc=c=pink:a=0.3",
        "anoisesrc=c=pink:a=0.9,volume='if(lt(mod(t\\,40)\\,5)\\,0.002\\,0.1+0.9*abs(sin(t/"
        "3)))':eval=frame",
    };
    const char* signalNames[] = {"steady", "swinging"};

    DeviceConfig config;
    config.root = folder / "device";
    config.card = folder;
    auto device = Device::Open(config);
    if (!device)
        return 1;
    ScopedCurrentDevice current(*device);

    std::printf("%-24s %10s %9s %12s %9s %8s\n", "file", "bytes", "frames", "estimated", "error %",
                "read %");
    double worst = 0;
    double sum = 0;
    int count = 0;
    for (int s = 0; s < 2; ++s) {
        for (int minutes : {1, 2, 3, 5}) {
            for (int rate : {96, 128, 160, 192}) {
                const std::string name = std::string(signalNames[s]) + "_" +
                                         std::to_string(minutes) + "m_" + std::to_string(rate) +
                                         "k.aac";
                const fs::path path = folder / name;
                if (!fs::exists(path)) {
                    const std::string command =
                        "ffmpeg -v error -y -f lavfi -i \"" + std::string(signals[s]) + "\" -t " +
                        std::to_string(minutes * 60) + " -c:a aac -b:a " + std::to_string(rate) +
                        "k -f adts '" + path.string() + "'";
                    if (std::system(command.c_str()) != 0)
                        return 1;
                }
                std::ifstream in(path, std::ios::binary);
                const std::string bytes((std::istreambuf_iterator<char>(in)),
                                        std::istreambuf_iterator<char>());
                const double truth = static_cast<double>(WalkFrames(bytes));
                AacTrackInfo info;
                if (ReadAacFile(u"\\Storage Card\\" + FromUtf8(name), &info) != kAacOk)
                    return 1;
                const double estimated = static_cast<double>(info.stream.Frames());
                const double error = (estimated - truth) / truth * 100;
                worst = std::max(worst, std::abs(error));
                sum += error;
                ++count;
                std::printf("%-24s %10zu %9.0f %12.0f %+9.3f %8.1f\n", name.c_str(), bytes.size(),
                            truth, estimated, error,
                            100.0 * static_cast<double>(info.stream.bytesRead) /
                                static_cast<double>(bytes.size()));
            }
        }
    }
    std::printf("mean error %+.3f %%, largest %.3f %% over %d files\n", sum / count, worst, count);
    return 0;
}
