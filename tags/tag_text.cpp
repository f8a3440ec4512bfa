#include "tags/tag_text.h"

#include <limits>

namespace zelvor {
namespace {

constexpr std::int64_t kMaxNumber = std::numeric_limits<std::int32_t>::max();

template <typename Char> bool IsDigit(Char c) {
    return c >= Char('0') && c <= Char('9');
}

bool IsWhiteSpace(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n' || c == u'\v' || c == u'\f';
}

template <typename Char> std::int32_t Digits(std::basic_string_view<Char> text, std::size_t& pos) {
    std::int64_t value = 0;
    for (; pos < text.size() && IsDigit(text[pos]); ++pos)
        value = std::min(value * 10 + (text[pos] - Char('0')), kMaxNumber);
    return static_cast<std::int32_t>(value);
}

} // namespace

std::u16string DecodeUtf16Le(std::span<const std::byte> bytes) {
    std::u16string out;
    out.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        auto unit = static_cast<char16_t>(static_cast<unsigned>(bytes[i]) |
                                          (static_cast<unsigned>(bytes[i + 1]) << 8));
        if (unit == 0)
            break;
        out.push_back(unit);
    }
    return out;
}

std::u16string DecodeUtf16Le(std::string_view bytes) {
    return DecodeUtf16Le(std::span(reinterpret_cast<const std::byte*>(bytes.data()), bytes.size()));
}

void TrimWhiteSpace(std::u16string& text) {
    std::size_t end = text.size();
    while (end > 0 && IsWhiteSpace(text[end - 1]))
        --end;
    std::size_t start = 0;
    while (start < end && IsWhiteSpace(text[start]))
        ++start;
    text.erase(end);
    text.erase(0, start);
}

std::int32_t LeadingNumber(std::string_view text) {
    std::size_t pos = 0;
    return Digits(text, pos);
}

std::int32_t LeadingNumber(std::u16string_view text) {
    std::size_t pos = 0;
    return Digits(text, pos);
}

std::optional<std::int32_t> ScanParenthesisedNumber(std::u16string_view text) {
    std::size_t pos = 0;
    if (text.empty() || text[pos++] != u'(')
        return std::nullopt;
    while (pos < text.size() && IsWhiteSpace(text[pos]))
        ++pos;
    bool negative = false;
    if (pos < text.size() && (text[pos] == u'-' || text[pos] == u'+'))
        negative = text[pos++] == u'-';
    if (pos >= text.size() || !IsDigit(text[pos]))
        return std::nullopt;
    std::int32_t value = Digits(text, pos);
    return negative ? -value : value;
}

} // namespace zelvor
