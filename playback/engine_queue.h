#pragma once
// What the playback engine asks of the play queue: Play looks for a playable
// entry, and the end of a track hands over to the queue's advance.

#include <string>

namespace zelvor {

class EngineQueue {
public:
    virtual ~EngineQueue() = default;
    virtual int EntryCount() const = 0;
    // The current entry's device path; empty when there is none.
    virtual std::u16string CurrentPath() const = 0;
    // 1 when an entry was opened (or is to play again), 0 when playback is
    // to stop, -1 when the chosen entry could not be opened.
    virtual int StepTrack(bool forward, bool automatic) = 0;
    virtual void AdvanceAtEnd() = 0;
};

} // namespace zelvor
