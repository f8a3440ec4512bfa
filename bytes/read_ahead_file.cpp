#include "bytes/read_ahead_file.h"

#include <algorithm>

namespace zelvor {

std::uint64_t ReadAheadFile::Size() const {
    if (!m_size)
        m_size = m_file.Size();
    return *m_size;
}

std::size_t ReadAheadFile::ReadAt(std::uint64_t offset, std::span<std::byte> out) {
    if (offset >= m_headBytes || out.size() > m_headBytes - offset)
        return m_file.ReadAt(offset, out);
    if (!m_head) {
        m_head.emplace(static_cast<std::size_t>(std::min<std::uint64_t>(Size(), m_headBytes)));
        m_head->resize(m_file.ReadAt(0, *m_head));
    }
    // Inside the window the head is what the file holds (it may be shorter
    // than the window when the file is).
    if (offset >= m_head->size())
        return 0;
    const std::size_t n = std::min<std::size_t>(out.size(), m_head->size() - offset);
    std::copy_n(m_head->begin() + static_cast<std::ptrdiff_t>(offset), n, out.begin());
    return n;
}

bool ReadAheadFile::WriteAt(std::uint64_t offset, std::span<const std::byte> data) {
    m_head.reset();
    m_size.reset();
    return m_file.WriteAt(offset, data);
}

bool ReadAheadFile::Truncate(std::uint64_t size) {
    m_head.reset();
    m_size.reset();
    return m_file.Truncate(size);
}

} // namespace zelvor
