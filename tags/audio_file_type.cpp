#include "tags/audio_file_type.h"

namespace zelvor {
namespace {

char16_t AsciiLower(char16_t c) {
    return (c >= u'A' && c <= u'Z') ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
}

bool EndsWithAsciiIgnoringCase(std::u16string_view name, std::u16string_view lowerSuffix) {
    std::u16string_view tail = name.substr(name.size() - lowerSuffix.size());
    for (size_t i = 0; i < tail.size(); ++i) {
        if (AsciiLower(tail[i]) != lowerSuffix[i])
            return false;
    }
    return true;
}

} // namespace

AudioFileType GetAudioFileType(std::u16string_view fileName) {
    // The device copies the name into a 260-character buffer before looking
    // at its end; a longer name cannot exist there, so the real end of the
    // name is what counts here.
    if (fileName.size() < 4)
        return kNotMusic;
    if (EndsWithAsciiIgnoringCase(fileName, u".mp3"))
        return kAudioMp3;
    if (EndsWithAsciiIgnoringCase(fileName, u".wma"))
        return kAudioWma;
    if (EndsWithAsciiIgnoringCase(fileName, u".aac"))
        return kAudioAac;
    return kNotMusic;
}

} // namespace zelvor
