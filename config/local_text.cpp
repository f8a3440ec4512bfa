#include "config/local_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "config/settings.h"
#include "platform/device.h"
#include "platform/text.h"
#include "res/string_table.h"

namespace zelvor {
namespace {

constexpr size_t kBufferUnits = 256; // 255 characters and the terminator
constexpr size_t kMaxFields = 25;    // the key and 24 languages
constexpr char16_t kTab = 0x0009;
constexpr char16_t kCr = 0x000D;
// A larger file is treated like an allocation that failed: the English text.
constexpr std::uint64_t kMaxFileBytes = 16u << 20;

using TextBuffer = std::array<char16_t, kBufferUnits>;

std::u16string_view ViewOf(const char16_t* text) {
    return text ? std::u16string_view(text) : std::u16string_view();
}

void CopyInto(TextBuffer& buffer, std::u16string_view text) {
    size_t n = std::min(text.size(), kBufferUnits - 1);
    std::copy_n(text.begin(), n, buffer.begin());
    buffer[n] = 0;
}

// The table of fields of the scan. It is deliberately not cleared between
// lines: a column that the matching line does not reach still holds what an
// earlier, longer line left there, and that text is what the lookup returns.
// Columns no line ever reached read as empty.
struct FieldTable {
    std::array<TextBuffer, kMaxFields> fields{};
    size_t field = 0;
    size_t column = 0;

    // A field longer than 255 units is cut: the units beyond are dropped.
    // Units of a 26th or later field on a line are dropped as well. Neither
    // can write past the table.
    void Store(char16_t unit) {
        if (field < kMaxFields && column < kBufferUnits - 1)
            fields[field][column++] = unit;
    }
    void CloseField() {
        if (field < kMaxFields)
            fields[field][column] = 0;
        ++field;
        column = 0;
    }
};

// Scans the file image (UTF-16LE units, the byte-order mark at index 0) and
// returns the field of `language` from the first line whose key equals
// `english` ignoring case.
std::optional<std::u16string> ScanForTranslation(const std::vector<char16_t>& units,
                                                 std::u16string_view english, size_t language) {
    auto table = std::make_unique<FieldTable>();
    for (size_t i = 1; i < units.size(); ++i) {
        char16_t unit = units[i];
        if (unit != kTab && unit != kCr) {
            table->Store(unit);
            continue;
        }
        table->CloseField();
        if (unit != kCr)
            continue;
        ++i; // the unit after CR (LF) is skipped unseen
        if (CompareTextIgnoreCase(table->fields[0].data(), english) == 0)
            return std::u16string(table->fields[language].data());
        table->field = 0;
        table->column = 0;
    }
    return std::nullopt; // a last line without CR is never considered
}

std::vector<char16_t> DecodeUnits(std::span<const std::byte> bytes) {
    std::vector<char16_t> units(bytes.size() / 2); // an odd last byte is ignored
    for (size_t i = 0; i < units.size(); ++i)
        units[i] = static_cast<char16_t>(std::to_integer<unsigned>(bytes[2 * i]) |
                                         (std::to_integer<unsigned>(bytes[2 * i + 1]) << 8));
    return units;
}

} // namespace

const char16_t* LoadBuiltInText(std::uint16_t id) {
    static std::array<TextBuffer, 4> ring{};
    static size_t counter = 0;
    auto text = FindBuiltInText(id);
    if (!text)
        return nullptr;
    counter = (counter + 1) % ring.size();
    CopyInto(ring[counter], *text);
    return ring[counter].data();
}

std::u16string_view LoadLocalText(std::u16string_view fileName, std::int16_t language,
                                  std::uint16_t id) {
    static TextBuffer result{};
    CopyInto(result, ViewOf(LoadBuiltInText(id)));
    // Columns exist for languages 1 to 24; any other number has no
    // translation, so it keeps the English text like language 0.
    if (language <= 0 || static_cast<size_t>(language) >= kMaxFields)
        return result.data();
    std::u16string path = GetProgramDirectory() + u"\\" + std::u16string(fileName);
    auto bytes = CurrentDevice().FileSystem().ReadWholeFile(path, kMaxFileBytes);
    if (!bytes)
        return result.data();
    if (auto translation = FindTranslation(*bytes, std::u16string(result.data()), language))
        CopyInto(result, *translation);
    return result.data();
}

std::optional<std::u16string> FindTranslation(std::span<const std::byte> fileImage,
                                              std::u16string_view english, std::int16_t language) {
    if (language <= 0 || static_cast<size_t>(language) >= kMaxFields)
        return std::nullopt;
    const std::vector<char16_t> units = DecodeUnits(fileImage);
    if (units.size() <= 1)
        return std::nullopt;
    return ScanForTranslation(units, english, static_cast<size_t>(language));
}

} // namespace zelvor
