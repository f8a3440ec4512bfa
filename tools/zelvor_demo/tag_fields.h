#pragma once
// The tag values of one demo track, as the demo device writes them into the
// file and into its manifest. Texts are UTF-16 like every device text.

#include <string>

namespace zelvor::demo {

struct TagFields {
    std::u16string title;
    std::u16string artist;
    std::u16string album;
    std::u16string genre; // a genre name ("Rock"), never a number
    std::u16string year;  // four digits or empty
    int track = 0;        // 0 = no track number
};

} // namespace zelvor::demo
