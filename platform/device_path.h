#pragma once
// Device paths as text: UTF-16, backslash-separated ("\\Storage Card\\a.mp3"),
// compared ignoring case. Nothing here touches a disk.

#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

// Splits a device path at its last backslash: the folder (without the
// separator) and the name. "\a.mp3" gives "" and "a.mp3".
std::u16string_view DeviceFolderOf(std::u16string_view path);
std::u16string_view DeviceNameOf(std::u16string_view path);
// Joins a folder and a name with exactly one backslash.
std::u16string JoinDevicePath(std::u16string_view folder, std::u16string_view name);

// Matches a name against a pattern with "*" and "?", ignoring case.
// "*.*" matches every name, with or without a dot.
bool MatchesWildcard(std::u16string_view name, std::u16string_view pattern);

// The non-empty components of a path; both slashes separate.
std::vector<std::u16string_view> SplitDeviceComponents(std::u16string_view path);

} // namespace zelvor
