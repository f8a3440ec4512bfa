#include "tags/track_record.h"

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

void TrackRecord::SetSlot(int slot, std::u16string_view text) {
    const std::uint32_t begin = slot == 0 ? 0 : m_ends[slot - 1];
    const std::uint32_t oldLength = m_ends[slot] - begin;
    const auto newLength = static_cast<std::uint32_t>(text.size());
    m_texts.replace(begin, oldLength, text);
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
    const char16_t* own = m_texts.data();
    std::less<const char16_t*> before;
    if (!text.empty() && !before(text.data(), own) && before(text.data(), own + m_texts.size())) {
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
    return std::u16string_view(m_texts).substr(begin, m_ends[slot] - begin);
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
    // The copy takes every field; its file name is derived from the path
    // again, so only a record without a path keeps a file name of its own.
    auto copy = std::make_unique<TrackRecord>(*this);
    if (HasText(kFieldPath))
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
