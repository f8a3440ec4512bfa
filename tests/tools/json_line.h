#pragma once
// Reads one line of the demo manifest: a flat JSON object whose values are
// strings, integers, booleans or null. Enough for the manifest, no more:
// nested objects and arrays are refused.

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace zelvor::testing {

struct JsonNull {
    bool operator==(const JsonNull&) const = default;
};
using JsonValue = std::variant<JsonNull, bool, long long, std::string>;
using JsonObject = std::map<std::string, JsonValue>;

// nullopt when the line is not such an object.
std::optional<JsonObject> ParseJsonLine(std::string_view line);

} // namespace zelvor::testing
