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
    std::uint64_t Size() const override {
        ++sizes;
        return m_file.Size();
    }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) override {
        ++reads;
        return m_file.ReadAt(offset, out);
    }
    bool WriteAt(std::uint64_t offset, std::span<const std::byte> data) override {
        return m_file.WriteAt(offset, data);
    }
    bool Truncate(std::uint64_t size) override { return m_file.Truncate(size); }
    mutable int sizes = 0;
    int reads = 0;

private:
    MemoryFile m_file;
};

std::string Read(DeviceFile& file, std::uint64_t offset, std::size_t size) {
    std::string out(size, '?');
    out.resize(file.ReadAt(offset, AsWritableBytes(out)));
    return out;
}

TEST(ReadAheadFile, ReadsInsideTheHeadComeFromOneRead) {
    std::string bytes;
    for (int i = 0; i < 300; ++i)
        bytes += static_cast<char>(i);
    CountingFile inner(bytes);
    ReadAheadFile file(inner, 100);
    EXPECT_EQ(Read(file, 0, 10), bytes.substr(0, 10));
    EXPECT_EQ(Read(file, 90, 10), bytes.substr(90, 10));
    EXPECT_EQ(inner.reads, 1);
    // Reads that cross or lie past the head go to the file.
    EXPECT_EQ(Read(file, 95, 10), bytes.substr(95, 10));
    EXPECT_EQ(Read(file, 290, 20), bytes.substr(290, 10));
    EXPECT_EQ(inner.reads, 3);
    EXPECT_EQ(file.Size(), 300u);
    EXPECT_EQ(file.Size(), 300u);
    EXPECT_LE(inner.sizes, 1);
}

TEST(ReadAheadFile, AFileShorterThanTheHeadAndWrites) {
    CountingFile inner("short");
    ReadAheadFile file(inner, 4096);
    EXPECT_EQ(Read(file, 2, 100), "ort");
    EXPECT_EQ(Read(file, 10, 4), "");
    ASSERT_TRUE(file.WriteAt(0, AsBytes("S")));
    EXPECT_EQ(Read(file, 0, 5), "Short"); // a write drops what was read ahead
    ASSERT_TRUE(file.Truncate(2));
    EXPECT_EQ(file.Size(), 2u);
}

} // namespace
} // namespace zelvor
