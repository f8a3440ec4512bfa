#pragma once
// NKDbgPrintfW on a host: one line on standard error per call. Tests can
// route the lines elsewhere to check them word for word.

#include <functional>
#include <string_view>

namespace zelvor {

void DebugPrint(std::u16string_view line);

using DebugSink = std::function<void(std::u16string_view line)>;
// Replaces where DebugPrint writes; an empty sink restores standard error.
// Returns the previous sink.
DebugSink SetDebugSink(DebugSink sink);

} // namespace zelvor
