// The check of a colour bundle (a binary resource file) on arbitrary bytes.
// The check is all that stands between the bytes and a resource system that
// trusts every offset, so it must never read outside them itself.

#include <string_view>

#include "fuzz/fuzz_seeds.h"
#include "ui/rules/skin/resource_bundle_check.h"

namespace {

void Put(FuzzInput& out, std::uint32_t value, int width) {
    for (int i = width - 1; i >= 0; --i)
        out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

// A bundle as "rcc --binary" lays it out: header, names, data, tree. The
// root folder holds a file and a folder that holds one more file.
FuzzInput MakeBundle(std::uint32_t version) {
    const std::u16string_view names[] = {u"a.png", u"d", u"b.txt"};
    FuzzInput nameBytes, dataBytes, tree;
    std::uint32_t nameOffsets[3];
    for (int i = 0; i < 3; ++i) {
        nameOffsets[i] = static_cast<std::uint32_t>(nameBytes.size());
        Put(nameBytes, static_cast<std::uint32_t>(names[i].size()), 2);
        Put(nameBytes, 0x1234u * static_cast<std::uint32_t>(i + 1), 4);
        for (char16_t c : names[i])
            Put(nameBytes, c, 2);
    }
    for (std::string_view blob : {std::string_view("\x89PNG...."), std::string_view("text")}) {
        Put(dataBytes, static_cast<std::uint32_t>(blob.size()), 4);
        dataBytes.insert(dataBytes.end(), blob.begin(), blob.end());
    }
    auto node = [&](std::uint32_t name, std::uint16_t flags, std::uint32_t a, std::uint32_t b) {
        Put(tree, name, 4);
        Put(tree, flags, 2);
        Put(tree, a, 4);
        Put(tree, b, 4);
        if (version >= 2)
            Put(tree, 0, 4), Put(tree, 0, 4); // modification time
    };
    node(0, 2, 2, 1);              // root: two children from node 1
    node(nameOffsets[0], 0, 0, 0); // a.png, data at 0
    node(nameOffsets[1], 2, 1, 3); // d: one child, node 3
    node(nameOffsets[2], 0, 0, 12); // b.txt, the second blob
    const std::uint32_t headerSize = version >= 3 ? 24 : 20;
    const auto namesAt = headerSize;
    const auto dataAt = namesAt + static_cast<std::uint32_t>(nameBytes.size());
    const auto treeAt = dataAt + static_cast<std::uint32_t>(dataBytes.size());
    FuzzInput out{'q', 'r', 'e', 's'};
    Put(out, version, 4);
    Put(out, treeAt, 4);
    Put(out, dataAt, 4);
    Put(out, namesAt, 4);
    if (version >= 3)
        Put(out, 0, 4);
    for (const FuzzInput* part : {&nameBytes, &dataBytes, &tree})
        out.insert(out.end(), part->begin(), part->end());
    return out;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zelvor::IsValidResourceBundle(std::as_bytes(std::span(data, size)));
    return 0;
}

std::vector<FuzzInput> MakeFuzzSeeds() {
    return {MakeBundle(1), MakeBundle(2), MakeBundle(3)};
}
