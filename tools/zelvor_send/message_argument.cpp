#include "tools/zelvor_send/message_argument.h"

#include <charconv>
#include <string>

#include "res/window_messages.h"

namespace zelvor {
namespace {

std::optional<std::int64_t> ParseInteger(std::string_view text) {
    bool negative = !text.empty() && text.front() == '-';
    if (negative)
        text.remove_prefix(1);
    int base = 10;
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        base = 16;
        text.remove_prefix(2);
    }
    std::int64_t value = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (text.empty() || ec != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return negative ? -value : value;
}

} // namespace

std::optional<std::int64_t> ParseMessageArgument(std::string_view text) {
    std::string compact;
    for (char c : text) {
        if (c != ' ')
            compact += c;
    }
    constexpr std::string_view kPrefix = "WM_USER";
    if (compact.starts_with(kPrefix)) {
        std::string_view rest = std::string_view(compact).substr(kPrefix.size());
        if (rest.empty())
            return kWmUser;
        if (rest.front() != '+')
            return std::nullopt;
        auto offset = ParseInteger(rest.substr(1));
        if (!offset)
            return std::nullopt;
        return std::int64_t{kWmUser} + *offset;
    }
    return ParseInteger(compact);
}

} // namespace zelvor
