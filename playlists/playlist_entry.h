#pragma once
// PlaylistEntry: one row of a playlist in memory, and of the list of files
// the library update finds.
//
//   text 1         the file's device path; once matched against the library,
//                  the title shown for the entry
//   text 2, 3      kept for the list controls
//   type code      the audio-file type, for files found by the library update
//   library index  the matching row of the library, -1 while unmatched
//   value C, D     kept for the list controls
//
// Each text is owned by the entry and may be none; none reads as empty.
// Texts are addressed 1 to 3; other numbers are ignored and read as empty.

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zelvor {

class PlaylistEntry {
public:
    PlaylistEntry() = default;
    // An entry whose text 1 is the path.
    explicit PlaylistEntry(std::u16string_view path) { SetText(1, path); }
    PlaylistEntry(const PlaylistEntry&) = delete;
    PlaylistEntry& operator=(const PlaylistEntry&) = delete;

    // The copy the lists make: text 1 and the four numbers as they are; the
    // copy's text 2 holds the source's text 3 when that exists and its text 2
    // otherwise; the copy's text 3 is none. The lists rely on this shift.
    std::unique_ptr<PlaylistEntry> Copy() const;

    void SetText(int which, std::u16string_view text);
    void ClearText(int which);
    std::u16string_view Text(int which) const;
    bool HasText(int which) const;

    std::int32_t TypeCode() const { return m_typeCode; }
    void SetTypeCode(std::int32_t value) { m_typeCode = value; }
    std::int32_t LibraryIndex() const { return m_libraryIndex; }
    void SetLibraryIndex(std::int32_t value) { m_libraryIndex = value; }
    std::int32_t ValueC() const { return m_valueC; }
    void SetValueC(std::int32_t value) { m_valueC = value; }
    std::int16_t ValueD() const { return m_valueD; }
    void SetValueD(std::int16_t value) { m_valueD = value; }

private:
    static bool Valid(int which) { return which >= 1 && which <= 3; }

    std::array<std::optional<std::u16string>, 3> m_texts;
    std::int32_t m_typeCode = -1;
    std::int32_t m_libraryIndex = -1;
    std::int32_t m_valueC = -1;
    std::int16_t m_valueD = -1;
};

} // namespace zelvor
