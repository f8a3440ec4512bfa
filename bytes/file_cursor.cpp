#include "bytes/file_cursor.h"

#include <algorithm>
#include <cstring>

namespace zelvor {

FileCursor::FileCursor(DeviceFile& file, std::size_t windowBytes)
    : m_file(file), m_fileSize(file.Size()), m_window(std::max<std::size_t>(windowBytes, 16)) {}

bool FileCursor::Fill(std::size_t n) {
    std::size_t have = m_end - m_begin;
    if (have >= n)
        return true;
    if (n > Remaining()) {
        m_position = m_fileSize;
        m_begin = m_end = 0;
        return false;
    }
    if (m_begin > 0) {
        std::memmove(m_window.data(), m_window.data() + m_begin, have);
        m_begin = 0;
        m_end = have;
    }
    if (n > m_window.size())
        m_window.resize(n);
    std::uint64_t readFrom = m_position + have;
    std::size_t want = static_cast<std::size_t>(
        std::min<std::uint64_t>(m_window.size() - m_end, m_fileSize - readFrom));
    std::size_t got = m_file.ReadAt(readFrom, std::span(m_window).subspan(m_end, want));
    m_end += got;
    if (m_end - m_begin < n) {
        // The file shrank or cannot be read: nothing more comes from it.
        m_position = m_fileSize;
        m_begin = m_end = 0;
        return false;
    }
    return true;
}

std::optional<std::span<const std::byte>> FileCursor::Take(std::size_t n) {
    if (!Fill(n))
        return std::nullopt;
    std::span<const std::byte> bytes(m_window.data() + m_begin, n);
    m_begin += n;
    m_position += n;
    return bytes;
}

bool FileCursor::Skip(std::uint64_t n) {
    if (n > Remaining()) {
        m_position = m_fileSize;
        m_begin = m_end = 0;
        return false;
    }
    std::uint64_t buffered = m_end - m_begin;
    if (n <= buffered) {
        m_begin += static_cast<std::size_t>(n);
    } else {
        m_begin = m_end = 0;
    }
    m_position += n;
    return true;
}

} // namespace zelvor
