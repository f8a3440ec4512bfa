#pragma once
// WavCapture: the "wav:PATH" audio output. Every graph of a run appends what
// its sink rendered to one 16-bit PCM WAV file, so a capture holds a whole
// play queue, track after track, exactly as it was played (nothing rendered
// after a Stop or a seek that was not played, nothing twice).
//
// The header is rewritten whenever a graph ends its segment and when the
// capture is closed, so the file is a complete WAV file after every graph
// release. The first audio fixes the rate and channel count; later graphs
// are converted to it.
//
// With padGaps, the time between the end of one graph's last sample and the
// first sample of the next graph is written as silence, as a sound card
// would have played it: the track-change gap then shows in the capture.
//
// Thread-safe: graphs append from their streaming threads. Shared by the
// graph factory and each graph (std::shared_ptr); closed with the last owner.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <mutex>
#include <span>
#include <string>

namespace zelvor {

struct WavFormat {
    int rate = 0;
    int channels = 0;
    bool operator==(const WavFormat&) const = default;
};

class WavCapture {
public:
    // Creates (or empties) the file. nullptr, with a reason, when it cannot.
    static std::shared_ptr<WavCapture> Create(const std::filesystem::path& path, bool padGaps,
                                              std::string* error = nullptr);
    ~WavCapture();
    WavCapture(const WavCapture&) = delete;
    WavCapture& operator=(const WavCapture&) = delete;

    // The format fixed by the first audio; rate 0 before any.
    WavFormat Format() const;

    // Interleaved signed 16-bit little-endian frames that a sink has just
    // rendered. Audio of another format than the fixed one is refused.
    bool Append(WavFormat format, std::span<const std::byte> pcm, bool firstOfSegment);
    // A graph is done: the header is brought up to date.
    void EndSegment();

    std::uint64_t DataBytes() const;
    const std::filesystem::path& Path() const { return m_path; }

private:
    WavCapture(std::filesystem::path path, std::FILE* file, bool padGaps);
    void WriteHeader();
    void WriteSilence(std::chrono::steady_clock::duration gap);

    mutable std::mutex m_lock;
    std::filesystem::path m_path;
    std::FILE* m_file;
    bool m_padGaps;
    WavFormat m_format;
    std::uint64_t m_dataBytes = 0;
    bool m_haveAudio = false;
    std::chrono::steady_clock::time_point m_lastSampleEnd;
};

} // namespace zelvor
