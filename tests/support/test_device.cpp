#include "tests/support/test_device.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include <unistd.h>

namespace zelvor::testing {
namespace fs = std::filesystem;

TempDir::TempDir() {
    std::string pattern = (fs::temp_directory_path() / "zelvor-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("mkdtemp failed");
    m_path = pattern;
}

TempDir::~TempDir() {
    std::error_code ec;
    // Read-only folders made by a test must not stop the clean-up.
    for (auto it = fs::recursive_directory_iterator(m_path, ec); !ec && it != fs::end(it);
         it.increment(ec))
        fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ec);
    fs::remove_all(m_path, ec);
}

TestDevice::TestDevice(DeviceConfig config) {
    m_root = m_dir.Path() / "device";
    config.root = m_root;
    std::string error;
    m_device = Device::Open(config, &error);
    if (!m_device)
        throw std::runtime_error("cannot open test device: " + error);
    m_scope = std::make_unique<ScopedCurrentDevice>(*m_device);
}

fs::path TestDevice::Host(std::u16string_view devicePath) const {
    auto host = m_device->FileSystem().ToHostPath(devicePath);
    if (!host)
        throw std::runtime_error("device path refused");
    return *host;
}

void TestDevice::WriteFile(std::u16string_view devicePath, std::string_view bytes) {
    fs::path host = Host(devicePath);
    fs::create_directories(host.parent_path());
    std::ofstream out(host, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void TestDevice::WriteFile(std::u16string_view devicePath, const std::vector<std::byte>& bytes) {
    WriteFile(devicePath,
              std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

std::string TestDevice::ReadFile(std::u16string_view devicePath) const {
    std::ifstream in(Host(devicePath), std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

std::vector<std::byte> Bytes(std::string_view text) {
    std::vector<std::byte> out(text.size());
    for (size_t i = 0; i < text.size(); ++i)
        out[i] = static_cast<std::byte>(text[i]);
    return out;
}

std::string Utf16Le(std::u16string_view text, bool withBom) {
    std::string out;
    if (withBom)
        out += "\xFF\xFE";
    for (char16_t c : text) {
        out.push_back(static_cast<char>(c & 0xFF));
        out.push_back(static_cast<char>(c >> 8));
    }
    return out;
}

} // namespace zelvor::testing
