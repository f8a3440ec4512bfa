#include "tests/support/test_media.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>

#include "platform/text.h"

namespace zelvor::testing {
namespace {

std::uint32_t Le(const std::vector<unsigned char>& b, std::size_t at, int bytes) {
    std::uint32_t value = 0;
    for (int i = bytes - 1; i >= 0; --i)
        value = (value << 8) | b[at + static_cast<std::size_t>(i)];
    return value;
}

const char* const kExtensions[] = {".mp3", ".wma", ".aac"};
const char* const kEncoders[] = {"libmp3lame", "wmav2", "aac"};

} // namespace

const char* ExtensionOf(Codec codec) {
    return kExtensions[static_cast<int>(codec)];
}

bool MakeAudioFile(const std::filesystem::path& path, Codec codec, double seconds,
                   const std::string& expression) {
    std::string command = "ffmpeg -nostdin -hide_banner -loglevel error -y -f lavfi -i \"aevalsrc='" +
                          expression + "|" + expression + "':s=44100:d=" + std::to_string(seconds) +
                          "\" -c:a " + kEncoders[static_cast<int>(codec)] + " -b:a 128k '" + path.string() + "'";
    return std::system(command.c_str()) == 0 && std::filesystem::exists(path);
}

int WavData::Peak(std::size_t fromFrame, std::size_t toFrame) const {
    std::size_t from = std::min(fromFrame * channels, samples.size());
    std::size_t to = toFrame == SIZE_MAX ? samples.size() : std::min(toFrame * channels, samples.size());
    int peak = 0;
    for (std::size_t i = from; i < to; ++i)
        peak = std::max(peak, std::abs(static_cast<int>(samples[i])));
    return peak;
}

std::optional<std::size_t> WavData::FirstFrameAbove(int threshold) const {
    for (std::size_t i = 0; i < samples.size(); ++i) {
        if (std::abs(static_cast<int>(samples[i])) > threshold)
            return i / static_cast<std::size_t>(channels);
    }
    return std::nullopt;
}

std::optional<WavData> ReadWav(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::vector<unsigned char> bytes((std::istreambuf_iterator<char>(in)),
                                     std::istreambuf_iterator<char>());
    if (bytes.size() < 12 || std::memcmp(bytes.data(), "RIFF", 4) != 0 ||
        std::memcmp(&bytes[8], "WAVE", 4) != 0)
        return std::nullopt;
    WavData wav;
    bool haveFormat = false;
    for (std::size_t at = 12; bytes.size() - at >= 8;) {
        std::uint32_t size = Le(bytes, at + 4, 4);
        std::size_t body = at + 8;
        if (size > bytes.size() - body)
            return std::nullopt;
        if (std::memcmp(&bytes[at], "fmt ", 4) == 0 && size >= 16) {
            if (Le(bytes, body, 2) != 1)
                return std::nullopt;
            wav.channels = static_cast<int>(Le(bytes, body + 2, 2));
            wav.rate = static_cast<int>(Le(bytes, body + 4, 4));
            wav.bitsPerSample = static_cast<int>(Le(bytes, body + 14, 2));
            haveFormat = wav.bitsPerSample == 16 && wav.channels > 0;
        } else if (std::memcmp(&bytes[at], "data", 4) == 0 && haveFormat) {
            wav.samples.resize(size / 2);
            std::memcpy(wav.samples.data(), &bytes[body], wav.samples.size() * 2);
            return wav;
        }
        at = body + size + (size & 1);
    }
    return std::nullopt;
}

TrackList MakeAlbum(TestDevice& device, std::initializer_list<Codec> codecs) {
    TrackList album;
    int number = 0;
    for (Codec codec : codecs) {
        std::u16string path = u"\\Storage Card\\Music\\" + FromUtf8(std::to_string(++number)) +
                              FromUtf8(ExtensionOf(codec));
        auto host = device.Host(path);
        std::filesystem::create_directories(host.parent_path());
        if (!MakeAudioFile(host, codec, 1.0))
            return {};
        auto record = std::make_unique<TrackRecord>();
        record->SetField(kFieldPath, path);
        album.AddTrack(std::move(record));
    }
    return album;
}

} // namespace zelvor::testing
