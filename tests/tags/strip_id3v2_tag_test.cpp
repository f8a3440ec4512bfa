#include <gtest/gtest.h>

#include "tags/id3v2/strip_id3v2_tag.h"
#include "tests/support/test_device.h"
#include "tests/tags/tag_builders.h"

namespace zelvor {
namespace {

using namespace zelvor::testing;

constexpr std::chrono::milliseconds kNoWait{0};

// Audio bytes that show where each byte came from, so a block copied to the
// wrong place cannot pass.
std::string Pattern(std::size_t size) {
    std::string out(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        out[i] = static_cast<char>((i * 7 + i / 251) & 0xFF);
    return out;
}

class StripTag : public ::testing::Test {
protected:
    TestDevice m_device;
    const std::u16string m_path = u"\\Storage Card\\song.mp3";
};

TEST_F(StripTag, RemovesTagLengthBytesAndKeepsTheRestInOrder) {
    // 2048-byte body (2058 with the header); audio sizes around the block size.
    for (std::size_t audioSize : {std::size_t{0}, std::size_t{100}, std::size_t{16384},
                                  std::size_t{16385}, std::size_t{3 * 16384 + 5}}) {
        std::string audio = Pattern(audioSize);
        m_device.WriteFile(m_path, Id3v2TagBytes(3, std::string(2048, 'P')) + audio);
        Id3v2Tag tag;
        EXPECT_EQ(StripId3v2Tag(tag, m_path, kNoWait), 1) << audioSize;
        EXPECT_EQ(tag.error, kId3v2NoError);
        EXPECT_EQ(m_device.ReadFile(m_path), audio) << audioSize;
    }
}

TEST_F(StripTag, FileWithoutTagIsLeftAsItWas) {
    std::string bytes = "IDx" + Pattern(5000);
    m_device.WriteFile(m_path, bytes);
    Id3v2Tag tag;
    EXPECT_EQ(StripId3v2Tag(tag, m_path, kNoWait), 1);
    EXPECT_EQ(m_device.ReadFile(m_path), bytes);
    m_device.WriteFile(m_path, "ID");
    EXPECT_EQ(StripId3v2Tag(tag, m_path, kNoWait), 1);
    EXPECT_EQ(m_device.ReadFile(m_path), "ID");
}

TEST_F(StripTag, AttributesComeBackAfterTheRewrite) {
    m_device.WriteFile(m_path, Id3v2TagBytes(4, "body") + "audio");
    const std::uint32_t attributes = kAttrReadOnly | kAttrHidden | kAttrArchive;
    ASSERT_TRUE(m_device.Fs().SetAttributes(m_path, attributes));
    Id3v2Tag tag;
    EXPECT_EQ(StripId3v2Tag(tag, m_path, kNoWait), 1);
    EXPECT_EQ(m_device.ReadFile(m_path), "audio");
    EXPECT_EQ(m_device.Fs().GetAttributes(m_path), attributes);
}

TEST_F(StripTag, ErrorsLeaveTheFileAlone) {
    Id3v2Tag tag;
    EXPECT_EQ(StripId3v2Tag(tag, u"\\Storage Card\\none.mp3", kNoWait), 0);
    EXPECT_EQ(tag.error, kId3v2FileNotFound);

    // A size that claims more than the file holds must not cut the file.
    std::string lying = Id3v2Header(3, 100000) + Pattern(300);
    m_device.WriteFile(m_path, lying);
    EXPECT_EQ(StripId3v2Tag(tag, m_path, kNoWait), 0);
    EXPECT_EQ(tag.error, kId3v2TagBeyondFile);
    EXPECT_EQ(m_device.ReadFile(m_path), lying);

    // A folder matches the path but cannot be rewritten.
    ASSERT_TRUE(m_device.Fs().CreateDirectory(u"\\Storage Card\\folder.mp3"));
    EXPECT_EQ(StripId3v2Tag(tag, u"\\Storage Card\\folder.mp3", kNoWait), 0);
    EXPECT_EQ(tag.error, kId3v2CannotOpen);
}

TEST(StripTagInMemory, TagFillingTheWholeFileLeavesItEmpty) {
    MemoryFile file = MemoryFileOf(Id3v2TagBytes(3, std::string(30, 'x')));
    Id3v2Tag tag;
    EXPECT_EQ(StripId3v2Tag(tag, file), 1);
    EXPECT_EQ(file.Size(), 0u);
}

} // namespace
} // namespace zelvor
