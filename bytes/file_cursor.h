#pragma once
// Reads an open device file front to back through a window buffer, so that
// a loader sees each piece it asks for as one span without holding the whole
// file in memory. Every request is checked against what the file still
// holds: a length that lies about the file cannot make the cursor allocate
// or read beyond it.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/device_fs.h"

namespace zelvor {

class FileCursor {
public:
    // The file must outlive the cursor. windowBytes is the usual read size;
    // a single request larger than that grows the window for that request.
    explicit FileCursor(DeviceFile& file, std::size_t windowBytes = 64 * 1024);

    // Bytes between the cursor and the end of the file.
    std::uint64_t Remaining() const { return m_fileSize - m_position; }

    // The next n bytes, valid until the next call; nullopt when fewer remain
    // or the file cannot be read (the cursor then stands at the end).
    std::optional<std::span<const std::byte>> Take(std::size_t n);
    // Passes over n bytes; false when fewer remain.
    bool Skip(std::uint64_t n);

private:
    bool Fill(std::size_t n);

    DeviceFile& m_file;
    std::uint64_t m_fileSize;
    std::uint64_t m_position = 0; // of the next byte handed out
    std::vector<std::byte> m_window;
    std::size_t m_begin = 0; // m_window[m_begin, m_end) holds the bytes at m_position
    std::size_t m_end = 0;
};

} // namespace zelvor
