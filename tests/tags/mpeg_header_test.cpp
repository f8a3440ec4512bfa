#include <gtest/gtest.h>

#include "tags/mpeg/mpeg_header.h"

namespace zelvor {
namespace {

constexpr int kVersions[] = {kMpegVersionReserved, kMpegVersion25, kMpegVersion2, kMpegVersion1};

// Properties of every row rather than a copy of it: free format at index 0,
// -1 at 15, whole bytes per millisecond in between, rising except in the
// device's own MPEG-2 Layer III row, which leaves the standard's at index 5.
TEST(MpegBitRates, EveryRowIsFreeFormatThenWholeBytesThenBad) {
    for (int version : kVersions) {
        for (int layer = 1; layer <= 3; ++layer) {
            SCOPED_TRACE(::testing::Message() << "version " << version << " layer " << layer);
            EXPECT_EQ(MpegBitRate(version, layer, 0), 0);
            EXPECT_EQ(MpegBitRate(version, layer, 15), -1);
            for (int i = 1, previous = 0; i <= 14; previous = MpegBitRate(version, layer, i++)) {
                EXPECT_EQ(MpegBitRate(version, layer, i) % 8, 0) << i;
                const bool rises = version == kMpegVersion1 || layer != 3;
                EXPECT_TRUE(!rises || MpegBitRate(version, layer, i) > previous) << i;
            }
        }
        EXPECT_EQ(MpegBitRate(version, 0, 5) + MpegBitRate(version, 4, 5) + MpegBitRate(version, 3, 16), 0);
    }
    for (auto [version, layer, index, rate] :
         {std::tuple{kMpegVersion1, 1, 14, 448}, {kMpegVersion1, 2, 14, 384}, {kMpegVersion1, 3, 9, 128},
          {kMpegVersion2, 1, 14, 256}, {kMpegVersion25, 2, 14, 160}, {kMpegVersion2, 3, 4, 32},
          {kMpegVersion25, 3, 5, 64}, {kMpegVersion2, 3, 7, 56}})
        EXPECT_EQ(MpegBitRate(version, layer, index), rate) << version << " " << layer << " " << index;
}

TEST(MpegSampleRates, HalvedPerVersionAndTheReservedIndexRepeatsTheFirst) {
    EXPECT_EQ(MpegSampleRate(kMpegVersion1, 1) + MpegSampleRate(kMpegVersion1, 2), 80000);
    for (int i = 0; i <= 3; ++i) {
        EXPECT_EQ(MpegSampleRate(kMpegVersion1, i), 2 * MpegSampleRate(kMpegVersion2, i)) << i;
        EXPECT_EQ(MpegSampleRate(kMpegVersion2, i), 2 * MpegSampleRate(kMpegVersion25, i)) << i;
        EXPECT_EQ(MpegSampleRate(kMpegVersionReserved, i), 0);
        EXPECT_EQ(MpegSampleRate(kVersions[i], 3), MpegSampleRate(kVersions[i], 0));
    }
    EXPECT_EQ(MpegSampleRate(kMpegVersion1, 0), 44100);
    EXPECT_EQ(MpegSampleRate(4, 0) + MpegSampleRate(kMpegVersion1, 4), 0);
}

// 144000 for every layer but the first (MPEG-2 Layer III too: 417, not 208);
// free format is the padding alone; negative rates truncate toward zero.
TEST(MpegFrameLength, Factor144000ForEveryLayerButTheFirst) {
    for (auto [layer, rate, sampleRate, padding, length] :
         {std::tuple{3, 128, 44100, 0, 417}, {3, 128, 44100, 1, 418}, {3, 64, 22050, 0, 417},
          {2, 192, 48000, 0, 576}, {1, 32, 44100, 1, 36}, {3, 0, 44100, 1, 1}, {3, -1, 44100, 0, -3},
          {1, -1, 44100, 0, 0}, {3, 128, 0, 1, 0}})
        EXPECT_EQ(MpegFrameLength(layer, rate, sampleRate, padding), length) << layer << " " << rate;
}

} // namespace
} // namespace zelvor
