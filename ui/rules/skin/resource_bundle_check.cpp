#include "ui/rules/skin/resource_bundle_check.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace zelvor {
namespace {

constexpr std::uint16_t kFlagCompressed = 0x01;
constexpr std::uint16_t kFlagDirectory = 0x02;
constexpr std::uint16_t kFlagCompressedZstd = 0x04;

class BigEndianView {
public:
    explicit BigEndianView(std::span<const std::byte> bytes) : m_bytes(bytes) {}
    std::size_t Size() const { return m_bytes.size(); }

    // The number of `width` bytes at `offset`, or nothing past the end.
    std::optional<std::uint32_t> Read(std::uint64_t offset, int width) const {
        if (offset > m_bytes.size() || m_bytes.size() - offset < static_cast<std::size_t>(width)) {
            return std::nullopt;
        }
        std::uint32_t value = 0;
        for (int i = 0; i < width; ++i) {
            value = (value << 8) | std::to_integer<std::uint32_t>(m_bytes[offset + i]);
        }
        return value;
    }
    bool Holds(std::uint64_t offset, std::uint64_t length) const {
        return offset <= m_bytes.size() && m_bytes.size() - offset >= length;
    }

private:
    std::span<const std::byte> m_bytes;
};

struct Header {
    std::uint32_t version = 0;
    std::uint32_t tree = 0;
    std::uint32_t data = 0;
    std::uint32_t names = 0;
};

std::optional<Header> ReadHeader(const BigEndianView& in) {
    const auto magic = in.Read(0, 4);
    if (!magic || *magic != 0x71726573u) { // "qres"
        return std::nullopt;
    }
    Header h;
    const auto version = in.Read(4, 4);
    const auto tree = in.Read(8, 4);
    const auto data = in.Read(12, 4);
    const auto names = in.Read(16, 4);
    if (!version || !tree || !data || !names || *version < 1 || *version > 3) {
        return std::nullopt;
    }
    h = {*version, *tree, *data, *names};
    if (h.version >= 3) {
        const auto flags = in.Read(20, 4);
        if (!flags || (*flags & ~std::uint32_t{kFlagCompressed | kFlagCompressedZstd}) != 0) {
            return std::nullopt;
        }
    }
    if (h.tree >= in.Size() || h.data >= in.Size() || h.names >= in.Size()) {
        return std::nullopt;
    }
    return h;
}

bool NameFits(const BigEndianView& in, const Header& h, std::uint32_t nameOffset) {
    const std::uint64_t at = std::uint64_t{h.names} + nameOffset;
    const auto length = in.Read(at, 2);
    return length && in.Holds(at + 6, std::uint64_t{*length} * 2); // length, hash, UTF-16
}

bool DataFits(const BigEndianView& in, const Header& h, std::uint32_t dataOffset) {
    const std::uint64_t at = std::uint64_t{h.data} + dataOffset;
    const auto length = in.Read(at, 4);
    return length && in.Holds(at + 4, *length);
}

} // namespace

bool IsValidResourceBundle(std::span<const std::byte> bytes) {
    const BigEndianView in(bytes);
    const auto header = ReadHeader(in);
    if (!header) {
        return false;
    }
    // A node is name (4), flags (2), then child count and first child (4 + 4)
    // or territory, language and data offset (2 + 2 + 4); from version 2 on a
    // modification time (8) follows.
    const std::uint64_t nodeSize = header->version >= 2 ? 22 : 14;
    const std::uint64_t nodeCount = (bytes.size() - header->tree) / nodeSize;
    if (nodeCount == 0) {
        return false;
    }
    std::vector<std::uint64_t> pending{0};
    std::uint64_t visited = 0;
    while (!pending.empty()) {
        const std::uint64_t node = pending.back();
        pending.pop_back();
        if (++visited > nodeCount) {
            return false;
        }
        const std::uint64_t at = header->tree + node * nodeSize;
        const auto name = in.Read(at, 4);
        const auto flags = in.Read(at + 4, 2);
        const auto third = in.Read(at + 6, 4);
        const auto fourth = in.Read(at + 10, 4);
        if (!name || !flags || !third || !fourth ||
            (*flags & ~std::uint32_t{kFlagCompressed | kFlagDirectory | kFlagCompressedZstd}) != 0) {
            return false;
        }
        // The root's name is never read; the root must be a folder.
        if (node != 0 && !NameFits(in, *header, *name)) {
            return false;
        }
        if ((*flags & kFlagDirectory) == 0) {
            if (node == 0 || !DataFits(in, *header, *fourth)) {
                return false;
            }
            continue;
        }
        const std::uint64_t childCount = *third;
        const std::uint64_t firstChild = *fourth;
        // In a tree every node is pending or visited at most once, so more than
        // the node count is a crafted file (and would cost memory).
        if (childCount > nodeCount - visited - pending.size()) {
            return false;
        }
        if (childCount > 0 && (firstChild <= node || firstChild + childCount > nodeCount)) {
            return false;
        }
        for (std::uint64_t child = firstChild; child < firstChild + childCount; ++child) {
            pending.push_back(child);
        }
    }
    return true;
}

} // namespace zelvor
