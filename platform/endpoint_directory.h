#pragma once
// Where the programs of one device find each other: a private folder per
// device root ($XDG_RUNTIME_DIR/zelvor-<hash of the root>/, mode 0700), with
// one local socket per window title or window class. This is the host's
// stand-in for FindWindowW: a program "has a window titled T" while it
// listens on the socket for T.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zelvor {

enum class EndpointKind { Title, Class };

struct EndpointAddress {
    EndpointKind kind = EndpointKind::Title;
    std::u16string name;
};

// The folder for a device root; the same root always gives the same folder.
// Without XDG_RUNTIME_DIR it lies in the temporary folder, named with the
// user id as well.
std::filesystem::path EndpointDirectoryFor(const std::filesystem::path& deviceRoot);

// Creates the folder (0700) when missing and checks that it belongs to this
// user and nobody else can enter it. nullopt, with a reason, otherwise.
std::optional<std::filesystem::path> PrepareEndpointDirectory(
    const std::filesystem::path& deviceRoot, std::string* error = nullptr);

// The socket's file name for an address: "title-" or "class-" and the name,
// with every character outside [A-Za-z0-9._-] written as %XX of its UTF-8.
std::string EndpointFileName(const EndpointAddress& address);

} // namespace zelvor
