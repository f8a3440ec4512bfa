#include "tags/adts/adts_header.h"

#include <array>

#include "bytes/byte_cursor.h"

namespace zelvor {

std::optional<AdtsHeader> ParseAdtsHeader(std::span<const std::byte> bytes) {
    if (bytes.size() < 7 || ByteAt(bytes, 0) != 0xFF || (ByteAt(bytes, 1) & 0xF0) != 0xF0)
        return std::nullopt;
    AdtsHeader h;
    const std::uint8_t b2 = ByteAt(bytes, 2);
    const std::uint8_t b3 = ByteAt(bytes, 3);
    h.protectionAbsent = (ByteAt(bytes, 1) & 0x01) != 0;
    h.profile = b2 >> 6;
    h.samplingIndex = (b2 >> 2) & 0x0F;
    h.channelConfiguration = ((b2 & 0x01) << 2) | (b3 >> 6);
    h.frameLength = (std::uint32_t{b3 & 0x03u} << 11) | (std::uint32_t{ByteAt(bytes, 4)} << 3) |
                    (std::uint32_t{ByteAt(bytes, 5)} >> 5);
    if (h.frameLength < h.HeaderLength())
        return std::nullopt; // a frame shorter than its header
    return h;
}

bool IsAdtsSyncPoint(std::span<const std::byte> bytes) {
    if (bytes.size() < 2 || ByteAt(bytes, 0) != 0xFF || ByteAt(bytes, 1) < 0xF0 ||
        ByteAt(bytes, 1) > 0xFE)
        return false;
    auto h = ParseAdtsHeader(bytes);
    return h && h->frameLength <= kAdtsMaxSyncFrameLength &&
           h->samplingIndex < kAdtsSamplingIndexCount;
}

int AdtsSampleRate(int samplingIndex) {
    static constexpr std::array<int, kAdtsSamplingIndexCount> kRates = {
        96000, 88200, 64000, 48000, 44100, 32000, 24000, 22050, 16000, 12000, 11025, 8000};
    if (samplingIndex < 0 || samplingIndex >= kAdtsSamplingIndexCount)
        return 0;
    return kRates[static_cast<std::size_t>(samplingIndex)];
}

} // namespace zelvor
