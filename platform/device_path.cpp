#include "platform/device_path.h"

#include "platform/text.h"

namespace zelvor {
namespace {

bool IsSeparator(char16_t c) {
    return c == u'\\' || c == u'/';
}

} // namespace

std::vector<std::u16string_view> SplitDeviceComponents(std::u16string_view path) {
    std::vector<std::u16string_view> parts;
    size_t i = 0;
    while (i < path.size()) {
        while (i < path.size() && IsSeparator(path[i]))
            ++i;
        size_t start = i;
        while (i < path.size() && !IsSeparator(path[i]))
            ++i;
        if (i > start)
            parts.push_back(path.substr(start, i - start));
    }
    return parts;
}

std::u16string_view DeviceFolderOf(std::u16string_view path) {
    size_t slash = path.find_last_of(u"\\/");
    return slash == std::u16string_view::npos ? std::u16string_view() : path.substr(0, slash);
}

std::u16string_view DeviceNameOf(std::u16string_view path) {
    size_t slash = path.find_last_of(u"\\/");
    return slash == std::u16string_view::npos ? path : path.substr(slash + 1);
}

std::u16string JoinDevicePath(std::u16string_view folder, std::u16string_view name) {
    std::u16string out(folder);
    if (out.empty() || out.back() != u'\\')
        out += u'\\';
    size_t skip = 0;
    while (skip < name.size() && name[skip] == u'\\')
        ++skip;
    out += name.substr(skip);
    return out;
}

bool MatchesWildcard(std::u16string_view name, std::u16string_view pattern) {
    if (pattern == u"*.*" || pattern == u"*")
        return true;
    // Iterative glob with one backtrack point: linear in practice and never
    // recursive, whatever the pattern.
    size_t n = 0, p = 0, starP = std::u16string_view::npos, starN = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            starP = p++;
            starN = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == u'?' || EqualsIgnoreCase(pattern.substr(p, 1), name.substr(n, 1)))) {
            ++p;
            ++n;
        } else if (starP != std::u16string_view::npos) {
            p = starP + 1;
            n = ++starN;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == u'*')
        ++p;
    // "name.*" also matches "name" without an extension, as on the device.
    if (p + 2 == pattern.size() && pattern[p] == u'.' && pattern[p + 1] == u'*')
        return true;
    return p == pattern.size();
}

} // namespace zelvor
