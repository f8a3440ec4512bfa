#pragma once
// The playing time of a raw AAC (ADTS) stream, from counting its frames.
//
// The file is read in chunks of 32,768 bytes; in each chunk the count takes
// up the stream at its first sync point and steps from frame to frame while
// a header parses and the frame lies inside the chunk; the next chunk starts
// where the last counted frame ended. A file larger than 1,048,576 bytes is
// not read whole: after the sixth chunk, while at least 196,608 bytes remain,
// the count jumps ahead by (file size / 786,432) x 32,768 bytes and estimates
// the frames it passed over.
//
// How the estimate is kept unbiased:
//   - The span estimated is not the jump but the gap between the end of the
//     last frame counted before it and the first sync point found after it.
//     Both ends are frame boundaries, so the gap holds whole frames only:
//     the partial frame the jump lands in is neither lost nor counted twice.
//   - The average frame size that divides the gap is taken from the frames
//     counted next to it, in the chunk before the jump and the chunk after
//     it: never from chunk bytes (which include partial frames at chunk edges
//     and junk before a sync), and not from everything counted so far, which
//     lags behind a bit rate that drifts through the file (loud and quiet
//     passages); on ffmpeg files with such passages that halved the error.
//   - A jump never lands closer than 196,608 bytes to the end: it is cut
//     short instead, so the file's tail is always counted rather than
//     estimated from a jump past the end.
//   - Estimates are summed as fractions and rounded once, at the end.

#include <array>
#include <cstdint>

#include "platform/device_fs.h"

namespace zelvor {

inline constexpr std::size_t kAdtsChunkSize = 32768;
inline constexpr std::uint64_t kAdtsWholeReadLimit = 1048576;
inline constexpr std::uint64_t kAdtsSkipDivisor = 786432;
inline constexpr std::uint32_t kAdtsChunksBeforeJumps = 5;
inline constexpr std::uint64_t kAdtsJumpMargin = 196608;

struct AdtsStreamInfo {
    // From the first frame counted.
    int profile = 0; // object type: header profile + 1
    int samplingIndex = 0;
    int channelConfiguration = 0;
    int sampleRate = 0;                        // Hz
    std::array<std::uint8_t, 3> headerBytes{}; // the header bytes after the sync byte
    std::int64_t frameTime = 0; // 100-ns units per frame: 10,240,000,000 / rate, truncated

    std::uint64_t framesCounted = 0;     // frames parsed
    double framesEstimated = 0;          // frames in the spans jumped over
    std::uint64_t frameBytesCounted = 0; // lengths of the frames parsed
    std::uint64_t bytesRead = 0;         // what the count read from the file

    // Counted frames plus the estimate, rounded to a whole frame.
    std::uint64_t Frames() const;
    // Frames x frame time x 0.0000001.
    double DurationSeconds() const;
};

// Counts the frames of the stream that starts at `start` in the file.
AdtsStreamInfo CountAdtsFrames(DeviceFile& file, std::uint64_t start);

// The frame time of a sample rate: 1024 samples in 100-ns units, truncated.
std::int64_t AdtsFrameTime(int sampleRate);

} // namespace zelvor
