// The readers on files made by a real encoder (ffmpeg) at test time, tagged
// through ffmpeg's metadata options. The files are short and made once: CTest
// runs every case in its own process, so they are kept in a folder of the
// build tree, named after the command that made them, and each is made under
// a temporary name and renamed into place (cases may run in parallel).
// Expected durations are worked out here from each file's own bytes by the
// reader's rule, independently of the reader.

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

std::string ReadHostFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

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
        Make("utf8.mp3", sine + "3 -c:a libmp3lame -b:a 128k -id3v2_version 3 -write_id3v1 1"
                                " -metadata title='\xC3\x89t\xC3\xA9' -metadata artist=Z");
        Make("cbr320.mp3", sine + "2 -c:a libmp3lame -b:a 320k -id3v2_version 4" + tags);
        Make("mpeg2.mp3", sine + "3 -ac 1 -ar 22050 -c:a libmp3lame -b:a 32k -id3v2_version 0");
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
    static std::string Bytes(const char* name) { return ReadHostFile(s_files.at(name)); }

    // The MP3 rule: 26 ms per frame of the first header's length, counted
    // from 4 bytes past the header, which here follows the ID3v2 tag.
    static std::int32_t Mp3RuleDuration(const std::string& file, std::size_t headerOffset) {
        const std::uint32_t rates[] = {0,   32,  40,  48,  56,  64,  80, 96,
                                       112, 128, 160, 192, 224, 256, 320};
        std::uint32_t bitRate = rates[ByteOf(file, headerOffset + 2) >> 4];
        std::uint32_t padding = (ByteOf(file, headerOffset + 2) >> 1) & 1;
        std::uint32_t frameLength = 144000 * bitRate / 44100 + padding;
        return static_cast<std::int32_t>((file.size() - headerOffset - 4) / frameLength * 26 /
                                         1000);
    }

    static std::size_t Id3v2Length(const std::string& file) {
        return (ByteOf(file, 6) << 21) + (ByteOf(file, 7) << 14) + (ByteOf(file, 8) << 7) +
               ByteOf(file, 9) + 10;
    }

    static inline std::map<std::string, fs::path> s_files;
    static inline bool s_ok = false;
    std::unique_ptr<TestDevice> m_device;
};

TEST_F(EncodedFiles, Mp3WithId3v23AndId3v1) {
    Mp3FileInfo info;
    ASSERT_EQ(AnalyseMp3File(info, Path("cbr128.mp3")), 1);
    const std::string file = Bytes("cbr128.mp3");
    const std::size_t header = Id3v2Length(file);
    EXPECT_EQ(info.flags, kMp3HasId3v1 | kMp3HasStream);
    EXPECT_EQ(info.layout.headerOffset, header);
    EXPECT_EQ(info.version, 3);
    EXPECT_EQ(info.layer, 3);
    EXPECT_EQ(info.sampleRate, 44100);
    EXPECT_EQ(info.duration, Mp3RuleDuration(file, header));
    EXPECT_NEAR(info.duration, 3, 1);

    auto record = BuildTrackRecord(Path("cbr128.mp3"));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->Text(kFieldTitle), u"Song Title");
    EXPECT_EQ(record->Text(kFieldArtist), u"The Artist");
    EXPECT_EQ(record->Text(kFieldAlbum), u"An Album");
    EXPECT_EQ(record->Text(kFieldGenre), u"Rock");
    EXPECT_EQ(record->TrackNumber(), 3);
    EXPECT_EQ(record->Duration(), static_cast<std::uint32_t>(info.duration));
    EXPECT_EQ(record->Text(kFieldFileName), u"cbr128.mp3");
}

TEST_F(EncodedFiles, Mp3WhoseId3v1TitleIsLongerInBytes) {
    // ffmpeg writes the ID3v1 title as UTF-8 bytes: read as Windows-1252 it
    // is five characters against three in ID3v2, so every ID3v1 text wins.
    auto record = BuildTrackRecord(Path("utf8.mp3"));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->Text(kFieldTitle), u"\u00C3\u2030t\u00C3\u00A9");
    EXPECT_EQ(record->Text(kFieldArtist), u"Z");
}

TEST_F(EncodedFiles, Mp3With320kAndId3v24) {
    Mp3FileInfo info;
    ASSERT_EQ(AnalyseMp3File(info, Path("cbr320.mp3")), 1);
    const std::string file = Bytes("cbr320.mp3");
    EXPECT_EQ(info.flags, kMp3HasStream);
    EXPECT_EQ(info.layout.headerOffset, Id3v2Length(file));
    EXPECT_EQ(info.duration, Mp3RuleDuration(file, Id3v2Length(file)));
    EXPECT_EQ(info.title, u"Song Title");
    EXPECT_EQ(info.genre, u"Rock");
    EXPECT_EQ(info.track, 3);
}

