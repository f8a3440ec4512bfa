#include "platform/debug_print.h"

#include <cstdio>
#include <mutex>
#include <string>

#include "platform/text.h"

namespace zelvor {
namespace {

std::mutex& SinkLock() {
    static std::mutex lock;
    return lock;
}

DebugSink& Sink() {
    static DebugSink sink;
    return sink;
}

} // namespace

void DebugPrint(std::u16string_view line) {
    std::lock_guard guard(SinkLock());
    if (Sink()) {
        Sink()(line);
        return;
    }
    std::string text = ToUtf8(line);
    // One call per line so concurrent writers do not interleave inside it.
    text += '\n';
    std::fwrite(text.data(), 1, text.size(), stderr);
}

DebugSink SetDebugSink(DebugSink sink) {
    std::lock_guard guard(SinkLock());
    DebugSink previous = std::move(Sink());
    Sink() = std::move(sink);
    return previous;
}

} // namespace zelvor
