#pragma once
// Sorting track records in the order CompareTracks gives, without calling it.
//
// CompareTracks collates two texts on every call; a sort of 100,000 records
// would collate millions of times. Instead each distinct text is collated once
// into a sort key, the keys are ranked, and the records are sorted stably on
// whole numbers. The result is the one a stable sort with CompareTracks gives:
// equal ranks are exactly the texts the collator calls equal.

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "tags/track_record.h"

namespace zelvor {

// Sorts in place by the packed sort parameter (see MakeSortParameter).
// Records that compare equal keep their relative order. Numbers (fields 7 and
// 12) are ordered by value, which is what their 32-bit difference says as
// long as two values lie less than 2^31 apart.
void SortTrackRecords(std::vector<std::unique_ptr<TrackRecord>>& records,
                      std::uint32_t sortParameter);

// Ranks of texts: rank[i] < rank[j] when texts[i] collates before texts[j],
// equal ranks when the collator calls them equal. Each distinct text is
// collated once. The order is CompareTextIgnoreCase's when ignoreCase is set,
// otherwise CompareText's.
std::vector<std::uint32_t> RankTexts(std::span<const std::u16string_view> texts, bool ignoreCase);

} // namespace zelvor
