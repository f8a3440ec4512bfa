#pragma once
// Argument handling shared by the zelvor-lib commands: options of the form
// "--name value" or "--flag", everything else positional, and the device
// options every command understands (--root, --card, --flash, --program-dir).

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/device.h"

namespace zelvor {

class CommandLine {
public:
    // valueOptions take a value ("--lang 3"); flagOptions do not ("--raw").
    // Unknown options and missing values are errors (Error() tells which).
    CommandLine(const std::vector<std::string>& args, const std::set<std::string>& valueOptions,
                const std::set<std::string>& flagOptions);

    bool Ok() const { return m_error.empty(); }
    const std::string& Error() const { return m_error; }
    bool Has(const std::string& option) const { return m_values.count(option) > 0; }
    std::optional<std::string> Value(const std::string& option) const;
    // A whole number option; nullopt when absent, an error when malformed.
    std::optional<long long> Number(const std::string& option);
    const std::vector<std::string>& Positional() const { return m_positional; }

    // Opens the device named by --root (or the default root) with the
    // --card/--flash bindings and --program-dir, and makes it current.
    std::unique_ptr<Device> OpenDevice(std::string* error) const;

    // The device options, to add to a command's own valueOptions.
    static const std::set<std::string>& DeviceOptions();

private:
    std::map<std::string, std::string> m_values;
    std::vector<std::string> m_positional;
    std::string m_error;
};

// A device path from a command-line argument: UTF-8, with "/" accepted for "\".
std::u16string DevicePathArgument(const std::string& arg);

} // namespace zelvor
