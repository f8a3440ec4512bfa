#pragma once
// TrackRecord: one audio file as the library, the play queue, the playlists
// and the player know it. Every field is reached by its numeric identifier.
//
// Texts are owned by the record and may be "none" (never set), which reads
// back as an empty text; the library file tells none from empty. All texts
// of a record share one allocation: a library of 100,000 records must not
// pay six string headers and six heap blocks per record. A clone shares that
// allocation with its original until either changes a text, so the play
// queue made from the whole library costs its records, not their texts again.

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zelvor {

// Field identifiers. 11 is not assigned; ids above 12 do not exist.
enum TrackField : int {
    kFieldFileName = 0,    // text: last path component, extension kept; derived from the path
    kFieldTitle = 1,       // text
    kFieldAlbum = 2,       // text
    kFieldArtist = 3,      // text
    kFieldGenre = 4,       // text
    kFieldDuration = 5,    // unsigned 32-bit: whole seconds, as the reader reported them
    kFieldTrackNumber = 6, // unsigned 16-bit
    kFieldRunTimeA = 7,    // unsigned 32-bit, never stored in files
    kFieldPath = 8,        // text: full device path
    kFieldRunTimeB = 9,    // signed 16-bit, initially -1, never stored in files
    kFieldRunTimeC = 10,   // unsigned 32-bit, never stored in files
    kFieldRunTimeD = 12,   // unsigned 32-bit, never stored in files
};

bool IsTextField(int id);
bool IsNumberField(int id);

class TrackRecord {
public:
    TrackRecord() = default;

    // A text id copies the text (replacing an earlier one); setting the path
    // also sets the file name. A number id or an unknown id ignores a text.
    // The text may be a view of this record's own texts.
    void SetField(int id, std::u16string_view text);
    // A number id keeps the value with the field's width (16 bits for the
    // track number, signed 16 bits for run-time value B). Other ids ignore it.
    void SetField(int id, std::int64_t number);

    // A text id copies the text into out (empty when none) and returns true.
    // Any other id leaves out untouched and returns false.
    bool GetField(int id, std::u16string& out) const;
    // A number id writes the value (B sign-extended) and returns true. Any
    // other id, ids of 13 and above included, leaves out untouched.
    bool GetField(int id, std::int64_t& out) const;

    // Direct read access for hot paths (sorting, drawing): an empty view for
    // a text that is none and for ids that are not texts.
    std::u16string_view Text(int id) const;
    bool HasText(int id) const;
    // Makes a text field "none" again.
    void ClearText(int id);

    std::uint32_t Duration() const { return m_duration; }
    std::uint16_t TrackNumber() const { return m_trackNumber; }
    std::uint32_t RunTimeA() const { return m_runTimeA; }
    std::int16_t RunTimeB() const { return m_runTimeB; }
    std::uint32_t RunTimeC() const { return m_runTimeC; }
    std::uint32_t RunTimeD() const { return m_runTimeD; }

    // A new record with the same path (or, when the path is none, the same
    // file name) and every other field copied.
    std::unique_ptr<TrackRecord> Clone() const;

    // Bytes of text held (for memory accounting in benchmarks).
    std::size_t TextBytes() const { return TextSize() * sizeof(char16_t); }
    // Makes room for this many characters of text in all, so that a loader
    // that knows every text in advance fills the record with one allocation
    // of the exact size.
    void ReserveText(std::size_t chars);

private:
    static constexpr int kTextSlots = 6;
    static int SlotOf(int id);
    void SetSlot(int slot, std::u16string_view text);
    std::uint32_t TextSize() const { return m_ends[kTextSlots - 1]; }
    // The texts, this record's alone and with room for `chars` in all.
    char16_t* WritableTexts(std::size_t chars);

    // Texts of the six slots end to end, possibly shared with clones (never
    // written while shared); m_ends[i] is where slot i ends.
    std::shared_ptr<char16_t[]> m_texts;
    std::uint32_t m_capacity = 0;
    std::array<std::uint32_t, kTextSlots> m_ends{};
    std::uint8_t m_present = 0; // bit i: slot i is set (not none)

    std::uint32_t m_duration = 0;
    std::uint16_t m_trackNumber = 0;
    std::int16_t m_runTimeB = -1;
    std::uint32_t m_runTimeA = 0;
    std::uint32_t m_runTimeC = 0;
    std::uint32_t m_runTimeD = 0;
};

// The name after the last "\" of a path (the whole path when it has none);
// with stripExtension, also cut at the last "." of that name.
std::u16string_view FileNameOfPath(std::u16string_view path, bool stripExtension = false);

// The title a record is shown and listed by: its title, or, when that is
// empty, its file name without the extension. The view lives as long as the
// record's texts are unchanged.
std::u16string_view ShownTitle(const TrackRecord& record);

} // namespace zelvor
