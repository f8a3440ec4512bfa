#pragma once
// Small text rules shared by the tag readers: UTF-16LE from tag bytes,
// trimming, and the few ways the readers turn digits into numbers.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zelvor {

// UTF-16LE code units up to the first zero unit or the end; an odd last byte
// is dropped. Unpaired surrogates are kept as they are (ToUtf8 replaces them).
std::u16string DecodeUtf16Le(std::span<const std::byte> bytes);
std::u16string DecodeUtf16Le(std::string_view bytes);

// Leading and trailing space, tab, CR, LF, vertical tab and form feed removed.
void TrimWhiteSpace(std::u16string& text);

// The number the digits at the start of the text spell: reading stops at the
// first character that is not 0-9; no digits give 0. Values past 2^31 - 1
// saturate there instead of wrapping.
std::int32_t LeadingNumber(std::string_view text);
std::int32_t LeadingNumber(std::u16string_view text);

// sscanf(text, "(%d)", &n): a "(" first, then optional white space, an
// optional sign and at least one digit. nullopt when that does not match;
// numbers beyond the 32-bit range saturate.
std::optional<std::int32_t> ScanParenthesisedNumber(std::u16string_view text);

} // namespace zelvor
