#pragma once
// Message numbers on the command line: decimal ("1426"), hexadecimal
// ("0x592"), or relative to WM_USER ("WM_USER+402", spaces allowed).

#include <cstdint>
#include <optional>
#include <string_view>

namespace zelvor {

std::optional<std::int64_t> ParseMessageArgument(std::string_view text);

} // namespace zelvor
