// The files the device shell would normally provide: the translations file,
// the registry values, the two sounds of "\Windows", the skins and the
// playlists.

#include "platform/text.h"
#include "playlists/playlist_file.h"
#include "tests/support/test_media.h"
#include "tests/tools/demo_fixture.h"
#include "tools/zelvor_demo/ombrel_file.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>

namespace zelvor::testing {
namespace {

using DemoShellFiles = DemoTest;

TEST_F(DemoShellFiles, OmbrelAndTheRegistryValuesAreWhatTheShellWouldLeave) {
    EXPECT_EQ(Read(JoinDevicePath(Dev().ProgramDirectory(), u"Ombrel.txt")), demo::BuildOmbrelText());
    RegistryStore& registry = Dev().Registry();
    EXPECT_EQ(registry.QueryDword(RegistryRoot::LocalMachine, u"OMBREL", u"Language"), 0u);
    EXPECT_EQ(registry.QueryDword(RegistryRoot::LocalMachine, u"OMBREL", u"GUI Color"), 0u);
    EXPECT_EQ(registry.QueryString(RegistryRoot::LocalMachine,
                                   u"System\\StorageManager\\Profiles\\SDMMC", u"Folder"),
              u"Storage Card");
}

TEST_F(DemoShellFiles, SoundsAreShortDistinctPcmChimes) {
    std::vector<std::int16_t> samples[2];
    int i = 0;
    for (const char* name : {"DeleteSong.wav", "MyFavorite.wav"}) {
        auto wave = ReadWav(Demo().rootA / "Windows" / name); // 16-bit PCM or nothing
        ASSERT_TRUE(wave) << name;
        EXPECT_GT(wave->Seconds(), 0.1) << name;
        EXPECT_LT(wave->Seconds(), 0.5) << name;
        samples[i++] = wave->samples;
    }
    EXPECT_NE(samples[0], samples[1]);
}

TEST_F(DemoShellFiles, SkinsThatExistAreCopiedAndListed) {
    std::set<std::u16string> programFiles;
    for (const auto& row : Rows()) {
        if (row.path.starts_with(Dev().ProgramDirectory() + u"\\")) {
            EXPECT_EQ(row.type + " " + row.excluded, "other not-music");
            programFiles.insert(std::u16string(DeviceNameOf(row.path)));
        }
    }
    EXPECT_EQ(programFiles,
              (std::set<std::u16string>{u"Ombrel.txt", u"ZelvorBlue.rcc", u"ZelvorGreen.rcc",
                                        u"My Favorites 1.mpl", u"My Favorites 3.mpl",
                                        u"Road Trip.mpl"}));
    for (const char* name : {"ZelvorBlue.rcc", "ZelvorGreen.rcc"}) {
        std::ifstream original(Demo().skins / name, std::ios::binary),
            copied(Demo().rootA / "Flash Disk" / "Zelvor" / name, std::ios::binary);
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(copied), {}),
                  std::string(std::istreambuf_iterator<char>(original), {}));
    }
}

TEST_F(DemoShellFiles, PlaylistsNameMusicOfTheCollection) {
    std::set<std::u16string> music;
    for (const auto& row : Rows())
        if (row.excluded.empty())
            music.insert(row.path);
    const std::u16string folder = JoinDevicePath(Dev().ProgramDirectory(), u"My Playlists");
    for (const char16_t* name : {u"My Favorites 1.mpl", u"My Favorites 3.mpl", u"Road Trip.mpl"}) {
        auto file = Fs().OpenFile(JoinDevicePath(folder, name), FileMode::Read);
        ASSERT_TRUE(file) << ToUtf8(name);
        PlaylistEntryList list;
        PlaylistHeader header;
        ASSERT_TRUE(ReadPlaylist(*file, u"", list, &header));
        EXPECT_TRUE(header.magicMatches);
        EXPECT_GE(list.Count(), 2);
        for (const auto& entry : list)
            EXPECT_EQ(music.count(std::u16string(entry->Text(1))), 1u) << ToUtf8(entry->Text(1));
    }
}

} // namespace
} // namespace zelvor::testing
