#include "tags/adts/adts_duration.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "tags/adts/adts_header.h"
#include "tags/byte_cursor.h"

namespace zelvor {
namespace {

// The bytes a sync check needs: a chunk's last 6 positions cannot be tested
// and are looked at again from the next chunk.
constexpr std::size_t kSyncCheckBytes = 7;

class FrameCounter {
public:
    explicit FrameCounter(AdtsStreamInfo& info) : m_info(info) {}

    // Counts the frames of one chunk read at `offset`; returns where the
    // next chunk should start.
    std::uint64_t CountChunk(std::uint64_t offset, std::span<const std::byte> chunk);
    // The next chunk lies beyond a jump: estimate the gap at the next sync.
    void MarkJump() { m_gapPending = m_info.framesCounted > 0; }

private:
    void Keep(const AdtsHeader& h, std::span<const std::byte> bytes);

    AdtsStreamInfo& m_info;
    std::uint64_t m_lastEnd = 0;
    bool m_gapPending = false;
};

void FrameCounter::Keep(const AdtsHeader& h, std::span<const std::byte> bytes) {
    m_info.profile = h.profile + 1;
    m_info.samplingIndex = h.samplingIndex;
    m_info.channelConfiguration = h.channelConfiguration;
    m_info.sampleRate = AdtsSampleRate(h.samplingIndex);
    m_info.headerBytes = {ByteAt(bytes, 1), ByteAt(bytes, 2), ByteAt(bytes, 3)};
    m_info.frameTime = AdtsFrameTime(m_info.sampleRate);
}

std::uint64_t FrameCounter::CountChunk(std::uint64_t offset, std::span<const std::byte> chunk) {
    std::size_t i = 0;
    for (;;) {
        while (i + kSyncCheckBytes <= chunk.size() && !IsAdtsSyncPoint(chunk.subspan(i)))
            ++i;
        if (i + kSyncCheckBytes > chunk.size())
            return offset + i; // the untested tail is looked at again
        if (m_gapPending) {
            const double average = static_cast<double>(m_info.frameBytesCounted) /
                                   static_cast<double>(m_info.framesCounted);
            m_info.framesEstimated += static_cast<double>(offset + i - m_lastEnd) / average;
            m_gapPending = false;
        }
        while (auto h = ParseAdtsHeader(chunk.subspan(i))) {
            if (h->frameLength > chunk.size() - i)
                return offset + i; // counted from its start in the next chunk
            if (m_info.framesCounted == 0)
                Keep(*h, chunk.subspan(i));
            ++m_info.framesCounted;
            m_info.frameBytesCounted += h->frameLength;
            i += h->frameLength;
            m_lastEnd = offset + i;
        }
        // A header that does not parse: the stream is taken up again at the
        // next sync point of this same chunk. Starting the next chunk there
        // instead would read 32 KB for every damaged frame.
    }
}

} // namespace

std::int64_t AdtsFrameTime(int sampleRate) {
    if (sampleRate <= 0)
        return 0;
    return static_cast<std::int64_t>(10240000000.0 / sampleRate);
}

std::uint64_t AdtsStreamInfo::Frames() const {
    return framesCounted + static_cast<std::uint64_t>(std::llround(framesEstimated));
}

double AdtsStreamInfo::DurationSeconds() const {
    return static_cast<double>(Frames()) * static_cast<double>(frameTime) * 0.0000001;
}

AdtsStreamInfo CountAdtsFrames(DeviceFile& file, std::uint64_t start) {
    AdtsStreamInfo info;
    FrameCounter counter(info);
    const std::uint64_t size = file.Size();
    const std::uint64_t skipFactor = size > kAdtsWholeReadLimit ? size / kAdtsSkipDivisor : 0;
    std::vector<std::byte> chunk(kAdtsChunkSize);
    std::uint64_t offset = start;
    for (std::uint32_t chunks = 1;; ++chunks) {
        const std::size_t got = file.ReadAt(offset, chunk);
        info.bytesRead += got;
        std::uint64_t next = counter.CountChunk(offset, std::span(chunk).first(got));
        if (got < kAdtsChunkSize)
            break;
        next = std::max(next, offset + 1);
        if (skipFactor > 0 && chunks > kAdtsChunksBeforeJumps && next < size &&
            size - next >= kAdtsJumpMargin && info.framesCounted > 0) {
            const std::uint64_t jump =
                std::min(skipFactor * kAdtsChunkSize, size - next - kAdtsJumpMargin);
            if (jump > 0) {
                next += jump;
                counter.MarkJump();
            }
        }
        offset = next;
    }
    return info;
}

} // namespace zelvor
