#include "desktop/card_presence.h"

namespace zelvor {
namespace {

constexpr int kMountPointField = 4; // zero-based: id, parent, dev, root, mount point
constexpr size_t kOctalEscapeLength = 4;

bool IsOctalDigit(char c) {
    return c >= '0' && c <= '7';
}

// "\040" and its kin back into the byte they stand for.
std::string DecodeMountField(std::string_view field) {
    std::string out;
    for (size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + kOctalEscapeLength <= field.size() &&
            IsOctalDigit(field[i + 1]) && IsOctalDigit(field[i + 2]) && IsOctalDigit(field[i + 3])) {
            out += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 +
                                     (field[i + 3] - '0'));
            i += kOctalEscapeLength - 1;
        } else {
            out += field[i];
        }
    }
    return out;
}

std::optional<std::string_view> Field(std::string_view line, int index) {
    size_t start = 0;
    for (int f = 0;; ++f) {
        while (start < line.size() && line[start] == ' ')
            ++start;
        if (start >= line.size())
            return std::nullopt;
        const size_t end = std::min(line.find(' ', start), line.size());
        if (f == index)
            return line.substr(start, end - start);
        start = end;
    }
}

} // namespace

std::vector<std::string> ParseMountPoints(std::string_view mountinfo) {
    std::vector<std::string> points;
    while (!mountinfo.empty()) {
        const size_t end = std::min(mountinfo.find('\n'), mountinfo.size());
        const std::string_view line = mountinfo.substr(0, end);
        mountinfo.remove_prefix(std::min(end + 1, mountinfo.size()));
        const auto point = Field(line, kMountPointField);
        if (point && (*point)[0] == '/' && Field(line, kMountPointField + 1))
            points.push_back(DecodeMountField(*point));
    }
    return points;
}

CardPresence::CardPresence(CardObservation initial) {
    m_present = Judge(initial);
}

bool CardPresence::Judge(CardObservation observation) {
    m_mountSeen = m_mountSeen || (observation.folderExists && observation.isMountPoint);
    return observation.folderExists && (observation.isMountPoint || !m_mountSeen);
}

std::optional<int> CardPresence::Update(CardObservation now) {
    const bool present = Judge(now);
    if (present == m_present)
        return std::nullopt;
    m_present = present;
    return present ? 1 : 0;
}

} // namespace zelvor
