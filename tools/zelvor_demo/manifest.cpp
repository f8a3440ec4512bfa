#include "tools/zelvor_demo/manifest.h"

#include "platform/text.h"

#include <cstdio>

namespace zelvor::demo {

std::string JsonString(std::string_view utf8) {
    std::string out = "\"";
    for (char c : utf8) {
        auto byte = static_cast<unsigned char>(c);
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (byte < 0x20) {
                char escaped[8];
                std::snprintf(escaped, sizeof escaped, "\\u%04x", byte);
                out += escaped;
            } else {
                out += c; // UTF-8 passes through
            }
        }
    }
    return out + "\"";
}

std::string ManifestLine(const DemoFile& file) {
    const TagFields& f = file.fields;
    auto text = [](std::u16string_view value) { return JsonString(ToUtf8(value)); };
    std::string line = "{\"path\":" + text(file.path);
    line += ",\"type\":" + JsonString(ManifestType(file.kind));
    line += ",\"tags\":" + JsonString(ManifestTags(file.tags));
    line += ",\"title\":" + text(f.title);
    line += ",\"artist\":" + text(f.artist);
    line += ",\"album\":" + text(f.album);
    line += ",\"genre\":" + text(f.genre);
    line += ",\"track\":" + std::to_string(f.track);
    line += ",\"year\":" + text(f.year);
    line += ",\"seconds\":" + std::to_string(file.seconds);
    line += std::string(",\"hidden\":") + (file.hidden ? "true" : "false");
    line += ",\"excluded\":" +
            (file.excluded.empty() ? std::string("null") : JsonString(file.excluded));
    return line + "}\n";
}

} // namespace zelvor::demo
