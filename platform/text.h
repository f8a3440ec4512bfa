#pragma once
// Text helpers that stand in for the device's Unicode and locale services.
// All device text is UTF-16 (std::u16string); conversions and comparisons go
// through ICU so that no code hand-rolls Unicode.

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace zelvor {

// UTF-16 <-> UTF-8. Unpaired surrogates and invalid UTF-8 become U+FFFD.
std::string ToUtf8(std::u16string_view text);
std::u16string FromUtf8(std::string_view text);

// Single-byte text (ID3v1, ID3v2 ISO-8859-1 frames) through the device's code
// page. Windows-1252 unless SetDeviceCodePage names another ICU converter.
// Decoding stops at the first NUL byte, as the device's conversion does.
std::u16string DecodeSingleByte(std::span<const std::byte> bytes);
std::u16string DecodeSingleByte(std::string_view bytes);
// Returns false (and keeps the current one) when ICU knows no such code page.
bool SetDeviceCodePage(std::string_view icuConverterName);

// Stand-ins for lstrcmpW and lstrcmpiW: linguistic comparison by the root
// collation, the second one ignoring case. Results are <0, 0 or >0.
// Every comparison of that kind in the program goes through these two.
int CompareText(std::u16string_view a, std::u16string_view b);
int CompareTextIgnoreCase(std::u16string_view a, std::u16string_view b);

// Sort keys for the same two orders: comparing keys bytewise (std::string's
// operator<) gives the same order as the matching Compare function, so a sort
// can collate each string once instead of once per comparison.
std::string TextSortKey(std::u16string_view text);
std::string TextSortKeyIgnoreCase(std::u16string_view text);
// The same key appended to `out` (no terminating zero), for callers that keep
// many keys in one buffer. A key never holds a zero byte.
void AppendTextSortKey(std::u16string_view text, bool ignoreCase, std::string& out);

// Case-insensitive equality by simple Unicode case folding, as the device's
// file systems and key lookups compare names (not linguistic: "a" != "á").
bool EqualsIgnoreCase(std::u16string_view a, std::u16string_view b);
bool StartsWithIgnoreCase(std::u16string_view text, std::u16string_view prefix);
std::u16string FoldCase(std::u16string_view text);

// printf-style formatting of a device text with one %d or one %s, the only
// forms the program's texts use. Other directives are copied as they are.
std::u16string FormatText(std::u16string_view format, long long number);
std::u16string FormatText(std::u16string_view format, std::u16string_view text);

} // namespace zelvor
