#pragma once
// Builders of hand-made tag and stream bytes for the reader tests. Bytes are
// kept in std::string, which reads well in tests ("ID3" + ...) and converts
// to what the readers take with AsBytes / MemoryFileOf.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tags/asf/asf_guid.h"
#include "bytes/memory_file.h"

namespace zelvor::testing {

std::string Le16(std::uint32_t v);
std::string Le32(std::uint32_t v);
std::string Le64(std::uint64_t v);
std::string Be32(std::uint32_t v);
// 7 bits per byte, most significant first (an ID3v2 "synchsafe" number).
std::string SevenBit32(std::uint32_t v);

std::span<const std::byte> AsBytes(std::string_view bytes);
MemoryFile MemoryFileOf(std::string_view bytes);

// ID3v2: a 10-byte header with the size written 7 bits per byte, and frames.
std::string Id3v2Header(std::uint8_t major, std::uint32_t size, std::uint8_t flags = 0);
std::string Id3v2TagBytes(std::uint8_t major, std::string_view body, std::uint8_t flags = 0);
// A 4-character frame whose size is written 7 bits per byte (how the reader
// reads every 4-character frame) or as a plain 32-bit number (version 2.3).
std::string Frame4(std::string_view id, std::string_view body);
std::string Frame4Plain(std::string_view id, std::string_view body);
std::string Frame3(std::string_view id, std::string_view body); // version 2.2
// A text frame body: encoding byte 0 and the text.
std::string Latin1Text(std::string_view text);
// Encoding byte 1, the little-endian mark and the text in UTF-16LE.
std::string Utf16Text(std::u16string_view text);

// ID3v1: 128 bytes. A track gives the 1.1 layout (byte 125 zero, 126 track).
struct Id3v1Fields {
    std::string title, artist, album, year, comment;
    std::optional<std::uint8_t> track;
    std::uint8_t genre = 255;
};
std::string Id3v1(const Id3v1Fields& f);

// A Layer III frame header without CRC, 44,100 Hz (22,050 for MPEG-2), stereo.
struct MpegHeaderBits {
    unsigned versionBits = 3;  // 11 MPEG-1, 10 MPEG-2
    unsigned bitRateIndex = 9; // 128 kbit/s for MPEG-1 Layer III
    unsigned padding = 0;
};
std::string MpegHeader(const MpegHeaderBits& b);

// ASF: an object is its GUID, its 64-bit size and its body.
std::string AsfObject(const AsfGuid& guid, std::string_view body);
// The header object: count, reserved bytes 1 and 2, then the children.
std::string AsfHeader(std::uint32_t count, std::string_view children);
std::string AsfContentDescription(std::u16string_view title, std::u16string_view author,
                                  std::u16string_view copyright = u"");
std::string AsfFileProperties(std::uint64_t playDuration, std::uint32_t flags = 2);
// Extended content descriptors: name, value type and raw value bytes.
struct AsfDescriptor {
    std::u16string name;
    std::uint16_t type;
    std::string value;
};
std::string AsfExtendedContent(std::initializer_list<AsfDescriptor> descriptors);
std::string AsfStringValue(std::u16string_view text); // UTF-16LE with its terminator
// A codec list whose entries have the given types (2 = audio).
std::string AsfCodecList(std::initializer_list<std::uint16_t> types);

// One ADTS frame: a 7-byte header (9 with protection) and zero payload.
struct AdtsBits {
    std::uint32_t frameLength = 400;
    unsigned samplingIndex = 4; // 44100 Hz
    unsigned profile = 1;       // AAC LC
    unsigned channels = 2;
    bool protectionAbsent = true;
};
std::string AdtsFrame(const AdtsBits& b);

} // namespace zelvor::testing
