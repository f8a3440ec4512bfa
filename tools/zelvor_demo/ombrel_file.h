#pragma once
// "Ombrel.txt", the device shell's text file that the player looks its
// translations up in. Without the shell we write our own: German, French and
// Spanish (language numbers 1, 2 and 3) for every text the user sees.
//
// Layout: UTF-16LE after the byte-order mark FF FE; one line per text, ended
// by CR LF (a last line without CR would never be read); fields separated by
// TAB: the English text exactly as the program's string table holds it, then
// one translation per language. A translation carries the same %d and %s as
// the English text, in the same order, since callers format it the same way.

#include "tools/zelvor_demo/id3_builder.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace zelvor::demo {

struct Translation {
    std::uint16_t id; // string-table number
    std::u16string_view german;
    std::u16string_view french;
    std::u16string_view spanish;
};

constexpr std::u16string_view kOmbrelFileName = u"Ombrel.txt";
constexpr std::size_t kMaxOmbrelField = 255; // characters the reader keeps per field

// The translated texts, in string-table order.
std::span<const Translation> Translations();

// The file's bytes; nullopt when a translated id has no English text in the
// string table or a field could not be written (TAB, CR, too long).
std::optional<Bytes> BuildOmbrelText();

} // namespace zelvor::demo
