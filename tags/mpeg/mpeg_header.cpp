#include "tags/mpeg/mpeg_header.h"

#include <array>

namespace zelvor {
namespace {

using BitRateRow = std::array<int, 16>;

// kbit/s by bits 15-12. The first five rows are the standard's.
constexpr BitRateRow kMpeg1Layer1 = {0,   32,  64,  96,  128, 160, 192, 224,
                                     256, 288, 320, 352, 384, 416, 448, -1};
constexpr BitRateRow kMpeg1Layer2 = {0,   32,  48,  56,  64,  80,  96,  112,
                                     128, 160, 192, 224, 256, 320, 384, -1};
constexpr BitRateRow kMpeg1Layer3 = {0,   32,  40,  48,  56,  64,  80,  96,
                                     112, 128, 160, 192, 224, 256, 320, -1};
constexpr BitRateRow kMpeg2Layer1 = {0,   32,  48,  56,  64,  80,  96,  112,
                                     128, 144, 160, 176, 192, 224, 256, -1};
constexpr BitRateRow kMpeg2Layer2 = {0,  8,  16, 24,  32,  40,  48,  56,
                                     64, 80, 96, 112, 128, 144, 160, -1};
// The device's own row, not the standard's (8, 16, 24, 32, 40, 48, 56, 64,
// 80, 96, 112, 128, 144, 160): kept, because durations and bit rates that
// users and library files have seen depend on it.
constexpr BitRateRow kMpeg2Layer3 = {0,  8,   16,  24,  32,  64,  80,  56,
                                     64, 128, 160, 112, 128, 256, 320, -1};

// Hz by bits 11-10, for MPEG-2.5, (reserved), MPEG-2 and MPEG-1 (the
// version numbers 1 to 3). Index 3 is reserved and repeats index 0.
constexpr std::array<std::array<int, 4>, 4> kSampleRates = {{
    {0, 0, 0, 0},
    {11025, 12000, 8000, 11025},
    {22050, 24000, 16000, 22050},
    {44100, 48000, 32000, 44100},
}};

constexpr std::array<int, 4> kVersionByBits = {kMpegVersion25, kMpegVersionReserved, kMpegVersion2,
                                               kMpegVersion1};
constexpr std::array<int, 4> kLayerByBits = {0, 3, 2, 1};

} // namespace

bool IsFrameSync(std::uint32_t header) {
    return (header & 0xFFE00000u) == 0xFFE00000u;
}

int MpegVersionOf(std::uint32_t header) {
    return kVersionByBits[(header >> 19) & 3];
}

int MpegLayerOf(std::uint32_t header) {
    return kLayerByBits[(header >> 17) & 3];
}

int MpegBitRate(int version, int layer, int index) {
    if (layer < 1 || layer > 3 || index < 0 || index > 15)
        return 0;
    static constexpr std::array<const BitRateRow*, 3> kMpeg1 = {&kMpeg1Layer1, &kMpeg1Layer2,
                                                                &kMpeg1Layer3};
    static constexpr std::array<const BitRateRow*, 3> kMpeg2 = {&kMpeg2Layer1, &kMpeg2Layer2,
                                                                &kMpeg2Layer3};
    const auto& rows = version == kMpegVersion1 ? kMpeg1 : kMpeg2;
    return (*rows[static_cast<std::size_t>(layer - 1)])[static_cast<std::size_t>(index)];
}

int MpegSampleRate(int version, int index) {
    if (version < 0 || version > 3 || index < 0 || index > 3)
        return 0;
    return kSampleRates[static_cast<std::size_t>(version)][static_cast<std::size_t>(index)];
}

int MpegFrameLength(int layer, int bitRate, int sampleRate, int padding) {
    if (sampleRate <= 0)
        return 0;
    if (layer == 1)
        return (12000 * bitRate / sampleRate + padding) * 4;
    return 144000 * bitRate / sampleRate + padding;
}

} // namespace zelvor
