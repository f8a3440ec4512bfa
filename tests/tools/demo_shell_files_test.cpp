// The files the device shell would normally provide: the translations file,
// the registry values and the two sounds of "\Windows".

#include "platform/text.h"
#include "playlists/playlist_file.h"
#include "res/string_table.h"
#include "tests/tools/demo_fixture.h"
#include "tests/tools/media_probe.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>

namespace zelvor::testing {
namespace {

// Loaded from the string table as profile names, never shown or translated.
const std::set<std::uint16_t> kProfileNames{146, 147, 148, 158, 160, 161, 162, 163};

std::vector<std::u16string> Split(std::u16string_view text, std::u16string_view separator) {
    std::vector<std::u16string> parts;
    std::size_t start = 0;
    while (true) {
        std::size_t at = text.find(separator, start);
        parts.emplace_back(text.substr(start, at - start));
        if (at == std::u16string_view::npos)
            return parts;
        start = at + separator.size();
    }
}

// The printf directives of a text, in order: "%d%s".
std::u16string Placeholders(std::u16string_view text) {
    std::u16string found;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] == u'%') {
            found += text.substr(i, 2);
            ++i;
        }
    }
    return found;
}

class DemoShellFiles : public DemoTest {
protected:

    // The lines of Ombrel.txt (without their CR LF); fails the test when the
    // file is not UTF-16LE with a byte-order mark, ending in CR LF.
    std::vector<std::u16string> OmbrelLines() {
        auto bytes = ReadDeviceFile(Fs(),
                                    JoinDevicePath(Dev().ProgramDirectory(), u"Ombrel.txt"));
        EXPECT_EQ(bytes.size() % 2, 0u);
        std::u16string text;
        for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
            text.push_back(static_cast<char16_t>(std::to_integer<unsigned>(bytes[i]) |
                                                 std::to_integer<unsigned>(bytes[i + 1]) << 8));
        if (text.empty() || text[0] != u'\xFEFF') {
            ADD_FAILURE() << "no byte-order mark FF FE";
            return {};
        }
        EXPECT_TRUE(text.ends_with(u"\r\n")) << "the last line must end with CR LF";
        auto lines = Split(std::u16string_view(text).substr(1), u"\r\n");
        EXPECT_EQ(lines.back(), u""); // what follows the last CR LF
        lines.pop_back();
        return lines;
    }
};

TEST_F(DemoShellFiles, OmbrelLinesHaveAKeyAndThreeTranslations) {
    auto lines = OmbrelLines();
    ASSERT_FALSE(lines.empty());
    for (const auto& line : lines) {
        SCOPED_TRACE(ToUtf8(line));
        EXPECT_EQ(line.find(u'\r'), std::u16string::npos); // a lone CR would end the line early
        auto fields = Split(line, u"\t");
        ASSERT_EQ(fields.size(), 4u);
        for (const auto& field : fields) {
            EXPECT_FALSE(field.empty());
            EXPECT_LE(field.size(), 255u);
        }
        for (std::size_t language = 1; language < fields.size(); ++language)
            EXPECT_EQ(Placeholders(fields[language]), Placeholders(fields[0])) << language;
    }
}

TEST_F(DemoShellFiles, OmbrelKeysAreTheUserVisibleStringTableTexts) {
    std::multiset<std::u16string> keys;
    for (const auto& line : OmbrelLines())
        keys.insert(Split(line, u"\t").front());
    for (std::uint16_t id = kFirstTextId; id <= kLastTextId; ++id) {
        auto english = FindBuiltInText(id);
        ASSERT_TRUE(english) << id;
        // The reader compares keys ignoring case, so count the same way.
        std::size_t matches = 0;
        for (const auto& key : keys)
            matches += CompareTextIgnoreCase(key, *english) == 0;
        if (kProfileNames.count(id)) {
            EXPECT_EQ(matches, 0u) << id << " is a profile name and must not be translated";
        } else {
            EXPECT_EQ(keys.count(std::u16string(*english)), 1u) << id << " needs exactly one line";
            EXPECT_EQ(matches, 1u) << id;
        }
    }
    EXPECT_EQ(keys.size(),
              static_cast<std::size_t>(kLastTextId - kFirstTextId + 1) - kProfileNames.size());
}

TEST_F(DemoShellFiles, RegistryValuesReadBack) {
    RegistryStore& registry = Dev().Registry();
    EXPECT_EQ(registry.QueryDword(RegistryRoot::LocalMachine, u"OMBREL", u"Language"), 0u);
    EXPECT_EQ(registry.QueryDword(RegistryRoot::LocalMachine, u"OMBREL", u"GUI Color"), 0u);
    EXPECT_EQ(registry.QueryString(RegistryRoot::LocalMachine,
                                   u"System\\StorageManager\\Profiles\\SDMMC", u"Folder"),
              u"Storage Card");
    EXPECT_EQ(StorageCardRootFromRegistry(registry), u"\\Storage Card");
}

TEST_F(DemoShellFiles, SoundsAreShortDistinctPcmChimes) {
    std::vector<std::vector<std::byte>> sounds;
    for (const char16_t* name : {u"\\Windows\\DeleteSong.wav", u"\\Windows\\MyFavorite.wav"}) {
        SCOPED_TRACE(ToUtf8(name));
        sounds.push_back(ReadDeviceFile(Fs(), name));
        auto wave = ProbeWave(sounds.back());
        ASSERT_TRUE(wave);
        EXPECT_EQ(wave->format, 1);
        EXPECT_EQ(wave->bits, 16);
        ASSERT_GT(wave->rate, 0);
        double seconds = static_cast<double>(wave->dataBytes) / (wave->rate * wave->channels * 2);
        EXPECT_GT(seconds, 0.1);
        EXPECT_LT(seconds, 0.5);
    }
    EXPECT_NE(sounds[0], sounds[1]);
}

TEST_F(DemoShellFiles, SkinsThatExistAreCopiedAndListed) {
    std::set<std::u16string> programFiles;
    for (const auto& row : Rows()) {
        if (row.path.starts_with(Dev().ProgramDirectory() + u"\\")) {
            EXPECT_EQ(row.type, "other");
            EXPECT_EQ(row.excluded, "not-music");
            programFiles.insert(std::u16string(DeviceNameOf(row.path)));
        }
    }
    EXPECT_EQ(programFiles,
              (std::set<std::u16string>{u"Ombrel.txt", u"ZelvorBlue.rcc", u"ZelvorGreen.rcc",
                                        u"My Favorites 1.mpl", u"My Favorites 3.mpl",
                                        u"Road Trip.mpl"}));
    for (const char16_t* name : {u"ZelvorBlue.rcc", u"ZelvorGreen.rcc"}) {
        auto copied =
            ReadDeviceFile(Fs(), JoinDevicePath(Dev().ProgramDirectory(), name));
        std::ifstream in(Demo().skins / ToUtf8(name), std::ios::binary);
        std::string original((std::istreambuf_iterator<char>(in)),
                             std::istreambuf_iterator<char>());
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(copied.data()), copied.size()),
                  original);
    }
    EXPECT_EQ(Fs().GetAttributes(
                  JoinDevicePath(Dev().ProgramDirectory(), u"ZelvorRed.rcc")),
              kInvalidAttributes);
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
