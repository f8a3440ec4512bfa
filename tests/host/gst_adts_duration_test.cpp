#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>

#include "host/gst_adts_duration.h"
#include "tests/support/test_media.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {

std::string ReadAll(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void WriteAll(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

TEST(AdtsDuration, CountsEveryFrameAfterALeadingTagAndStopsAtACutOrJunk) {
    testing::TempDir dir;
    auto file = dir.Path() / "tone.aac";
    ASSERT_TRUE(testing::MakeAudioFile(file, testing::Codec::Aac, 1.0));
    auto whole = AdtsDuration(file);
    ASSERT_TRUE(whole);
    // Whole frames of 1024 samples at 44.1 kHz: one second, the encoder's
    // priming and the padding of the last frame.
    auto unitsOf = [](std::int64_t frames) { return frames * 1024 * 10'000'000 / 44100; };
    auto frames = std::llround(static_cast<double>(*whole) * 44100 / 1024 / 1e7);
    EXPECT_EQ(*whole, unitsOf(frames));
    EXPECT_NEAR(*whole / 1e7, 1.0, 0.05);

    std::string bytes = ReadAll(file);
    // A 10-byte ID3v2 header announcing a 200-byte body, then the stream.
    std::string tag = std::string("ID3\x03\x00\x00\x00\x00\x01\x48", 10) + std::string(200, '\0');
    WriteAll(dir.Path() / "tagged.aac", tag + bytes);
    EXPECT_EQ(AdtsDuration(dir.Path() / "tagged.aac"), whole);

    // Cut in the middle of the last frame: that frame is not counted.
    WriteAll(dir.Path() / "cut.aac", bytes.substr(0, bytes.size() - 5));
    EXPECT_EQ(AdtsDuration(dir.Path() / "cut.aac"), unitsOf(frames - 1));
    // Junk after the frames ends the count, it does not stop the file.
    WriteAll(dir.Path() / "junk.aac", bytes + "TAGjunkjunk");
    EXPECT_EQ(AdtsDuration(dir.Path() / "junk.aac"), whole);

    WriteAll(dir.Path() / "text.aac", "not audio");
    EXPECT_FALSE(AdtsDuration(dir.Path() / "text.aac"));
    EXPECT_FALSE(AdtsDuration(dir.Path() / "missing.aac"));
}

} // namespace
} // namespace zelvor
