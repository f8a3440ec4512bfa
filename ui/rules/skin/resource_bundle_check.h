#pragma once
// Checks a Qt binary resource bundle (the output of "rcc --binary") before it
// is handed to the resource system, which trusts every offset in it. A colour
// bundle is a file beside the program that anything may have replaced, so
// every offset and length is checked against the bytes that are there: the
// header, each tree node, each name and each data blob. Directory nodes must
// point forward to their children, so a crafted tree cannot loop.

#include <cstddef>
#include <span>

namespace zelvor {

bool IsValidResourceBundle(std::span<const std::byte> bytes);

} // namespace zelvor
