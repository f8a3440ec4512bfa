#pragma once
// A signature of the files below a host folder: one walk of its folders, no
// file opened. It changes when a selected file is added, removed, renamed,
// moved to another folder, or rewritten (size or modification time), and
// stays the same whatever happens to the other files.
//
// The walk keeps to what the device can see: folders whose name begins with
// "." are not entered, a symbolic link is followed only while it stays
// within `base` (the root or binding the folder lies in), and a linked
// folder that leads back to a folder on its own path is not entered again.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

namespace zelvor {

// Selects the files that count, by their name.
using FileNameFilter = std::function<bool(std::u16string_view name)>;

// Never 0, so that a stored 0 keeps meaning "nothing was there". nullopt
// when the folder itself cannot be opened.
std::optional<std::uint64_t> HostTreeSignature(const std::filesystem::path& folder,
                                               const std::filesystem::path& base,
                                               const FileNameFilter& counts);

} // namespace zelvor
