// zelvor-lib tags and strip, run as a user runs them: their JSON lines are
// what scripts and the demo read.

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

#include "tests/support/test_device.h"
#include "tests/tags/tag_builders.h"

namespace zelvor {
namespace {

using namespace zelvor::testing;

std::string RunTool(const std::string& arguments) {
    std::string output;
    FILE* pipe = ::popen((std::string(ZELVOR_LIB_PATH) + " " + arguments + " 2>&1").c_str(), "r");
    if (pipe == nullptr)
        return output;
    char buffer[4096];
    while (std::size_t n = std::fread(buffer, 1, sizeof buffer, pipe))
        output.append(buffer, n);
    ::pclose(pipe);
    return output;
}

class TagsTool : public ::testing::Test {
protected:
    std::string Write(const std::string& name, const std::string& bytes) {
        std::string path = (m_folder.Path() / name).string();
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    TempDir m_folder;
};

// 417-byte frames: 10 frames after the header position.
const std::string kStream = MpegHeader({}) + std::string(4170, '\0');

TEST_F(TagsTool, TagsPrintsOneLinePerFileAndRawAddsWhatTheReaderFound) {
    std::string mp3 =
        Write("a.mp3", kStream + Id3v1({.title = "Tool", .artist = "Me", .track = 2, .genre = 8}));
    std::string none = Write("x.mp3", std::string(100, '\0'));
    EXPECT_EQ(RunTool("tags '" + mp3 + "' '" + none + "'"),
              "{\"file\":\"" + mp3 +
                  "\",\"type\":0,\"ok\":true,\"title\":\"Tool\",\"album\":\"\",\"artist\":\"Me\","
                  "\"genre\":\"Jazz\",\"duration\":0,\"track\":2}\n"
                  "{\"file\":\"" +
                  none + "\",\"type\":0,\"ok\":false}\n");
    mp3 = Write("b.mp3", Id3v2TagBytes(3, Frame4("TIT2", Latin1Text("Raw title")) +
                                              Frame4("TRCK", Latin1Text("4/9"))) +
                             kStream);
    std::string line = RunTool("tags --raw '" + mp3 + "'");
    for (const char* part :
         {"\"mp3\":{\"flags\":2,\"version\":3,\"layer\":3,\"protection\":1,\"bitrate\":128,"
          "\"sample_rate\":44100,",
          "\"frame_length\":417,\"frames\":10,\"header_offset\":44,",
          "\"id3v2\":{\"present\":true,\"error\":0,\"major\":3,\"tag_length\":44,\"title\":\"Raw "
          "title\",\"artist\":\"\",\"album\":\"\",\"genre_index\":-1,\"genre_text\":\"\","
          "\"track\":4,\"track_total\":9}}"})
        EXPECT_NE(line.find(part), std::string::npos) << line;
}

TEST_F(TagsTool, StripReportsSizesAndRootMapsDevicePaths) {
    std::string mp3 = Write("c.mp3", Id3v2TagBytes(4, std::string(90, 'x')) + kStream);
    EXPECT_EQ(RunTool("strip '" + mp3 + "'"),
              "{\"file\":\"" + mp3 +
                  "\",\"result\":1,\"error\":0,\"size_before\":4274,\"size_after\":4174}\n");
    EXPECT_EQ(RunTool("strip"),
              "zelvor-lib strip: give one file\nusage: zelvor-lib strip [--root DIR] FILE\n");
    std::filesystem::create_directories(m_folder.Path() / "Storage Card");
    Write("Storage Card/d.aac", AdtsFrame({}) + AdtsFrame({}));
    EXPECT_EQ(RunTool("tags --root '" + m_folder.Path().string() + "' '/Storage Card/D.AAC'"),
              "{\"file\":\"/Storage Card/D.AAC\",\"type\":2,\"ok\":true,\"title\":\"D\","
              "\"album\":\"\",\"artist\":\"\",\"genre\":\"\",\"duration\":0,\"track\":0}\n");
}

} // namespace
} // namespace zelvor
