#pragma once
// AacTrackInfo: what the AAC reader hands the record builder.

#include <cstdint>
#include <string>

#include "tags/adts/adts_duration.h"

namespace zelvor {

struct AacTrackInfo {
    // Never "none" after a successful read: empty texts instead.
    std::u16string title;
    std::u16string artist;
    std::u16string album;
    std::u16string genre;
    double duration = 0; // seconds
    std::int32_t track = 0;
    AdtsStreamInfo stream; // how the duration was found
};

} // namespace zelvor
