#include "tests/tools/json_line.h"

#include <charconv>

namespace zelvor::testing {
namespace {

class Reader {
public:
    explicit Reader(std::string_view text) : m_text(text) {}

    void SkipSpace() {
        while (m_pos < m_text.size() && (m_text[m_pos] == ' ' || m_text[m_pos] == '\t'))
            ++m_pos;
    }
    bool Take(char c) {
        SkipSpace();
        if (m_pos < m_text.size() && m_text[m_pos] == c) {
            ++m_pos;
            return true;
        }
        return false;
    }
    bool TakeWord(std::string_view word) {
        SkipSpace();
        if (m_text.substr(m_pos, word.size()) != word)
            return false;
        m_pos += word.size();
        return true;
    }
    bool AtEnd() {
        SkipSpace();
        return m_pos == m_text.size();
    }

    std::optional<std::string> String() {
        if (!Take('"'))
            return std::nullopt;
        std::string out;
        while (m_pos < m_text.size()) {
            char c = m_text[m_pos++];
            if (c == '"')
                return out;
            if (c != '\\') {
                out += c;
                continue;
            }
            if (m_pos >= m_text.size())
                return std::nullopt;
            char e = m_text[m_pos++];
            switch (e) {
            case '"':
            case '\\':
            case '/':
                out += e;
                break;
            case 'n':
                out += '\n';
                break;
            case 'r':
                out += '\r';
                break;
            case 't':
                out += '\t';
                break;
            case 'u': {
                // Only the control characters the manifest escapes.
                unsigned code = 0;
                if (m_pos + 4 > m_text.size())
                    return std::nullopt;
                auto [end, ec] =
                    std::from_chars(m_text.data() + m_pos, m_text.data() + m_pos + 4, code, 16);
                if (ec != std::errc() || end != m_text.data() + m_pos + 4 || code >= 0x80)
                    return std::nullopt;
                out += static_cast<char>(code);
                m_pos += 4;
                break;
            }
            default:
                return std::nullopt;
            }
        }
        return std::nullopt;
    }

    std::optional<JsonValue> Value() {
        SkipSpace();
        if (m_pos < m_text.size() && m_text[m_pos] == '"') {
            auto text = String();
            return text ? std::optional<JsonValue>(*text) : std::nullopt;
        }
        if (TakeWord("true"))
            return JsonValue(true);
        if (TakeWord("false"))
            return JsonValue(false);
        if (TakeWord("null"))
            return JsonValue(JsonNull{});
        long long number = 0;
        auto [end, ec] =
            std::from_chars(m_text.data() + m_pos, m_text.data() + m_text.size(), number);
        if (ec != std::errc())
            return std::nullopt;
        m_pos = static_cast<std::size_t>(end - m_text.data());
        return JsonValue(number);
    }

private:
    std::string_view m_text;
    std::size_t m_pos = 0;
};

} // namespace

std::optional<JsonObject> ParseJsonLine(std::string_view line) {
    Reader reader(line);
    JsonObject object;
    if (!reader.Take('{'))
        return std::nullopt;
    if (reader.Take('}'))
        return reader.AtEnd() ? std::optional(object) : std::nullopt;
    do {
        auto key = reader.String();
        if (!key || !reader.Take(':'))
            return std::nullopt;
        auto value = reader.Value();
        if (!value || !object.emplace(*key, *value).second)
            return std::nullopt;
    } while (reader.Take(','));
    if (!reader.Take('}') || !reader.AtEnd())
        return std::nullopt;
    return object;
}

} // namespace zelvor::testing
