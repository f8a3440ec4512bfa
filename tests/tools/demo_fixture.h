#pragma once
// The demo device the tests look at, made once per test program by the real
// zelvor-demo (it runs ffmpeg, so it is the slow part): root "a" is made
// fresh, root "b" over a stale device root with --force. Both must come out
// byte for byte the same.

#include "platform/device.h"
#include "tests/support/test_device.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zelvor::testing {

struct ToolRun {
    int exitStatus = -1;
    std::string output; // standard output and error together
};

// Runs zelvor-demo with the arguments; with path set, under that $PATH.
ToolRun RunDemoTool(const std::vector<std::string>& args,
                    const std::optional<std::string>& path = std::nullopt);

struct ManifestRow {
    std::u16string path;
    std::string type;
    std::string tags;
    std::u16string title, artist, album, genre, year;
    long long track = 0;
    long long seconds = 0;
    bool hidden = false;
    std::string excluded; // empty for null
};

struct DemoDevice {
    TempDir dir;
    std::filesystem::path rootA, rootB;
    ToolRun runA, runB;
    std::unique_ptr<Device> device; // opened on root a
    std::vector<ManifestRow> manifest;
    std::string manifestError; // why the manifest could not be read, if it could not
};

// Made on first use; ends the program when the tool cannot be run at all.
DemoDevice& Demo();

// The base of the cases that look at the demo device: it was made and its
// manifest read; the device is current for the case.
class DemoTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(Demo().runA.exitStatus, 0) << Demo().runA.output;
        ASSERT_EQ(Demo().manifestError, "");
        ASSERT_FALSE(Demo().manifest.empty());
        m_scope = std::make_unique<ScopedCurrentDevice>(Dev());
    }
    Device& Dev() { return *Demo().device; }
    DeviceFileSystem& Fs() { return Demo().device->FileSystem(); }
    const std::vector<ManifestRow>& Rows() { return Demo().manifest; }
    std::vector<std::byte> Read(std::u16string_view path) {
        return Fs().ReadWholeFile(path).value_or(std::vector<std::byte>{});
    }

private:
    std::unique_ptr<ScopedCurrentDevice> m_scope;
};

} // namespace zelvor::testing
