#include "playlists/playlist_entry.h"

namespace zelvor {

std::unique_ptr<PlaylistEntry> PlaylistEntry::Copy() const {
    auto copy = std::make_unique<PlaylistEntry>();
    copy->m_texts[0] = m_texts[0];
    copy->m_texts[1] = m_texts[1];
    if (m_texts[2])
        copy->m_texts[1] = m_texts[2];
    copy->m_typeCode = m_typeCode;
    copy->m_libraryIndex = m_libraryIndex;
    copy->m_valueC = m_valueC;
    copy->m_valueD = m_valueD;
    return copy;
}

void PlaylistEntry::SetText(int which, std::u16string_view text) {
    if (Valid(which))
        m_texts[static_cast<size_t>(which - 1)].emplace(text);
}

void PlaylistEntry::ClearText(int which) {
    if (Valid(which))
        m_texts[static_cast<size_t>(which - 1)].reset();
}

std::u16string_view PlaylistEntry::Text(int which) const {
    if (!Valid(which) || !m_texts[static_cast<size_t>(which - 1)])
        return {};
    return *m_texts[static_cast<size_t>(which - 1)];
}

bool PlaylistEntry::HasText(int which) const {
    return Valid(which) && m_texts[static_cast<size_t>(which - 1)].has_value();
}

} // namespace zelvor
