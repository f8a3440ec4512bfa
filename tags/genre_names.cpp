#include "tags/genre_names.h"

#include "tags/tag_text.h"

namespace zelvor {

// clang-format off
constexpr std::array<std::string_view, kGenreCount> GenreNames = {
    "Blues", "Classic Rock", "Country", "Dance", "Disco", "Funk", "Grunge", "Hip-Hop", "Jazz",
    "Metal", "New Age", "Oldies", "Other", "Pop", "R&B", "Rap", "Reggae", "Rock", "Techno",
    "Industrial", "Alternative", "Ska", "Death Metal", "Pranks", "Soundtrack", "Euro-Techno",
    "Ambient", "Trip Hop", "Vocal", "Jazz Funk", "Fusion", "Trance", "Classical",
    "Instrumental", "Acid", "House", "Game", "Sound Clip", "Gospel", "Noise",
    "Alternative Rock", "Bass", "Soul", "Punk", "Space", "Meditative", "Instrumental Pop",
    "Instrumental Rock", "Ethnic", "Gothic", "Darkwave", "Techno-Industrial", "Electronic",
    "Pop Folk", "Eurodance", "Dream", "Southern Rock", "Comedy", "Cult", "Gangsta", "Top 40",
    "Christian Rap", "Pop Funk", "Jungle", "Native American", "Cabaret", "New Wave",
    "Psychadelic", "Rave", "ShowTunes", "Trailer", "Lo-Fi", "Tribal", "Acid Punk", "Acid Jazz",
    "Polka", "Retro", "Musical", "Rock & Roll", "Hard Rock", "Folk", "Folk Rock",
    "National Folk", "Swing", "Fast Fusion", "Bebob", "Latin", "Revival", "Celtic",
    "Bluegrass", "Avantgarde", "Gothic Rock", "Progressive Rock", "Psychedelic Rock",
    "Symphonic Rock", "Slow Rock", "Big Band", "Chorus", "Easy Listening", "Acoustic",
    "Humour", "Speech", "Chanson", "Opera", "Chamber Music", "Sonata", "Symphony",
    "Booty Bass", "Primus", "Porn Groove", "Satire", "Slow Jam", "Club", "Tango", "Samba",
    "Folklore", "Ballad", "Power Ballad", "Rhytmic Soul", "Freestyle", "Duet", "Punk Rock",
    "Drum Solo", "A Capella", "Euro House", "Dance Hall", "Goa", "Drum & Bass", "Club House",
    "Hardcore", "Terror", "Indie", "BritPop", "Negerpunk", "Polsk Punk", "Beat",
    "Christian Gangsta Rap", "Heavy Metal", "Black Metal", "Crossover",
    "Contemporary Christian", "Christian Rock", "Merengue", "Salsa", "Trash Metal", "Anime",
    "JPop", "SynthPop",
};
// clang-format on

namespace {

// The UTF-16 form is widened from the single-byte one at compile time (every
// name is ASCII), so the list exists once.
constexpr std::size_t TotalLength() {
    std::size_t n = 0;
    for (std::string_view name : GenreNames)
        n += name.size();
    return n;
}

constexpr std::array<char16_t, TotalLength()> kWideCharacters = [] {
    std::array<char16_t, TotalLength()> out{};
    std::size_t k = 0;
    for (std::string_view name : GenreNames) {
        for (char c : name)
            out[k++] = static_cast<char16_t>(c);
    }
    return out;
}();

constexpr std::array<std::u16string_view, kGenreCount> WidenedNames() {
    std::array<std::u16string_view, kGenreCount> out{};
    std::size_t k = 0;
    for (std::size_t i = 0; i < out.size(); ++i) {
        out[i] = std::u16string_view(kWideCharacters.data() + k, GenreNames[i].size());
        k += GenreNames[i].size();
    }
    return out;
}

bool InTable(long long index) {
    return index >= 0 && index < kGenreCount;
}

} // namespace

constexpr std::array<std::u16string_view, kGenreCount> GenreNamesUtf16 = WidenedNames();

static_assert(GenreNames[12] == "Other" && GenreNames[kGenreCount - 1] == "SynthPop");
static_assert(GenreNamesUtf16[67] == u"Psychadelic" &&
              GenreNamesUtf16[kGenreCount - 1] == u"SynthPop");

std::string_view GenreName(int index) {
    return InTable(index) ? GenreNames[static_cast<size_t>(index)] : std::string_view();
}

std::u16string_view GenreNameUtf16(int index) {
    return InTable(index) ? GenreNamesUtf16[static_cast<size_t>(index)] : std::u16string_view();
}

std::optional<std::string_view> GenreOfId3v1Byte(int genreByte) {
    if (!InTable(genreByte))
        return std::nullopt;
    return GenreNames[static_cast<size_t>(genreByte)];
}

std::string_view GenreOfId3v2(int genreIndex, std::string_view frameText) {
    return InTable(genreIndex) ? GenreNames[static_cast<size_t>(genreIndex)] : frameText;
}

std::u16string_view GenreOfAacId3v1(int genreByte) {
    return InTable(genreByte) ? GenreNamesUtf16[static_cast<size_t>(genreByte)] : u"Other";
}

std::u16string GenreOfAacFrame(std::u16string_view frameText) {
    long long index = ScanParenthesisedNumber(frameText).value_or(-1);
    if (!InTable(index))
        return std::u16string(frameText);
    return std::u16string(GenreNamesUtf16[static_cast<size_t>(index)]);
}

} // namespace zelvor
