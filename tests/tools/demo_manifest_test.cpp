// The manifest against the files the demo device really holds, and the
// collection against what a library scan must find and must leave out.

#include "platform/text.h"
#include "tests/tools/demo_fixture.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace zelvor::testing {
namespace {

constexpr std::uint64_t kAacJumpThreshold = 1'048'576;

bool HasDotFolder(std::u16string_view path) {
    return path.find(u"\\.") != std::u16string_view::npos;
}

// The player's audio filter looks at the last four characters only.
bool HasMusicExtension(std::u16string_view path) {
    if (path.size() < 4)
        return false;
    std::u16string_view tail = path.substr(path.size() - 4);
    return EqualsIgnoreCase(tail, u".mp3") || EqualsIgnoreCase(tail, u".wma") ||
           EqualsIgnoreCase(tail, u".aac");
}

using DemoManifest = DemoTest;

TEST_F(DemoManifest, ListsExactlyTheFilesOfBothStorageFolders) {
    std::set<std::u16string> listed;
    for (const auto& row : Rows())
        EXPECT_TRUE(listed.insert(row.path).second) << ToUtf8(row.path) << " listed twice";
    std::set<std::u16string> present;
    for (const char16_t* root : {u"\\Storage Card", u"\\Flash Disk"}) {
        for (const auto& file : ListFiles(Fs(), root))
            present.insert(file.path);
    }
    EXPECT_EQ(listed, present);
}

TEST_F(DemoManifest, HiddenAttributeMatchesTheHiddenFlag) {
    int hidden = 0;
    for (const auto& row : Rows()) {
        std::uint32_t attributes = Fs().GetAttributes(row.path);
        ASSERT_NE(attributes, kInvalidAttributes) << ToUtf8(row.path);
        EXPECT_EQ((attributes & kAttrHidden) != 0, row.hidden) << ToUtf8(row.path);
        hidden += row.hidden;
    }
    EXPECT_GE(hidden, 1);
}

TEST_F(DemoManifest, ExclusionReasonsFollowTheScanRules) {
    std::set<std::string> reasons;
    for (const auto& row : Rows()) {
        std::string expected = row.hidden                     ? "hidden"
                               : HasDotFolder(row.path)       ? "dot-folder"
                               : !HasMusicExtension(row.path) ? "not-music"
                                                              : "";
        EXPECT_EQ(row.excluded, expected) << ToUtf8(row.path);
        reasons.insert(row.excluded);
    }
    EXPECT_EQ(reasons, (std::set<std::string>{"", "hidden", "dot-folder", "not-music"}));
}

TEST_F(DemoManifest, TypeFollowsTheExtension) {
    for (const auto& row : Rows()) {
        std::string extension = ToUtf8(row.path.substr(row.path.rfind(u'.') + 1));
        std::string expected =
            extension == "mp3" || extension == "wma" || extension == "aac" || extension == "m4a"
                ? extension
                : "other";
        EXPECT_EQ(row.type, expected) << ToUtf8(row.path);
        if (row.type == "other") {
            EXPECT_EQ(row.tags, "none");
            EXPECT_EQ(row.seconds, 0);
        }
    }
}

TEST_F(DemoManifest, CollectionCoversTheFormatsAndTagLayouts) {
    std::set<std::string> tagLayouts, types;
    std::set<std::u16string> artists, genres;
    int included = 0, onFlash = 0, nonAsciiPaths = 0;
    for (const auto& row : Rows()) {
        tagLayouts.insert(row.type + ":" + row.tags);
        types.insert(row.type);
        if (!row.excluded.empty())
            continue;
        ++included;
        artists.insert(row.artist);
        genres.insert(row.genre);
        onFlash += row.path.starts_with(u"\\Flash Disk\\");
        nonAsciiPaths +=
            std::any_of(row.path.begin(), row.path.end(), [](char16_t c) { return c > 0x7F; });
    }
    for (const char* layout : {"mp3:id3v23+id3v11", "mp3:id3v23", "mp3:id3v24", "mp3:id3v22",
                               "mp3:none", "wma:asf", "aac:id3v23+id3v11", "aac:none", "m4a:mp4"})
        EXPECT_TRUE(tagLayouts.count(layout)) << layout;
    EXPECT_EQ(types, (std::set<std::string>{"mp3", "wma", "aac", "m4a", "other"}));
    EXPECT_GE(included, 30);
    EXPECT_GE(artists.size(), 8u);
    EXPECT_GE(genres.size(), 6u);
    EXPECT_GE(onFlash, 5);
    EXPECT_GE(nonAsciiPaths, 6);
}

TEST_F(DemoManifest, TracksAreShortExceptTwoLongAacFiles) {
    int longFiles = 0;
    for (const auto& row : Rows()) {
        if (row.type == "other")
            continue;
        auto bytes = Fs().ReadWholeFile(row.path);
        ASSERT_TRUE(bytes) << ToUtf8(row.path);
        if (bytes->size() > kAacJumpThreshold) {
            EXPECT_EQ(row.type, "aac") << ToUtf8(row.path);
            EXPECT_GE(row.seconds, 75);
            ++longFiles;
        } else {
            EXPECT_GE(row.seconds, 3) << ToUtf8(row.path);
            EXPECT_LE(row.seconds, 12) << ToUtf8(row.path);
        }
    }
    EXPECT_EQ(longFiles, 2);
}

TEST_F(DemoManifest, TaggedFilesCarryEveryFieldAndUntaggedNone) {
    for (const auto& row : Rows()) {
        bool tagged = row.tags != "none";
        EXPECT_EQ(!row.title.empty(), tagged) << ToUtf8(row.path);
        EXPECT_EQ(!row.artist.empty(), tagged) << ToUtf8(row.path);
        if (tagged && row.excluded.empty()) {
            EXPECT_FALSE(row.album.empty()) << ToUtf8(row.path);
            EXPECT_FALSE(row.genre.empty()) << ToUtf8(row.path);
            EXPECT_GT(row.track, 0) << ToUtf8(row.path);
            EXPECT_EQ(row.year.size(), 4u) << ToUtf8(row.path);
        }
    }
}

TEST_F(DemoManifest, EmptyFolderAndStorageLayoutExist) {
    std::vector<std::u16string> empty;
    ListFiles(Fs(), u"\\Storage Card", &empty);
    EXPECT_FALSE(empty.empty());
    for (const char16_t* folder :
         {u"\\Storage Card", u"\\Flash Disk", u"\\Flash Disk\\Zelvor", u"\\Windows"}) {
        std::uint32_t attributes = Fs().GetAttributes(folder);
        EXPECT_TRUE(attributes != kInvalidAttributes && (attributes & kAttrDirectory))
            << ToUtf8(folder);
    }
}

} // namespace
} // namespace zelvor::testing
