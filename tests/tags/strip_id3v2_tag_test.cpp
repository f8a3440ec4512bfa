#include <gtest/gtest.h>

#include "tags/id3v2/strip_id3v2_tag.h"
#include "tests/support/test_device.h"
#include "tests/tags/tag_builders.h"

namespace zelvor {
namespace {

using namespace zelvor::testing;

constexpr std::chrono::milliseconds kNoWait{0};
const std::u16string kPath = u"\\Storage Card\\song.mp3";

// Audio bytes that show where each byte came from, so a block copied to the
// wrong place cannot pass.
std::string Pattern(std::size_t size) {
    std::string out(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        out[i] = static_cast<char>((i * 7 + i / 251) & 0xFF);
    return out;
}

TEST(StripTag, RemovesTheTagAndKeepsEveryOtherByteAndTheAttributes) {
    TestDevice device;
    // Audio sizes around the copy's block size; a file without a tag stays.
    for (std::size_t audioSize : {0, 100, 16384, 16385, 3 * 16384 + 5}) {
        std::string audio = Pattern(audioSize);
        device.WriteFile(kPath, Id3v2TagBytes(3, std::string(2048, 'P')) + audio);
        for (int pass = 0; pass < 2; ++pass) {
            Id3v2Tag tag;
            EXPECT_EQ(StripId3v2Tag(tag, kPath, kNoWait), 1) << audioSize;
            EXPECT_EQ(device.ReadFile(kPath), audio) << audioSize;
        }
    }
    device.WriteFile(kPath, Id3v2TagBytes(4, "body") + "audio");
    const std::uint32_t attributes = kAttrReadOnly | kAttrHidden | kAttrArchive;
    ASSERT_TRUE(device.Fs().SetAttributes(kPath, attributes));
    Id3v2Tag tag;
    EXPECT_EQ(StripId3v2Tag(tag, kPath, kNoWait), 1);
    EXPECT_EQ(device.ReadFile(kPath), "audio");
    EXPECT_EQ(device.Fs().GetAttributes(kPath), attributes);
}

TEST(StripTag, ErrorsLeaveTheFileAlone) {
    TestDevice device;
    Id3v2Tag tag;
    EXPECT_EQ(StripId3v2Tag(tag, u"\\Storage Card\\none.mp3", kNoWait), 0);
    EXPECT_EQ(tag.error, kId3v2FileNotFound);
    // A size that claims more than the file holds must not cut the file.
    std::string lying = Id3v2Header(3, 100000) + Pattern(300);
    device.WriteFile(kPath, lying);
    EXPECT_EQ(StripId3v2Tag(tag, kPath, kNoWait), 0);
    EXPECT_EQ(tag.error, kId3v2TagBeyondFile);
    EXPECT_EQ(device.ReadFile(kPath), lying);
    MemoryFile whole = MemoryFileOf(Id3v2TagBytes(3, std::string(30, 'x')));
    EXPECT_EQ(StripId3v2Tag(tag, whole), 1);
    EXPECT_EQ(whole.Size(), 0u);
}

} // namespace
} // namespace zelvor
