#include <gtest/gtest.h>

#include <sys/stat.h>

#include "platform/endpoint_directory.h"
#include "platform/message_frame.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {

std::vector<std::byte> ToVector(std::span<const std::byte> bytes) {
    return {bytes.begin(), bytes.end()};
}

TEST(MessageFrame, AnythingButExactlyOneWellFormedFrameIsRejected) {
    auto good = ToVector(EncodeRequest({MessageKind::Post, {1, 2, 3}}));
    std::vector<std::byte> truncated(good.begin(), good.end() - 1);
    auto oversized = good;
    oversized.push_back(std::byte{0});
    auto badMagic = good;
    badMagic[0] = std::byte{'X'};
    auto badKind = good;
    badKind[4] = std::byte{3};
    auto badPadding = good;
    badPadding[6] = std::byte{1};
    for (const auto& bytes : {truncated, oversized, badMagic, badKind, badPadding})
        EXPECT_FALSE(DecodeRequest(bytes));
    EXPECT_FALSE(DecodeRequest({}));
    EXPECT_FALSE(DecodeAnswer(good));
    EXPECT_EQ(DecodeAnswer(EncodeAnswer(-1)), -1);
    auto answer = ToVector(EncodeAnswer(5));
    answer[3] = std::byte{'M'};
    EXPECT_FALSE(DecodeAnswer(answer));
}

TEST(EndpointNames, AreFileSafeAndDistinguishTitlesFromClasses) {
    EXPECT_EQ(EndpointFileName({EndpointKind::Title, u"../x/é"}), "title-..%2Fx%2F%C3%A9");
}

TEST(EndpointDirectory, IsPrivatePerDeviceRootAndRefusedWhenOpenToOthers) {
    testing::TempDir runtime;
    ::setenv("XDG_RUNTIME_DIR", runtime.Path().c_str(), 1);
    auto a = EndpointDirectoryFor("/some/root");
    EXPECT_EQ(a, EndpointDirectoryFor("/some/root/"));
    EXPECT_NE(a, EndpointDirectoryFor("/other/root"));
    EXPECT_EQ(a.parent_path(), runtime.Path());

    auto dir = PrepareEndpointDirectory("/some/root");
    ASSERT_TRUE(dir);
    struct stat st {};
    ASSERT_EQ(::stat(dir->c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0700u);

    ::chmod(dir->c_str(), 0755);
    std::string error;
    EXPECT_FALSE(PrepareEndpointDirectory("/some/root", &error));
    EXPECT_NE(error.find("open to other users"), std::string::npos);
    ::unsetenv("XDG_RUNTIME_DIR");
}

} // namespace
} // namespace zelvor
