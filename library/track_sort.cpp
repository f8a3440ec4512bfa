#include "library/track_sort.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <numeric>
#include <string>

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

// The texts without repeats, in order of first appearance; distinctOf[i]
// is the place of texts[i] among them. An open-addressing table that keeps
// each text's hash beside its index: no node allocated per text, and a text
// is read again only when a whole hash matches.
std::vector<std::u16string_view> DistinctTexts(std::span<const std::u16string_view> texts,
                                               std::vector<std::uint32_t>& distinctOf) {
    struct Slot {
        std::uint64_t hash;
        std::uint32_t index; // kFree when unused
    };
    constexpr std::uint32_t kFree = 0xFFFFFFFF;
    const size_t mask = std::bit_ceil(texts.size() * 2 + 16) - 1;
    std::vector<Slot> slots(mask + 1, Slot{0, kFree});
    std::vector<std::u16string_view> distinct;
    const std::hash<std::u16string_view> hashOf;
    for (size_t i = 0; i < texts.size(); ++i) {
        const std::uint64_t hash = hashOf(texts[i]);
        size_t at = hash & mask;
        while (slots[at].index != kFree &&
               (slots[at].hash != hash || distinct[slots[at].index] != texts[i]))
            at = (at + 1) & mask;
        if (slots[at].index == kFree) {
            slots[at] = {hash, static_cast<std::uint32_t>(distinct.size())};
            distinct.push_back(texts[i]);
        }
        distinctOf[i] = slots[at].index;
    }
    return distinct;
}

// Eight bytes of a key from `from` on, big-endian, zero-padded: numbers
// compare as the bytes do, and a key never holds a zero byte, so a shorter
// key that begins another still comes first.
std::uint64_t KeyWord(std::string_view key, size_t from) {
    std::uint64_t word = 0;
    for (size_t i = from; i < from + 8; ++i)
        word = (word << 8) | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0u);
    return word;
}

// A key's first sixteen bytes as two numbers, and which key it is.
struct KeyItem {
    std::uint64_t high;
    std::uint64_t low;
    std::uint32_t id;
    bool SamePrefix(const KeyItem& other) const { return high == other.high && low == other.low; }
    bool PrefixBefore(const KeyItem& other) const {
        return high != other.high ? high < other.high : low < other.low;
    }
};

struct SortItem {
    std::uint64_t key;
    std::uint32_t index;
};

// A stable counting sort, for keys that are ranks below rankCount.
void SortItemsByRank(std::vector<SortItem>& items, std::uint32_t rankCount, bool ascending) {
    std::vector<std::uint32_t> start(rankCount + 1, 0);
    for (const SortItem& item : items)
        ++start[(ascending ? item.key : rankCount - 1 - item.key) + 1];
    for (std::uint32_t r = 0; r < rankCount; ++r)
        start[r + 1] += start[r];
    std::vector<SortItem> sorted(items.size());
    for (const SortItem& item : items)
        sorted[start[ascending ? item.key : rankCount - 1 - item.key]++] = item;
    items.swap(sorted);
}

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
        std::uint32_t rankCount = 0;
        for (std::uint32_t i = 0; i < records.size(); ++i) {
            items[i] = {ranks[i], i};
            rankCount = std::max(rankCount, ranks[i] + 1);
        }
        SortItemsByRank(items, rankCount, ascending);
    } else {
        return; // no texts to compare: every record ties, the order stays
    }
    if (IsNumberSortField(field) || field == kSortAlbumOrder)
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
    std::vector<std::uint32_t> distinctOf(texts.size());
    const std::vector<std::u16string_view> distinct = DistinctTexts(texts, distinctOf);

    // Every key in one buffer, and each key's first bytes as numbers:
    // most comparisons end there, without following a pointer.
    std::string arena;
    std::vector<std::uint32_t> keyEnd(distinct.size());
    std::vector<KeyItem> order(distinct.size());
    for (std::uint32_t d = 0; d < distinct.size(); ++d) {
        const size_t start = arena.size();
        AppendTextSortKey(distinct[d], ignoreCase, arena);
        keyEnd[d] = static_cast<std::uint32_t>(arena.size());
        const std::string_view key = std::string_view(arena).substr(start);
        order[d] = {KeyWord(key, 0), KeyWord(key, 8), d};
    }
    auto keyOf = [&](std::uint32_t d) {
        const std::uint32_t start = d == 0 ? 0 : keyEnd[d - 1];
        return std::string_view(arena).substr(start, keyEnd[d] - start);
    };
    std::sort(order.begin(), order.end(), [&](const KeyItem& a, const KeyItem& b) {
        if (!a.SamePrefix(b))
            return a.PrefixBefore(b);
        return keyOf(a.id).compare(keyOf(b.id)) < 0;
    });
    std::vector<std::uint32_t> rankOfDistinct(distinct.size());
    std::uint32_t rank = 0;
    for (size_t i = 0; i < order.size(); ++i) {
        if (i > 0 && (!order[i].SamePrefix(order[i - 1]) ||
                      keyOf(order[i].id) != keyOf(order[i - 1].id)))
            ++rank;
        rankOfDistinct[order[i].id] = rank;
    }
    std::vector<std::uint32_t> ranks(texts.size());
    for (size_t i = 0; i < texts.size(); ++i)
        ranks[i] = rankOfDistinct[distinctOf[i]];
    return ranks;
}

} // namespace zelvor
