#pragma once
// User-visible texts by string-table number, in the selected language.
//
// Language 0 is the built-in English table. Any other language n is looked
// up in the shell's tab-separated "Ombrel.txt" in the program directory: the
// line whose first field equals the English text (ignoring case) gives the
// translation in field n. The file is read and scanned on every call and
// nothing is cached, so a new file from the shell takes effect at once.
//
// Both functions hand out shared storage, as on the device: callers use or
// copy the text before the next call. The program has one UI thread; these
// are not for other threads.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zelvor {

constexpr std::u16string_view kLocalTextFileName = u"Ombrel.txt";

// The built-in text of an entry, in the next of four ring buffers (at most
// 255 characters), or nullptr when the table has no such entry. A text thus
// stays valid until four further built-in texts have been loaded.
const char16_t* LoadBuiltInText(std::uint16_t id);

// The text of an entry in the given language, in one result buffer that the
// next call overwrites. Falls back to the English text whenever the file is
// missing, unreadable, empty or has no line for the text; a missing entry
// gives an empty text.
std::u16string_view LoadLocalText(std::u16string_view fileName, std::int16_t language,
                                  std::uint16_t id);

// The scan behind LoadLocalText on a file image held in memory (UTF-16LE,
// its first unit the byte-order mark, never checked): the field of
// `language` on the first line whose key is `english`, or nullopt when the
// language has no column or no line has the key.
std::optional<std::u16string> FindTranslation(std::span<const std::byte> fileImage,
                                              std::u16string_view english, std::int16_t language);

} // namespace zelvor
