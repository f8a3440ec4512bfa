#pragma once
// Builds one JSON object per line for the tools' machine-readable output.
// Keys appear in the order they are added; strings are written as UTF-8.

#include <cstdint>
#include <string>
#include <string_view>

namespace zelvor {

class JsonLine {
public:
    JsonLine& Add(std::string_view key, std::u16string_view text);
    JsonLine& Add(std::string_view key, std::string_view utf8);
    JsonLine& Add(std::string_view key, const char* utf8) { return Add(key, std::string_view(utf8)); }
    JsonLine& Add(std::string_view key, std::int64_t number);
    JsonLine& Add(std::string_view key, int number) { return Add(key, std::int64_t{number}); }
    JsonLine& Add(std::string_view key, unsigned number) { return Add(key, std::int64_t{number}); }
    JsonLine& Add(std::string_view key, std::uint64_t number);
    JsonLine& Add(std::string_view key, double number);
    JsonLine& Add(std::string_view key, bool value);
    JsonLine& AddNull(std::string_view key);
    // Adds a nested object built by another JsonLine.
    JsonLine& AddObject(std::string_view key, const JsonLine& object);

    // The object's text, without a newline.
    std::string Str() const { return m_text + "}"; }

private:
    void Key(std::string_view key);
    std::string m_text = "{";
};

std::string JsonQuote(std::string_view utf8);

} // namespace zelvor
