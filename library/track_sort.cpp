#include "library/track_sort.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <unordered_map>

#include "library/track_list.h"
#include "platform/text.h"

namespace zelvor {
namespace {

bool IsNumberSortField(int field) {
    return field == kFieldRunTimeA || field == kFieldRunTimeD;
}

std::uint32_t NumberOf(const TrackRecord& record, int field) {
    return field == kFieldRunTimeA ? record.RunTimeA() : record.RunTimeD();
}

// Second record against first, as every sort comparison here.
int CompareAlbumOrder(const TrackRecord& a, const TrackRecord& b) {
    std::u16string_view albumA = a.Text(kFieldAlbum);
    std::u16string_view albumB = b.Text(kFieldAlbum);
    if (!albumA.empty() || !albumB.empty()) {
        if (albumA.empty())
            return -1;
        if (albumB.empty())
            return 1;
        if (int result = CompareText(albumB, albumA); result != 0)
            return result;
    }
    if (a.TrackNumber() != b.TrackNumber())
        return int{b.TrackNumber()} - int{a.TrackNumber()};
    return CompareText(b.Text(kFieldTitle), a.Text(kFieldTitle));
}

struct SortItem {
    std::uint64_t key;
    std::uint32_t index;
};

void SortItems(std::vector<SortItem>& items, bool ascending) {
    if (ascending)
        std::stable_sort(items.begin(), items.end(),
                         [](const SortItem& a, const SortItem& b) { return a.key < b.key; });
    else
        std::stable_sort(items.begin(), items.end(),
                         [](const SortItem& a, const SortItem& b) { return a.key > b.key; });
}

// Album order as one number: empty albums apart from the others, then the
// album's rank, then the track number. Titles only break the ties left.
void KeyByAlbumOrder(const std::vector<std::unique_ptr<TrackRecord>>& records,
                     std::vector<SortItem>& items) {
    std::vector<std::u16string_view> albums;
    std::vector<std::uint32_t> withAlbum;
    for (std::uint32_t i = 0; i < records.size(); ++i) {
        std::u16string_view album = records[i]->Text(kFieldAlbum);
        if (!album.empty()) {
            albums.push_back(album);
            withAlbum.push_back(i);
        }
    }
    std::vector<std::uint32_t> ranks = RankTexts(albums, false);
    for (std::uint32_t i = 0; i < records.size(); ++i)
        items[i] = {std::uint64_t{1} << 63, i};
    for (size_t j = 0; j < withAlbum.size(); ++j)
        items[withAlbum[j]].key = std::uint64_t{ranks[j]} << 16;
    for (SortItem& item : items)
        item.key |= records[item.index]->TrackNumber();
}

// Within each run of equal album and track number, orders by title. Only the
// titles of such runs are collated.
void BreakTiesByTitle(const std::vector<std::unique_ptr<TrackRecord>>& records,
                      std::vector<SortItem>& items, bool ascending) {
    std::vector<std::pair<size_t, size_t>> runs;
    for (size_t begin = 0; begin < items.size();) {
        size_t end = begin + 1;
        while (end < items.size() && items[end].key == items[begin].key)
            ++end;
        if (end - begin > 1)
            runs.emplace_back(begin, end);
        begin = end;
    }
    if (runs.empty())
        return;
    std::vector<std::u16string_view> titles;
    for (auto [begin, end] : runs) {
        for (size_t i = begin; i < end; ++i)
            titles.push_back(records[items[i].index]->Text(kFieldTitle));
    }
    std::vector<std::uint32_t> ranks = RankTexts(titles, false);
    size_t next = 0;
    for (auto [begin, end] : runs) {
        std::vector<SortItem> run;
        for (size_t i = begin; i < end; ++i)
            run.push_back({ranks[next++], items[i].index});
        SortItems(run, ascending);
        std::copy(run.begin(), run.end(), items.begin() + static_cast<std::ptrdiff_t>(begin));
    }
}

} // namespace

int CompareTracks(const TrackRecord& a, const TrackRecord& b, std::uint32_t sortParameter) {
    const int field = static_cast<int>(sortParameter & 0xFFFF);
    int result = 0;
    if (IsNumberSortField(field)) {
        result = static_cast<std::int32_t>(NumberOf(b, field) - NumberOf(a, field));
    } else if (field == kSortAlbumOrder) {
        result = CompareAlbumOrder(a, b);
    } else {
        result = CompareTextIgnoreCase(b.Text(field), a.Text(field));
    }
    return (sortParameter >> 16) != 0 ? -result : result;
}

void SortTrackRecords(std::vector<std::unique_ptr<TrackRecord>>& records,
                      std::uint32_t sortParameter) {
    const int field = static_cast<int>(sortParameter & 0xFFFF);
    const bool ascending = (sortParameter >> 16) != 0;
    if (records.size() < 2)
        return;
    std::vector<SortItem> items(records.size());
    if (IsNumberSortField(field)) {
        for (std::uint32_t i = 0; i < records.size(); ++i)
            items[i] = {NumberOf(*records[i], field), i};
    } else if (field == kSortAlbumOrder) {
        KeyByAlbumOrder(records, items);
    } else if (IsTextField(field)) {
        std::vector<std::u16string_view> texts;
        texts.reserve(records.size());
        for (const auto& record : records)
            texts.push_back(record->Text(field));
        std::vector<std::uint32_t> ranks = RankTexts(texts, true);
        for (std::uint32_t i = 0; i < records.size(); ++i)
            items[i] = {ranks[i], i};
    } else {
        return; // no texts to compare: every record ties, the order stays
    }
    SortItems(items, ascending);
    if (field == kSortAlbumOrder)
        BreakTiesByTitle(records, items, ascending);

    std::vector<std::unique_ptr<TrackRecord>> sorted;
    sorted.reserve(records.size());
    for (const SortItem& item : items)
        sorted.push_back(std::move(records[item.index]));
    records.swap(sorted);
}

std::vector<std::uint32_t> RankTexts(std::span<const std::u16string_view> texts, bool ignoreCase) {
    // Distinct texts first: albums, artists and genres repeat a lot.
    std::unordered_map<std::u16string_view, std::uint32_t> distinctIndex;
    std::vector<std::uint32_t> distinctOf(texts.size());
    std::vector<std::string> keys;
    for (size_t i = 0; i < texts.size(); ++i) {
        auto [it, added] = distinctIndex.try_emplace(texts[i], static_cast<std::uint32_t>(keys.size()));
        if (added)
            keys.push_back(ignoreCase ? TextSortKeyIgnoreCase(texts[i]) : TextSortKey(texts[i]));
        distinctOf[i] = it->second;
    }
    std::vector<std::uint32_t> order(keys.size());
    std::iota(order.begin(), order.end(), 0u);
    std::sort(order.begin(), order.end(),
              [&](std::uint32_t a, std::uint32_t b) { return keys[a] < keys[b]; });
    std::vector<std::uint32_t> rankOfDistinct(keys.size());
    std::uint32_t rank = 0;
    for (size_t i = 0; i < order.size(); ++i) {
        if (i > 0 && keys[order[i]] != keys[order[i - 1]])
            ++rank;
        rankOfDistinct[order[i]] = rank;
    }
    std::vector<std::uint32_t> ranks(texts.size());
    for (size_t i = 0; i < texts.size(); ++i)
        ranks[i] = rankOfDistinct[distinctOf[i]];
    return ranks;
}

} // namespace zelvor
