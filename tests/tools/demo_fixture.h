#pragma once
// The demo device the tests look at, made once per test program by the real
// zelvor-demo (it runs ffmpeg, so it is the slow part): root "a" is made
// fresh, root "b" over a stale device root with --force. Both must come out
// byte for byte the same.

#include "platform/device.h"
#include "tests/support/test_device.h"
#include "tools/zelvor_demo/demo_catalog.h"

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

struct DemoDevice {
    TempDir dir;
    std::filesystem::path rootA, rootB;
    ToolRun runA, runB;
    std::unique_ptr<Device> device; // opened on root a
};

// Made on first use; ends the program when the tool cannot be run at all.
DemoDevice& Demo();

// The base of the cases that look at the demo device: it was made; the
// device is current for the case.
class DemoTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(Demo().runA.exitStatus, 0) << Demo().runA.output;
        m_scope = std::make_unique<ScopedCurrentDevice>(*Demo().device);
    }
    // The files the maker was asked to write.
    static const std::vector<demo::DemoFile>& Files() {
        static const std::vector<demo::DemoFile> files = demo::DemoCollection();
        return files;
    }
    std::vector<std::byte> Read(std::u16string_view path) {
        return Demo().device->FileSystem().ReadWholeFile(path).value_or(std::vector<std::byte>{});
    }

private:
    std::unique_ptr<ScopedCurrentDevice> m_scope;
};

} // namespace zelvor::testing
