#pragma once
// The device's registry on a host: one hive per root key, kept as a Windows
// ".reg" export (UTF-16LE with byte-order mark, CRLF, "Windows Registry
// Editor Version 5.00") in a folder of the device root. Key and value names
// ignore case, as the device's registry does, and keep the case they were
// first written with.
//
// A hive is read on first use. Set* changes memory only; Flush writes the
// hive durably (new file, fsync, rename, fsync of the folder), so a flushed
// value survives a process killed right after. A hive that cannot be parsed
// is reported with one line on standard error, renamed aside (never
// overwritten) and read as empty.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zelvor {

enum class RegistryRoot { LocalMachine, CurrentUser };

class RegistryStore {
public:
    // hiveFolder holds HKEY_LOCAL_MACHINE.reg and HKEY_CURRENT_USER.reg; it is
    // created when the first hive is flushed.
    explicit RegistryStore(std::filesystem::path hiveFolder);
    // Flushes hives changed since their last flush: a clean exit keeps them.
    ~RegistryStore();
    RegistryStore(const RegistryStore&) = delete;
    RegistryStore& operator=(const RegistryStore&) = delete;

    bool KeyExists(RegistryRoot root, std::u16string_view key) const;
    bool CreateKey(RegistryRoot root, std::u16string_view key);

    // nullopt when the key or value is missing or of another type.
    std::optional<std::uint32_t> QueryDword(RegistryRoot root, std::u16string_view key,
                                            std::u16string_view name) const;
    std::optional<std::u16string> QueryString(RegistryRoot root, std::u16string_view key,
                                              std::u16string_view name) const;

    // Create the key when it is missing. The change is in memory until Flush.
    // A key or value name with a line break is refused (nothing changes): the
    // hive file could not hold it. Texts with line breaks are kept.
    void SetDword(RegistryRoot root, std::u16string_view key, std::u16string_view name,
                  std::uint32_t value);
    void SetString(RegistryRoot root, std::u16string_view key, std::u16string_view name,
                   std::u16string_view value);
    bool DeleteValue(RegistryRoot root, std::u16string_view key, std::u16string_view name);

    // RegFlushKey: writes the root's hive durably. True when it is on disk.
    bool Flush(RegistryRoot root);

    // A hive held in memory instead of its file, for tools and fuzzers: the
    // root's hive becomes what the bytes hold (empty and false when they
    // cannot be parsed; nothing is set aside), and the bytes Flush would
    // write for it.
    bool ReadHiveImage(RegistryRoot root, std::span<const std::byte> bytes);
    std::vector<std::byte> HiveImage(RegistryRoot root) const;

    std::filesystem::path HivePath(RegistryRoot root) const;
    static std::u16string_view RootName(RegistryRoot root);

private:
    // A value of a type we do not interpret (hex, multi-string ...) is kept
    // as its text so a round trip does not lose it.
    struct RawValue {
        std::u16string text;
    };
    using Data = std::variant<std::uint32_t, std::u16string, RawValue>;
    struct Value {
        std::u16string name;
        Data data;
    };
    struct Key {
        std::u16string path; // as first written, without the root's name
        std::vector<Value> values;
    };
    struct Hive {
        bool loaded = false;
        bool dirty = false;
        std::vector<Key> keys; // in the order they were created
    };

    Hive& LoadedHive(RegistryRoot root) const;
    Key* FindKey(Hive& hive, std::u16string_view key) const;
    Key& KeyForWrite(RegistryRoot root, std::u16string_view key);
    const Value* FindValue(RegistryRoot root, std::u16string_view key,
                           std::u16string_view name) const;
    void SetValue(RegistryRoot root, std::u16string_view key, std::u16string_view name, Data data);
    bool ParseHive(RegistryRoot root, std::u16string_view text, Hive& hive) const;
    bool ParseKeyLine(std::u16string_view line, std::u16string_view rootPrefix, Hive& hive,
                      Key*& current) const;
    static bool ParseValueLine(std::u16string_view line, Key& key);
    static std::optional<Data> ParseValueData(std::u16string_view data);
    std::u16string Serialize(RegistryRoot root, const Hive& hive) const;
    void SetAside(const std::filesystem::path& path) const;

    std::filesystem::path m_folder;
    mutable std::recursive_mutex m_lock;
    mutable Hive m_hives[2];
};

} // namespace zelvor
