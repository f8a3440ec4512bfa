#pragma once
// Small, bounded readers that look into the demo device's media the way a
// hex dump would, so tests can check what the files really hold. They are
// independent of the player's tag readers on purpose: the manifest they
// check is what those readers will be compared with.

#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>

namespace zelvor::testing {

using ByteView = std::span<const std::byte>;

struct Id3v2Probe {
    int version = 0;           // 2, 3 or 4
    std::size_t tagLength = 0; // header and body, in bytes
    bool sizeBytesSyncsafe = false;
    std::map<std::string, std::u16string> texts; // frame id -> decoded text
};
// The ID3v2 tag at the start of the file; text frames (ids starting with
// "T") decoded by their encoding byte, trailing NULs removed.
std::optional<Id3v2Probe> ProbeId3v2(ByteView file);

} // namespace zelvor::testing
