// The readers on files made by a real encoder (ffmpeg) at test time, tagged
// through ffmpeg's metadata options: what only a real encoder's layout shows
// (LAME's first frame, ffmpeg's ID3v2 and ASF writers, real ADTS streams).
// Crafted bytes test the rules themselves. The files are made once, in a
// folder of the build tree named after the command, under a temporary name
// renamed into place (CTest may run cases in parallel).

#include <cstdlib>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <unistd.h>

#include "platform/text.h"
#include "tags/adts/read_aac_file.h"
#include "tags/asf/analyse_wma_file.h"
#include "tags/build_track_record.h"
#include "tags/mpeg/analyse_mp3_file.h"
#include "tests/support/test_device.h"
#include "tests/tags/tag_builders.h"

namespace zelvor {
namespace {

using namespace zelvor::testing;
namespace fs = std::filesystem;

std::uint32_t ByteOf(const std::string& s, std::size_t i) {
    return static_cast<unsigned char>(s.at(i));
}

class EncodedFiles : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        s_ok = std::system("ffmpeg -version >/dev/null 2>&1") == 0;
        if (!s_ok)
            return;
        const std::string sine = "-f lavfi -i sine=frequency=440:duration=";
        const std::string tags =
            " -metadata title='Song Title' -metadata artist='The Artist'"
            " -metadata album='An Album' -metadata genre=Rock -metadata track=3/12";
        Make("cbr128.mp3",
             sine + "3 -c:a libmp3lame -b:a 128k -id3v2_version 3 -write_id3v1 1" + tags);
        Make("cbr320.mp3", sine + "3 -c:a libmp3lame -b:a 320k -id3v2_version 4" + tags);
        Make("tagged.wma", sine + "3 -c:a wmav2 -b:a 128k" + tags);
        Make("plain.aac", sine + "3 -c:a aac -b:a 128k -f adts");
        Make("long.aac", "-f lavfi -i anoisesrc=d=48:c=pink:a=0.3 -c:a aac -b:a 192k -f adts");
    }

    // Makes the file unless an earlier run made it with the same command.
    static void Make(const char* name, const std::string& arguments) {
        const fs::path folder = fs::path(ZELVOR_TEST_MEDIA_DIR) /
                                std::to_string(std::hash<std::string>{}(arguments) % 1000000007);
        s_files[name] = folder / name;
        if (fs::exists(s_files[name]))
            return;
        std::error_code ec;
        fs::create_directories(folder, ec);
        const fs::path partial = folder / (std::to_string(::getpid()) + "." + name);
        const std::string command =
            "ffmpeg -v error -y " + arguments + " '" + partial.string() + "'";
        if (std::system(command.c_str()) != 0 || (fs::rename(partial, s_files[name], ec), ec))
            s_ok = false;
    }

    void SetUp() override {
        if (!s_ok)
            GTEST_SKIP() << "ffmpeg is missing or could not encode the test files";
        m_device = std::make_unique<TestDevice>();
        for (const auto& [name, host] : s_files)
            fs::copy_file(host, m_device->Host(Path(name.c_str())));
    }
    static std::u16string Path(const char* name) { return u"\\Storage Card\\" + FromUtf8(name); }
    static std::string Bytes(const char* name) {
        std::ifstream in(s_files.at(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

    static inline std::map<std::string, fs::path> s_files;
    static inline bool s_ok = false;
    std::unique_ptr<TestDevice> m_device;
};

TEST_F(EncodedFiles, TaggedFilesOfEachReaderGiveTheirTextsAndLength) {
    for (const char* name : {"cbr128.mp3", "cbr320.mp3", "tagged.wma"}) {
        SCOPED_TRACE(name);
        auto record = BuildTrackRecord(Path(name));
        ASSERT_TRUE(record);
        for (auto [field, text] : {std::pair{kFieldTitle, u"Song Title"}, {kFieldArtist, u"The Artist"},
                                   {kFieldAlbum, u"An Album"}, {kFieldGenre, u"Rock"}})
            EXPECT_EQ(record->Text(field), text);
        EXPECT_EQ(record->TrackNumber(), 3);
        // WMA keeps the preroll in its play duration.
        EXPECT_GE(record->Duration(), 3u);
        EXPECT_LE(record->Duration(), name[0] == 't' ? 7u : 3u);
    }
    // The stream is found right behind the ID3v2 tag, LAME's first frame
    // and all.
    const std::string file = Bytes("cbr128.mp3");
    Mp3FileInfo info;
    ASSERT_EQ(AnalyseMp3File(info, Path("cbr128.mp3")), 1);
    EXPECT_EQ(info.layout.headerOffset, (ByteOf(file, 6) << 21) + (ByteOf(file, 7) << 14) +
                                            (ByteOf(file, 8) << 7) + ByteOf(file, 9) + 10);
    EXPECT_EQ(info.flags, kMp3HasStream | kMp3HasId3v1);
}

// Frames of an ADTS stream walked one by one from its start.
std::uint64_t WalkAdtsFrames(const std::string& file) {
    std::uint64_t frames = 0;
    for (std::size_t i = 0; i + 6 < file.size() && ByteOf(file, i) == 0xFF;) {
        std::size_t length = ((ByteOf(file, i + 3) & 3) << 11) | (ByteOf(file, i + 4) << 3) |
                             (ByteOf(file, i + 5) >> 5);
        if (length < 7)
            break;
        ++frames;
        i += length;
    }
    return frames;
}

TEST_F(EncodedFiles, AacFramesAreCountedAndLargeFilesEstimatedClosely) {
    AacTrackInfo info;
    ASSERT_EQ(ReadAacFile(Path("plain.aac"), &info), kAacOk);
    EXPECT_EQ(info.stream.Frames(), WalkAdtsFrames(Bytes("plain.aac")));
    EXPECT_EQ(info.stream.sampleRate, 44100);
    EXPECT_EQ(info.stream.profile, 2);
    EXPECT_NEAR(info.duration, 3, 0.1);
    auto plain = BuildTrackRecord(Path("plain.aac"));
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->Text(kFieldTitle), u"plain");
    EXPECT_FALSE(plain->HasText(kFieldArtist)); // empty texts are not set for AAC

    const std::string file = Bytes("long.aac");
    ASSERT_GT(file.size(), 1048576u);
    ASSERT_EQ(ReadAacFile(Path("long.aac"), &info), kAacOk);
    const double walked = static_cast<double>(WalkAdtsFrames(file));
    EXPECT_GT(info.stream.framesEstimated, 0);
    EXPECT_LT(info.stream.bytesRead, file.size());
    EXPECT_NEAR(static_cast<double>(info.stream.Frames()), walked, walked * 0.005);
}

} // namespace
} // namespace zelvor
