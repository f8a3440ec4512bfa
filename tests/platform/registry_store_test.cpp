#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include <sys/wait.h>
#include <unistd.h>

#include "platform/debug_print.h"
#include "platform/registry_store.h"
#include "tests/support/test_device.h"

namespace zelvor {
namespace {
namespace fs = std::filesystem;
using testing::TempDir;

constexpr auto HKCU = RegistryRoot::CurrentUser;
constexpr auto HKLM = RegistryRoot::LocalMachine;

void WriteHive(const fs::path& path, const std::string& bytes) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

TEST(RegistryValues, KeysAndNamesIgnoreCaseAndTypesAreKept) {
    TempDir dir;
    RegistryStore reg(dir.Path());
    EXPECT_FALSE(reg.KeyExists(HKLM, u"OMBREL"));
    reg.SetDword(HKLM, u"OMBREL", u"Language", 3);
    reg.SetString(HKLM, u"System\\StorageManager\\Profiles\\SDMMC", u"Folder", u"SD \"Card\"\\x");
    EXPECT_TRUE(reg.KeyExists(HKLM, u"ombrel"));
    EXPECT_TRUE(reg.KeyExists(HKLM, u"System\\StorageManager")); // parents are created
    EXPECT_EQ(reg.QueryDword(HKLM, u"OMBREL", u"language"), 3u);
    EXPECT_FALSE(reg.QueryString(HKLM, u"OMBREL", u"Language")); // wrong type
    EXPECT_FALSE(reg.QueryDword(HKCU, u"OMBREL", u"Language"));  // other hive
    reg.SetDword(HKLM, u"ombrel", u"LANGUAGE", 0xFFFFFFFF);
    EXPECT_EQ(reg.QueryDword(HKLM, u"OMBREL", u"Language"), 0xFFFFFFFFu);
    reg.SetDword(HKLM, u"\\Trail\\", u"V", 5); // backslashes around a key are dropped
    EXPECT_EQ(reg.QueryDword(HKLM, u"Trail", u"V"), 5u);
    ASSERT_TRUE(reg.Flush(HKLM));

    RegistryStore again(dir.Path());
    EXPECT_EQ(again.QueryDword(HKLM, u"OMBREL", u"Language"), 0xFFFFFFFFu);
    EXPECT_EQ(again.QueryString(HKLM, u"System\\StorageManager\\Profiles\\SDMMC", u"Folder"),
              u"SD \"Card\"\\x");
}

// A line break written raw would damage the hive, and the next start would
// lose every setting in it.
TEST(RegistryFile, LineBreaksNeverDamageTheHive) {
    TempDir dir;
    {
        RegistryStore reg(dir.Path());
        reg.SetString(HKCU, u"K", u"Path", u"a\r\nb\n\x00e9");
        reg.SetDword(HKCU, u"K", u"Bad\nName", 1);
        EXPECT_FALSE(reg.CreateKey(HKCU, u"K\\x\ry"));
        ASSERT_TRUE(reg.Flush(HKCU));
    }
    RegistryStore again(dir.Path());
    EXPECT_EQ(again.QueryString(HKCU, u"K", u"Path"), u"a\r\nb\n\x00e9");
    EXPECT_FALSE(again.QueryDword(HKCU, u"K", u"Bad\nName"));
    EXPECT_FALSE(again.KeyExists(HKCU, u"K\\x\ry"));
}

// Changes not flushed, a deletion among them, are written when the store goes.
TEST(RegistryValues, UnflushedChangesAreSavedWhenTheStoreGoes) {
    TempDir dir;
    RegistryStore(dir.Path()).SetDword(HKLM, u"K", u"V", 1);
    EXPECT_EQ(RegistryStore(dir.Path()).QueryDword(HKLM, u"K", u"V"), 1u);
    EXPECT_TRUE(RegistryStore(dir.Path()).DeleteValue(HKLM, u"K", u"V"));
    EXPECT_FALSE(RegistryStore(dir.Path()).QueryDword(HKLM, u"K", u"V"));
}

TEST(RegistryFile, IsAWindowsRegExportAndReadsHandWrittenUtf8) {
    TempDir dir;
    {
        RegistryStore reg(dir.Path());
        reg.SetDword(HKCU, u"Software\\Quorrel Systems Inc.\\Zelvor\\MainSection", u"Random", 1);
        reg.Flush(HKCU);
    }
    std::ifstream in(dir.Path() / "HKEY_CURRENT_USER.reg", std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE");
    EXPECT_NE(bytes.find(testing::Utf16Le(u"Windows Registry Editor Version 5.00\r\n")),
              std::string::npos);
    EXPECT_NE(bytes.find(testing::Utf16Le(u"\"Random\"=dword:00000001\r\n")), std::string::npos);

    WriteHive(dir.Path() / "HKEY_LOCAL_MACHINE.reg",
              "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\OMBREL]\n\"GUI Color\"=dword:0000000A\n"
              "\"Bin\"=hex:01,02,\\\n  03\n; a comment\n\"Tail\"=hex:05,\\\n");
    RegistryStore reg(dir.Path());
    EXPECT_EQ(reg.QueryDword(HKLM, u"OMBREL", u"GUI Color"), 10u);
    reg.SetDword(HKLM, u"OMBREL", u"Language", 1);
    ASSERT_TRUE(reg.Flush(HKLM));
    RegistryStore reread(dir.Path());
    EXPECT_EQ(reread.QueryDword(HKLM, u"OMBREL", u"GUI Color"), 10u);
    EXPECT_EQ(reread.QueryDword(HKLM, u"OMBREL", u"Language"), 1u);
}

TEST(RegistryDurability, AFlushedValueSurvivesAProcessKilledRightAfter) {
    TempDir dir;
    pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        RegistryStore reg(dir.Path());
        reg.SetDword(HKCU, u"Software\\Quorrel Systems Inc.\\Zelvor\\MP3", u"Volume", 7);
        reg.Flush(HKCU);
        reg.SetDword(HKCU, u"Software\\Quorrel Systems Inc.\\Zelvor\\MP3", u"Unflushed", 1);
        ::raise(SIGKILL); // no destructor, no clean exit
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    RegistryStore reg(dir.Path());
    EXPECT_EQ(reg.QueryDword(HKCU, u"Software\\Quorrel Systems Inc.\\Zelvor\\MP3", u"Volume"), 7u);
    EXPECT_FALSE(reg.QueryDword(HKCU, u"Software\\Quorrel Systems Inc.\\Zelvor\\MP3", u"Unflushed"));
}

class DamagedHive : public ::testing::TestWithParam<std::string> {};

TEST_P(DamagedHive, IsReportedSetAsideAndReadAsEmpty) {
    TempDir dir;
    const fs::path hive = dir.Path() / "HKEY_LOCAL_MACHINE.reg";
    WriteHive(hive, GetParam());
    // An earlier damaged copy is never overwritten.
    WriteHive(dir.Path() / "HKEY_LOCAL_MACHINE.reg.damaged-1", "older");
    std::vector<std::u16string> lines;
    auto previous = SetDebugSink([&](std::u16string_view line) { lines.emplace_back(line); });
    {
        RegistryStore reg(dir.Path());
        EXPECT_FALSE(reg.KeyExists(HKLM, u"OMBREL"));
        EXPECT_FALSE(reg.QueryDword(HKLM, u"OMBREL", u"Language"));
    }
    SetDebugSink(previous);
    EXPECT_EQ(lines.size(), 1u);
    EXPECT_FALSE(fs::exists(hive));
    std::ifstream older(dir.Path() / "HKEY_LOCAL_MACHINE.reg.damaged-1");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(older), {}), "older");
    std::ifstream aside(dir.Path() / "HKEY_LOCAL_MACHINE.reg.damaged-2", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(aside), {}), GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Hives, DamagedHive,
    ::testing::Values(std::string(""), std::string("garbage\n"),
                      std::string("REGEDIT4\n[HKEY_LOCAL_MACHINE\\OMBREL]\n\"Language\"=dword:xyz\n"),
                      std::string("REGEDIT4\n\"Orphan\"=dword:1\n"),
                      std::string("REGEDIT4\n[HKEY_CURRENT_USER\\Wrong hive]\n"),
                      std::string("REGEDIT4\n[HKEY_LOCAL_MACHINE\\A]\n[HKEY_LOCAL_MACHINE\\OMBREL\n"),
                      std::string("REGEDIT4\n[HKEY_LOCAL_MACHINE\\OMBREL]\n\"Unterminated=\"x\n"),
                      std::string("REGEDIT4\n[HKEY_LOCAL_MACHINE\\OMBREL]\n\"Name\"=\"x\"junk\n"),
                      std::string("REGEDIT4\n[HKEY_LOCAL_MACHINE\\OMBREL]\n=dword:1\n"),
                      std::string("\xFF\xFE\x00", 3)));

} // namespace
} // namespace zelvor