TEST_F(EncodedFiles, Mpeg2MonoAt22050) {
    Mp3FileInfo info;
    ASSERT_EQ(AnalyseMp3File(info, Path("mpeg2.mp3")), 1);
    const std::string file = Bytes("mpeg2.mp3");
    ASSERT_EQ(info.layout.headerOffset, 0u); // no tag at all
    // The program's own MPEG-2 Layer III row, and the factor 144000.
    const int rates[] = {0, 8, 16, 24, 32, 64, 80, 56, 64, 128, 160, 112, 128, 256, 320};
    const int bitRate = rates[ByteOf(file, 2) >> 4];
    const int frameLength = 144000 * bitRate / 22050 + static_cast<int>((ByteOf(file, 2) >> 1) & 1);
    EXPECT_EQ(info.version, 2);
    EXPECT_EQ(info.sampleRate, 22050);
    EXPECT_EQ(info.channelMode, 3);
    EXPECT_EQ(info.bitRate, bitRate);
    EXPECT_EQ(info.layout.frameLength, frameLength);
    EXPECT_EQ(info.duration, static_cast<int>((file.size() - 4) /
                                              static_cast<std::size_t>(frameLength) * 26 / 1000));
    auto record = BuildTrackRecord(Path("mpeg2.mp3"));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->Text(kFieldTitle), u"mpeg2");
}

TEST_F(EncodedFiles, WmaTagsAndPlayDuration) {
    const std::string file = Bytes("tagged.wma");
    const std::size_t properties =
        file.find(std::string(kAsfFilePropertiesObject.begin(), kAsfFilePropertiesObject.end()));
    ASSERT_NE(properties, std::string::npos);
    std::uint32_t low = 0;
    for (int i = 3; i >= 0; --i)
        low = low << 8 | ByteOf(file, properties + 64 + static_cast<std::size_t>(i));

    WmaFileInfo info;
    ASSERT_EQ(AnalyseWmaFile(info, Path("tagged.wma")), 1);
    EXPECT_FALSE(info.nonAudioCodec);
    EXPECT_EQ(info.duration, static_cast<std::int32_t>(low / 10000000u));
    EXPECT_GE(info.duration, 3); // preroll is not subtracted
    auto record = BuildTrackRecord(Path("tagged.wma"));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->Text(kFieldTitle), u"Song Title");
    EXPECT_EQ(record->Text(kFieldArtist), u"The Artist");
    EXPECT_EQ(record->Text(kFieldAlbum), u"An Album");
    EXPECT_EQ(record->Text(kFieldGenre), u"Rock");
    EXPECT_EQ(record->TrackNumber(), 3);
}

// Frames of an ADTS stream walked one by one from its start.
std::uint64_t WalkAdtsFrames(const std::string& file, std::size_t start) {
    std::uint64_t frames = 0;
    for (std::size_t i = start; i + 6 < file.size() && ByteOf(file, i) == 0xFF;) {
        std::size_t length = ((ByteOf(file, i + 3) & 3) << 11) | (ByteOf(file, i + 4) << 3) |
                             (ByteOf(file, i + 5) >> 5);
        if (length < 7)
            break;
        ++frames;
        i += length;
    }
    return frames;
}

TEST_F(EncodedFiles, AacWithHandMadeTags) {
    std::string stream = Bytes("plain.aac");
    std::string tagged = Id3v2TagBytes(3, Frame4Plain("TIT2", Latin1Text("Aac title")) +
                                              Frame4Plain("TPE1", Utf16Text(u"S\u00E4nger")) +
                                              Frame4Plain("TCON", Latin1Text("(8)"))) +
                         stream +
                         Id3v1({.title = "Aac", .album = "From v1", .comment = "c", .genre = 8});
    m_device->WriteFile(Path("tagged.aac"), tagged);

    AacTrackInfo info;
    ASSERT_EQ(ReadAacFile(Path("tagged.aac"), &info), kAacOk);
    const std::uint64_t frames = WalkAdtsFrames(stream, 0);
    EXPECT_EQ(info.stream.Frames(), frames);
    EXPECT_DOUBLE_EQ(info.duration, static_cast<double>(frames) * 232199 * 0.0000001);
    EXPECT_EQ(info.stream.sampleRate, 44100);
    EXPECT_EQ(info.stream.profile, 2);

    auto record = BuildTrackRecord(Path("tagged.aac"));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->Text(kFieldTitle), u"Aac title");
    EXPECT_EQ(record->Text(kFieldArtist), u"S\u00E4nger");
    EXPECT_EQ(record->Text(kFieldAlbum), u"From v1");
    EXPECT_EQ(record->Text(kFieldGenre), u"Jazz");
    EXPECT_EQ(record->Duration(), static_cast<std::uint32_t>(info.duration));

    auto plain = BuildTrackRecord(Path("plain.aac"));
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->Text(kFieldTitle), u"plain");
    EXPECT_FALSE(plain->HasText(kFieldArtist)); // empty texts are not set for AAC
}

TEST_F(EncodedFiles, AacOverOneMegabyteIsEstimatedClosely) {
    const std::string file = Bytes("long.aac");
    ASSERT_GT(file.size(), 1048576u);
    AacTrackInfo info;
    ASSERT_EQ(ReadAacFile(Path("long.aac"), &info), kAacOk);
    const double walked = static_cast<double>(WalkAdtsFrames(file, 0));
    EXPECT_GT(info.stream.framesEstimated, 0);
    EXPECT_LT(info.stream.bytesRead, file.size());
    EXPECT_NEAR(static_cast<double>(info.stream.Frames()), walked, walked * 0.005);
}

} // namespace
} // namespace zelvor
