#include "tags/track_record.h"

#include <algorithm>
#include <functional>

namespace zelvor {

// Slot order of the texts inside a record.
int TrackRecord::SlotOf(int id) {
    switch (id) {
    case kFieldFileName: return 0;
    case kFieldPath: return 1;
    case kFieldTitle: return 2;
    case kFieldAlbum: return 3;
    case kFieldArtist: return 4;
    case kFieldGenre: return 5;
    default: return -1;
    }
}

bool IsTextField(int id) {
    return id == kFieldFileName || id == kFieldPath || (id >= kFieldTitle && id <= kFieldGenre);
}

bool IsNumberField(int id) {
    switch (id) {
    case kFieldDuration:
    case kFieldTrackNumber:
    case kFieldRunTimeA:
    case kFieldRunTimeB:
    case kFieldRunTimeC:
    case kFieldRunTimeD: return true;
    default: return false;
    }
}

char16_t* TrackRecord::WritableTexts(std::size_t chars) {
    if (m_texts ? m_texts.use_count() == 1 && chars <= m_capacity : chars == 0)
        return m_texts.get();
    // Grown by half again, so that a record filled field by field is not
    // copied once per field.
    const std::size_t capacity =
        chars <= m_capacity ? m_capacity : std::max(chars, std::size_t{m_capacity} * 3 / 2);
    auto fresh = std::make_shared_for_overwrite<char16_t[]>(capacity);
    if (TextSize() > 0)
        std::char_traits<char16_t>::copy(fresh.get(), m_texts.get(), TextSize());
    m_texts = std::move(fresh);
    m_capacity = static_cast<std::uint32_t>(capacity);
    return m_texts.get();
}

void TrackRecord::ReserveText(std::size_t chars) {
    if (chars > m_capacity)
        WritableTexts(chars);
}

void TrackRecord::SetSlot(int slot, std::u16string_view text) {
    const std::uint32_t begin = slot == 0 ? 0 : m_ends[slot - 1];
    const std::uint32_t oldLength = m_ends[slot] - begin;
    const auto newLength = static_cast<std::uint32_t>(text.size());
    const std::uint32_t size = TextSize();
    char16_t* texts = WritableTexts(size - oldLength + newLength);
    std::char_traits<char16_t>::move(texts + begin + newLength, texts + begin + oldLength,
                                     size - begin - oldLength);
    std::char_traits<char16_t>::copy(texts + begin, text.data(), newLength);
    for (int i = slot; i < kTextSlots; ++i)
        m_ends[i] = m_ends[i] - oldLength + newLength;
    m_present |= static_cast<std::uint8_t>(1u << slot);
}

void TrackRecord::SetField(int id, std::u16string_view text) {
    int slot = SlotOf(id);
    if (slot < 0)
        return;
    // A view of our own texts would dangle once the buffer moves.
    std::u16string copy;
    const char16_t* own = m_texts.get();
    std::less<const char16_t*> before;
    if (!text.empty() && own && !before(text.data(), own) && before(text.data(), own + TextSize())) {
        copy.assign(text);
        text = copy;
    }
    SetSlot(slot, text);
    if (id == kFieldPath)
        SetSlot(SlotOf(kFieldFileName), FileNameOfPath(text));
}

void TrackRecord::SetField(int id, std::int64_t number) {
    switch (id) {
    case kFieldDuration: m_duration = static_cast<std::uint32_t>(number); break;
    case kFieldTrackNumber: m_trackNumber = static_cast<std::uint16_t>(number); break;
    case kFieldRunTimeA: m_runTimeA = static_cast<std::uint32_t>(number); break;
    case kFieldRunTimeB: m_runTimeB = static_cast<std::int16_t>(number); break;
    case kFieldRunTimeC: m_runTimeC = static_cast<std::uint32_t>(number); break;
    case kFieldRunTimeD: m_runTimeD = static_cast<std::uint32_t>(number); break;
    default: break;
    }
}

bool TrackRecord::GetField(int id, std::u16string& out) const {
    if (!IsTextField(id))
        return false;
    out.assign(Text(id));
    return true;
}

bool TrackRecord::GetField(int id, std::int64_t& out) const {
    switch (id) {
    case kFieldDuration: out = m_duration; return true;
    case kFieldTrackNumber: out = m_trackNumber; return true;
    case kFieldRunTimeA: out = m_runTimeA; return true;
    case kFieldRunTimeB: out = m_runTimeB; return true;
    case kFieldRunTimeC: out = m_runTimeC; return true;
    case kFieldRunTimeD: out = m_runTimeD; return true;
    default: return false;
    }
}

std::u16string_view TrackRecord::Text(int id) const {
    int slot = SlotOf(id);
    if (slot < 0)
        return {};
    const std::uint32_t begin = slot == 0 ? 0 : m_ends[slot - 1];
    return std::u16string_view(m_texts.get() + begin, m_ends[slot] - begin);
}

bool TrackRecord::HasText(int id) const {
    int slot = SlotOf(id);
    return slot >= 0 && (m_present & (1u << slot)) != 0;
}

void TrackRecord::ClearText(int id) {
    int slot = SlotOf(id);
    if (slot < 0)
        return;
    SetSlot(slot, {});
    m_present &= static_cast<std::uint8_t>(~(1u << slot));
}

std::unique_ptr<TrackRecord> TrackRecord::Clone() const {
    // The copy takes every field, sharing the texts; its file name is derived
    // from the path again, so only a record without a path keeps a file name
    // of its own. Setting it only where it differs keeps the texts shared.
    auto copy = std::make_unique<TrackRecord>(*this);
    if (HasText(kFieldPath) &&
        (!HasText(kFieldFileName) || Text(kFieldFileName) != FileNameOfPath(Text(kFieldPath))))
        copy->SetField(kFieldPath, Text(kFieldPath));
    return copy;
}

std::u16string_view FileNameOfPath(std::u16string_view path, bool stripExtension) {
    size_t slash = path.rfind(u'\\');
    std::u16string_view name = slash == std::u16string_view::npos ? path : path.substr(slash + 1);
    if (stripExtension) {
        size_t dot = name.rfind(u'.');
        if (dot != std::u16string_view::npos)
            name = name.substr(0, dot);
    }
    return name;
}

std::u16string_view ShownTitle(const TrackRecord& record) {
    std::u16string_view title = record.Text(kFieldTitle);
    return title.empty() ? FileNameOfPath(record.Text(kFieldFileName), true) : title;
}

} // namespace zelvor
