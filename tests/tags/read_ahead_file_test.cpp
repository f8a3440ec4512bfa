#include "bytes/read_ahead_file.h"

#include <gtest/gtest.h>

#include "tests/tags/tag_builders.h"

namespace zelvor {
namespace {

using namespace zelvor::testing;

// Counts the reads that reach the wrapped file.
class CountingFile final : public DeviceFile {
public:
    explicit CountingFile(std::string bytes) : m_file(MemoryFileOf(bytes)) {}
    std::uint64_t Size() const override { return m_file.Size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) override {
        ++reads;
        return m_file.ReadAt(offset, out);
    }
    bool WriteAt(std::uint64_t offset, std::span<const std::byte> data) override {
        return m_file.WriteAt(offset, data);
    }
    bool Truncate(std::uint64_t size) override { return m_file.Truncate(size); }
    int reads = 0;

private:
    MemoryFile m_file;
};

std::string Read(DeviceFile& file, std::uint64_t offset, std::size_t size) {
    std::string out(size, '?');
    out.resize(file.ReadAt(offset, AsWritableBytes(out)));
    return out;
}

TEST(ReadAheadFile, ReadsInsideTheHeadComeFromOneReadAndWritesDropIt) {
    std::string bytes;
    for (int i = 0; i < 300; ++i)
        bytes += static_cast<char>(i);
    CountingFile inner(bytes);
    ReadAheadFile file(inner, 100);
    EXPECT_EQ(Read(file, 0, 10), bytes.substr(0, 10));
    EXPECT_EQ(Read(file, 90, 10), bytes.substr(90, 10));
    EXPECT_EQ(inner.reads, 1);
    EXPECT_EQ(Read(file, 95, 10), bytes.substr(95, 10)); // crosses the head's end
    EXPECT_EQ(Read(file, 290, 20), bytes.substr(290, 10));
    EXPECT_EQ(file.Size(), 300u);
    ASSERT_TRUE(file.WriteAt(0, AsBytes("S")));
    EXPECT_EQ(Read(file, 0, 2), "S\x01");
}

} // namespace
} // namespace zelvor
