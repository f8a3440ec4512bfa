#pragma once
// WmaFileInfo: what the ASF header of a WMA file says about the track.

#include <cstdint>
#include <string>

namespace zelvor {

// Text buffers of the device held 256 characters with the terminator.
inline constexpr std::size_t kWmaTextMax = 255;

struct WmaFileInfo {
    std::u16string path;
    std::u16string artist; // content description author, else WM/AlbumArtist
    std::u16string title;
    std::u16string album;
    std::u16string comment; // content description copyright
    std::u16string year;
    std::u16string genre;
    std::int32_t track = 0;
    std::int32_t duration = 0;  // whole seconds; wraps past 429 s (see AnalyseWmaFile)
    bool nonAudioCodec = false; // the codec list named a stream that is not audio

    void Reset() { *this = WmaFileInfo{}; }
};

} // namespace zelvor
