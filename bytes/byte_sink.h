#pragma once
// Where a file writer puts its bytes. The writers build a whole file in
// memory and hand it to the device file system in one atomic replace; the
// sink lets a test refuse writes half-way to check what a writer does then.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zelvor {

class ByteSink {
public:
    virtual ~ByteSink() = default;
    // Adds the bytes at the end; false when they were refused (none added).
    virtual bool Append(std::span<const std::byte> data) = 0;
    // Overwrites bytes already written; false when refused or out of range.
    virtual bool Overwrite(std::uint64_t offset, std::span<const std::byte> data) = 0;
};

// Keeps everything in a growing buffer.
class MemorySink final : public ByteSink {
public:
    bool Append(std::span<const std::byte> data) override {
        m_bytes.insert(m_bytes.end(), data.begin(), data.end());
        return true;
    }
    bool Overwrite(std::uint64_t offset, std::span<const std::byte> data) override {
        if (offset > m_bytes.size() || data.size() > m_bytes.size() - offset)
            return false;
        std::copy(data.begin(), data.end(), m_bytes.begin() + static_cast<std::ptrdiff_t>(offset));
        return true;
    }
    void Reserve(std::size_t bytes) { m_bytes.reserve(bytes); }
    const std::vector<std::byte>& Bytes() const { return m_bytes; }

private:
    std::vector<std::byte> m_bytes;
};

} // namespace zelvor
