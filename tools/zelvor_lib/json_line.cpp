#include "tools/zelvor_lib/json_line.h"

#include <cmath>
#include <cstdio>

#include "platform/text.h"

namespace zelvor {

std::string JsonQuote(std::string_view utf8) {
    std::string out = "\"";
    for (unsigned char c : utf8) {
        switch (c) {
        case '"': out += "\\\""; break;
        case '\\': out += "\\\\"; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        default:
            if (c < 0x20) {
                char buffer[8];
                std::snprintf(buffer, sizeof buffer, "\\u%04x", c);
                out += buffer;
            } else {
                out += static_cast<char>(c);
            }
        }
    }
    return out + "\"";
}

void JsonLine::Key(std::string_view key) {
    if (m_text.size() > 1)
        m_text += ',';
    m_text += JsonQuote(key);
    m_text += ':';
}

JsonLine& JsonLine::Add(std::string_view key, std::u16string_view text) {
    return Add(key, std::string_view(ToUtf8(text)));
}

JsonLine& JsonLine::Add(std::string_view key, std::string_view utf8) {
    Key(key);
    m_text += JsonQuote(utf8);
    return *this;
}

JsonLine& JsonLine::Add(std::string_view key, std::int64_t number) {
    Key(key);
    m_text += std::to_string(number);
    return *this;
}

JsonLine& JsonLine::Add(std::string_view key, std::uint64_t number) {
    Key(key);
    m_text += std::to_string(number);
    return *this;
}

JsonLine& JsonLine::Add(std::string_view key, double number) {
    Key(key);
    if (!std::isfinite(number)) {
        m_text += "null";
        return *this;
    }
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.3f", number);
    m_text += buffer;
    return *this;
}

JsonLine& JsonLine::Add(std::string_view key, bool value) {
    Key(key);
    m_text += value ? "true" : "false";
    return *this;
}

JsonLine& JsonLine::AddNull(std::string_view key) {
    Key(key);
    m_text += "null";
    return *this;
}

JsonLine& JsonLine::AddObject(std::string_view key, const JsonLine& object) {
    Key(key);
    m_text += object.Str();
    return *this;
}

} // namespace zelvor
