#pragma once
// MemoryFile: a DeviceFile held in memory. The readers take a DeviceFile, so
// the fuzzers and the tests of hand-made headers run them on bytes without a
// disk. The file owns its bytes; writes and truncation change them as they
// would change a file on disk.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/device_fs.h"

namespace zelvor {

class MemoryFile final : public DeviceFile {
public:
    MemoryFile() = default;
    explicit MemoryFile(std::span<const std::byte> bytes) : m_bytes(bytes.begin(), bytes.end()) {}
    explicit MemoryFile(std::vector<std::byte> bytes) : m_bytes(std::move(bytes)) {}

    std::uint64_t Size() const override { return m_bytes.size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) override;
    bool WriteAt(std::uint64_t offset, std::span<const std::byte> data) override;
    bool Truncate(std::uint64_t size) override;

    const std::vector<std::byte>& Bytes() const { return m_bytes; }

private:
    std::vector<std::byte> m_bytes;
};

} // namespace zelvor
