#include "tools/zelvor_lib/command_line.h"

#include <charconv>

#include "platform/text.h"

namespace zelvor {

CommandLine::CommandLine(const std::vector<std::string>& args,
                         const std::set<std::string>& valueOptions,
                         const std::set<std::string>& flagOptions) {
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (!arg.starts_with("--") || arg == "--") {
            m_positional.push_back(arg);
            continue;
        }
        if (flagOptions.count(arg)) {
            m_values[arg] = "";
        } else if (valueOptions.count(arg)) {
            if (i + 1 >= args.size()) {
                m_error = arg + " needs a value";
                return;
            }
            m_values[arg] = args[++i];
        } else {
            m_error = "unknown option " + arg;
            return;
        }
    }
}

std::optional<std::string> CommandLine::Value(const std::string& option) const {
    auto it = m_values.find(option);
    if (it == m_values.end())
        return std::nullopt;
    return it->second;
}

std::optional<long long> CommandLine::Number(const std::string& option) {
    auto text = Value(option);
    if (!text)
        return std::nullopt;
    long long value = 0;
    auto [end, ec] = std::from_chars(text->data(), text->data() + text->size(), value);
    if (ec != std::errc() || end != text->data() + text->size()) {
        m_error = option + " takes a whole number, not '" + *text + "'";
        return std::nullopt;
    }
    return value;
}

const std::set<std::string>& CommandLine::DeviceOptions() {
    static const std::set<std::string> options{"--root", "--card", "--flash", "--program-dir"};
    return options;
}

std::unique_ptr<Device> CommandLine::OpenDevice(std::string* error) const {
    DeviceConfig config;
    config.root = Value("--root").value_or(DefaultDeviceRoot().string());
    if (auto card = Value("--card"))
        config.card = *card;
    if (auto flash = Value("--flash"))
        config.flash = *flash;
    if (auto dir = Value("--program-dir"))
        config.programDirectory = DevicePathArgument(*dir);
    auto device = Device::Open(config, error);
    if (device)
        SetCurrentDevice(device.get());
    return device;
}

std::u16string DevicePathArgument(const std::string& arg) {
    std::u16string path = FromUtf8(arg);
    for (char16_t& c : path) {
        if (c == u'/')
            c = u'\\';
    }
    return path;
}

} // namespace zelvor
