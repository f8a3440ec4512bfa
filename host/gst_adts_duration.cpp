#include "host/gst_adts_duration.h"

#include <array>
#include <fstream>

namespace zelvor {
namespace {

constexpr std::array<int, 13> kSampleRates = {96000, 88200, 64000, 48000, 44100, 32000, 24000,
                                              22050, 16000, 12000, 11025, 8000,  7350};
constexpr std::uint64_t kAdtsHeaderBytes = 7;
constexpr std::uint64_t kId3HeaderBytes = 10;

std::uint64_t LeadingTagBytes(std::ifstream& in) {
    std::array<unsigned char, kId3HeaderBytes> header{};
    if (!in.read(reinterpret_cast<char*>(header.data()), header.size()))
        return 0;
    if (header[0] != 'I' || header[1] != 'D' || header[2] != '3')
        return 0;
    std::uint64_t size = 0;
    for (int i = 6; i < 10; ++i)
        size = (size << 7) | (header[i] & 0x7F); // synchsafe
    return kId3HeaderBytes + size;
}

} // namespace

std::optional<std::int64_t> AdtsDuration(const std::filesystem::path& file) {
    std::error_code error;
    std::uint64_t fileSize = std::filesystem::file_size(file, error);
    std::ifstream in(file, std::ios::binary);
    if (error || !in)
        return std::nullopt;
    std::uint64_t offset = LeadingTagBytes(in);

    int rate = 0;
    std::uint64_t samples = 0;
    std::array<unsigned char, kAdtsHeaderBytes> h{};
    // Every frame holds its own length: walk header to header, and stop at
    // the first place that is not a frame (a trailing tag, a cut-off end).
    while (fileSize - std::min(offset, fileSize) >= kAdtsHeaderBytes) {
        in.clear();
        in.seekg(static_cast<std::streamoff>(offset));
        if (!in.read(reinterpret_cast<char*>(h.data()), h.size()))
            break;
        if (h[0] != 0xFF || (h[1] & 0xF6) != 0xF0)
            break;
        int rateIndex = (h[2] >> 2) & 0x0F;
        std::uint64_t length = ((h[3] & 0x03u) << 11) | (h[4] << 3) | (h[5] >> 5);
        if (rateIndex >= static_cast<int>(kSampleRates.size()) || length < kAdtsHeaderBytes ||
            length > fileSize - offset)
            break;
        if (rate == 0)
            rate = kSampleRates[rateIndex];
        samples += 1024u * ((h[6] & 0x03u) + 1);
        offset += length;
    }
    if (rate == 0)
        return std::nullopt;
    return static_cast<std::int64_t>(samples * 10'000'000 / static_cast<std::uint64_t>(rate));
}

} // namespace zelvor
