#include "tags/mpeg/frame_sync.h"

#include <algorithm>
#include <vector>

#include "bytes/byte_cursor.h"
#include "tags/mpeg/mpeg_header.h"

namespace zelvor {
namespace {

// Most streams start within the first few hundred bytes, so the window is
// read in two steps: this much first, the rest only when it is needed.
constexpr std::size_t kFirstWindow = 4096;

} // namespace

FrameSync FindFrameSync(DeviceFile& file, std::uint64_t skip) {
    FrameSync sync;
    sync.offset = skip;
    const std::uint64_t size = file.Size();
    if (skip >= size)
        return sync;
    // Every position the search may look at, and the 3 bytes after the last.
    const std::size_t wanted =
        static_cast<std::size_t>(std::min<std::uint64_t>(size - skip, kMaxSyncSteps + 4));
    std::vector<std::byte> window(std::min(wanted, kFirstWindow));
    window.resize(file.ReadAt(skip, window));
    for (std::size_t i = 0;; ++i) {
        if (i + 4 > window.size()) {
            if (window.size() < kFirstWindow || window.size() >= wanted)
                break; // the file ends here
            const std::size_t had = window.size();
            window.resize(wanted);
            window.resize(had + file.ReadAt(skip + had, std::span(window).subspan(had)));
            if (i + 4 > window.size())
                break;
        }
        sync.header = LoadU32Be(std::span(window).subspan(i, 4));
        sync.offset = skip + i;
        if (IsFrameSync(sync.header)) {
            sync.found = true;
            break;
        }
        if (i >= kMaxSyncSteps)
            break;
    }
    return sync;
}

} // namespace zelvor
