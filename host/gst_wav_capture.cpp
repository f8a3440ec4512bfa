#include "host/gst_wav_capture.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <vector>

namespace zelvor {
namespace {

constexpr std::uint32_t kHeaderBytes = 44;
constexpr std::uint16_t kPcmFormat = 1;
constexpr std::uint16_t kBitsPerSample = 16;
// RIFF sizes are 32-bit: a capture stops growing at 4 GiB less its header.
constexpr std::uint64_t kMaxDataBytes = 0xFFFFFFFFull - kHeaderBytes;

void PutLe(std::byte* at, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        at[i] = static_cast<std::byte>((value >> (8 * i)) & 0xFF);
}

} // namespace

std::shared_ptr<WavCapture> WavCapture::Create(const std::filesystem::path& path, bool padGaps,
                                               std::string* error) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) {
        if (error)
            *error = "cannot create " + path.string() + ": " + std::strerror(errno);
        return nullptr;
    }
    std::shared_ptr<WavCapture> capture(new WavCapture(path, file, padGaps));
    std::lock_guard guard(capture->m_lock);
    capture->WriteHeader();
    return capture;
}

WavCapture::WavCapture(std::filesystem::path path, std::FILE* file, bool padGaps)
    : m_path(std::move(path)), m_file(file), m_padGaps(padGaps) {}

WavCapture::~WavCapture() {
    std::lock_guard guard(m_lock);
    WriteHeader();
    std::fclose(m_file);
}

WavFormat WavCapture::Format() const {
    std::lock_guard guard(m_lock);
    return m_format;
}

std::uint64_t WavCapture::DataBytes() const {
    std::lock_guard guard(m_lock);
    return m_dataBytes;
}

bool WavCapture::Append(WavFormat format, std::span<const std::byte> pcm, bool firstOfSegment) {
    auto now = std::chrono::steady_clock::now();
    std::lock_guard guard(m_lock);
    if (format.rate <= 0 || format.channels <= 0)
        return false;
    if (m_format.rate == 0)
        m_format = format;
    else if (format != m_format)
        return false;
    std::size_t frameBytes = static_cast<std::size_t>(format.channels) * 2;
    std::size_t usable = pcm.size() - pcm.size() % frameBytes;

    if (m_padGaps && firstOfSegment && m_haveAudio && now > m_lastSampleEnd)
        WriteSilence(now - m_lastSampleEnd);
    usable = static_cast<std::size_t>(std::min<std::uint64_t>(usable, kMaxDataBytes - m_dataBytes));
    if (usable > 0 && std::fwrite(pcm.data(), 1, usable, m_file) == usable)
        m_dataBytes += usable;

    // The buffer was handed over as its first sample was due, so it has
    // been played out once its own length has passed.
    auto frames = static_cast<std::int64_t>(usable / frameBytes);
    m_lastSampleEnd = now + std::chrono::microseconds(frames * 1'000'000 / format.rate);
    m_haveAudio = true;
    return true;
}

void WavCapture::WriteSilence(std::chrono::steady_clock::duration gap) {
    auto micros = std::chrono::duration_cast<std::chrono::microseconds>(gap).count();
    std::uint64_t frames = static_cast<std::uint64_t>(micros) * m_format.rate / 1'000'000;
    std::uint64_t bytes = frames * m_format.channels * 2;
    bytes = std::min(bytes, kMaxDataBytes - m_dataBytes);
    std::vector<std::byte> zeros(4096);
    for (std::uint64_t left = bytes; left > 0;) {
        std::size_t chunk = static_cast<std::size_t>(std::min<std::uint64_t>(left, zeros.size()));
        if (std::fwrite(zeros.data(), 1, chunk, m_file) != chunk)
            return;
        m_dataBytes += chunk;
        left -= chunk;
    }
}

void WavCapture::EndSegment() {
    std::lock_guard guard(m_lock);
    WriteHeader();
}

void WavCapture::WriteHeader() {
    // Before any audio the header describes an empty 44.1 kHz stereo file.
    int rate = m_format.rate ? m_format.rate : 44100;
    int channels = m_format.channels ? m_format.channels : 2;
    std::uint32_t blockAlign = static_cast<std::uint32_t>(channels) * kBitsPerSample / 8;
    auto data = static_cast<std::uint32_t>(m_dataBytes);

    std::array<std::byte, kHeaderBytes> header{};
    std::memcpy(header.data(), "RIFF", 4);
    PutLe(&header[4], data + kHeaderBytes - 8, 4);
    std::memcpy(&header[8], "WAVEfmt ", 8);
    PutLe(&header[16], 16, 4);
    PutLe(&header[20], kPcmFormat, 2);
    PutLe(&header[22], static_cast<std::uint32_t>(channels), 2);
    PutLe(&header[24], static_cast<std::uint32_t>(rate), 4);
    PutLe(&header[28], static_cast<std::uint32_t>(rate) * blockAlign, 4);
    PutLe(&header[32], blockAlign, 2);
    PutLe(&header[34], kBitsPerSample, 2);
    std::memcpy(&header[36], "data", 4);
    PutLe(&header[40], data, 4);

    long end = std::ftell(m_file);
    std::fseek(m_file, 0, SEEK_SET);
    std::fwrite(header.data(), 1, header.size(), m_file);
    std::fseek(m_file, end < static_cast<long>(kHeaderBytes) ? kHeaderBytes : end, SEEK_SET);
    std::fflush(m_file);
}

} // namespace zelvor
