#include "ui/rules/player_screen/title_scroll.h"

namespace zelvor {
namespace {

bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

} // namespace

std::u16string RotatedTitle(std::u16string_view title, int offset) {
    if (offset <= 0 || static_cast<std::size_t>(offset) >= title.size())
        return std::u16string(title);
    const auto split = static_cast<std::size_t>(offset);
    std::u16string shown(title.substr(split));
    shown.append(title.substr(0, split));
    return shown;
}

int NextTitleOffset(std::u16string_view title, int offset) {
    auto next = static_cast<std::size_t>(offset < 0 ? 0 : offset) + 1;
    while (next < title.size() && IsLowSurrogate(title[next]))
        ++next;
    return next >= title.size() ? 0 : static_cast<int>(next);
}

} // namespace zelvor
