// Crafted malformed files, each named after the fault it reproduces, run
// through every reader and the record builder (under the debug preset's
// sanitizers). Each must end with the outcome listed, never with a crash, a
// read past a buffer or an allocation larger than the file. (The fuzzers in
// fuzz/ look for more; a fault they find joins this list.)

#include <gtest/gtest.h>

#include "platform/text.h"
#include "tags/adts/read_aac_file.h"
#include "tags/asf/analyse_wma_file.h"
#include "tags/build_track_record.h"
#include "tags/id3v2/strip_id3v2_tag.h"
#include "tags/mpeg/analyse_mp3_file.h"
#include "tests/support/test_device.h"
#include "tests/tags/tag_builders.h"

namespace zelvor {
namespace {

using namespace zelvor::testing;
using namespace std::string_literals;

struct Fault {
    std::string name; // the file is named after it
    std::string extension;
    std::string bytes;
    bool record; // whether a TrackRecord is still made
};

std::string Repeat(const std::string& part, std::size_t times) {
    std::string out;
    for (std::size_t i = 0; i < times; ++i)
        out += part;
    return out;
}

std::string Guid(const AsfGuid& g) {
    return std::string(g.begin(), g.end());
}

const std::string kHeader = MpegHeader({});
const std::string kAudio = kHeader + std::string(2000, '\0');

std::vector<Fault> Faults() {
    const std::string title = Frame4("TIT2", Latin1Text("Title"));
    const std::string cd = AsfContentDescription(u"T", u"A");
    return {
        // ID3v2 and the MP3 analysis
        {"id3v2_size_beyond_file", ".mp3", Id3v2Header(3, 0x0FFFFFFF) + title + kAudio, true},
        {"id3v2_size_bytes_all_ff", ".mp3", std::string("ID3\x03\0\0\xFF\xFF\xFF\xFF", 10) + kAudio,
         true},
        {"id3v2_truncated_header", ".mp3", std::string("ID3\x03\0", 5), false},
        {"id3v2_frame_size_beyond_body", ".mp3",
         Id3v2TagBytes(3, "TIT2" + SevenBit32(900) + "\0\0x"s) + kAudio, true},
        {"id3v2_frame_size_ffffffff", ".mp3",
         Id3v2TagBytes(3, "TIT2\xFF\xFF\xFF\xFF\0\0x"s) + kAudio, true},
        {"id3v2_frame_header_at_body_end", ".mp3", Id3v2TagBytes(4, title + "TPE1") + kAudio, true},
        {"id3v2_flag_two_body_shorter_than_six", ".mp3", Id3v2TagBytes(3, "abc", 0x02) + kAudio,
         true},
        {"id3v2_comment_without_description_end", ".mp3",
         Id3v2TagBytes(3, Frame4("COMM", "\0engdescription"s)) + kAudio, true},
        {"id3v2_genre_parenthesis_unclosed", ".mp3",
         Id3v2TagBytes(3, Frame4("TCON", Latin1Text(std::string(300, '(')))) + kAudio, true},
        {"id3v2_track_only_slashes", ".mp3",
         Id3v2TagBytes(3, Frame4("TRCK", Latin1Text("////"))) + kAudio, true},
        {"id3v2_utf16_odd_length", ".mp3",
         Id3v2TagBytes(3, Frame4("TIT2", "\x01\xFF\xFE\x41"s)) + kAudio, true},
        {"mp3_sync_in_last_four_bytes", ".mp3", std::string(500, '\0') + kHeader, true},
        {"mp3_shorter_than_id3v1", ".mp3", "TAG" + std::string(100, 'x'), false},
        {"mp3_only_id3v1", ".mp3", Id3v1({.title = "Only"}), true},
        {"mp3_bitrate_index_15", ".mp3", MpegHeader({.bitRateIndex = 15}) + std::string(1000, '\0'),
         true},
        {"mp3_free_format_one_byte_frames", ".mp3",
         MpegHeader({.bitRateIndex = 0, .padding = 1}) + std::string(300000, '\0'), true},
        // ASF
        {"asf_object_size_zero", ".wma", AsfHeader(2, cd + Guid(kAsfCodecListObject) + Le64(0)),
         true},
        {"asf_object_smaller_than_header", ".wma",
         AsfHeader(2, cd + Guid(kAsfCodecListObject) + Le64(10) + std::string(40, '\0')), true},
        {"asf_object_size_ffffffff", ".wma",
         AsfHeader(2, cd + Guid(kAsfFilePropertiesObject) + Le64(0xFFFFFFFF)), true},
        {"asf_object_size_beyond_32_bits", ".wma",
         AsfHeader(2, cd + Guid(kAsfFilePropertiesObject) + Le64(0x100000000ULL + 40) +
                          std::string(16, '\0')),
         true},
        {"asf_header_object_size_zero", ".wma",
         Guid(kAsfHeaderObject) + Le64(0) + Le32(1) + "\x01\x02" + cd, false},
        {"asf_header_object_truncated", ".wma", AsfHeader(1, cd).substr(0, 29), false},
        {"asf_child_count_65535", ".wma", AsfHeader(0xFFFF, cd), true},
        {"asf_content_lengths_beyond_object", ".wma",
         AsfHeader(1, AsfObject(kAsfContentDescriptionObject, Le16(0xFFFF) + Le16(0xFFFF) +
                                                                  Le16(0xFFFF) + Le16(0xFFFF) +
                                                                  Le16(0xFFFF) + "ab")),
         true},
        {"asf_descriptor_count_beyond_object", ".wma",
         AsfHeader(1, AsfObject(kAsfExtendedContentDescriptionObject,
                                Le16(0xFFFF) + Le16(4) + "Y\0e\0"s)),
         true},
        {"asf_descriptor_value_length_beyond_object", ".wma",
         AsfHeader(1, AsfObject(kAsfExtendedContentDescriptionObject,
                                Le16(1) + Le16(2) + "Y\0"s + Le16(0) + Le16(0xFFFF) + "x")),
         true},
        {"asf_codec_count_beyond_object", ".wma",
         AsfHeader(1, AsfObject(kAsfCodecListObject,
                                std::string(16, '\0') + Le32(0xFFFFFFFF) + Le16(2) + Le16(0xFFFF))),
         true},
        {"asf_file_properties_truncated", ".wma",
         AsfHeader(1, AsfObject(kAsfFilePropertiesObject, std::string(40, '\0'))), true},
        // ADTS and the AAC tags
        {"adts_frame_shorter_than_header", ".aac", Repeat("\xFF\xF1\x50\x80\x00\x1F\xFC"s, 2000),
         true},
        {"adts_frame_length_8191", ".aac", Repeat("\xFF\xF1\x50\x83\xFF\xFF\xFC"s, 3000), true},
        {"adts_damaged_frame_after_every_frame", ".aac",
         Repeat(AdtsFrame({.frameLength = 7}) + "\xFF\xF1\x50\x80\x00\x1F\xFC"s, 160000), true},
        {"adts_only_ff_bytes", ".aac", std::string(200000, '\xFF'), true},
        {"adts_id3v2_size_beyond_file", ".aac", Id3v2Header(3, 0x0FFFFFFF) + AdtsFrame({}), true},
        {"adts_id3v2_frame_size_lies", ".aac",
         Id3v2TagBytes(3, "TIT2" + Be32(0xFFFFFFF0) + "\0\0\0x"s) + AdtsFrame({}), true},
        {"adts_id3v2_extended_header_size_lies", ".aac",
         Id3v2TagBytes(3, Be32(0xFFFFFF00) + "xx", 0x40) + AdtsFrame({}), true},
        {"adts_empty_file", ".aac", "", true},
    };
}

void RunEveryReader(const std::u16string& path) {
    Mp3FileInfo mp3;
    WmaFileInfo wma;
    AacTrackInfo aac;
    Id3v2Tag tag;
    AnalyseMp3File(mp3, path);
    AnalyseWmaFile(wma, path);
    ReadAacFile(path, &aac);
    ReadId3v2(tag, path);
    StripId3v2Tag(tag, path, std::chrono::milliseconds{0});
}

TEST(MalformedFiles, EachFaultEndsWithItsOutcome) {
    TestDevice device;
    for (const Fault& fault : Faults()) {
        SCOPED_TRACE(fault.name);
        std::u16string path = u"\\Storage Card\\" + FromUtf8(fault.name + fault.extension);
        device.WriteFile(path, fault.bytes);
        EXPECT_EQ(BuildTrackRecord(path) != nullptr, fault.record);
        // Every reader on every fault, whatever its extension; then the strip
        // rewrites the file (a copy) in place.
        for (const char* ext : {".mp3", ".wma", ".aac"}) {
            std::u16string copy = u"\\Storage Card\\copy" + FromUtf8(ext);
            device.WriteFile(copy, fault.bytes);
            RunEveryReader(copy);
        }
    }
    // A damaged frame after every frame must not make the count re-read the
    // file from each damage on.
    std::string bytes =
        Repeat(AdtsFrame({.frameLength = 7}) + "\xFF\xF1\x50\x80\x00\x1F\xFC"s, 160000);
    AacTrackInfo info;
    MemoryFile file = MemoryFileOf(bytes);
    ReadAacStream(file, info);
    EXPECT_LT(info.stream.bytesRead, bytes.size());
}

} // namespace
} // namespace zelvor
