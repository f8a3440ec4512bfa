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

// The player's audio filter looks at the last four characters only.
bool HasMusicExtension(std::u16string_view path) {
    std::u16string_view tail = path.substr(path.size() - std::min<std::size_t>(4, path.size()));
    return EqualsIgnoreCase(tail, u".mp3") || EqualsIgnoreCase(tail, u".wma") ||
           EqualsIgnoreCase(tail, u".aac");
}

using DemoManifest = DemoTest;

TEST_F(DemoManifest, ListsExactlyTheFilesOfBothStorageFolders) {
    std::multiset<std::u16string> listed, present;
    for (const auto& row : Rows())
        listed.insert(row.path);
    for (const char* root : {"Storage Card", "Flash Disk"})
        for (const auto& file : ListFiles(Demo().rootA / root, u"\\" + FromUtf8(root)))
            present.insert(file);
    EXPECT_EQ(listed, present);
}

// Each row's attribute, exclusion reason, type, tags and length agree with
// the file and with the scan's rules.
TEST_F(DemoManifest, EveryRowFollowsTheFileAndTheScanRules) {
    std::set<std::string> reasons, layouts;
    int longFiles = 0, onFlash = 0, nonAsciiPaths = 0;
    for (const auto& row : Rows()) {
        SCOPED_TRACE(ToUtf8(row.path));
        layouts.insert(row.type + ":" + row.tags);
        onFlash += row.path.starts_with(u"\\Flash Disk\\") && row.excluded.empty();
        nonAsciiPaths += std::any_of(row.path.begin(), row.path.end(), [](char16_t c) { return c > 0x7F; });
        std::uint32_t attributes = Fs().GetAttributes(row.path);
        ASSERT_NE(attributes, kInvalidAttributes);
        EXPECT_EQ((attributes & kAttrHidden) != 0, row.hidden);
        std::string expected = row.hidden                                    ? "hidden"
                               : row.path.find(u"\\.") != std::u16string::npos ? "dot-folder"
                               : !HasMusicExtension(row.path)                ? "not-music"
                                                                             : "";
        EXPECT_EQ(row.excluded, expected);
        reasons.insert(row.excluded);
        std::string extension = ToUtf8(row.path.substr(row.path.rfind(u'.') + 1));
        bool media = extension == "mp3" || extension == "wma" || extension == "aac" ||
                     extension == "m4a";
        EXPECT_EQ(row.type, media ? extension : "other");
        bool tagged = row.tags != "none";
        EXPECT_EQ(!row.title.empty(), tagged);
        EXPECT_EQ(!row.artist.empty(), tagged);
        if (tagged && row.excluded.empty()) {
            EXPECT_FALSE(row.album.empty() || row.genre.empty());
            EXPECT_GT(row.track, 0);
            EXPECT_EQ(row.year.size(), 4u);
        }
        if (!media) {
            EXPECT_EQ(row.tags, "none");
            EXPECT_EQ(row.seconds, 0);
        } else if (Read(row.path).size() > kAacJumpThreshold) {
            EXPECT_EQ(row.type, "aac"); // only two long AAC files, for the jump
            EXPECT_GE(row.seconds, 75);
            ++longFiles;
        } else {
            EXPECT_GE(row.seconds, 3);
            EXPECT_LE(row.seconds, 12);
        }
    }
    EXPECT_EQ(longFiles, 2);
    EXPECT_EQ(reasons, (std::set<std::string>{"", "hidden", "dot-folder", "not-music"}));
    EXPECT_EQ(layouts, (std::set<std::string>{"mp3:id3v23+id3v11", "mp3:id3v23", "mp3:id3v24",
                                              "mp3:id3v22", "mp3:none", "wma:asf",
                                              "aac:id3v23+id3v11", "aac:none", "m4a:mp4",
                                              "other:none"}));
    EXPECT_GE(onFlash, 5);
    EXPECT_GE(nonAsciiPaths, 6);
    // An empty folder, for the scan to pass over.
    bool emptyFolder = false;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Demo().rootA / "Storage Card"))
        emptyFolder = emptyFolder || (entry.is_directory() && std::filesystem::is_empty(entry));
    EXPECT_TRUE(emptyFolder);
}

} // namespace
} // namespace zelvor::testing
