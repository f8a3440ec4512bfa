#include "tags/mpeg/frame_sync.h"

#include <algorithm>
#include <vector>

#include "tags/byte_cursor.h"
#include "tags/mpeg/mpeg_header.h"

namespace zelvor {

FrameSync FindFrameSync(DeviceFile& file, std::uint64_t skip) {
    FrameSync sync;
    sync.offset = skip;
    std::uint64_t size = file.Size();
    if (skip >= size)
        return sync;
    // One read covers every position the search may look at.
    std::vector<std::byte> window(
        static_cast<std::size_t>(std::min<std::uint64_t>(size - skip, kMaxSyncSteps + 4)));
    window.resize(file.ReadAt(skip, window));
    for (std::size_t i = 0; i + 4 <= window.size(); ++i) {
        sync.header = BigEndian32(std::span(window).subspan(i, 4));
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
