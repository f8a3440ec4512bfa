#pragma once
// The fields of an MPEG audio frame header, decoded by the device's tables.
// Header bits are numbered from 31 (first byte's top bit) down to 0.
//
// Two tables are the device's own and differ from the standard on purpose:
// the MPEG-2/2.5 Layer III bit rates, and the reserved sample-rate index,
// which gives the version's first rate instead of an error.

#include <cstdint>

namespace zelvor {

// Versions as the analysis numbers them.
inline constexpr int kMpegVersionReserved = 0;
inline constexpr int kMpegVersion25 = 1;
inline constexpr int kMpegVersion2 = 2;
inline constexpr int kMpegVersion1 = 3;

// True when the top 11 bits (the frame sync) are all set.
bool IsFrameSync(std::uint32_t header);

int MpegVersionOf(std::uint32_t header); // bits 20-19: 00 -> 1, 01 -> 0, 10 -> 2, 11 -> 3
int MpegLayerOf(std::uint32_t header);   // bits 18-17: 00 -> 0, 01 -> 3, 10 -> 2, 11 -> 1

// Bit rate in kbit/s for a version, a layer 1-3 and the index of bits 15-12:
// 0 for index 0 (free format), -1 for index 15. MPEG-2 and 2.5 share a row;
// so does the reserved version.
int MpegBitRate(int version, int layer, int index);

// Sample rate in Hz for a version (not reserved) and the index of bits 11-10.
int MpegSampleRate(int version, int index);

// Frame length in bytes: (12000 x rate / sampleRate + padding) x 4 for layer
// 1, 144000 x rate / sampleRate + padding for every other layer (MPEG-2 and
// 2.5 Layer III too). Integer division truncating toward zero; bitRate is
// the table value as it stands, so -1 and 0 give lengths of 0 or less.
int MpegFrameLength(int layer, int bitRate, int sampleRate, int padding);

} // namespace zelvor
