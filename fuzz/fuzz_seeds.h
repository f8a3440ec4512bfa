#pragma once
// The seed inputs of a fuzz target, made in code by the program's own
// writers (or by hand for formats the program only reads), so no corpus
// file needs to be kept in the repository. Every target defines this next to
// its LLVMFuzzerTestOneInput; the replay program runs them and variants of
// them (cut short, bytes changed) under the sanitizers of the debug build.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

using FuzzInput = std::vector<std::uint8_t>;

std::vector<FuzzInput> MakeFuzzSeeds();

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline FuzzInput FuzzBytes(std::span<const std::byte> bytes) {
    const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.data());
    return FuzzInput(first, first + bytes.size());
}

inline FuzzInput FuzzBytes(std::string_view text) {
    return FuzzInput(text.begin(), text.end());
}
