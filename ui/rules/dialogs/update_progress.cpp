#include "ui/rules/dialogs/update_progress.h"

#include <algorithm>

namespace zelvor {

BarRange BarRangeOf(const ProgressRange& range) {
    if (range.percentMode)
        return {0, 100};
    return {range.lower, range.upper};
}

ProgressStep ComputeProgressStep(const ProgressRange& range, int position) {
    ProgressStep step;
    step.finished = position == range.upper;
    if (!range.percentMode) {
        step.show = true;
        step.value = position;
        return step;
    }
    // 64 bits: no position or range can overflow.
    const std::int64_t part = std::max<std::int64_t>(std::int64_t{position} - range.lower, 0);
    const std::int64_t span = std::int64_t{range.upper} - range.lower;
    if (span == 0)
        return step;
    // Single precision, as the bar always had it: 1/3 of a range is 33 %.
    const auto percent =
        static_cast<std::int64_t>(static_cast<float>(part) / static_cast<float>(span) * 100.0);
    step.show = true;
    if (percent == 100) {
        step.finished = true;
        step.value = 100;
    } else {
        step.value = static_cast<int>(percent % 100);
    }
    return step;
}

DialogEnd EndOnOk(int phase) {
    return phase == 3 ? DialogEnd::Ok : DialogEnd::StayOpen;
}

DialogEnd EndOnCancel(int phase) {
    return phase == 0 || phase == 3 ? DialogEnd::Cancel : DialogEnd::StayOpen;
}

} // namespace zelvor
