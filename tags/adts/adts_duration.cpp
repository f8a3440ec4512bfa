#include "tags/adts/adts_duration.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "tags/adts/adts_header.h"
#include "bytes/byte_cursor.h"

namespace zelvor {
namespace {

// The bytes a sync check needs: a chunk's last 6 positions cannot be tested
// and are looked at again from the next chunk.
constexpr std::size_t kSyncCheckBytes = 7;

// Frames counted over a run of bytes, for averages.
struct FrameTally {
    std::uint64_t bytes = 0;
    std::uint64_t frames = 0;
};

class FrameCounter {
public:
    explicit FrameCounter(AdtsStreamInfo& info) : m_info(info) {}

    // Counts the frames of one chunk read at `offset`; returns where the
    // next chunk should start.
    std::uint64_t CountChunk(std::uint64_t offset, std::span<const std::byte> chunk);
    // The next chunk lies beyond a jump.
    void MarkJump();
    // Settles a gap still waiting for the frames after it.
    void Finish() { SettleGap(); }

private:
    void Keep(const AdtsHeader& h, std::span<const std::byte> bytes);
    void SettleGap();

    AdtsStreamInfo& m_info;
    std::uint64_t m_lastEnd = 0; // where the last frame counted ends
    FrameTally m_chunk;          // frames counted in the current chunk
    bool m_jumped = false;       // the gap's far end is not found yet
    // A gap whose far end is found: its length, and the frames on both sides.
    std::optional<std::uint64_t> m_gap;
    FrameTally m_before;
    FrameTally m_after;
};

void FrameCounter::MarkJump() {
    if (m_info.framesCounted == 0)
        return;
    if (m_jumped)
        return; // the gap's far end is still to come: the same gap grows
    SettleGap();
    m_jumped = true;
    m_before = m_chunk;
}

// The frames in a gap are its length over the average size of the frames
// counted next to it: the chunk before the jump and the chunk after it. A
// local average follows a bit rate that drifts through the file, which the
// average of everything counted so far does not.
void FrameCounter::SettleGap() {
    if (!m_gap)
        return;
    FrameTally near{m_before.bytes + m_after.bytes, m_before.frames + m_after.frames};
    if (near.frames == 0)
        near = {m_info.frameBytesCounted, m_info.framesCounted};
    m_info.framesEstimated += static_cast<double>(*m_gap) * static_cast<double>(near.frames) /
                              static_cast<double>(near.bytes);
    m_gap.reset();
}

void FrameCounter::Keep(const AdtsHeader& h, std::span<const std::byte> bytes) {
    m_info.profile = h.profile + 1;
    m_info.samplingIndex = h.samplingIndex;
    m_info.channelConfiguration = h.channelConfiguration;
    m_info.sampleRate = AdtsSampleRate(h.samplingIndex);
    m_info.headerBytes = {ByteAt(bytes, 1), ByteAt(bytes, 2), ByteAt(bytes, 3)};
    m_info.frameTime = AdtsFrameTime(m_info.sampleRate);
}

std::uint64_t FrameCounter::CountChunk(std::uint64_t offset, std::span<const std::byte> chunk) {
    if (m_gap && !m_jumped && m_after.frames > 0)
        SettleGap(); // the chunk after the gap is done
    m_chunk = {};
    std::size_t i = 0;
    for (;;) {
        while (i + kSyncCheckBytes <= chunk.size() && !IsAdtsSyncPoint(chunk.subspan(i)))
            ++i;
        if (i + kSyncCheckBytes > chunk.size())
            return offset + i; // the untested tail is looked at again
        if (m_jumped) {
            // Both ends of the gap are frame boundaries: it holds whole frames.
            m_gap = offset + i - m_lastEnd;
            m_after = {};
            m_jumped = false;
        }
        while (auto h = ParseAdtsHeader(chunk.subspan(i))) {
            if (h->frameLength > chunk.size() - i)
                return offset + i; // counted from its start in the next chunk
            if (m_info.framesCounted == 0)
                Keep(*h, chunk.subspan(i));
            ++m_info.framesCounted;
            m_info.frameBytesCounted += h->frameLength;
            ++m_chunk.frames;
            m_chunk.bytes += h->frameLength;
            if (m_gap) {
                ++m_after.frames;
                m_after.bytes += h->frameLength;
            }
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
    // No bigger than the file: a short file gives one short chunk.
    std::vector<std::byte> chunk(static_cast<std::size_t>(
        std::min<std::uint64_t>(kAdtsChunkSize, size > start ? size - start : 0)));
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
    counter.Finish();
    return info;
}

} // namespace zelvor
