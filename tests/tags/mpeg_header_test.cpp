#include <gtest/gtest.h>

#include "tags/mpeg/mpeg_header.h"

namespace zelvor {
namespace {

TEST(MpegBitRates, Mpeg2Layer3UsesTheProgramsOwnRow) {
    const int expected[16] = {0, 8, 16, 24, 32, 64, 80, 56, 64, 128, 160, 112, 128, 256, 320, -1};
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(MpegBitRate(kMpegVersion2, 3, i), expected[i]) << i;
        EXPECT_EQ(MpegBitRate(kMpegVersion25, 3, i), expected[i]) << i;
    }
}

TEST(MpegBitRates, StandardRowsAndTheirEnds) {
    struct Row {
        int version, layer;
        int at5, at14;
    };
    for (Row r : {Row{kMpegVersion1, 1, 160, 448}, Row{kMpegVersion1, 2, 80, 384},
                  Row{kMpegVersion1, 3, 64, 320}, Row{kMpegVersion2, 1, 80, 256},
                  Row{kMpegVersion25, 2, 40, 160}, Row{kMpegVersionReserved, 2, 40, 160}}) {
        EXPECT_EQ(MpegBitRate(r.version, r.layer, 0), 0);
        EXPECT_EQ(MpegBitRate(r.version, r.layer, 5), r.at5);
        EXPECT_EQ(MpegBitRate(r.version, r.layer, 14), r.at14);
        EXPECT_EQ(MpegBitRate(r.version, r.layer, 15), -1);
    }
}

TEST(MpegSampleRates, ReservedIndexRepeatsTheFirstRate) {
    EXPECT_EQ(MpegSampleRate(kMpegVersion1, 1), 48000);
    EXPECT_EQ(MpegSampleRate(kMpegVersion1, 3), 44100);
    EXPECT_EQ(MpegSampleRate(kMpegVersion2, 2), 16000);
    EXPECT_EQ(MpegSampleRate(kMpegVersion2, 3), 22050);
    EXPECT_EQ(MpegSampleRate(kMpegVersion25, 3), 11025);
}

TEST(MpegHeaderBits, VersionAndLayerCodes) {
    EXPECT_EQ(MpegVersionOf(0xFFFB0000), kMpegVersion1);
    EXPECT_EQ(MpegVersionOf(0xFFF30000), kMpegVersion2);
    EXPECT_EQ(MpegVersionOf(0xFFE30000), kMpegVersion25);
    EXPECT_EQ(MpegVersionOf(0xFFEB0000), kMpegVersionReserved);
    EXPECT_EQ(MpegLayerOf(0xFFFB0000), 3);
    EXPECT_EQ(MpegLayerOf(0xFFFD0000), 2);
    EXPECT_EQ(MpegLayerOf(0xFFFF0000), 1);
    EXPECT_EQ(MpegLayerOf(0xFFF90000), 0);
    EXPECT_TRUE(IsFrameSync(0xFFE00000));
    EXPECT_FALSE(IsFrameSync(0xFFDFFFFF));
}

TEST(MpegFrameLength, Factor144000ForEveryLayerButTheFirst) {
    EXPECT_EQ(MpegFrameLength(3, 128, 44100, 0), 417);
    EXPECT_EQ(MpegFrameLength(3, 128, 44100, 1), 418);
    EXPECT_EQ(MpegFrameLength(3, 64, 22050, 0), 417); // MPEG-2 Layer III: not 208
    EXPECT_EQ(MpegFrameLength(2, 192, 48000, 0), 576);
    EXPECT_EQ(MpegFrameLength(1, 32, 44100, 1), 36); // (8 + 1) x 4
    EXPECT_EQ(MpegFrameLength(3, 0, 44100, 1), 1);   // free format: the padding alone
    EXPECT_EQ(MpegFrameLength(3, -1, 44100, 0), -3); // truncation toward zero
    EXPECT_EQ(MpegFrameLength(1, -1, 44100, 0), 0);
}

} // namespace
} // namespace zelvor
