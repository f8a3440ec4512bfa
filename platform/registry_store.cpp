#include "platform/registry_store.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>

#include "platform/debug_print.h"
#include "platform/durable_file.h"
#include "platform/text.h"

namespace zelvor {
namespace fs = std::filesystem;
namespace {

constexpr std::u16string_view kHeader5 = u"Windows Registry Editor Version 5.00";
constexpr std::u16string_view kHeader4 = u"REGEDIT4";

int Index(RegistryRoot root) {
    return root == RegistryRoot::LocalMachine ? 0 : 1;
}

std::u16string TrimKey(std::u16string_view key) {
    while (!key.empty() && key.front() == u'\\')
        key.remove_prefix(1);
    while (!key.empty() && key.back() == u'\\')
        key.remove_suffix(1);
    return std::u16string(key);
}

// Reads the hive file's bytes as text: UTF-16LE with a byte-order mark (what
// we write), or UTF-8 (what a person may write by hand).
std::u16string DecodeHiveBytes(std::span<const std::byte> bytes) {
    if (bytes.size() >= 2 && bytes[0] == std::byte{0xFF} && bytes[1] == std::byte{0xFE}) {
        std::u16string text;
        text.reserve(bytes.size() / 2);
        for (size_t i = 2; i + 1 < bytes.size(); i += 2)
            text.push_back(static_cast<char16_t>(std::to_integer<unsigned>(bytes[i]) |
                                                 (std::to_integer<unsigned>(bytes[i + 1]) << 8)));
        return text;
    }
    std::string_view view(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (view.starts_with("\xEF\xBB\xBF"))
        view.remove_prefix(3);
    return FromUtf8(view);
}

std::vector<std::u16string> SplitLines(std::u16string_view text) {
    std::vector<std::u16string> lines;
    std::u16string current;
    for (char16_t c : text) {
        if (c == u'\n') {
            lines.push_back(std::move(current));
            current.clear();
        } else if (c != u'\r') {
            current.push_back(c);
        }
    }
    if (!current.empty())
        lines.push_back(std::move(current));
    return lines;
}

// Parses a quoted .reg string starting at text[pos] == '"'. On success pos is
// left behind the closing quote.
std::optional<std::u16string> ParseQuoted(std::u16string_view text, size_t& pos) {
    if (pos >= text.size() || text[pos] != u'"')
        return std::nullopt;
    std::u16string out;
    for (size_t i = pos + 1; i < text.size(); ++i) {
        char16_t c = text[i];
        if (c == u'\\' && i + 1 < text.size()) {
            out.push_back(text[++i]);
        } else if (c == u'"') {
            pos = i + 1;
            return out;
        } else {
            out.push_back(c);
        }
    }
    return std::nullopt;
}

std::u16string Quote(std::u16string_view text) {
    std::u16string out = u"\"";
    for (char16_t c : text) {
        if (c == u'\\' || c == u'"')
            out.push_back(u'\\');
        out.push_back(c);
    }
    out.push_back(u'"');
    return out;
}

// A line break inside a quoted text or a name would end its line in the
// file, and the next load would find the hive damaged and lose every
// setting in it.
bool HasLineBreak(std::u16string_view text) {
    return text.find_first_of(u"\r\n") != std::u16string_view::npos;
}

// A text with line breaks is written as the export format writes any
// string it cannot quote: hex(1), its UTF-16LE bytes and a final NUL.
std::u16string HexString(std::u16string_view text) {
    std::u16string out = u"hex(1):";
    char buffer[8];
    for (size_t i = 0; i <= text.size(); ++i) {
        const unsigned c = i < text.size() ? text[i] : 0;
        std::snprintf(buffer, sizeof buffer, "%02x,%02x", c & 0xFF, c >> 8);
        if (i > 0)
            out += u',';
        out.append(buffer, buffer + 5);
    }
    return out;
}

std::optional<std::uint32_t> ParseHex32(std::u16string_view digits) {
    if (digits.empty() || digits.size() > 8)
        return std::nullopt;
    std::uint32_t value = 0;
    for (char16_t c : digits) {
        int d = (c >= u'0' && c <= u'9')   ? c - u'0'
                : (c >= u'a' && c <= u'f') ? c - u'a' + 10
                : (c >= u'A' && c <= u'F') ? c - u'A' + 10
                                           : -1;
        if (d < 0)
            return std::nullopt;
        value = (value << 4) | static_cast<std::uint32_t>(d);
    }
    return value;
}

// The text of a hex(1) value; nullopt when a byte is not two hex digits.
std::optional<std::u16string> ParseHexString(std::u16string_view bytes) {
    std::vector<std::uint8_t> octets;
    while (!bytes.empty()) {
        const size_t comma = std::min(bytes.find(u','), bytes.size());
        std::u16string_view digits = bytes.substr(0, comma);
        digits.remove_prefix(std::min(digits.find_first_not_of(u' '), digits.size()));
        const auto value = digits.size() == 2 ? ParseHex32(digits) : std::nullopt;
        if (!value)
            return std::nullopt;
        octets.push_back(static_cast<std::uint8_t>(*value));
        bytes.remove_prefix(std::min(comma + 1, bytes.size()));
    }
    std::u16string out;
    for (size_t i = 0; i + 1 < octets.size(); i += 2)
        out.push_back(static_cast<char16_t>(octets[i] | (octets[i + 1] << 8)));
    if (!out.empty() && out.back() == u'\0')
        out.pop_back();
    return out;
}

std::u16string Hex32(std::uint32_t value) {
    char buffer[9];
    std::snprintf(buffer, sizeof buffer, "%08x", value);
    return std::u16string(buffer, buffer + 8);
}

} // namespace

RegistryStore::RegistryStore(fs::path hiveFolder) : m_folder(std::move(hiveFolder)) {}

RegistryStore::~RegistryStore() {
    for (RegistryRoot root : {RegistryRoot::LocalMachine, RegistryRoot::CurrentUser}) {
        if (m_hives[Index(root)].dirty)
            Flush(root);
    }
}

std::u16string_view RegistryStore::RootName(RegistryRoot root) {
    return root == RegistryRoot::LocalMachine ? u"HKEY_LOCAL_MACHINE" : u"HKEY_CURRENT_USER";
}

fs::path RegistryStore::HivePath(RegistryRoot root) const {
    return m_folder / (ToUtf8(RootName(root)) + ".reg");
}

RegistryStore::Hive& RegistryStore::LoadedHive(RegistryRoot root) const {
    Hive& hive = m_hives[Index(root)];
    if (hive.loaded)
        return hive;
    hive.loaded = true;
    const fs::path path = HivePath(root);
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return hive; // no hive yet: an empty registry
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (!ParseHive(root, DecodeHiveBytes(std::as_bytes(std::span(bytes))), hive)) {
        hive.keys.clear();
        SetAside(path);
    }
    return hive;
}

bool RegistryStore::ReadHiveImage(RegistryRoot root, std::span<const std::byte> bytes) {
    std::lock_guard guard(m_lock);
    Hive& hive = m_hives[Index(root)];
    hive = Hive{};
    hive.loaded = true;
    if (ParseHive(root, DecodeHiveBytes(bytes), hive))
        return true;
    hive.keys.clear();
    return false;
}

std::vector<std::byte> RegistryStore::HiveImage(RegistryRoot root) const {
    std::lock_guard guard(m_lock);
    std::u16string text = Serialize(root, LoadedHive(root));
    std::vector<std::byte> bytes;
    bytes.reserve(2 + text.size() * 2);
    bytes.push_back(std::byte{0xFF});
    bytes.push_back(std::byte{0xFE});
    for (char16_t c : text) {
        bytes.push_back(static_cast<std::byte>(c & 0xFF));
        bytes.push_back(static_cast<std::byte>(c >> 8));
    }
    return bytes;
}

void RegistryStore::SetAside(const fs::path& path) const {
    std::error_code ec;
    fs::path aside;
    for (int n = 1;; ++n) {
        aside = path;
        aside += ".damaged-" + std::to_string(n);
        if (!fs::exists(aside, ec))
            break;
    }
    fs::rename(path, aside, ec);
    DebugPrint(u"registry: damaged hive " + FromUtf8(path.string()) + u" set aside as " +
               FromUtf8(aside.filename().string()) + u"; reading it as empty");
}

namespace {

// The line at i, with the lines it goes on over (each but the last ending in
// a backslash) joined on; i is left at the last line taken.
std::u16string JoinContinuedLine(const std::vector<std::u16string>& lines, size_t& i) {
    std::u16string line = lines[i];
    while (!line.empty() && line.back() == u'\\' && i + 1 < lines.size()) {
        line.pop_back();
        std::u16string_view next = lines[++i];
        next.remove_prefix(std::min(next.find_first_not_of(u' '), next.size()));
        line += next;
    }
    return line;
}

} // namespace

bool RegistryStore::ParseHive(RegistryRoot root, std::u16string_view text, Hive& hive) const {
    std::vector<std::u16string> lines = SplitLines(text);
    size_t i = 0;
    while (i < lines.size() && lines[i].empty())
        ++i;
    if (i == lines.size() || (lines[i] != kHeader5 && lines[i] != kHeader4))
        return false;
    const std::u16string rootPrefix = std::u16string(RootName(root));
    Key* current = nullptr;
    for (++i; i < lines.size(); ++i) {
        const std::u16string line = JoinContinuedLine(lines, i);
        if (line.empty() || line.front() == u';')
            continue;
        if (line.front() == u'[') {
            if (!ParseKeyLine(line, rootPrefix, hive, current))
                return false;
        } else if (!current || !ParseValueLine(line, *current)) {
            return false;
        }
    }
    return true;
}

// "[ROOT\\path]" makes path the current key, created when new; "[-...]" is a
// deletion entry, after which values belong to no key until the next one.
bool RegistryStore::ParseKeyLine(std::u16string_view line, std::u16string_view rootPrefix,
                                 Hive& hive, Key*& current) const {
    if (line.back() != u']' || line.size() < 2)
        return false;
    std::u16string_view name = line.substr(1, line.size() - 2);
    if (name.starts_with(u"-")) {
        current = nullptr;
        return true;
    }
    if (!StartsWithIgnoreCase(name, rootPrefix))
        return false;
    name.remove_prefix(rootPrefix.size());
    std::u16string path = TrimKey(name);
    current = FindKey(hive, path);
    if (!current) {
        hive.keys.push_back(Key{path, {}});
        current = &hive.keys.back();
    }
    return true;
}

// "name"=data or @=data; a later value of the same name replaces an earlier.
bool RegistryStore::ParseValueLine(std::u16string_view line, Key& key) {
    size_t pos = 0;
    std::u16string valueName;
    if (line.front() == u'@') {
        pos = 1;
    } else {
        auto quoted = ParseQuoted(line, pos);
        if (!quoted)
            return false;
        valueName = *quoted;
    }
    if (pos >= line.size() || line[pos] != u'=')
        return false;
    std::optional<Data> parsed = ParseValueData(line.substr(pos + 1));
    if (!parsed)
        return false;
    std::erase_if(key.values, [&](const Value& v) { return EqualsIgnoreCase(v.name, valueName); });
    key.values.push_back(Value{valueName, std::move(*parsed)});
    return true;
}

// A string in quotes, dword:XXXXXXXX, or a kind kept as written (hex..., -).
std::optional<RegistryStore::Data> RegistryStore::ParseValueData(std::u16string_view data) {
    if (data.starts_with(u"\"")) {
        size_t p = 0;
        auto quoted = ParseQuoted(data, p);
        if (!quoted || p != data.size())
            return std::nullopt;
        return Data{*quoted};
    }
    if (data.starts_with(u"dword:")) {
        auto value = ParseHex32(data.substr(6));
        if (!value)
            return std::nullopt;
        return Data{*value};
    }
    if (data.starts_with(u"hex(1):")) {
        if (auto text = ParseHexString(data.substr(7)))
            return Data{std::move(*text)};
    }
    // A value continued onto a line that never came keeps no backslash: it
    // would join the next line on when written back.
    while (data.ends_with(u'\\'))
        data.remove_suffix(1);
    if (data.starts_with(u"hex") || data == u"-")
        return Data{RawValue{std::u16string(data)}};
    return std::nullopt;
}

std::u16string RegistryStore::Serialize(RegistryRoot root, const Hive& hive) const {
    std::u16string out;
    out += kHeader5;
    out += u"\r\n";
    for (const Key& key : hive.keys) {
        out += u"\r\n[";
        out += RootName(root);
        if (!key.path.empty()) {
            out += u'\\';
            out += key.path;
        }
        out += u"]\r\n";
        for (const Value& value : key.values) {
            out += value.name.empty() ? std::u16string(u"@") : Quote(value.name);
            out += u'=';
            if (auto* dword = std::get_if<std::uint32_t>(&value.data))
                out += u"dword:" + Hex32(*dword);
            else if (auto* text = std::get_if<std::u16string>(&value.data))
                out += HasLineBreak(*text) ? HexString(*text) : Quote(*text);
            else
                out += std::get<RawValue>(value.data).text;
            out += u"\r\n";
        }
    }
    return out;
}

RegistryStore::Key* RegistryStore::FindKey(Hive& hive, std::u16string_view key) const {
    std::u16string trimmed = TrimKey(key);
    for (Key& k : hive.keys) {
        if (EqualsIgnoreCase(k.path, trimmed))
            return &k;
    }
    return nullptr;
}

bool RegistryStore::KeyExists(RegistryRoot root, std::u16string_view key) const {
    std::lock_guard guard(m_lock);
    return FindKey(LoadedHive(root), key) != nullptr;
}

RegistryStore::Key& RegistryStore::KeyForWrite(RegistryRoot root, std::u16string_view key) {
    Hive& hive = LoadedHive(root);
    if (Key* existing = FindKey(hive, key))
        return *existing;
    // Creating a key creates its parents too, as RegCreateKeyEx does.
    std::u16string path = TrimKey(key);
    for (size_t slash = path.find(u'\\'); slash != std::u16string::npos;
         slash = path.find(u'\\', slash + 1)) {
        if (!FindKey(hive, path.substr(0, slash)))
            hive.keys.push_back(Key{path.substr(0, slash), {}});
    }
    hive.keys.push_back(Key{path, {}});
    hive.dirty = true;
    return hive.keys.back();
}

bool RegistryStore::CreateKey(RegistryRoot root, std::u16string_view key) {
    if (HasLineBreak(key))
        return false;
    std::lock_guard guard(m_lock);
    KeyForWrite(root, key);
    return true;
}

const RegistryStore::Value* RegistryStore::FindValue(RegistryRoot root, std::u16string_view key,
                                                     std::u16string_view name) const {
    Key* k = FindKey(LoadedHive(root), key);
    if (!k)
        return nullptr;
    for (const Value& v : k->values) {
        if (EqualsIgnoreCase(v.name, name))
            return &v;
    }
    return nullptr;
}

std::optional<std::uint32_t> RegistryStore::QueryDword(RegistryRoot root, std::u16string_view key,
                                                       std::u16string_view name) const {
    std::lock_guard guard(m_lock);
    const Value* v = FindValue(root, key, name);
    if (!v)
        return std::nullopt;
    if (auto* dword = std::get_if<std::uint32_t>(&v->data))
        return *dword;
    return std::nullopt;
}

std::optional<std::u16string> RegistryStore::QueryString(RegistryRoot root,
                                                         std::u16string_view key,
                                                         std::u16string_view name) const {
    std::lock_guard guard(m_lock);
    const Value* v = FindValue(root, key, name);
    if (!v)
        return std::nullopt;
    if (auto* text = std::get_if<std::u16string>(&v->data))
        return *text;
    return std::nullopt;
}

void RegistryStore::SetValue(RegistryRoot root, std::u16string_view key, std::u16string_view name,
                             Data data) {
    if (HasLineBreak(key) || HasLineBreak(name)) {
        DebugPrint(u"registry: a key or value name with a line break is not stored");
        return;
    }
    std::lock_guard guard(m_lock);
    Key& k = KeyForWrite(root, key);
    m_hives[Index(root)].dirty = true;
    for (Value& v : k.values) {
        if (EqualsIgnoreCase(v.name, name)) {
            v.data = std::move(data);
            return;
        }
    }
    k.values.push_back(Value{std::u16string(name), std::move(data)});
}

void RegistryStore::SetDword(RegistryRoot root, std::u16string_view key, std::u16string_view name,
                             std::uint32_t value) {
    SetValue(root, key, name, value);
}

void RegistryStore::SetString(RegistryRoot root, std::u16string_view key,
                              std::u16string_view name, std::u16string_view value) {
    SetValue(root, key, name, std::u16string(value));
}

bool RegistryStore::DeleteValue(RegistryRoot root, std::u16string_view key,
                                std::u16string_view name) {
    std::lock_guard guard(m_lock);
    Key* k = FindKey(LoadedHive(root), key);
    if (!k)
        return false;
    size_t removed = std::erase_if(k->values, [&](const Value& v) { return EqualsIgnoreCase(v.name, name); });
    if (removed)
        m_hives[Index(root)].dirty = true;
    return removed > 0;
}

bool RegistryStore::Flush(RegistryRoot root) {
    std::lock_guard guard(m_lock);
    Hive& hive = LoadedHive(root);
    const std::vector<std::byte> bytes = HiveImage(root);
    std::error_code ec;
    fs::create_directories(m_folder, ec);
    if (!WriteFileDurably(HivePath(root), bytes))
        return false;
    hive.dirty = false;
    return true;
}

} // namespace zelvor
