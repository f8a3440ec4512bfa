#pragma once
// DeviceFile on a POSIX descriptor: positioned reads and writes that go on
// after EINTR and short transfers. The file owns the descriptor.

#include <cstdint>
#include <optional>

#include "platform/device_fs.h"

namespace zelvor {

class PosixFile final : public DeviceFile {
public:
    // sizeAtOpen: the size the open's own check saw, for a file opened only
    // for reading; it is answered without asking the disk again (a tag
    // reader asks once per file, and the call was a tenth of its time).
    explicit PosixFile(int fd, std::optional<std::uint64_t> sizeAtOpen = std::nullopt)
        : m_fd(fd), m_sizeAtOpen(sizeAtOpen) {}
    ~PosixFile() override;
    PosixFile(const PosixFile&) = delete;
    PosixFile& operator=(const PosixFile&) = delete;

    std::uint64_t Size() const override;
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) override;
    bool WriteAt(std::uint64_t offset, std::span<const std::byte> data) override;
    bool Truncate(std::uint64_t size) override;

private:
    int m_fd;
    std::optional<std::uint64_t> m_sizeAtOpen;
};

} // namespace zelvor
