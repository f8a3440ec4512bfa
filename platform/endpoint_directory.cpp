#include "platform/endpoint_directory.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

#include "platform/text.h"

namespace zelvor {
namespace fs = std::filesystem;
namespace {

// FNV-1a: stable across runs and hosts, which std::hash is not.
std::uint64_t Fnv1a(std::string_view bytes) {
    std::uint64_t hash = 0xcbf29ce484222325ULL;
    for (unsigned char c : bytes) {
        hash ^= c;
        hash *= 0x100000001b3ULL;
    }
    return hash;
}

} // namespace

fs::path EndpointDirectoryFor(const fs::path& deviceRoot) {
    // "dir", "dir/" and "./dir" are one device: hash one spelling of it.
    std::error_code ec;
    fs::path canonical = fs::weakly_canonical(deviceRoot, ec);
    if (ec)
        canonical = fs::absolute(deviceRoot, ec).lexically_normal();
    if (!canonical.has_filename() && canonical.has_parent_path())
        canonical = canonical.parent_path();
    char name[40];
    std::snprintf(name, sizeof name, "zelvor-%016llx",
                  static_cast<unsigned long long>(Fnv1a(canonical.string())));
    if (const char* runtime = std::getenv("XDG_RUNTIME_DIR"); runtime && *runtime)
        return fs::path(runtime) / name;
    return fs::temp_directory_path() / (std::string(name) + "-" + std::to_string(::getuid()));
}

std::optional<fs::path> PrepareEndpointDirectory(const fs::path& deviceRoot, std::string* error) {
    fs::path dir = EndpointDirectoryFor(deviceRoot);
    auto fail = [&](const std::string& why) -> std::optional<fs::path> {
        if (error)
            *error = dir.string() + ": " + why;
        return std::nullopt;
    };
    if (::mkdir(dir.c_str(), 0700) != 0 && errno != EEXIST)
        return fail("cannot be created");
    struct stat st {};
    if (::lstat(dir.c_str(), &st) != 0 || !S_ISDIR(st.st_mode))
        return fail("is not a folder");
    if (st.st_uid != ::getuid())
        return fail("belongs to another user");
    if ((st.st_mode & 077) != 0)
        return fail("is open to other users");
    return dir;
}

std::string EndpointFileName(const EndpointAddress& address) {
    std::string out = address.kind == EndpointKind::Title ? "title-" : "class-";
    for (unsigned char c : ToUtf8(address.name)) {
        bool plain = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
                     c == '.' || c == '_' || c == '-';
        if (plain) {
            out += static_cast<char>(c);
        } else {
            char hex[4];
            std::snprintf(hex, sizeof hex, "%%%02X", c);
            out += hex;
        }
    }
    return out;
}

} // namespace zelvor
