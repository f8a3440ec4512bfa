#pragma once
// The audio-file filter: whether a file is music, and which reader reads it,
// decided from the end of its name alone.

#include <string_view>

namespace zelvor {

enum AudioFileType : int {
    kNotMusic = -1,
    kAudioMp3 = 0,
    kAudioWma = 1,
    kAudioAac = 2,
};

// Looks only at the last four characters, ignoring case: "SONG.MP3" and
// "a.Mp3" are MP3; ".mp3x", ".mpeg", ".m4a" and names shorter than four
// characters are not music.
AudioFileType GetAudioFileType(std::u16string_view fileName);

} // namespace zelvor
