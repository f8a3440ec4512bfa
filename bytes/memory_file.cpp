#include "bytes/memory_file.h"

#include <algorithm>

namespace zelvor {

// A file in memory never grows past this: a hostile offset must not make a
// write allocate gigabytes.
constexpr std::uint64_t kMaxMemoryFileSize = std::uint64_t{1} << 30;

std::size_t MemoryFile::ReadAt(std::uint64_t offset, std::span<std::byte> out) {
    if (offset >= m_bytes.size())
        return 0;
    std::size_t n = std::min<std::uint64_t>(out.size(), m_bytes.size() - offset);
    std::copy_n(m_bytes.begin() + static_cast<std::ptrdiff_t>(offset), n, out.begin());
    return n;
}

bool MemoryFile::WriteAt(std::uint64_t offset, std::span<const std::byte> data) {
    if (offset > kMaxMemoryFileSize || data.size() > kMaxMemoryFileSize - offset)
        return false;
    std::size_t end = static_cast<std::size_t>(offset) + data.size();
    if (end > m_bytes.size())
        m_bytes.resize(end);
    std::copy(data.begin(), data.end(), m_bytes.begin() + static_cast<std::ptrdiff_t>(offset));
    return true;
}

bool MemoryFile::Truncate(std::uint64_t size) {
    if (size > kMaxMemoryFileSize)
        return false;
    m_bytes.resize(static_cast<std::size_t>(size));
    return true;
}

} // namespace zelvor
