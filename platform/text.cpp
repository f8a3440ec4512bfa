#include "platform/text.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <type_traits>
#include <memory>
#include <mutex>

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/ucasemap.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>

namespace zelvor {
namespace {

// ICU treats a null pointer as an error rather than as an empty text, and an
// empty std::u16string_view may carry one.
const UChar* AsUChar(std::u16string_view text) {
    return text.data() != nullptr ? reinterpret_cast<const UChar*>(text.data()) : u"";
}

int32_t Length(std::u16string_view text) {
    return static_cast<int32_t>(text.size());
}

// One collator per strength, built on first use. ICU collators are safe to
// use from several threads for comparison and sort keys.
class Collators {
public:
    static const icu::Collator& Get(bool ignoreCase) {
        static Collators instance;
        return ignoreCase ? *instance.m_ignoreCase : *instance.m_exact;
    }

private:
    Collators() {
        UErrorCode status = U_ZERO_ERROR;
        m_exact.reset(icu::Collator::createInstance(icu::Locale::getRoot(), status));
        status = U_ZERO_ERROR;
        m_ignoreCase.reset(icu::Collator::createInstance(icu::Locale::getRoot(), status));
        // Secondary strength: accents still count, case does not.
        m_ignoreCase->setStrength(icu::Collator::SECONDARY);
    }
    std::unique_ptr<icu::Collator> m_exact;
    std::unique_ptr<icu::Collator> m_ignoreCase;
};

int Sign(UCollationResult r) {
    return r == UCOL_LESS ? -1 : (r == UCOL_GREATER ? 1 : 0);
}

// Appends the key after out's present bytes: written straight into the
// buffer's spare room, which is grown only when the key does not fit.
void AppendSortKey(std::u16string_view text, bool ignoreCase, std::string& out) {
    const icu::Collator& coll = Collators::Get(ignoreCase);
    const size_t start = out.size();
    size_t room = text.size() * 2 + 16;
    for (;;) {
        out.resize(start + room);
        int32_t needed = coll.getSortKey(AsUChar(text), Length(text),
                                         reinterpret_cast<uint8_t*>(out.data() + start),
                                         static_cast<int32_t>(room));
        if (needed <= 0) {
            out.resize(start);
            return;
        }
        if (static_cast<size_t>(needed) <= room) {
            out.resize(start + static_cast<size_t>(needed) - 1); // drop the terminating zero
            return;
        }
        room = static_cast<size_t>(needed);
    }
}

std::string SortKey(std::u16string_view text, bool ignoreCase) {
    std::string key;
    AppendSortKey(text, ignoreCase, key);
    return key;
}

struct CodePage {
    std::mutex lock;
    std::string name = "windows-1252";
    std::atomic<unsigned> generation{0}; // counts the changes of name
};

CodePage& DeviceCodePage() {
    static CodePage page;
    return page;
}

std::u16string Substitute(std::u16string_view format, char16_t directive,
                          std::u16string_view value) {
    std::u16string out;
    out.reserve(format.size() + value.size());
    bool done = false;
    for (size_t i = 0; i < format.size(); ++i) {
        if (format[i] == u'%' && i + 1 < format.size()) {
            char16_t next = format[i + 1];
            if (next == u'%') {
                out += u'%';
                ++i;
                continue;
            }
            if (next == directive && !done) {
                out += value;
                done = true;
                ++i;
                continue;
            }
        }
        out += format[i];
    }
    return out;
}

} // namespace

namespace {

// File names and tag texts are mostly ASCII, which both forms spell alike:
// copied unit by unit, without ICU's conversion and its temporary string.
template <typename Unit> bool IsAscii(std::basic_string_view<Unit> text) {
    return std::all_of(text.begin(), text.end(), [](Unit c) {
        return static_cast<std::uint32_t>(static_cast<std::make_unsigned_t<Unit>>(c)) < 0x80;
    });
}

} // namespace

std::string ToUtf8(std::u16string_view text) {
    if (IsAscii(text))
        return std::string(text.begin(), text.end());
    std::string out;
    icu::UnicodeString(false, AsUChar(text), Length(text)).toUTF8String(out);
    return out;
}

std::u16string FromUtf8(std::string_view text) {
    if (IsAscii(text))
        return std::u16string(text.begin(), text.end());
    icu::UnicodeString u = icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
    return std::u16string(reinterpret_cast<const char16_t*>(u.getBuffer()),
                          static_cast<size_t>(u.length()));
}

namespace {

// Whether a single-byte converter turns every byte from 0x01 to 0x7F into
// that same character, as windows-1252 and ISO-8859-1 do (and a stateful or
// multi-byte code page may not).
bool KeepsAscii(UConverter* converter) {
    if (ucnv_getMaxCharSize(converter) != 1)
        return false;
    char ascii[0x7F];
    for (int i = 0; i < 0x7F; ++i)
        ascii[i] = static_cast<char>(i + 1);
    UChar out[0x80];
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = ucnv_toUChars(converter, out, 0x80, ascii, 0x7F, &status);
    if (U_FAILURE(status) || length != 0x7F)
        return false;
    for (int i = 0; i < 0x7F; ++i) {
        if (out[i] != static_cast<UChar>(i + 1))
            return false;
    }
    return true;
}

} // namespace

std::u16string DecodeSingleByte(std::string_view bytes) {
    bytes = bytes.substr(0, bytes.find('\0'));
    if (bytes.empty())
        return {};
    // Opening a converter by name costs more than converting a tag field, and
    // the tag readers convert several per file: each thread keeps the one it
    // opened last, until the code page changes. Converters are not shared
    // between threads.
    struct CachedConverter {
        unsigned generation = 0;
        UConverter* converter = nullptr;
        bool asciiAsIs = false; // bytes below 0x80 are those characters
        ~CachedConverter() {
            if (converter)
                ucnv_close(converter);
        }
    };
    thread_local CachedConverter cached;
    CodePage& page = DeviceCodePage();
    if (cached.converter == nullptr ||
        cached.generation != page.generation.load(std::memory_order_acquire)) {
        std::string name;
        {
            std::lock_guard guard(page.lock);
            name = page.name;
            cached.generation = page.generation.load(std::memory_order_relaxed);
        }
        if (cached.converter)
            ucnv_close(cached.converter);
        UErrorCode status = U_ZERO_ERROR;
        cached.converter = ucnv_open(name.c_str(), &status);
        if (U_FAILURE(status))
            cached.converter = nullptr;
        cached.asciiAsIs = cached.converter && KeepsAscii(cached.converter);
    }
    if (cached.converter == nullptr)
        return {};
    // Most tag texts are plain ASCII: widened as they are when the code page
    // is known to map those bytes to themselves.
    if (cached.asciiAsIs && std::all_of(bytes.begin(), bytes.end(), [](char c) {
            return static_cast<unsigned char>(c) < 0x80;
        }))
        return std::u16string(bytes.begin(), bytes.end());
    std::u16string out(bytes.size() * 2, u'\0');
    for (;;) {
        UErrorCode status = U_ZERO_ERROR;
        int32_t length = ucnv_toUChars(cached.converter, reinterpret_cast<UChar*>(out.data()),
                                       static_cast<int32_t>(out.size()), bytes.data(),
                                       static_cast<int32_t>(bytes.size()), &status);
        if (status == U_BUFFER_OVERFLOW_ERROR) {
            out.resize(static_cast<size_t>(length));
            continue;
        }
        out.resize(U_SUCCESS(status) ? static_cast<size_t>(length) : 0);
        return out;
    }
}

std::u16string DecodeSingleByte(std::span<const std::byte> bytes) {
    return DecodeSingleByte(
        std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

bool SetDeviceCodePage(std::string_view icuConverterName) {
    std::string name(icuConverterName);
    UErrorCode status = U_ZERO_ERROR;
    UConverter* conv = ucnv_open(name.c_str(), &status);
    if (U_FAILURE(status) || conv == nullptr)
        return false;
    ucnv_close(conv);
    CodePage& page = DeviceCodePage();
    std::lock_guard guard(page.lock);
    page.name = std::move(name);
    page.generation.fetch_add(1, std::memory_order_release);
    return true;
}

int Compare(std::u16string_view a, std::u16string_view b, bool ignoreCase) {
    UErrorCode status = U_ZERO_ERROR;
    return Sign(Collators::Get(ignoreCase).compare(AsUChar(a), Length(a), AsUChar(b), Length(b),
                                                   status));
}

int CompareText(std::u16string_view a, std::u16string_view b) {
    return Compare(a, b, false);
}

int CompareTextIgnoreCase(std::u16string_view a, std::u16string_view b) {
    return Compare(a, b, true);
}

std::string TextSortKey(std::u16string_view text) {
    return SortKey(text, false);
}

std::string TextSortKeyIgnoreCase(std::u16string_view text) {
    return SortKey(text, true);
}

void AppendTextSortKey(std::u16string_view text, bool ignoreCase, std::string& out) {
    AppendSortKey(text, ignoreCase, out);
}

bool EqualsIgnoreCase(std::u16string_view a, std::u16string_view b) {
    UErrorCode status = U_ZERO_ERROR;
    return u_strCaseCompare(AsUChar(a), Length(a), AsUChar(b), Length(b), U_FOLD_CASE_DEFAULT,
                            &status) == 0;
}

bool StartsWithIgnoreCase(std::u16string_view text, std::u16string_view prefix) {
    return text.size() >= prefix.size() && EqualsIgnoreCase(text.substr(0, prefix.size()), prefix);
}

std::u16string FoldCase(std::u16string_view text) {
    icu::UnicodeString u(false, AsUChar(text), Length(text));
    u.foldCase(U_FOLD_CASE_DEFAULT);
    return std::u16string(reinterpret_cast<const char16_t*>(u.getBuffer()),
                          static_cast<size_t>(u.length()));
}

std::u16string FormatText(std::u16string_view format, long long number) {
    std::string digits = std::to_string(number);
    return Substitute(format, u'd', std::u16string(digits.begin(), digits.end()));
}

std::u16string FormatText(std::u16string_view format, std::u16string_view text) {
    return Substitute(format, u's', text);
}

} // namespace zelvor
