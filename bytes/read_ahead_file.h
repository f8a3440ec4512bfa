#pragma once
// ReadAheadFile: a DeviceFile that reads the head of another file once and
// serves every later read that falls inside it from memory, and asks for
// the size once. The readers look at the same first bytes several times (the
// frame sync window, the ID3v2 header and body, the ASF header's children);
// this turns those reads into one.
//
// It refers to the wrapped file, which must outlive it. Writes and
// truncation pass through and forget what was read ahead.

#include <cstddef>
#include <optional>
#include <vector>

#include "platform/device_fs.h"

namespace zelvor {

class ReadAheadFile final : public DeviceFile {
public:
    // headBytes: how much of the file's start to keep (0 keeps only the size).
    ReadAheadFile(DeviceFile& file, std::size_t headBytes) : m_file(file), m_headBytes(headBytes) {}

    std::uint64_t Size() const override;
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) override;
    bool WriteAt(std::uint64_t offset, std::span<const std::byte> data) override;
    bool Truncate(std::uint64_t size) override;

private:
    DeviceFile& m_file;
    std::size_t m_headBytes;
    mutable std::optional<std::uint64_t> m_size;
    std::optional<std::vector<std::byte>> m_head; // read on first use
};

} // namespace zelvor
